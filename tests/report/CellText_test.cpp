#include "report/pages/BandNumbers.h"
#include "report/pages/CellText.h"
#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The one cell of a detail over two rows.
class CellTextTest : public testing::Test {
  protected:
    QString CellOf(const QString& text, const QString& format = {}) {
        const QByteArray content =
            SmallTemplate(u"<parameters><parameter name=\"Room\" type=\"text\" prompt=\"Room\"/></parameters>"
                          "<query>S</query><query name=\"Head\">H</query>"
                          "<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"50\" format=\""_s +
                          format + u"\">"_s + text + u"</text></detail>"_s);
        const BoundTemplate report(ReadTemplate(u"t"_s, content), values, queries);
        const ReportSums sums(*queries.front(), {1}, {{0, 2}});
        return TextOf(report.Bands()[BandNumbers(0).Detail()]->cells.at(0), {.rows = *queries.front(),
                                                                             .sums = sums,
                                                                             .row = row,
                                                                             .firstRow = 0,
                                                                             .endRow = 2,
                                                                             .page = 3,
                                                                             .pages = 12});
    }

    ReportValues values{{u"204-B"_s}, *DateTime::FromFields({2026, 11, 21, 14, 5, 9, 0}), u"nurse"_s};
    QueryRows queries = {Rows({u"Name"_s, u"Amount"_s},
                              {{u"ANA"_s, Decimal{u"1.0000"_s}}, {u"BEN"_s, Decimal{u"2000.0000"_s}}}),
                         Rows({u"company"_s}, {{u"HOSPITAL"_s}, {u"another"_s}})};
    size_t row = 1;
};

} // namespace

TEST_F(CellTextTest, MixesWordsFieldsAndParameters) {
    EXPECT_EQ(CellOf(u"{name} in {?room} of {Head.Company} for {user}"_s),
              u"BEN in 204-B of HOSPITAL for nurse"_s);
}

TEST_F(CellTextTest, ShowsTheFieldOfItsRow) {
    EXPECT_EQ(CellOf(u"{Name}"_s), u"BEN"_s);
    row = 0;
    EXPECT_EQ(CellOf(u"{Name}"_s), u"ANA"_s);
}

TEST_F(CellTextTest, FormatsNumbersAndDatesAmongTheWords) {
    EXPECT_EQ(CellOf(u"{count}: {sum Amount}"_s, u"#,##0.0"_s), u"2.0: 2,001.0"_s);
    EXPECT_EQ(CellOf(u"on {now}"_s, u"mm/dd/yyyy"_s), u"on 11/21/2026"_s);
}

TEST_F(CellTextTest, FormatsParametersAndNamedQueries) {
    values.parameters = {Value(1250.5)};
    queries[1] = Rows({u"company"_s}, {{Decimal{u"7.0000"_s}}});
    EXPECT_EQ(CellOf(u"{?room} and {Head.company}"_s, u"#,##0.00"_s), u"1,250.50 and 7.00"_s);
}

TEST_F(CellTextTest, ShowsPageNumbersUnformatted) {
    EXPECT_EQ(CellOf(u"{page} of {pages}"_s, u"0.00"_s), u"3 of 12"_s);
}

TEST_F(CellTextTest, IsEmptyWhereThereAreNoRows) {
    queries = {Rows({u"Name"_s, u"Amount"_s}), Rows({u"company"_s})};
    EXPECT_EQ(CellOf(u"{Name}{Head.company}"_s), QString());
}
