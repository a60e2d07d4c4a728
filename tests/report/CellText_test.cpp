#include "report/pages/CellText.h"
#include "report/template/TemplateReader.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"

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

namespace {

/// The text of the one cell of a detail.
QString CellOf(const QString& text, const QString& format, const TextPlace& place) {
    ReportTemplate report = ReadTemplate(
        u"t"_s,
        SmallTemplate(u"<parameters><parameter name=\"Room\" type=\"text\" prompt=\"Room\"/></parameters>"
                      "<query>S</query><query name=\"Head\">H</query>"
                      "<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"50\" format=\""_s +
                      format + u"\">"_s + text + u"</text></detail>"_s));
    ResolveFields(report, place.data);
    return TextOf(report.detail->cells.at(0), place);
}

ReportData SomeData() {
    ReportData data;
    data.queries = {Rows({u"Name"_s, u"Amount"_s},
                         {{u"ANA"_s, Decimal{u"1.0000"_s}}, {u"BEN"_s, Decimal{u"2000.0000"_s}}}),
                    Rows({u"company"_s}, {{u"HOSPITAL"_s}})};
    data.parameters = {u"204-B"_s};
    data.now = kMoment;
    return data;
}

} // namespace

TEST(TextOf, MixesWordsFieldsAndParameters) {
    const ReportData data = SomeData();
    const TextPlace place{.data = data, .row = 1};
    EXPECT_EQ(CellOf(u"{name} in {?room} of {Head.Company}"_s, {}, place), u"BEN in 204-B of HOSPITAL"_s);
}

TEST(TextOf, FormatsNumbersAndDatesAmongTheWords) {
    const ReportData data = SomeData();
    const TextPlace place{.data = data, .row = 1, .firstRow = 0, .endRow = 2};
    EXPECT_EQ(CellOf(u"{count}: {sum Amount}"_s, u"#,##0.0"_s, place), u"2.0: 2,001.0"_s);
    EXPECT_EQ(CellOf(u"{now}"_s, u"mm/dd/yyyy"_s, place), u"11/21/2026"_s);
}

TEST(TextOf, ShowsPageNumbersUnformatted) {
    const ReportData data = SomeData();
    EXPECT_EQ(CellOf(u"{page} of {pages}"_s, u"0.00"_s, {.data = data, .page = 3, .pages = 12}),
              u"3 of 12"_s);
}

TEST(TextOf, IsEmptyWhereThereAreNoRows) {
    ReportData data = SomeData();
    data.queries = {Rows({u"Name"_s, u"Amount"_s}), Rows({u"company"_s})};
    EXPECT_EQ(CellOf(u"{Name}{Head.company}"_s, {}, {.data = data}), QString());
}

TEST(ResolveFields, NamesFileAndLineOfAnUnknownField) {
    const ReportData data = SomeData();
    EXPECT_EQ(TextOfFailure([&] { CellOf(u"{Nobody}"_s, {}, {.data = data}); }),
              u"t, line 2: The rows have no field \"Nobody\"."_s);
    EXPECT_EQ(TextOfFailure([&] { CellOf(u"{sum Nobody}"_s, {}, {.data = data}); }),
              u"t, line 2: The rows have no field \"Nobody\"."_s);
    EXPECT_EQ(TextOfFailure([&] { CellOf(u"{Head.Nobody}"_s, {}, {.data = data}); }),
              u"t, line 2: The rows have no field \"Nobody\"."_s);
}

TEST(ResolveFields, NamesFileAndLineOfAGroupByAnUnknownField) {
    ReportTemplate report = ReadTemplate(
        u"t"_s, SmallTemplate(u"<query>S</query><query name=\"H\">H</query>\n<group by=\"Ward\"/>"_s));
    EXPECT_EQ(TextOfFailure([&] { ResolveFields(report, SomeData()); }),
              u"t, line 3: The rows have no field \"Ward\"."_s);
}
