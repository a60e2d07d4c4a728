#include "report/pages/ReportDocument.h"
#include "support/report/ReportFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

constexpr auto kDetail = R"(<detail height="10"><text x="0" y="0" width="90">{A}</text></detail>)";

std::shared_ptr<const RowData> Numbered(int count) {
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({qint64(i), u"G%1"_s.arg((i - 1) / 4)});
    return Rows({u"A"_s, u"Group"_s}, rows);
}

QString Detail() {
    return QString::fromLatin1(kDetail);
}

} // namespace

TEST(ReportDocument, HasOnePageWithoutRows) {
    const auto document = SmallDocument(Detail(), Numbered(0));
    EXPECT_EQ(document->PageCount(), 1);
    EXPECT_EQ(PageText(*document, 1), QString());
}

TEST(ReportDocument, FillsPagesWithRows) {
    const auto document = SmallDocument(Detail(), Numbered(23));
    EXPECT_EQ(document->PageCount(), 3);
    EXPECT_EQ(PageText(*document, 1), u"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n"_s);
    EXPECT_EQ(PageText(*document, 3), u"21\n22\n23\n"_s);
}

TEST(ReportDocument, KnowsThePageCountOnTheFirstPage) {
    const auto document = SmallDocument(
        u"<page-header height=\"10\"><text x=\"0\" y=\"0\" width=\"90\" show=\"several-pages\">Page {page} of {pages}</text></page-header>"_s +
            Detail() +
            u"<page-footer height=\"10\"><text x=\"0\" y=\"5\" width=\"90\">end of {page}</text></page-footer>"_s,
        Numbered(9));
    EXPECT_EQ(document->PageCount(), 2);
    EXPECT_EQ(PageText(*document, 1), u"Page 1 of 2\n1\n2\n3\n4\n5\n6\n7\n8\nend of 1\n"_s);
    EXPECT_EQ(PageText(*document, 2), u"Page 2 of 2\n9\nend of 2\n"_s);
}

TEST(ReportDocument, LeavesOutWhatIsForSeveralPagesOnASinglePage) {
    const auto document = SmallDocument(
        u"<page-header height=\"10\"><text x=\"0\" y=\"0\" width=\"90\" show=\"several-pages\">Page {page}</text></page-header>"_s +
            Detail(),
        Numbered(1));
    EXPECT_EQ(PageText(*document, 1), u"1\n"_s);
}

TEST(ReportDocument, SumsAndCountsByGroupAndReport) {
    const auto document = SmallDocument(
        u"<group by=\"Group\"><header height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{Group} has "
        u"{count}</text></header>"
        "<footer height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">up to {A}: {sum A}</text></footer></group>"
        "<report-footer height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{count}: {sum A}</text></report-footer>"_s,
        Numbered(6));
    EXPECT_EQ(PageText(*document, 1), u"G0 has 4\nup to 4: 10\nG1 has 2\nup to 6: 11\n6: 21\n"_s);
}

TEST(ReportDocument, RepeatsTheHeadsOfAGroupThatGoesOn) {
    const auto document = SmallDocument(
        u"<group by=\"Group\"><header height=\"30\"><text x=\"0\" y=\"0\" width=\"90\">{Group}</text></header>"_s +
            Detail().replace(u"height=\"10\""_s, u"height=\"30\""_s) + u"</group>"_s,
        Numbered(4));
    EXPECT_EQ(PageText(*document, 1), u"G0\n1\n2\n"_s);
    EXPECT_EQ(PageText(*document, 2), u"G0\n3\n4\n"_s);
}

TEST(ReportDocument, ListsItsGroupsWithTheirPages) {
    const auto document = SmallDocument(
        u"<group by=\"Group\"><header height=\"10\"/><group by=\"A\"><header height=\"10\"/>"_s + Detail() +
            u"</group></group>"_s,
        Numbered(6));
    QStringList told;
    for (const GroupEntry& group : document->Groups())
        told << u"%1 %2 p%3"_s.arg(group.level).arg(group.label).arg(group.page);
    EXPECT_THAT(told, ElementsAre(u"0 G0 p1"_s, u"1 1 p1"_s, u"1 2 p1"_s, u"1 3 p1"_s, u"1 4 p1"_s,
                                  u"0 G1 p2"_s, u"1 5 p2"_s, u"1 6 p2"_s));
}

TEST(ReportDocument, ALongTextMovesTheRowsBelow) {
    const auto rows = Rows(
        {u"A"_s, u"Group"_s},
        {{u"one"_s, 1}, {u"a name that goes over several lines of its narrow cell"_s, 1}, {u"three"_s, 1}});
    const auto document =
        SmallDocument(u"<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"25\">{A}</text></detail>"_s, rows);
    EXPECT_EQ(PageText(*document, 1),
              u"one\na name that\ngoes over\nseveral lines of\nits narrow cell\nthree\n"_s);
}

TEST(ReportDocument, ABandTallerThanAPageGoesOnWithoutLosingALine) {
    QString text;
    QStringList lines;
    for (int i = 1; i <= 60; ++i)
        lines << u"line %1"_s.arg(i);
    const auto document =
        SmallDocument(u"<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"_s,
                      Rows({u"A"_s}, {{lines.join(u'\n')}, {u"next"_s}}));
    ASSERT_GT(document->PageCount(), 1);
    for (int page = 1; page <= document->PageCount(); ++page)
        text += PageText(*document, page);
    EXPECT_EQ(text, lines.join(u'\n') + u"\nnext\n"_s);
}

namespace {

/// A report whose page header or footer shows a text of so many lines on line 2 of the template.
QString FailureOfEdge(const QString& edge, int lines) {
    return TextOfFailure([&] {
        SmallDocument(
            u"<parameters><parameter name=\"Name\" type=\"text\" prompt=\"Name\"/></parameters>"_s +
                u"<%1 height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{?Name}</text></%1>"_s.arg(edge) +
                Detail(),
            Numbered(40), {QStringList(lines, u"NAME"_s).join(u'\n')});
    });
}

} // namespace

TEST(ReportDocument, RefusesAPageHeaderOrFooterThatHasGrownOverThePage) {
    for (const QString& edge : {u"page-header"_s, u"page-footer"_s}) {
        EXPECT_EQ(FailureOfEdge(edge, 15), u"nothing was raised"_s);
        for (const int lines : {26, 27, 100})
            EXPECT_EQ(FailureOfEdge(edge, lines),
                      u"small.rpt, line 2: The page header and the page footer leave no room between them."_s)
                << lines;
    }
}

TEST(ReportDocument, RefusesFieldsThatTheRowsDoNotHave) {
    EXPECT_EQ(TextOfFailure([] {
                  SmallDocument(
                      u"<detail height=\"5\">\n<text x=\"0\" y=\"0\" width=\"9\">{Nobody}</text></detail>"_s,
                      Numbered(1));
              }),
              u"small.rpt, line 3: The rows have no field \"Nobody\"."_s);
}
