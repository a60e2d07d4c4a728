#include "report/pages/PagePainter.h"
#include "report/template/TemplateAttributes.h"
#include "support/report/ReportFixture.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDotsPerPoint = 8;
/// The cell ends at 90 mm; its padding and the white beside a letter come off.
constexpr double kRightmost = 89.4;

/// The place of the rightmost ink of the first page, in millimetres.
double RightmostInk(const ReportDocument& document) {
    QImage image((document.PageSize() * kDotsPerPoint).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(kDotsPerPoint, kDotsPerPoint);
    PagePainter(painter).Paint(document, 1);
    painter.end();
    for (int x = image.width() - 1; x >= 0; --x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) < 128)
                return x / double(kDotsPerPoint) / MillimetresToPoints(1);
    return 0;
}

class PagePainterSizes : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Points, PagePainterSizes, testing::Values("7", "7.5", "8", "8.25", "9", "11.5"));

TEST_P(PagePainterSizes, TextOnTheRightEndsAtItsCellsEdge) {
    const auto document = SmallDocument(
        u"<detail height=\"10\"><text x=\"10\" y=\"0\" width=\"80\" height=\"10\" "
        "align=\"right\" size=\"%1\">MMMMMMMMMMMMMMMM</text></detail>"_s.arg(QString::fromLatin1(GetParam())),
        Rows({u"A"_s}, {{u"x"_s}}));
    EXPECT_NEAR(RightmostInk(*document), kRightmost, 0.5);
}

} // namespace
