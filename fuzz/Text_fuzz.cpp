#include "fuzz/Fuzz.h"
#include "gateway/Value.h"
#include "support/FixedClock.h"
#include "text/DateDiff.h"
#include "text/Format.h"
#include "text/IsDate.h"
#include "text/IsNumeric.h"
#include "text/TextOrder.h"
#include "text/ToText.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "text/Val.h"
#include "tsql/Convert.h"
#include "tsql/DateText.h"

#include <array>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

// What the run-time and the server make of texts, numbers and dates. An input is eight bytes of a number, a
// line, and what stands behind it.

namespace {

void CheckNumber(double number, const QString& pattern) {
    const QString text = ToText(number);
    if (std::isfinite(number) && std::fabs(number) < 1e14 && IsNumeric(text))
        Require(std::fabs(Val(text) - number) <= std::fabs(number) * 1e-14, "a number's text is the number");
    Allowing([&] { Format(number, pattern); });
    const Value value(number);
    Allowing([&] { value.ToInteger(); });
    Allowing([&] {
        const DateTime moment = value.ToDate();
        Format(moment, pattern);
        Value(moment).ToText();
    });
}

void CheckDate(const QString& text) {
    const auto date = ParseDate(text);
    Require(IsDate(text) == date.has_value(), "a date is what can be read as one");
    if (date)
        Require(ParseDate(ToText(*date)) == date, "a date's text is the date");
    const ServerDate server = ReadServerDate(text.toUtf8());
    if (server.outcome != ServerDate::Outcome::Read)
        return;
    Require(FromStored(StoredDateTime(server.moment)) == server.moment, "a stored date is the date");
    for (const int style : {0, 100, 101, 120, 121})
        Require(ServerDateText(server.moment, style).has_value(), "a known style gives a text");
    if (date)
        DateDiff(DateInterval::Year, *date, server.moment);
}

void CheckValue(const Value& value) {
    Allowing([&] { value.ToDouble(); });
    Allowing([&] { value.ToInteger(); });
    Allowing([&] { value.ToBoolean(); });
    Allowing([&] { value.ToDate(); });
    value.TextOrEmpty();
}

void CheckText(const QString& text) {
    Val(text);
    DecimalToText(text);
    Require(Trim(Trim(text)) == Trim(text), "trimmed once is trimmed");
    Require(UCase(text).size() == text.size(), "capitals are as many as the letters");
    CheckValue(Value(text));
    CheckDate(text);
}

void CheckOrder(const QString& a, const QString& b) {
    const auto sign = [](int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; };
    Require(CompareText(a, a) == 0, "a text is itself");
    Require(sign(CompareText(a, b)) == -sign(CompareText(b, a)), "the order has one direction");
}

/// A text put into a value, a column or a parameter of some type. One of the thirty for each input: most of
/// them raise an error, which takes longer than all else.
void CheckConversion(const QString& text, std::uint8_t which) {
    static const std::array types = {SqlType::Bit(),   SqlType::Int(),          SqlType::BigInt(),
                                     SqlType::Money(), SqlType::Decimal(18, 4), SqlType::Decimal(38, 10),
                                     SqlType::Float(), SqlType::Date(),         SqlType::DateTime(),
                                     SqlType::Text(10)};
    static constexpr std::array places = {ConversionPlace::Expression, ConversionPlace::Column,
                                          ConversionPlace::Parameter};
    const SqlType from = SqlType::Text(qBound(1, int(text.size()), 8000));
    Allowing([&] {
        Convert(Cell(text.toUtf8()), from, types.at(which % types.size()),
                places.at(which / types.size() % places.size()));
    });
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto clock = FixedClock(*DateTime::FromFields({2026, 11, 21, 14, 2, 3, 456}));
    double number = 0;
    if (size < sizeof number)
        return 0;
    std::memcpy(&number, data, sizeof number);
    const QString text = QString::fromUtf8(BytesOf(data + sizeof number, size - sizeof number));
    const QString first = text.section(u'\n', 0, 0);
    const QString rest = text.section(u'\n', 1);
    CheckNumber(number, first);
    CheckText(first);
    CheckText(rest);
    CheckOrder(first, rest);
    CheckConversion(first, data[0]);
    return 0;
}
