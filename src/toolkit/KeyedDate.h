#pragma once

#include "text/DateTime.h"

#include <QString>

#include <optional>

/// A date as it is being keyed, "8/1/2026" or "08012026": digits in up to three parts with a slash between
/// them, and the place at which the next key goes in.
class KeyedDate {
  public:
    /// The parts in their order.
    enum Part { Month, Day, Year };

    KeyedDate(const QString& text, int place, int keyedTo);

    const QString& Text() const { return mText; }
    int Place() const { return mPlace; }
    /// The place behind the last digit that was keyed, -1 for none.
    int KeyedTo() const { return mKeyedTo; }
    /// The part in which the place lies.
    Part PartAtPlace() const;

    /// Keys a digit, or a slash (a hyphen, a point or a blank is one, too), which ends its part. A digit for
    /// which a part has no room goes to the next one, a digit within a full part takes the place of one.
    /// False for a character that has no place.
    bool Key(QChar c);
    /// Takes out a stretch. Slashes with something left behind them stay.
    void Remove(int from, int to);
    /// Takes out the digit before the place, or the slash at the very end.
    void RemoveBefore();
    /// Takes out the digit behind the place.
    void RemoveBehind();

    /// A text keyed from the first place on; nothing when one of its characters has no place.
    static std::optional<QString> Laid(const QString& text);

  private:
    int PartBegin() const;
    int PartEnd() const;
    bool KeyDigit(QChar digit);
    bool KeySlash();

    QString mText;
    int mPlace;
    int mKeyedTo;
};

/// What a keyed date comes to.
struct DateReading {
    enum class Kind {
        Empty,
        Day,
        /// A part is missing that may still be keyed.
        Unfinished,
        /// Only the year lacks digits; two of them do not tell the century.
        ShortYear,
        /// Nothing that may still be keyed makes a day of it.
        NoSuchDay,
        /// A day before the first one that is taken, or behind the last.
        OutOfRange
    };

    Kind kind = Kind::Empty;
    /// Midnight of the day; nothing for every other kind.
    std::optional<DateTime> day;

    /// Whether the text stands for neither a day nor none.
    bool IsWrong() const { return kind != Kind::Empty && kind != Kind::Day; }
    /// Whether it stays wrong whatever is keyed behind it.
    bool IsHopeless() const { return kind == Kind::NoSuchDay || kind == Kind::OutOfRange; }
};

/// The first day of the hospital server's datetime.
DateTime FirstDayOfTheServer();
/// The last one.
DateTime LastDayOfTheServer();

/// Reads a keyed text, month first, for a day of the server up to the last one that is taken.
DateReading ReadKeyedDate(const QString& text, DateTime last);

/// The text in the mask "##/##/####": a day with all its digits, anything else part by part, with blanks in
/// its empty places.
QString InDateMask(const QString& text);
