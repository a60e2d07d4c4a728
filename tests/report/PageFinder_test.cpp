#include "report/output/PageFinder.h"
#include "report/template/TemplateAttributes.h"
#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Three pages of two rows, each with a name and a code.
std::shared_ptr<const ReportDocument> Names() {
    return SmallDocument(
        u"<page-header height=\"10\"><text x=\"0\" y=\"0\" width=\"90\">Page {page}</text></page-header>"
        "<detail height=\"45\"><text x=\"0\" y=\"0\" width=\"20\" height=\"45\">{Name}</text><text x=\"50\" y=\"0\" width=\"40\">{Code}</text></detail>"_s,
        Rows({u"Name"_s, u"Code"_s}, {{u"ANA"_s, u"H1C"_s},
                                      {u"DELA CRUZ, JUAN MIGUEL"_s, u"H2C"_s},
                                      {u"ana maria"_s, u"H3C"_s},
                                      {u"BEN"_s, u"H4C"_s},
                                      {u"DANA"_s, u"H5C"_s}}));
}

/// The pages on which a text is found, one after the other, until it comes again where it came first.
QString PagesOf(const QString& text) {
    const auto document = Names();
    QString pages;
    std::optional<CellPosition> at;
    for (int i = 0; i < 6; ++i) {
        const auto found = FindText(*document, text, at);
        if (!found)
            return pages + u'-';
        pages += QString::number(found->position.page);
        at = found->position;
    }
    return pages;
}

} // namespace

TEST(FindText, FindsInAnyLetterCaseAndGoesOnAtTheStart) {
    EXPECT_EQ(PagesOf(u"ANA"_s), u"123123"_s);
}

TEST(FindText, FindsSeveralOnOnePage) {
    EXPECT_EQ(PagesOf(u"h"_s), u"112231"_s);
}

TEST(FindText, FindsOneThatStandsAloneAgain) {
    EXPECT_EQ(PagesOf(u"BEN"_s), u"222222"_s);
}

TEST(FindText, FindsATextThatWraps) {
    EXPECT_EQ(PagesOf(u"cruz, juan miguel"_s), u"111111"_s);
}

TEST(FindText, FindsInPageHeaders) {
    EXPECT_EQ(PagesOf(u"page 3"_s), u"333333"_s);
}

TEST(FindText, FindsNothing) {
    EXPECT_EQ(PagesOf(u"nobody"_s), u"-"_s);
    EXPECT_EQ(PagesOf({}), u"-"_s);
}

namespace {

/// One cell of sixty lines, which takes several pages.
std::shared_ptr<const ReportDocument> OneTallCell() {
    QStringList lines;
    for (int i = 1; i <= 60; ++i)
        lines << u"line %1."_s.arg(i);
    return SmallDocument(u"<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"_s,
                         Rows({u"A"_s}, {{lines.join(u"\r\n"_s)}}));
}

} // namespace

TEST(FindText, FindsOnThePageOfATallCellThatShowsTheText) {
    const auto document = OneTallCell();
    ASSERT_GT(document->PageCount(), 1);
    for (int i = 1; i <= 60; ++i) {
        const QString text = u"line %1."_s.arg(i);
        const auto found = FindText(*document, text, std::nullopt);
        ASSERT_TRUE(found.has_value()) << i;
        EXPECT_TRUE(PageText(*document, found->position.page).contains(text)) << i;
        const QRectF page(QPointF(), document->PageSize());
        EXPECT_TRUE(page.contains(found->box)) << i;
        EXPECT_EQ(FindText(*document, text, found->position)->position.page, found->position.page) << i;
    }
}

TEST(FindText, FindsATextThatGoesOverThePagesEndWhereItBegins) {
    const auto document = OneTallCell();
    const auto lines = PageText(*document, 1).count(u'\n');
    const QString text = u"line %1.\nline %2."_s.arg(lines).arg(lines + 1);
    EXPECT_EQ(FindText(*document, text, std::nullopt)->position.page, 1);
    EXPECT_EQ(FindText(*document, text, CellPosition{1, 0})->position.page, 1);
}

TEST(FindText, TellsWhereTheCellStands) {
    const auto found = FindText(*Names(), u"H2C"_s, std::nullopt);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->position.page, 1);
    EXPECT_NEAR(found->box.left(), MillimetresToPoints(50), 0.01);
    EXPECT_NEAR(found->box.top(), MillimetresToPoints(55), 0.01);
}
