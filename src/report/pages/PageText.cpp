#include "report/pages/PageText.h"

#include "report/pages/ChartLayout.h"
#include "report/pages/ReportDocument.h"

#include <algorithm>
#include <cmath>

namespace {

/// The width of a column of plain text, in points: about that of a small letter.
constexpr double kColumn = 4.5;
/// Baselines so close make one line.
constexpr double kSameLine = 3;

struct PlacedText {
    qsizetype column;
    double baseline;
    QString text;
};

/// Amounts end in one column as they do on paper.
qsizetype ColumnOf(const LaidCell& cell, const LaidLine& line, double bandX) {
    if (cell.cell->style.align != CellAlign::Right)
        return std::lround((bandX + line.start.x()) / kColumn);
    return std::max<qsizetype>(0, std::lround((bandX + cell.box.right()) / kColumn) - line.text.size());
}

std::vector<PlacedText> Collect(const ReportDocument& document, int page, ReportFonts& fonts) {
    std::vector<PlacedText> texts;
    for (const PageBand& band : document.BandsOf(page)) {
        const LaidBand laid = LayOutBand(*band.band, band.place, fonts);
        for (const BoundChart& chart : band.band->charts) {
            const double top = chart.read->box.top() + laid.growth.At(chart.read->box.top()) - band.top;
            if (top >= 0 && top < band.height)
                texts.push_back({std::lround((band.x + chart.read->box.left()) / kColumn), band.y + top,
                                 WordsOf(chart, band.place)});
        }
        for (const LaidCell& cell : laid.cells) {
            for (const LaidLine& line : cell.lines) {
                if (!line.text.isEmpty() && band.Shows(line))
                    texts.push_back(
                        {ColumnOf(cell, line, band.x), band.y + line.start.y() - band.top, line.text});
            }
        }
    }
    return texts;
}

QString LineOf(std::vector<PlacedText> texts) {
    std::sort(texts.begin(), texts.end(),
              [](const PlacedText& a, const PlacedText& b) { return a.column < b.column; });
    QString line;
    for (const PlacedText& text : texts) {
        const qsizetype at = line.isEmpty() ? text.column : std::max(text.column, line.size() + 1);
        line = line.leftJustified(at) + text.text;
    }
    return line;
}

} // namespace

QString TextOfPage(const ReportDocument& document, int page, ReportFonts& fonts) {
    std::vector<PlacedText> texts = Collect(document, page, fonts);
    std::stable_sort(texts.begin(), texts.end(),
                     [](const PlacedText& a, const PlacedText& b) { return a.baseline < b.baseline; });
    QString lines;
    for (auto first = texts.begin(); first != texts.end();) {
        const auto end = std::find_if(first, texts.end(), [first](const PlacedText& text) {
            return text.baseline > first->baseline + kSameLine;
        });
        lines += LineOf({first, end}) + u'\n';
        first = end;
    }
    return lines;
}
