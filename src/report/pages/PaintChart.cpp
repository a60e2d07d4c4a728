#include "report/pages/PaintChart.h"

#include "report/pages/ChartLayout.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr QColor kInk(0x33, 0x3b, 0x44);
constexpr QColor kPaleInk(0xb4, 0xbd, 0xc6);
constexpr double kThin = 0.4;
constexpr double kLineThickness = 1;
/// Between two strokes of a pattern, in points.
constexpr double kStrokes = 2.6;
constexpr double kDot = 1.6;
/// Of the lines of a chart, by series.
constexpr std::array kPens = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

/// Strokes that rise, or fall, over a box. They are drawn one by one: a pattern of the toolkit's would have
/// another size on each device.
void PaintStrokes(QPainter& painter, const QRectF& box, bool rising) {
    const int strokes = int(std::ceil((box.width() + box.height()) / kStrokes));
    for (int stroke = 1; stroke < strokes; ++stroke) {
        const double along = stroke * kStrokes;
        const double overX = std::max(0.0, along - box.height());
        const double untilX = std::min(along, box.width());
        const QPointF low(overX, along - overX);
        const QPointF high(untilX, along - untilX);
        const auto placed = [&](QPointF point) {
            return rising ? box.topLeft() + point : QPointF(box.right() - point.x(), box.top() + point.y());
        };
        painter.drawLine(QLineF(placed(low), placed(high)));
    }
}

/// Dark, rising strokes, white, falling strokes.
void PaintBar(QPainter& painter, const QRectF& box, size_t series) {
    painter.setPen(QPen(kInk, kThin));
    painter.setBrush(series == 0 ? QBrush(kInk) : QBrush(Qt::white));
    painter.drawRect(box);
    if (series % 2 == 1)
        PaintStrokes(painter, box, series == 1);
}

void PaintDots(QPainter& painter, const std::vector<QPointF>& points, size_t series) {
    painter.setPen(QPen(kInk, kThin));
    painter.setBrush(series % 2 == 0 ? QBrush(kInk) : QBrush(Qt::white));
    for (const QPointF& point : points) {
        if (series < 2)
            painter.drawEllipse(point, kDot, kDot);
        else
            painter.drawRect(QRectF(point.x() - kDot, point.y() - kDot, 2 * kDot, 2 * kDot));
    }
}

void PaintLine(QPainter& painter, const std::vector<QPointF>& points, size_t series) {
    painter.setPen(QPen(kInk, kLineThickness, kPens.at(series)));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(points.data(), int(points.size()));
    PaintDots(painter, points, series);
}

void PaintAxes(QPainter& painter, const LaidChart& chart) {
    painter.setPen(QPen(kPaleInk, kThin));
    for (const double mark : chart.marks)
        painter.drawLine(QLineF(chart.plot.left(), mark, chart.plot.right(), mark));
}

void PaintWords(QPainter& painter, const LaidChart& chart) {
    painter.setPen(kInk);
    painter.setFont(chart.font->Painted());
    const double scale = chart.font->PaintScale();
    for (const ChartWord& word : chart.words) {
        const QTransform before = painter.transform();
        painter.translate(word.start);
        painter.scale(scale, scale);
        painter.drawText(QPointF(), word.text);
        painter.setTransform(before);
    }
}

} // namespace

void PaintChart(QPainter& painter, const LaidChart& chart) {
    PaintAxes(painter, chart);
    for (const ChartBar& bar : chart.bars)
        PaintBar(painter, bar.box, bar.series);
    for (size_t series = 0; series < chart.lines.size(); ++series)
        PaintLine(painter, chart.lines[series], series);
    for (const ChartKey& key : chart.keys) {
        if (chart.kind == ChartKind::Line)
            PaintLine(painter,
                      {{key.box.left(), key.box.center().y()}, {key.box.right(), key.box.center().y()}},
                      key.series);
        else
            PaintBar(painter, key.box, key.series);
    }
    painter.setPen(QPen(kInk, 2 * kThin));
    painter.drawLine(QLineF(chart.plot.left(), chart.zero, chart.plot.right(), chart.zero));
    painter.drawLine(QLineF(chart.plot.topLeft(), chart.plot.bottomLeft()));
    PaintWords(painter, chart);
}
