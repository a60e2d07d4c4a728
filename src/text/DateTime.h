#pragma once

#include <QtGlobal>

#include <compare>
#include <optional>

/// A date with a time of day as clerks and the hospital's server mean it: local, without a time zone.
///
/// Held as whole milliseconds since 1899-12-30 00:00, so the default value is the run-time's date 0, which
/// the hospital's records use for "no date". Copies are as cheap as a number; a row set may hold a million of
/// them.
class DateTime {
  public:
    /// The calendar fields of a moment; month and day count from 1.
    struct Fields {
        int year = 1899;
        int month = 12;
        int day = 30;
        int hour = 0;
        int minute = 0;
        int second = 0;
        int millisecond = 0;
    };

    constexpr DateTime() = default;

    /// The moment with these fields; nothing when no such moment exists (month 13, 29 February 2026, hour
    /// 24). Years run from 1 to 9999.
    static std::optional<DateTime> FromFields(const Fields& fields);

    /// The moment that many milliseconds after 1899-12-30 00:00.
    static constexpr DateTime FromMilliseconds(qint64 milliseconds) { return DateTime(milliseconds); }

    Fields ToFields() const;
    constexpr qint64 Milliseconds() const { return mMilliseconds; }

    /// The same day at midnight.
    DateTime DateOnly() const;
    /// Days since 1899-12-30, the time of day not counted.
    qint64 DayNumber() const;
    /// This moment, moved by whole days.
    constexpr DateTime AddDays(qint64 days) const { return DateTime(mMilliseconds + days * kDay); }
    /// True when the moment lies at midnight, which the run-time shows as a date without a time.
    bool IsMidnight() const;

    friend constexpr auto operator<=>(DateTime, DateTime) = default;

    static constexpr qint64 kDay = 24LL * 60 * 60 * 1000;

  private:
    constexpr explicit DateTime(qint64 milliseconds)
        : mMilliseconds(milliseconds) {}

    qint64 mMilliseconds = 0;
};
