#include "report/pages/ReportFont.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

CellStyle Style(double size = 9) {
    CellStyle style;
    style.families = QStringList{u"Liberation Sans"_s, u"DejaVu Sans"_s};
    style.size = size;
    return style;
}

} // namespace

TEST(ReportFont, MeasuresTextsAsTheSumOfTheirCharacters) {
    const ReportFont font(Style());
    EXPECT_NEAR(font.Width(u"AV"), font.Width(u"A") + font.Width(u"V"), 1e-9);
    EXPECT_NEAR(font.Width(u"1234"), 4 * font.Width(u"8"), 1e-9);
    EXPECT_GT(font.Width(u"ñ"), 0);
}

TEST(ReportFont, MeasuresGrowWithTheSize) {
    const ReportFont small(Style(9));
    const ReportFont large(Style(18));
    EXPECT_NEAR(large.Width(u"Dialyzer"), 2 * small.Width(u"Dialyzer"), 1e-6);
    EXPECT_NEAR(large.LineHeight(), 2 * small.LineHeight(), 1e-6);
}

TEST(ReportFont, MeasuresCharactersBeyondLatin) {
    const ReportFont font(Style());
    EXPECT_GT(font.Width(u"₱100"), font.Width(u"100"));
}

TEST(ReportFont, WrapsAtBlanks) {
    const ReportFont font(Style());
    const double width = font.Width(u"HEMODIALYSIS");
    EXPECT_THAT(font.Wrap(u"HEMODIALYSIS WITH LOW DOSE HEPARIN"_s, width),
                ElementsAre(u"HEMODIALYSIS"_s, u"WITH LOW"_s, u"DOSE"_s, u"HEPARIN"_s));
    EXPECT_THAT(font.Wrap(u"ONE  TWO"_s, font.Width(u"ONE T")), ElementsAre(u"ONE"_s, u"TWO"_s));
}

TEST(ReportFont, KeepsATextThatFitsExactly) {
    const ReportFont font(Style());
    EXPECT_THAT(font.Wrap(u"FOUR HOURS"_s, font.Width(u"FOUR HOURS")), ElementsAre(u"FOUR HOURS"_s));
}

TEST(ReportFont, BreaksAWordThatIsTooWide) {
    const ReportFont font(Style());
    const auto lines = font.Wrap(u"88888888"_s, font.Width(u"888"));
    EXPECT_THAT(lines, ElementsAre(u"888"_s, u"888"_s, u"88"_s));
}

TEST(ReportFont, GivesEachLineAtLeastOneCharacter) {
    EXPECT_THAT(ReportFont(Style()).Wrap(u"WW"_s, 0.5), ElementsAre(u"W"_s, u"W"_s));
}

TEST(ReportFont, NeverPartsASurrogatePairOrAnAccent) {
    const ReportFont font(Style());
    EXPECT_THAT(font.Wrap(u"\U0001D400\U0001D400"_s, 0.5), ElementsAre(u"\U0001D400"_s, u"\U0001D400"_s));
    EXPECT_THAT(font.Wrap(u"N\u0303N\u0303"_s, 0.5), ElementsAre(u"N\u0303"_s, u"N\u0303"_s));
}

TEST(ReportFont, KeepsTheLineBreaksOfTheText) {
    const ReportFont font(Style());
    EXPECT_THAT(font.Wrap(u"one\r\n\ntwo"_s, 500), ElementsAre(u"one"_s, QString(), u"two"_s));
    EXPECT_TRUE(font.Wraps(u"a\nb"_s, 500));
}

TEST(ReportFont, ShowsTabsAsBlanks) {
    EXPECT_THAT(ReportFont(Style()).Wrap(u"a\tb"_s, 500), ElementsAre(u"a b"_s));
}

TEST(ReportFont, LeavesOutOtherControlCharacters) {
    EXPECT_THAT(ReportFont(Style()).Wrap(u"a\u0001b\u007f\n\u000bc\u0085"_s, 500),
                ElementsAre(u"ab"_s, u"c"_s));
}

TEST(ReportFont, TheQuickLookNeverPromisesTooMuch) {
    const ReportFont font(Style());
    for (const QString& text : {u"HEMODIALYSIS TREATMENT"_s, u"Señora Niño"_s, u"i.i.i."_s, u"WWW@%"_s}) {
        const double width = font.Width(text);
        EXPECT_TRUE(font.SurelyFits(text, width + 0.1)) << text.toStdString();
        EXPECT_FALSE(font.SurelyFits(text, width - 0.1)) << text.toStdString();
    }
    EXPECT_FALSE(font.SurelyFits(u"a\nb", 500));
    EXPECT_FALSE(font.SurelyFits(u"₱", 500));
}

TEST(ReportFont, TheFacePaintedIsAWholeSizeAndItsScale) {
    const ReportFont whole(Style(9));
    EXPECT_EQ(whole.Painted().pixelSize(), 9);
    EXPECT_EQ(whole.PaintScale(), 1);
    const ReportFont half(Style(7.5));
    EXPECT_EQ(half.Painted().pixelSize(), 8);
    EXPECT_EQ(half.PaintScale(), 7.5 / 8);
}

TEST(ReportFonts, MeasureEachFaceOnce) {
    ReportFonts fonts;
    CellStyle bold = Style();
    bold.bold = true;
    EXPECT_EQ(&fonts.Of(Style()), &fonts.Of(Style()));
    EXPECT_NE(&fonts.Of(Style()), &fonts.Of(bold));
    EXPECT_NE(&fonts.Of(Style(9)), &fonts.Of(Style(10)));
}
