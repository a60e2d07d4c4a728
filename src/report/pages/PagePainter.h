#pragma once

#include "report/pages/ReportDocument.h"

#include <QColor>
#include <QRectF>

class QPainter;

/// Paints the pages of a report with one painter.
class PagePainter {
  public:
    /// The painter's unit is the point.
    explicit PagePainter(QPainter& painter);

    void Paint(const ReportDocument& document, int page);

  private:
    void Paint(const LaidBand& laid);
    void PaintMarks(const LaidBand& laid);
    void PaintCell(const LaidCell& cell);
    void PaintScaled(const LaidLine& line, double scale);
    void PaintBorder(const CellStyle& style, const QRectF& box);
    void SetPen(const QColor& color, double thickness);

    QPainter& mPainter;
    const ReportFont* mFont = nullptr;
};
