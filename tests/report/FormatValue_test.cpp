#include "report/pages/FormatValue.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Formatted {
    std::string name;
    Value value;
    QString format;
    QString text;
};

class FormatValueTest : public testing::TestWithParam<Formatted> {};

const DateTime kMoment = *DateTime::FromFields({2026, 11, 21, 14, 5, 9, 0});

} // namespace

TEST_P(FormatValueTest, GivesTheText) {
    EXPECT_EQ(FormatValue(GetParam().value, GetParam().format), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, FormatValueTest,
    testing::Values(
        Formatted{"Null", Value(), u"0.00"_s, u""_s},
        Formatted{"MoneyInANumberFormat", Decimal{u"1250.5000"_s}, u"#,##0.00"_s, u"1,250.50"_s},
        Formatted{"MoneyWithoutFormat", Decimal{u"1250.5000"_s}, u""_s, u"1250.5"_s},
        Formatted{"NoDecimalsToShow", Value(1250.0), u"#,##0.##"_s, u"1,250"_s},
        Formatted{"OneDecimalToShow", Value(1250.5), u"#,##0.##"_s, u"1,250.5"_s},
        Formatted{"MoreDecimalsThanShown", Value(-0.126), u"#,##0.##"_s, u"-0.13"_s},
        Formatted{"ZeroKeepsItsDigit", Value(0), u"#,##0.##"_s, u"0"_s},
        Formatted{"ADecimalThatAlwaysShows", Value(10), u"0.0#"_s, u"10.0"_s},
        Formatted{"WholeNumber", Value(7), u"0.00"_s, u"7.00"_s},
        Formatted{"NumericText", Value(u"4"_s), u"0.00"_s, u"4.00"_s},
        Formatted{"EmptyTextStaysEmpty", Value(u""_s), u"0.00"_s, u""_s},
        Formatted{"OtherTextStays", Value(u"none"_s), u"0.00"_s, u"none"_s},
        Formatted{"DateInADateFormat", kMoment, u"mm/dd/yyyy hh:mm AM/PM"_s, u"11/21/2026 02:05 PM"_s},
        Formatted{"DateInANumberFormatStaysADate", kMoment, u"0.00"_s, u"11/21/2026 2:05:09 PM"_s},
        Formatted{"DateWithoutFormat", kMoment, u""_s, u"11/21/2026 2:05:09 PM"_s},
        Formatted{"DateText", Value(u"2026-11-21"_s), u"mmm d"_s, u"Nov 21"_s},
        Formatted{"TextThatIsNoDateStays", Value(u"soon"_s), u"mm/dd/yyyy"_s, u"soon"_s},
        Formatted{"NumberInADateFormatStays", Value(7), u"mm/dd/yyyy"_s, u"7"_s},
        Formatted{"Bool", Value(true), u""_s, u"True"_s}),
    CaseName());
