#pragma once

class QPainter;
struct LaidChart;

/// Paints a chart with a painter whose unit is the point and whose origin is its band's top left corner.
/// Series are told apart by their patterns and strokes, not by colours: most printers have none.
void PaintChart(QPainter& painter, const LaidChart& chart);
