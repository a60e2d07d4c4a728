#include "report/pages/PaintPage.h"

#include "report/pages/ChartLayout.h"
#include "report/pages/Code128.h"
#include "report/pages/PaintChart.h"
#include "report/pages/ReportDocument.h"

#include <QPainter>
#include <QPen>

namespace {

constexpr double kBorderThickness = 0.5;

class PagePainter {
  public:
    PagePainter(QPainter& painter, ReportFonts& fonts)
        : mPainter(painter)
        , mFonts(fonts) {}

    void Paint(const ReportDocument& document, int page);

  private:
    void Paint(const PageBand& band);
    void Paint(const LaidBand& laid, const TextPlace& place);
    void PaintMarks(const LaidBand& laid);
    void PaintCell(const LaidCell& cell);
    void PaintBarcode(const LaidCell& cell);
    void PaintLines(const LaidCell& cell);
    void PaintScaled(const LaidLine& line, double scale);
    void PaintBorder(const CellStyle& style, const QRectF& box);
    void SetPen(const QColor& color, double thickness);

    QPainter& mPainter;
    ReportFonts& mFonts;
    const ReportFont* mFont = nullptr;
};

void PagePainter::Paint(const ReportDocument& document, int page) {
    for (const PageBand& band : document.BandsOf(page)) {
        mPainter.translate(band.x, band.y);
        if (band.isPiece) {
            mPainter.save();
            mPainter.setClipRect(QRectF(0, 0, document.PageSize().width(), band.height), Qt::IntersectClip);
            mPainter.translate(0, -band.top);
            Paint(band);
            mPainter.restore();
            mFont = nullptr;
        } else {
            Paint(band);
        }
        mPainter.translate(-band.x, -band.y);
    }
}

void PagePainter::Paint(const PageBand& band) {
    Paint(LayOutBand(*band.band, band.place, mFonts), band.place);
}

void PagePainter::Paint(const LaidBand& laid, const TextPlace& place) {
    PaintMarks(laid);
    for (const BoundChart& chart : laid.bound->charts) {
        const double pushed = laid.growth.At(chart.read->box.top());
        mPainter.translate(0, pushed);
        PaintChart(mPainter, LayOutChart(chart, place, mFonts));
        mPainter.translate(0, -pushed);
        mFont = nullptr;
    }
    for (const LaidCell& cell : laid.cells)
        PaintCell(cell);
}

void PagePainter::PaintMarks(const LaidBand& laid) {
    const auto pushed = [&laid](QPointF point) { return point + QPointF(0, laid.growth.At(point.y())); };
    const auto pushedRect = [&pushed](const QRectF& rect) {
        return QRectF(pushed(rect.topLeft()), pushed(rect.bottomRight()));
    };
    for (const ReportBox& box : laid.band->boxes) {
        SetPen(box.color, box.thickness);
        mPainter.setBrush(box.fill.isValid() ? QBrush(box.fill) : QBrush(Qt::NoBrush));
        mPainter.drawRect(pushedRect(box.box));
    }
    for (const ReportImage& image : laid.band->images)
        mPainter.drawImage(image.box.translated(0, laid.growth.At(image.box.top())), image.image);
    for (const ReportLine& line : laid.band->lines) {
        QPen pen(line.color, line.thickness);
        pen.setStyle(line.dashed ? Qt::DashLine : Qt::SolidLine);
        mPainter.setPen(pen);
        mPainter.drawLine(QLineF(pushed(line.line.p1()), pushed(line.line.p2())));
    }
}

void PagePainter::PaintCell(const LaidCell& cell) {
    const CellStyle& style = cell.cell->style;
    if (cell.text.isEmpty() && cell.cell->onlySeveralPages)
        return;
    if (style.fill.isValid())
        mPainter.fillRect(cell.box, style.fill);
    PaintBorder(style, cell.box);
    if (cell.cell->isBarcode)
        PaintBarcode(cell);
    else
        PaintLines(cell);
}

void PagePainter::PaintBarcode(const LaidCell& cell) {
    const std::vector<int> widths = Code128(cell.lines.front().text);
    const std::optional<double> module = ModuleIn(cell.box.width(), widths);
    // A text whose bars no reader would read stands there in words.
    if (!module)
        return PaintLines(cell);
    double x = cell.box.left() + kQuietModules * *module;
    for (size_t i = 0; i < widths.size(); ++i) {
        const double width = widths[i] * *module;
        if (i % 2 == 0)
            mPainter.fillRect(QRectF(x, cell.box.top(), width, cell.box.height()), cell.cell->style.color);
        x += width;
    }
}

void PagePainter::PaintLines(const LaidCell& cell) {
    if (cell.text.isEmpty())
        return;
    const CellStyle& style = cell.cell->style;
    Q_ASSERT(cell.font);
    const ReportFont& font = *cell.font;
    if (mFont != &font) {
        mFont = &font;
        mPainter.setFont(font.Painted());
    }
    if (mPainter.pen().color() != style.color)
        mPainter.setPen(style.color);
    const double scale = font.PaintScale();
    for (const LaidLine& line : cell.lines) {
        if (scale == 1)
            mPainter.drawText(line.start, line.text);
        else
            PaintScaled(line, scale);
    }
}

void PagePainter::PaintScaled(const LaidLine& line, double scale) {
    const QTransform before = mPainter.transform();
    mPainter.translate(line.start);
    mPainter.scale(scale, scale);
    mPainter.drawText(QPointF(), line.text);
    mPainter.setTransform(before);
}

void PagePainter::PaintBorder(const CellStyle& style, const QRectF& box) {
    const CellBorder& border = style.border;
    if (!border.left && !border.top && !border.right && !border.bottom)
        return;
    SetPen(style.color, kBorderThickness);
    if (border.left)
        mPainter.drawLine(QLineF(box.topLeft(), box.bottomLeft()));
    if (border.top)
        mPainter.drawLine(QLineF(box.topLeft(), box.topRight()));
    if (border.right)
        mPainter.drawLine(QLineF(box.topRight(), box.bottomRight()));
    if (border.bottom)
        mPainter.drawLine(QLineF(box.bottomLeft(), box.bottomRight()));
}

void PagePainter::SetPen(const QColor& color, double thickness) {
    mPainter.setPen(QPen(color, thickness));
}

} // namespace

void PaintPage(QPainter& painter, const ReportDocument& document, int page, ReportFonts& fonts) {
    PagePainter(painter, fonts).Paint(document, page);
}
