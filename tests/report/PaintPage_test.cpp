#include "report/pages/PaintPage.h"
#include "report/template/TemplateAttributes.h"
#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The page as an image of a dot for each point.
QImage Painted(const ReportDocument& document, int page) {
    QImage image(document.PageSize().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    ReportFonts fonts;
    PaintPage(painter, document, page, fonts);
    return image;
}

bool HasInk(const QImage& image, const QRectF& millimetres) {
    const double unit = MillimetresToPoints(1);
    for (int y = int(millimetres.top() * unit); y < int(millimetres.bottom() * unit); ++y) {
        for (int x = int(millimetres.left() * unit); x < int(millimetres.right() * unit); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                return true;
        }
    }
    return false;
}

constexpr int kDotsPerPoint = 8;
/// The cell ends at 90 mm; its padding and the white beside a letter come off.
constexpr double kRightmost = 89.4;

/// The place of the rightmost ink of the first page, in millimetres.
double RightmostInk(const ReportDocument& document) {
    QImage image((document.PageSize() * kDotsPerPoint).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(kDotsPerPoint, kDotsPerPoint);
    ReportFonts fonts;
    PaintPage(painter, document, 1, fonts);
    painter.end();
    for (int x = image.width() - 1; x >= 0; --x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) < 128)
                return x / double(kDotsPerPoint) / MillimetresToPoints(1);
    return 0;
}

class PaintPageSizes : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Points, PaintPageSizes, testing::Values("7", "7.5", "8", "8.25", "9", "11.5"));

TEST_P(PaintPageSizes, TextOnTheRightEndsAtItsCellsEdge) {
    const auto document = SmallDocument(
        u"<detail height=\"10\"><text x=\"10\" y=\"0\" width=\"80\" height=\"10\" "
        "align=\"right\" size=\"%1\">MMMMMMMMMMMMMMMM</text></detail>"_s.arg(QString::fromLatin1(GetParam())),
        Rows({u"A"_s}, {{u"x"_s}}));
    EXPECT_NEAR(RightmostInk(*document), kRightmost, 0.5);
}

} // namespace

TEST(PaintPage, PaintsWhereTheTemplateSays) {
    const auto document =
        SmallDocument(u"<detail height=\"50\"><text x=\"10\" y=\"10\" width=\"30\">{A}</text><box x=\"60\" "
                      u"y=\"10\" width=\"20\" height=\"10\" fill=\"black\"/>"
                      "<line x1=\"10\" y1=\"40\" x2=\"30\" y2=\"40\"/></detail>"_s,
                      Rows({u"A"_s}, {{u"WWW"_s}}));
    const QImage page = Painted(*document, 1);
    EXPECT_TRUE(HasInk(page, QRectF(10, 10, 10, 5)));
    EXPECT_TRUE(HasInk(page, QRectF(62, 12, 10, 5)));
    EXPECT_TRUE(HasInk(page, QRectF(10, 39, 20, 2)));
    EXPECT_FALSE(HasInk(page, QRectF(0, 21, 100, 17)));
    EXPECT_FALSE(HasInk(page, QRectF(0, 0, 100, 9)));
    EXPECT_FALSE(HasInk(page, QRectF(32, 10, 25, 5)));
}

TEST(PaintPage, PutsThePageFooterAtTheBottomOfAPageThatIsNotFull) {
    const auto document = SmallDocument(
        u"<detail height=\"10\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"
        "<page-footer height=\"10\"><text x=\"0\" y=\"5\" width=\"90\">WWW</text></page-footer>"_s,
        Rows({u"A"_s}, {{1}}));
    const QImage page = Painted(*document, 1);
    EXPECT_TRUE(HasInk(page, QRectF(0, 94, 50, 5)));
    EXPECT_FALSE(HasInk(page, QRectF(0, 11, 50, 80)));
}

TEST(PaintPage, PaintsEachPieceOfATallBandOnItsOwnPage) {
    QString lines;
    for (int i = 1; i <= 40; ++i)
        lines += u"W\n"_s;
    const auto document = SmallDocument(
        u"<page-footer height=\"10\"/><detail height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"_s,
        Rows({u"A"_s}, {{lines}}));
    ASSERT_EQ(document->PageCount(), 2);
    EXPECT_FALSE(HasInk(Painted(*document, 1), QRectF(0, 90, 100, 9)))
        << "the first piece must not run into the footer";
    EXPECT_TRUE(HasInk(Painted(*document, 2), QRectF(0, 0, 10, 4)));
}

TEST(PaintPage, PaintsNoBorderOfWhatIsLeftOutOnASinglePage) {
    const auto document =
        SmallDocument(u"<page-header height=\"10\"><text x=\"0\" y=\"0\" width=\"90\" show=\"several-pages\" "
                      "border=\"all\">Page {page}</text></page-header>"_s,
                      Rows({u"A"_s}, {{1}}));
    EXPECT_FALSE(HasInk(Painted(*document, 1), QRectF(0, 0, 100, 9)));
}

TEST(PaintPage, PaintsPicturesAndFilledCells) {
    const QTemporaryDir folder;
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(folder.filePath(u"logo.png"_s)));
    const auto report = ReadTemplate(
        folder.filePath(u"t.rpt"_s),
        SmallTemplate(
            u"<report-header height=\"50\"><image x=\"10\" y=\"10\" width=\"10\" height=\"10\" "
            u"file=\"logo.png\"/>"
            "<text x=\"50\" y=\"10\" width=\"20\" height=\"10\" fill=\"blue\"></text></report-header>"_s));
    const QImage page = Painted(ReportDocument(report, {}, {Rows({u"A"_s})}), 1);
    const int middle = int(MillimetresToPoints(15));
    EXPECT_EQ(page.pixelColor(middle, middle), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(int(MillimetresToPoints(60)), middle), QColor(Qt::blue));
}
