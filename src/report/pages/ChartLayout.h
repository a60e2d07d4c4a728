#pragma once

#include "report/pages/BoundTemplate.h"
#include "report/pages/CellText.h"
#include "report/pages/ReportFont.h"

#include <QPointF>
#include <QRectF>
#include <QString>

#include <vector>

/// What a chart shows: for each place on its axis a label, and for each series a value.
struct ChartData {
    std::vector<QString> labels;
    /// By series, then by place.
    std::vector<std::vector<double>> values;
};

/// A word of a chart with the start of its baseline.
struct ChartWord {
    QPointF start;
    QString text;
};

struct ChartBar {
    QRectF box;
    size_t series = 0;
};

/// What a series looks like in the legend.
struct ChartKey {
    QRectF box;
    size_t series = 0;
};

/// A chart ready to be painted; lengths are in points from its band's top left corner.
struct LaidChart {
    ChartKind kind = ChartKind::Bars;
    const ReportFont* font = nullptr;
    /// The field between the axes.
    QRectF plot;
    /// Where nothing stands: the heights of zero and of the other marks.
    double zero = 0;
    std::vector<double> marks;
    std::vector<ChartWord> words;
    std::vector<ChartKey> keys;
    std::vector<ChartBar> bars;
    /// By series, for lines.
    std::vector<std::vector<QPointF>> lines;
};

/// Adds up the rows of the place for a chart. A value that is no number counts nothing.
ChartData DataOf(const BoundChart& chart, const TextPlace& place);

/// Puts a chart in place. One with more places than can be told apart says so instead.
LaidChart LayOutChart(const BoundChart& chart, const TextPlace& place, ReportFonts& fonts);

/// What a chart tells in words: its title, its series, and from what to what its values go. The values
/// themselves stand in the report's table.
QString WordsOf(const BoundChart& chart, const TextPlace& place);
