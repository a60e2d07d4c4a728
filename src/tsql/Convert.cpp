#include "tsql/Convert.h"

#include "tsql/DateText.h"
#include "tsql/Decimals.h"
#include "tsql/ServerError.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMoneyLimit = 922337203685477.5807;
// Days from the run-time's day 0 to the server's, 1900-01-01.
constexpr int kDaysToServerZero = 2;
// The server's calendar, from 1753-01-01 until before 10000-01-01, in days from 1900-01-01.
constexpr double kServerFirstDay = -53690;
constexpr double kServerDaysEnd = 2958464;

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// One conversion with all that its error texts need.
class Conversion {
  public:
    Conversion(const SqlType& from, const SqlType& to, ConversionPlace place, int style)
        : mFrom(from)
        , mTo(to)
        , mPlace(place)
        , mStyle(style) {}

    Cell Run(const Cell& value) const {
        if (std::holds_alternative<std::monostate>(value))
            return value;
        if (mTo.IsText())
            return FitText(ToText(value));
        if (mTo.IsDate())
            return ToDate(value);
        if (mTo.kind == SqlType::Kind::Float)
            return ToReal(value);
        if (mTo.IsFixed())
            return ToFixed(value);
        return mTo.IsWhole() ? ToWhole(value) : value;
    }

  private:
    [[noreturn]] void Raise(Fault fault, const QStringList& parts = {}) const {
        if (mPlace == ConversionPlace::Parameter)
            throw ServerError(Fault::ArgumentConversion, {mFrom.Name(), mTo.Name()});
        throw ServerError(fault, parts);
    }
    [[noreturn]] void RaiseNoNumber() const { Raise(Fault::ArgumentConversion, {mFrom.Name(), mTo.Name()}); }
    [[noreturn]] void RaiseOverflow() const { Raise(Fault::Overflow, {mTo.Name()}); }

    static const QByteArray& TextOf(const Cell& value) { return std::get<QByteArray>(value); }

    static double NumberOf(const Cell& value) {
        const auto* whole = std::get_if<qint64>(&value);
        return whole ? double(*whole) : std::get<double>(value);
    }

    QByteArray ToText(const Cell& value) const {
        if (mFrom.IsText())
            return TextOf(value);
        if (mFrom.IsDate())
            return DateToText(FromStored(TextOf(value)));
        if (mFrom.IsWhole())
            return QByteArray::number(std::get<qint64>(value));
        if (mFrom.kind == SqlType::Kind::Float)
            return QByteArray::number(NumberOf(value), 'g', 6);
        // Kept: the server shows money with two decimals unless it is asked otherwise.
        return DecimalText(NumberOf(value), mFrom.kind == SqlType::Kind::Money ? 2 : mFrom.scale);
    }

    QByteArray DateToText(DateTime moment) const {
        const bool dateOnly = mFrom.kind == SqlType::Kind::Date;
        if (mStyle == kDefaultStyle && dateOnly)
            return StoredDate(moment);
        const auto text = ServerDateText(moment, mStyle == kDefaultStyle ? 0 : mStyle);
        if (!text)
            Raise(Fault::UnknownStyle, {QString::number(mStyle), mFrom.Name()});
        // A date has no time to show.
        return dateOnly && mStyle != 101 ? text->left(mStyle == 100 || mStyle == 0 ? 11 : 10) : *text;
    }

    Cell FitText(QByteArray text) const {
        if (mTo.length == SqlType::kUnbounded)
            return text;
        const qint64 count = CountCharacters(text);
        if (count > mTo.length) {
            if (!mFrom.IsText() && mPlace != ConversionPlace::Parameter)
                RaiseOverflow();
            const QByteArray kept = FirstCharacters(text, mTo.length);
            const bool onlyBlanksLost = text.sliced(kept.size()).trimmed().isEmpty();
            if (mPlace == ConversionPlace::Column && !onlyBlanksLost)
                throw ServerError(Fault::TextTruncated);
            return kept;
        }
        if (mTo.kind == SqlType::Kind::Char)
            text.append(mTo.length - count, ' ');
        return text;
    }

    Cell ToDate(const Cell& value) const {
        DateTime moment;
        if (mFrom.IsDate())
            moment = FromStored(TextOf(value));
        else if (mFrom.IsText())
            moment = TextToDate(TextOf(value));
        else
            moment = NumberToDate(NumberOf(value));
        return mTo.kind == SqlType::Kind::Date ? StoredDate(moment) : StoredDateTime(moment);
    }

    DateTime NumberToDate(double days) const {
        if (!(days >= kServerFirstDay && days < kServerDaysEnd))
            RaiseOverflow();
        return DateTime::FromMilliseconds(std::llround((days + kDaysToServerZero) * double(DateTime::kDay)));
    }

    DateTime TextToDate(const QByteArray& text) const {
        const ServerDate read = ReadServerDate(text);
        if (read.outcome == ServerDate::Outcome::NoDate)
            Raise(Fault::TextToDate);
        if (read.outcome == ServerDate::Outcome::OutOfRange)
            Raise(Fault::DateOutOfRange, {mFrom.Name(), mTo.Name()});
        return read.moment;
    }

    Cell ToReal(const Cell& value) const {
        if (!mFrom.IsText())
            return NumberOf(value);
        const QByteArray text = TextOf(value).trimmed();
        if (text.isEmpty())
            return 0.0;
        const auto number = ReadNumber(text, true);
        if (!number)
            RaiseNoNumber();
        return *number;
    }

    Cell ToFixed(const Cell& value) const {
        const double exact = mFrom.IsText() ? TextToFixed(TextOf(value)) : NumberOf(value);
        const double number = RoundToScale(exact, mTo.scale);
        const double limit =
            mTo.kind == SqlType::Kind::Money ? kMoneyLimit : std::pow(10.0, mTo.precision - mTo.scale);
        if (std::fabs(number) >= limit)
            RaiseOverflow();
        return number;
    }

    double TextToFixed(const QByteArray& text) const {
        QByteArray digits = text.trimmed();
        if (mTo.kind == SqlType::Kind::Money) {
            if (digits.isEmpty())
                return 0;
            digits.replace(",", "");
            const qsizetype currency = digits.startsWith('-') || digits.startsWith('+') ? 1 : 0;
            if (digits.size() > currency && digits[currency] == '$')
                digits.remove(currency, 1);
        }
        const auto number = ReadNumber(digits, false);
        if (!number && mTo.kind == SqlType::Kind::Money)
            Raise(Fault::TextToMoney);
        if (!number)
            RaiseNoNumber();
        return *number;
    }

    Cell ToWhole(const Cell& value) const {
        if (mFrom.IsText())
            return TextToWhole(TextOf(value));
        if (mTo.kind == SqlType::Kind::Bit)
            return qint64(NumberOf(value) != 0);
        if (const auto* whole = std::get_if<qint64>(&value))
            return InRange(*whole);
        // Kept: the server rounds money to a whole number and cuts the decimals of everything else.
        const double number = NumberOf(value);
        const double whole =
            mFrom.kind == SqlType::Kind::Money ? RoundToScale(number, 0) : std::trunc(number);
        if (!(std::fabs(whole) < 9.2e18))
            RaiseOverflow();
        return InRange(static_cast<qint64>(whole));
    }

    qint64 InRange(qint64 number) const {
        if (mTo.kind == SqlType::Kind::Bit)
            return number != 0 ? 1 : 0;
        const bool fits =
            mTo.kind == SqlType::Kind::BigInt ||
            (number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max());
        if (!fits)
            RaiseOverflow();
        return number;
    }

    Cell TextToWhole(const QByteArray& text) const {
        const QByteArray digits = text.trimmed();
        if (digits.isEmpty())
            return qint64(0);
        if (mTo.kind == SqlType::Kind::Bit && digits.toLower() == "true")
            return qint64(1);
        if (mTo.kind == SqlType::Kind::Bit && digits.toLower() == "false")
            return qint64(0);
        const bool plain = std::all_of(digits.begin() + (digits[0] == '-' || digits[0] == '+' ? 1 : 0),
                                       digits.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (!plain || digits == "-" || digits == "+")
            Raise(Fault::ConversionFailed, {mFrom.Name(), QString::fromUtf8(text), mTo.Name()});
        bool ok = false;
        const qint64 number = digits.toLongLong(&ok);
        if (!ok || (mTo.kind == SqlType::Kind::Int && number != static_cast<qint32>(number)))
            Raise(Fault::TextOverflow, {mFrom.Name(), QString::fromUtf8(text), mTo.Name()});
        return InRange(number);
    }

    const SqlType& mFrom;
    const SqlType& mTo;
    ConversionPlace mPlace;
    int mStyle;
};

} // namespace

Cell Convert(const Cell& value, const SqlType& from, const SqlType& to, ConversionPlace place, int style) {
    return Conversion(from, to, place, style).Run(value);
}

bool SameForm(const SqlType& from, const SqlType& to) {
    if (from.IsNull())
        return true;
    if (from.IsText() && to.IsText()) {
        if (to.length == SqlType::kUnbounded)
            return true;
        const bool fits = from.length != SqlType::kUnbounded && from.length <= to.length;
        return fits && (to.kind != SqlType::Kind::Char ||
                        (from.kind == SqlType::Kind::Char && from.length == to.length));
    }
    if (from.kind == SqlType::Kind::Decimal && to.kind == SqlType::Kind::Decimal)
        return from.scale <= to.scale && from.precision - from.scale <= to.precision - to.scale;
    if (from.IsWhole() && to.IsWhole())
        return from.kind <= to.kind;
    return from.kind == to.kind || (from.IsNumber() && to.kind == SqlType::Kind::Float);
}

qint64 CountCharacters(QByteArrayView text) {
    return text.size() - std::count_if(text.begin(), text.end(), IsContinuation);
}

QByteArray FirstCharacters(const QByteArray& text, qint64 count) {
    qsizetype end = 0;
    while (end < text.size() && (count > 0 || IsContinuation(text[end]))) {
        if (!IsContinuation(text[end]))
            --count;
        ++end;
    }
    return text.left(end);
}
