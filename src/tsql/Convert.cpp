#include "tsql/Convert.h"

#include "tsql/DateText.h"
#include "tsql/Decimals.h"
#include "tsql/ServerError.h"
#include "tsql/Units.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

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
            return FitText(value, ToText(value));
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

    /// A date is its days since 1900-01-01.
    double NumberOf(const Cell& value) const {
        if (mFrom.IsDate()) {
            const DateTime moment = FromStored(TextOf(value));
            return double(moment.DayNumber() - kDaysToServerZero) +
                   double(ServerSteps(moment)) / double(kServerStepsOfDay);
        }
        if (mFrom.IsFixed())
            return UnitsToDouble(ReadUnits(value, mFrom), mFrom.scale);
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
            return FloatToText(std::get<double>(value));
        const Units units = ReadUnits(value, mFrom);
        // Kept: the server shows money with two decimals unless it is asked otherwise.
        return mFrom.kind == SqlType::Kind::Money ? UnitsText(*Rescaled(units, mFrom.scale, 2), 2)
                                                  : UnitsText(units, mFrom.scale);
    }

    /// Six digits; an exponent has three.
    static QByteArray FloatToText(double number) {
        QByteArray text = QByteArray::number(number, 'g', 6);
        const qsizetype exponent = text.indexOf('e');
        if (exponent >= 0 && text.size() - exponent == 4)
            text.insert(exponent + 2, '0');
        return text;
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

    Cell FitText(const Cell& value, const QByteArray& text) const {
        if (mTo.length == SqlType::kUnbounded)
            return text;
        const qint64 count = CountCharacters(text);
        if (count > mTo.length) {
            if (mFrom.IsNumber() && mPlace != ConversionPlace::Parameter)
                return Padded(TooShortFor(value, text));
            const QByteArray kept = FirstCharacters(text, mTo.length);
            const bool onlyBlanksLost = text.sliced(kept.size()).trimmed().isEmpty();
            if (mPlace == ConversionPlace::Column && !onlyBlanksLost)
                throw ServerError(Fault::TextTruncated);
            return kept;
        }
        return Padded(text);
    }

    /// What a number becomes that its text has no room for.
    QByteArray TooShortFor(const Cell& value, const QByteArray& text) const {
        const bool national = mTo.kind == SqlType::Kind::NVarChar;
        if (mFrom.kind == SqlType::Kind::Int && !national)
            return "*";
        if (mFrom.kind == SqlType::Kind::Bit)
            return FirstCharacters(text, mTo.length);
        if (mFrom.kind == SqlType::Kind::Money)
            Raise(Fault::MoneyToText, {mTo.Name()});
        if (mFrom.kind == SqlType::Kind::Float)
            Raise(Fault::FloatOverflow, {mTo.Name(), QString::number(NumberOf(value), 'f', 6)});
        RaiseOverflow();
    }

    QByteArray Padded(QByteArray text) const {
        if (mTo.kind == SqlType::Kind::Char)
            text.append(mTo.length - CountCharacters(text), ' ');
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
        return mTo.kind == SqlType::Kind::Date ? StoredDate(moment) : ToDateTime(moment);
    }

    Cell ToDateTime(DateTime moment) const {
        const DateTime stepped = InServerSteps(moment);
        const int year = stepped.ToFields().year;
        if (year < ServerDate::kFirstYear || year > ServerDate::kLastYear)
            Raise(Fault::DateOutOfRange, {mFrom.Name(), mTo.Name()});
        return StoredDateTime(stepped);
    }

    DateTime NumberToDate(double days) const {
        if (!(days >= kServerFirstDay && days < kServerDaysEnd))
            RaiseOverflow();
        return DateTime::FromMilliseconds(std::llround((days + kDaysToServerZero) * double(DateTime::kDay)));
    }

    DateTime TextToDate(const QByteArray& text) const {
        const ServerDate read = ReadServerDate(text);
        const bool dateAlone = mTo.kind == SqlType::Kind::Date;
        if (read.outcome == ServerDate::Outcome::NoDate ||
            (read.outcome == ServerDate::Outcome::OutOfRange && dateAlone))
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
        const auto units = UnitsOf(value);
        const auto fixed = units ? UnitsCell(*units, mTo) : std::nullopt;
        if (!fixed)
            RaiseOverflow();
        return *fixed;
    }

    /// The value in units of the new type; nothing where they would be too many.
    std::optional<Units> UnitsOf(const Cell& value) const {
        if (mFrom.IsText())
            return TextToUnits(TextOf(value));
        if (mFrom.IsFixed() || mFrom.IsWhole())
            return Rescaled(ReadUnits(value, mFrom), mFrom.scale, mTo.scale);
        return DoubleToUnits(NumberOf(value), mTo.scale);
    }

    std::optional<Units> TextToUnits(const QByteArray& text) const {
        const bool money = mTo.kind == SqlType::Kind::Money;
        const QByteArray digits = money ? WithoutMoneySigns(text) : text.trimmed();
        // Kept: what is left of "-", "." or "$" is no money, and the server calls it 0.
        if (money && (digits.isEmpty() || digits == "-" || digits == "+" || digits == "."))
            return 0;
        const FixedText read = ReadFixed(digits, mTo.scale);
        if (!read.isNumber && money)
            Raise(Fault::TextToMoney);
        if (!read.isNumber)
            RaiseNoNumber();
        return read.units;
    }

    static QByteArray WithoutMoneySigns(const QByteArray& text) {
        QByteArray digits = text.trimmed();
        digits.replace(",", "");
        const qsizetype currency = digits.startsWith('-') || digits.startsWith('+') ? 1 : 0;
        if (digits.size() > currency && digits[currency] == '$')
            digits.remove(currency, 1);
        return digits;
    }

    Cell ToWhole(const Cell& value) const {
        if (mFrom.IsText())
            return TextToWhole(TextOf(value));
        if (mFrom.IsDate() || mFrom.kind == SqlType::Kind::Float)
            return RealToWhole(NumberOf(value));
        const Units units = ReadUnits(value, mFrom);
        if (mTo.kind == SqlType::Kind::Bit)
            return qint64(units != 0);
        // Kept: the server rounds money to a whole number and cuts the decimals of everything else.
        const Units cut = mFrom.kind == SqlType::Kind::Money ? units : CutBehind(units, mFrom.scale, 0);
        const auto whole = UnitsCell(*Rescaled(cut, mFrom.scale, 0), SqlType::Money());
        if (!whole)
            RaiseOverflow();
        return InRange(std::get<qint64>(*whole));
    }

    Cell RealToWhole(double number) const {
        if (mTo.kind == SqlType::Kind::Bit)
            return qint64(number != 0);
        const bool beyondInt = !(number > double(std::numeric_limits<qint32>::min()) - 1 &&
                                 number < double(std::numeric_limits<qint32>::max()) + 1);
        if (mTo.kind == SqlType::Kind::Int && mFrom.kind == SqlType::Kind::Float && beyondInt)
            Raise(Fault::FloatOverflow, {mTo.Name(), QString::number(number, 'f', 6)});
        // From noon on a moment counts as the next day.
        const double whole = mFrom.IsDate() ? std::floor(number + 0.5) : std::trunc(number);
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
        const bool big = mTo.kind == SqlType::Kind::BigInt;
        if (!plain || digits == "-" || digits == "+") {
            if (big)
                RaiseNoNumber();
            Raise(Fault::ConversionFailed, {mFrom.Name(), QString::fromUtf8(text), mTo.Name()});
        }
        bool ok = false;
        const qint64 number = digits.toLongLong(&ok);
        if (!ok && big)
            RaiseOverflow();
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

void RequireConvertible(const SqlType& from, const SqlType& to, bool asked) {
    const bool dayAndNumber = (from.kind == SqlType::Kind::Date && to.IsNumber()) ||
                              (from.IsNumber() && to.kind == SqlType::Kind::Date);
    if (dayAndNumber)
        throw ServerError(asked ? Fault::ExplicitConversion : Fault::OperandClash, {from.Name(), to.Name()});
    if (from.kind == SqlType::Kind::DateTime && to.IsNumber() && !asked)
        throw ServerError(Fault::ImplicitConversion, {from.Name(), to.Name()});
}

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
    if (to.kind == SqlType::Kind::Decimal) {
        const bool units = from.kind == SqlType::Kind::Decimal || from.kind == SqlType::Kind::Int ||
                           from.kind == SqlType::Kind::Bit;
        return units && from.scale == to.scale && from.precision <= to.precision &&
               from.IsWide() == to.IsWide();
    }
    if (from.IsWhole() && to.IsWhole())
        return from.kind <= to.kind;
    return from.kind == to.kind;
}

qint64 CountCharacters(QByteArrayView text) {
    return text.size() - std::count_if(text.begin(), text.end(), IsContinuation);
}

QByteArray FirstCharacters(const QByteArray& text, qint64 count) {
    // No text has more characters than bytes.
    if (text.size() <= count)
        return text;
    qsizetype end = 0;
    while (end < text.size() && (count > 0 || IsContinuation(text[end]))) {
        if (!IsContinuation(text[end]))
            --count;
        ++end;
    }
    return text.left(end);
}
