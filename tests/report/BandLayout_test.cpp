#include "BandFixture.h"
#include "report/pages/BandLayout.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::DoubleNear;
using testing::ElementsAre;

namespace {

class BandLayoutTest : public BandTest {};

const QString kLong = u"HEMODIALYSIS TREATMENT WITH HIGH FLUX DIALYZER AND ERYTHROPOIETIN"_s;

} // namespace

TEST_F(BandLayoutTest, KeepsItsHeightWhereNothingWraps) {
    Read(u"<text x=\"0\" y=\"0\" width=\"40\">{A}</text>"_s);
    EXPECT_NEAR(Laid().height, MillimetresToPoints(5), 0.01);
    EXPECT_EQ(Laid().cells.at(0).lines.size(), 1U);
}

TEST_F(BandLayoutTest, GrowsWithATextThatWraps) {
    a = kLong;
    Read(u"<text x=\"0\" y=\"0\" width=\"40\" height=\"5\">{A}</text>"_s);
    const LaidBand laid = Laid();
    const size_t lines = laid.cells.at(0).lines.size();
    ASSERT_GT(lines, 2U);
    EXPECT_NEAR(laid.height, double(lines) * LineHeight(), 0.01);
    QString whole;
    for (const LaidLine& line : laid.cells.at(0).lines)
        whole += line.text + u' ';
    EXPECT_EQ(whole.trimmed(), kLong);
}

TEST_F(BandLayoutTest, UsesUpTheRoomOfACellBeforeItGrows) {
    a = u"one\ntwo"_s;
    Read(u"<text x=\"0\" y=\"0\" width=\"40\" height=\"20\">{A}</text>"_s, u"20"_s);
    EXPECT_NEAR(Laid().height, MillimetresToPoints(20), 0.01);
}

TEST_F(BandLayoutTest, PushesDownWhatStandsBelow) {
    a = u"one\ntwo"_s;
    Read(u"<text x=\"0\" y=\"0\" width=\"40\" height=\"4\">{A}</text>"
         "<text x=\"50\" y=\"0\" width=\"40\" height=\"4\">{B}</text>"
         "<text x=\"0\" y=\"5\" width=\"40\" height=\"4\">{B}</text>"_s,
         u"10"_s);
    const LaidBand laid = Laid();
    const double growth = 2 * LineHeight() - MillimetresToPoints(4);
    ASSERT_GT(growth, 0);
    EXPECT_NEAR(laid.cells[2].box.top(), MillimetresToPoints(5) + growth, 0.01);
    EXPECT_NEAR(laid.cells[1].box.top(), 0, 0.01);
    // The cell beside it ends on the same edge, so that its border meets its neighbour's.
    EXPECT_NEAR(laid.cells[1].box.bottom(), laid.cells[0].box.bottom(), 0.01);
    EXPECT_NEAR(laid.height, MillimetresToPoints(10) + growth, 0.01);
}

TEST_F(BandLayoutTest, AddsUpWhatWrapsBelowEachOther) {
    a = u"one\ntwo"_s;
    Read(
        u"<text x=\"0\" y=\"5\" width=\"40\" height=\"4\">{A}</text><text x=\"0\" y=\"0\" width=\"40\" height=\"4\">{A}</text>"_s,
        u"10"_s);
    const double growth = 2 * LineHeight() - MillimetresToPoints(4);
    EXPECT_NEAR(Laid().height, MillimetresToPoints(10) + 2 * growth, 0.01);
}

TEST_F(BandLayoutTest, DoesNotAddUpWhatWrapsBesideEachOther) {
    a = u"one\ntwo"_s;
    b = u"one\ntwo\nthree"_s;
    Read(
        u"<text x=\"0\" y=\"0\" width=\"40\" height=\"4\">{A}</text><text x=\"50\" y=\"0\" width=\"40\" height=\"4\">{B}</text>"_s);
    EXPECT_NEAR(Laid().height, MillimetresToPoints(5) + 3 * LineHeight() - MillimetresToPoints(4), 0.01);
}

TEST_F(BandLayoutTest, PutsTextsWhereTheirAlignmentSays) {
    a = u"12.00"_s;
    Read(u"<text x=\"10\" y=\"0\" width=\"40\">{A}</text><text x=\"10\" y=\"0\" width=\"40\" "
         u"align=\"right\">{A}</text>"
         "<text x=\"10\" y=\"0\" width=\"40\" align=\"center\">{A}</text>"_s);
    const LaidBand laid = Laid();
    const double width = fonts.Of(Style()).Width(u"12.00");
    const double left = MillimetresToPoints(10) + kCellPadding;
    const double right = MillimetresToPoints(50) - kCellPadding;
    EXPECT_NEAR(laid.cells[0].lines.at(0).start.x(), left, 0.01);
    EXPECT_NEAR(laid.cells[1].lines.at(0).start.x(), right - width, 0.01);
    EXPECT_NEAR(laid.cells[2].lines.at(0).start.x(), (left + right - width) / 2, 0.01);
}

TEST_F(BandLayoutTest, BlanksAtTheEndPushNoTextFromItsPlace) {
    a = u"12.00"_s;
    b = u"12.00     "_s;
    for (const QString& align : {u"right"_s, u"center"_s}) {
        const QString cell = u"<text x=\"0\" y=\"0\" width=\"40\" align=\"%1\">{%2}</text>"_s;
        Read(cell.arg(align, u"A"_s) + cell.arg(align, u"B"_s));
        const LaidBand laid = Laid();
        EXPECT_NEAR(laid.cells[1].lines.at(0).start.x(), laid.cells[0].lines.at(0).start.x(), 0.01)
            << align.toStdString();
    }
}

TEST_F(BandLayoutTest, CutsATallBandBetweenItsLines) {
    a = u"1\n2\n3\n4\n5\n6\n7"_s;
    Read(u"<text x=\"0\" y=\"0\" width=\"40\" height=\"4\">{A}</text>"_s, u"4"_s);
    const LaidBand laid = Laid();
    const double line = LineHeight();
    EXPECT_THAT(CutsOf(laid, 3.5 * line), ElementsAre(DoubleNear(3 * line, 0.01), DoubleNear(6 * line, 0.01),
                                                      DoubleNear(laid.height, 0.01)));
}

TEST_F(BandLayoutTest, CutsThroughALineThatNoPageHolds) {
    a = u"1"_s;
    Read(u"<text x=\"0\" y=\"0\" width=\"40\" height=\"20\" size=\"50\">{A}</text>"_s, u"20"_s);
    EXPECT_THAT(CutsOf(Laid(), 30),
                ElementsAre(DoubleNear(30, 0.01), DoubleNear(MillimetresToPoints(20), 0.01)));
}
