#include "text/Format.h"

#include "text/RunTimeError.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSignificantDigits = 15;

/// A non-negative number as its 15 significant digits and the position of the decimal point among them.
struct DecimalText {
    QByteArray digits;
    int point = 0;
};

DecimalText ToDecimalText(double number) {
    const QByteArray text = QByteArray::number(number, 'e', kSignificantDigits - 1);
    const qsizetype e = text.indexOf('e');
    DecimalText decimal;
    decimal.digits = text.left(e);
    decimal.digits.remove(1, 1);
    decimal.point = text.mid(e + 1).toInt() + 1;
    return decimal;
}

/// Puts zeros in front so that the point stands at or behind the first digit.
void PadFront(DecimalText& decimal) {
    if (decimal.point > 0)
        return;
    decimal.digits.prepend(QByteArray(1 - decimal.point, '0'));
    decimal.point = 1;
}

/// Adds one to the last digit, carrying to the left.
void Increment(DecimalText& decimal) {
    for (qsizetype i = decimal.digits.size() - 1; i >= 0; --i) {
        if (decimal.digits[i] != '9') {
            ++decimal.digits[i];
            return;
        }
        decimal.digits[i] = '0';
    }
    decimal.digits.prepend('1');
    ++decimal.point;
}

/// The number's magnitude with exactly that many decimals, half away from zero.
DecimalText RoundTo(double magnitude, int decimals) {
    DecimalText decimal = ToDecimalText(magnitude);
    PadFront(decimal);
    const qsizetype kept = decimal.point + decimals;
    if (decimal.digits.size() <= kept) {
        decimal.digits.append(QByteArray(kept - decimal.digits.size(), '0'));
        return decimal;
    }
    const bool up = decimal.digits[kept] >= '5';
    decimal.digits.truncate(kept);
    if (up)
        Increment(decimal);
    return decimal;
}

QByteArray GroupThousands(const QByteArray& integer) {
    QByteArray grouped = integer;
    for (qsizetype i = grouped.size() - 3; i > 0; i -= 3)
        grouped.insert(i, ',');
    return grouped;
}

constexpr std::array kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
constexpr std::array kDays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

QString Number(int value, qsizetype width) {
    return QString::number(value).rightJustified(static_cast<int>(width), u'0');
}

/// Day of the week, 0 for Sunday; 1899-12-30 was a Saturday.
int WeekDay(DateTime moment) {
    return static_cast<int>(((moment.DayNumber() + 6) % 7 + 7) % 7);
}

QString NameOrNumber(const char* name, int value, qsizetype width) {
    if (width <= 2)
        return Number(value, width);
    const QString whole = QString::fromLatin1(name);
    return width == 3 ? whole.left(3) : whole;
}

/// The pattern in lower case, letter for letter, so that a place in it is the same place in the pattern.
QString LowerLetters(QString pattern) {
    for (QChar& letter : pattern)
        letter = letter.toLower();
    return pattern;
}

/// One pass over a date pattern. Minutes are told from months by the field before them.
class DatePattern {
  public:
    DatePattern(DateTime moment, const QString& pattern)
        : mMoment(moment)
        , mFields(moment.ToFields())
        , mPattern(pattern)
        , mLower(LowerLetters(pattern))
        , mTwelveHours(mLower.contains("am/pm"_L1)) {}

    QString Text() {
        while (mAt < mLower.size())
            Next();
        return mResult;
    }

  private:
    void Next() {
        if (QStringView(mLower).mid(mAt).startsWith("am/pm"_L1)) {
            mResult += mFields.hour < 12 ? "AM"_L1 : "PM"_L1;
            mAt += 5;
            return;
        }
        const QChar letter = mLower[mAt];
        qsizetype width = 1;
        while (mAt + width < mLower.size() && mLower[mAt + width] == letter)
            ++width;
        if (!"ymdhns"_L1.contains(letter)) {
            mResult += mPattern.mid(mAt, width);
        } else {
            mResult += Field(letter, width);
            mAfterHours = letter == u'h';
        }
        mAt += width;
    }

    QString Field(QChar letter, qsizetype width) const {
        switch (letter.unicode()) {
        case u'y':
            return width <= 2 ? Number(mFields.year % 100, 2) : Number(mFields.year, 4);
        case u'm':
            if (mAfterHours)
                return Number(mFields.minute, width);
            return NameOrNumber(kMonths[static_cast<size_t>(mFields.month - 1)], mFields.month, width);
        case u'd':
            return NameOrNumber(kDays[static_cast<size_t>(WeekDay(mMoment))], mFields.day, width);
        case u'h':
            return Number(mTwelveHours ? (mFields.hour + 11) % 12 + 1 : mFields.hour, width);
        case u'n':
            return Number(mFields.minute, width);
        default:
            return Number(mFields.second, width);
        }
    }

    DateTime mMoment;
    DateTime::Fields mFields;
    /// As it was given; what stands for itself is taken from here.
    QString mPattern;
    /// The fields are read from here, without regard to case.
    QString mLower;
    bool mTwelveHours;
    QString mResult;
    qsizetype mAt = 0;
    bool mAfterHours = false;
};

} // namespace

QString Format(double number, QStringView pattern) {
    if (!std::isfinite(number))
        throw RunTime::Error(RunTime::kOverflow);
    const qsizetype pointAt = pattern.indexOf(u'.');
    const QStringView integerPattern = pointAt < 0 ? pattern : pattern.left(pointAt);
    const int decimals = pointAt < 0 ? 0 : static_cast<int>(pattern.size() - pointAt - 1);
    const DecimalText rounded = RoundTo(std::fabs(number), decimals);
    QByteArray integer = rounded.digits.left(rounded.point);
    while (integer.size() > 1 && integer.startsWith('0'))
        integer.remove(0, 1);
    integer = integer.rightJustified(integerPattern.count(u'0'), '0');
    if (integerPattern.contains(u','))
        integer = GroupThousands(integer);
    QByteArray text = integer;
    if (decimals > 0)
        text += '.' + rounded.digits.mid(rounded.point);
    const bool isZero = rounded.digits.count('0') == rounded.digits.size();
    if (number < 0 && !isZero)
        text.prepend('-');
    return QString::fromLatin1(text);
}

QString Format(DateTime moment, QStringView pattern) {
    return DatePattern(moment, pattern.toString()).Text();
}
