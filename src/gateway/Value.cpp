#include "gateway/Value.h"

#include "text/IsDate.h"
#include "text/IsNumeric.h"
#include "text/RunTimeError.h"
#include "text/ToText.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kWholeNumbersEnd = 0x1p63;
// The days of 0100-01-01 and of 10000-01-01, counted from 1899-12-30.
constexpr double kFirstDay = -657434;
constexpr double kDaysEnd = 2958466;

template <class... Ts> struct Overloaded : Ts... { using Ts::operator()...; };
template <class... Ts> Overloaded(Ts...) -> Overloaded<Ts...>;

[[noreturn]] void RaiseNull() {
    throw RunTime::Error(RunTime::kInvalidUseOfNull);
}
[[noreturn]] void RaiseTypeMismatch() {
    throw RunTime::Error(RunTime::kTypeMismatch);
}

/// A text that is numeric as a whole, as a number. Separators, currency sign and parentheses are decoration.
double NumericTextToDouble(const QString& text) {
    if (!IsNumeric(text))
        RaiseTypeMismatch();
    QString digits;
    for (const QChar c : text) {
        if (c.isDigit() || c == u'.')
            digits += c;
    }
    const double magnitude = digits.toDouble();
    return text.contains(u'-') || text.contains(u'(') ? -magnitude : magnitude;
}

/// A number within the given bounds, the upper one not included; "not a number" lies in none.
double Within(double value, double least, double end) {
    if (!(value >= least && value < end))
        throw RunTime::Error(RunTime::kOverflow);
    return value;
}

double SerialNumber(DateTime value) {
    return double(value.Milliseconds()) / double(DateTime::kDay);
}

} // namespace

QString Value::ToText() const {
    return std::visit(Overloaded{[](std::monostate) -> QString { RaiseNull(); },
                                 [](const Decimal& v) { return DecimalToText(v.text); },
                                 [](const QString& v) { return v; },
                                 [](const auto& v) { return ::ToText(v); }},
                      mStorage);
}

QString Value::TextOrEmpty() const {
    return IsNull() ? QString() : ToText();
}

double Value::ToDouble() const {
    return std::visit(Overloaded{[](std::monostate) -> double { RaiseNull(); },
                                 [](bool v) { return v ? -1.0 : 0.0; }, [](qint64 v) { return double(v); },
                                 [](const Decimal& v) { return v.text.toDouble(); },
                                 [](double v) { return v; }, [](DateTime v) { return SerialNumber(v); },
                                 [](const QString& v) { return NumericTextToDouble(v); }},
                      mStorage);
}

qint64 Value::ToInteger() const {
    if (const auto* integer = std::get_if<qint64>(&mStorage))
        return *integer;
    return std::llrint(Within(ToDouble(), -kWholeNumbersEnd, kWholeNumbersEnd));
}

bool Value::ToBoolean() const {
    if (const auto* text = std::get_if<QString>(&mStorage)) {
        if (text->compare(u"True"_s, Qt::CaseInsensitive) == 0)
            return true;
        if (text->compare(u"False"_s, Qt::CaseInsensitive) == 0)
            return false;
    }
    return ToDouble() != 0;
}

DateTime Value::ToDate() const {
    if (const auto* date = std::get_if<DateTime>(&mStorage))
        return *date;
    if (const auto* text = std::get_if<QString>(&mStorage)) {
        if (const auto parsed = ParseDate(*text))
            return *parsed;
        RaiseTypeMismatch();
    }
    return DateTime::FromMilliseconds(
        std::llround(Within(ToDouble(), kFirstDay, kDaysEnd) * double(DateTime::kDay)));
}
