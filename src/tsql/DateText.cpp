#include "tsql/DateText.h"

#include <array>
#include <string_view>
#include <vector>

namespace {

constexpr std::array<std::string_view, 12> kShortMonths = {"jan", "feb", "mar", "apr", "may", "jun",
                                                           "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr std::array<std::string_view, 12> kLongMonths = {"january",   "february", "march",    "april",
                                                          "may",       "june",     "july",     "august",
                                                          "september", "october",  "november", "december"};
constexpr DateTime::Fields kServerDayZero = {1900, 1, 1, 0, 0, 0, 0};

void PutDigits(char* at, int number, int width) {
    for (int i = width - 1; i >= 0; --i) {
        at[i] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
}

QByteArray Padded(int number, int width, char fill = '0') {
    return QByteArray::number(number).rightJustified(width, fill);
}

int GetDigits(QByteArrayView text, qsizetype at, int width) {
    int number = 0;
    for (qsizetype i = at; i < at + width; ++i) {
        const char c = i < text.size() ? text[i] : '0';
        number = number * 10 + (c - '0');
    }
    return number;
}

/// One number, word or mark of a date text.
struct Part {
    enum class Kind { Number, Word, Mark } kind = Kind::Mark;
    QByteArray text;
    int number = 0;
};

bool IsDigitByte(char c) {
    return c >= '0' && c <= '9';
}
bool IsLetterByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::vector<Part> Split(QByteArrayView text) {
    std::vector<Part> parts;
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype begin = i;
        Part part;
        if (text[i] == ' ') {
            ++i;
            continue;
        }
        if (IsDigitByte(text[i])) {
            part.kind = Part::Kind::Number;
            while (i < text.size() && IsDigitByte(text[i]))
                ++i;
        } else if (IsLetterByte(text[i])) {
            part.kind = Part::Kind::Word;
            while (i < text.size() && IsLetterByte(text[i]))
                ++i;
        } else {
            ++i;
        }
        part.text = text.sliced(begin, i - begin).toByteArray().toLower();
        part.number = part.kind == Part::Kind::Number ? part.text.left(9).toInt() : 0;
        parts.push_back(part);
    }
    return parts;
}

class DateReader {
  public:
    explicit DateReader(QByteArrayView text)
        : mParts(Split(text)) {}

    ServerDate Read() {
        if (mParts.empty())
            return {ServerDate::Outcome::Read, *DateTime::FromFields(kServerDayZero)};
        const bool timeAlone = BeginsTime();
        if (!timeAlone && !ReadDate())
            return {};
        if (mAt < mParts.size() && !ReadTime())
            return {};
        if (mAt != mParts.size())
            return {};
        const auto moment = DateTime::FromFields(mFields);
        return moment ? ServerDate{ServerDate::Outcome::Read, *moment}
                      : ServerDate{ServerDate::Outcome::OutOfRange, {}};
    }

  private:
    bool IsNumber(size_t i) const { return i < mParts.size() && mParts[i].kind == Part::Kind::Number; }
    bool IsWord(size_t i) const { return i < mParts.size() && mParts[i].kind == Part::Kind::Word; }
    bool IsMark(size_t i, std::string_view marks) const {
        return i < mParts.size() && mParts[i].kind == Part::Kind::Mark &&
               marks.find(mParts[i].text[0]) != std::string_view::npos;
    }
    bool IsHalfOfDay(size_t i) const {
        return IsWord(i) && (mParts[i].text == "am" || mParts[i].text == "pm");
    }

    bool BeginsTime() const { return IsNumber(mAt) && (IsMark(mAt + 1, ":") || IsHalfOfDay(mAt + 1)); }

    void SetYear(const Part& part) {
        mFields.year = part.number;
        if (part.text.size() <= 2)
            mFields.year += part.number < 50 ? 2000 : 1900;
    }

    bool ReadDate() {
        const bool marked = IsMark(mAt + 1, "/-.");
        if (IsNumber(mAt) && marked && !IsWord(mAt + 2))
            return ReadNumericDate();
        // In "2026 21 Nov" the year's number is no run of digits that stands for a date of its own.
        const bool namedBehind = IsNumber(mAt + 1) && IsWord(mAt + 2) && !IsHalfOfDay(mAt + 2);
        if (IsNumber(mAt) && !marked && !IsWord(mAt + 1) && !namedBehind)
            return ReadRunOfDigits();
        return ReadNamedMonth();
    }

    bool ReadNumericDate() {
        if (!IsNumber(mAt + 2) || !IsMark(mAt + 3, "/-.") || !IsNumber(mAt + 4))
            return false;
        const bool yearFirst = mParts[mAt].text.size() == 4;
        const Part& year = mParts[yearFirst ? mAt : mAt + 4];
        if (year.text.size() != 4 && year.text.size() > 2)
            return false;
        SetYear(year);
        mFields.month = mParts[yearFirst ? mAt + 2 : mAt].number;
        mFields.day = mParts[yearFirst ? mAt + 4 : mAt + 2].number;
        mAt += 5;
        if (yearFirst && IsWord(mAt) && mParts[mAt].text == "t" && IsNumber(mAt + 1))
            ++mAt;
        return true;
    }

    bool ReadRunOfDigits() {
        const QByteArray& digits = mParts[mAt].text;
        mFields.month = 1;
        mFields.day = 1;
        if (digits.size() == 4) {
            mFields.year = mParts[mAt].number;
        } else if (digits.size() == 8 || digits.size() == 6) {
            Part year;
            year.text = digits.chopped(4);
            year.number = year.text.toInt();
            SetYear(year);
            mFields.month = GetDigits(digits, digits.size() - 4, 2);
            mFields.day = GetDigits(digits, digits.size() - 2, 2);
        } else {
            return false;
        }
        ++mAt;
        return true;
    }

    bool ReadNamedMonth() {
        std::vector<Part> numbers;
        bool named = false;
        while (mAt < mParts.size() && numbers.size() < 2 && !BeginsTime()) {
            if (IsNumber(mAt))
                numbers.push_back(mParts[mAt]);
            else if (IsWord(mAt) && !named && (mFields.month = MonthNamed(mParts[mAt].text)) > 0)
                named = true;
            else if (!IsMark(mAt, ",-"))
                return false;
            ++mAt;
        }
        if (!named && IsWord(mAt) && (mFields.month = MonthNamed(mParts[mAt].text)) > 0) {
            named = true;
            ++mAt;
        }
        if (!named || numbers.empty())
            return false;
        if (numbers.size() == 1) {
            // A month and its year alone mean the first day.
            SetYear(numbers[0]);
            mFields.day = 1;
            return numbers[0].text.size() == 4;
        }
        const bool yearFirst = numbers[0].text.size() == 4;
        SetYear(numbers[yearFirst ? 0 : 1]);
        mFields.day = numbers[yearFirst ? 1 : 0].number;
        return true;
    }

    static int MonthNamed(const QByteArray& word) {
        for (size_t i = 0; i < kShortMonths.size(); ++i) {
            if (word == QByteArrayView(kShortMonths[i]) || word == QByteArrayView(kLongMonths[i]))
                return static_cast<int>(i) + 1;
        }
        return 0;
    }

    bool ReadTime() {
        if (!BeginsTime())
            return false;
        mFields.hour = mParts[mAt++].number;
        if (IsMark(mAt, ":") && (!ReadBehindMark(mFields.minute)))
            return false;
        if (IsMark(mAt, ":") && (!ReadBehindMark(mFields.second)))
            return false;
        if (IsMark(mAt, ".:") && !ReadFraction())
            return false;
        return !IsHalfOfDay(mAt) || ReadHalfOfDay();
    }

    bool ReadBehindMark(int& field) {
        if (!IsNumber(mAt + 1))
            return false;
        field = mParts[mAt + 1].number;
        mAt += 2;
        return true;
    }

    bool ReadFraction() {
        if (!IsNumber(mAt + 1))
            return false;
        // Behind a point stands a fraction, behind a colon a count of milliseconds.
        const QByteArray& digits = mParts[mAt + 1].text;
        const bool fraction = IsMark(mAt, ".");
        mFields.millisecond = (fraction ? digits.leftJustified(3, '0').left(3) : digits.left(4)).toInt();
        mAt += 2;
        return true;
    }

    bool ReadHalfOfDay() {
        if (mFields.hour > 12)
            return mParts[mAt++].text == "pm";
        const bool afternoon = mParts[mAt++].text == "pm";
        mFields.hour = mFields.hour % 12 + (afternoon ? 12 : 0);
        return true;
    }

    std::vector<Part> mParts;
    size_t mAt = 0;
    DateTime::Fields mFields = kServerDayZero;
};

} // namespace

QByteArray StoredDate(DateTime moment) {
    return StoredDateTime(moment).left(10);
}

QByteArray StoredDateTime(DateTime moment) {
    const DateTime::Fields f = moment.ToFields();
    QByteArray text("0000-00-00 00:00:00.000");
    char* at = text.data();
    PutDigits(at, f.year, 4);
    PutDigits(at + 5, f.month, 2);
    PutDigits(at + 8, f.day, 2);
    PutDigits(at + 11, f.hour, 2);
    PutDigits(at + 14, f.minute, 2);
    PutDigits(at + 17, f.second, 2);
    PutDigits(at + 20, f.millisecond, 3);
    return text;
}

DateTime FromStored(QByteArrayView stored) {
    DateTime::Fields fields{
        GetDigits(stored, 0, 4), GetDigits(stored, 5, 2), GetDigits(stored, 8, 2), 0, 0, 0, 0};
    if (stored.size() > 10) {
        fields.hour = GetDigits(stored, 11, 2);
        fields.minute = GetDigits(stored, 14, 2);
        fields.second = GetDigits(stored, 17, 2);
        fields.millisecond = GetDigits(stored, 20, 3);
    }
    return DateTime::FromFields(fields).value_or(DateTime());
}

qint64 ServerSteps(DateTime moment) {
    // A step has ten thirds of a millisecond.
    return ((moment.Milliseconds() - moment.DateOnly().Milliseconds()) * 3 + 5) / 10;
}

DateTime InServerSteps(DateTime moment) {
    return DateTime::FromMilliseconds(moment.DateOnly().Milliseconds() + (ServerSteps(moment) * 10 + 1) / 3);
}

ServerDate ReadServerDate(QByteArrayView text) {
    return DateReader(text).Read();
}

std::optional<QByteArray> ServerDateText(DateTime moment, int style) {
    const DateTime::Fields f = moment.ToFields();
    switch (style) {
    case 0:
    case 100: {
        const std::string_view month = kShortMonths[static_cast<size_t>(f.month - 1)];
        QByteArray name(month.data(), 3);
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
        const int hour = f.hour % 12 == 0 ? 12 : f.hour % 12;
        return name + ' ' + Padded(f.day, 2, ' ') + ' ' + Padded(f.year, 4) + ' ' + Padded(hour, 2, ' ') +
               ':' + Padded(f.minute, 2) + (f.hour < 12 ? "AM" : "PM");
    }
    case 101:
        return Padded(f.month, 2) + '/' + Padded(f.day, 2) + '/' + Padded(f.year, 4);
    case 120:
        return StoredDateTime(moment).left(19);
    case 121:
        return StoredDateTime(moment);
    default:
        return std::nullopt;
    }
}
