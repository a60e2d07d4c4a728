#include "report/pages/BandLayout.h"

#include <algorithm>

namespace {

/// Positions of the design that are this close are the same edge.
constexpr double kStepTolerance = 0.1;

double LeftOf(const QString& line, const ReportFont& font, const CellStyle& style, const QRectF& box) {
    const double left = box.left() + kCellPadding;
    if (style.align == CellAlign::Left)
        return left;
    const double room = box.width() - 2 * kCellPadding - font.Width(line);
    return left + (style.align == CellAlign::Right ? room : room / 2);
}

/// What a line shows. Columns of fixed length fill their texts up with blanks, which must not push a text
/// away from the edge or the middle that it stands at.
QString ShownPart(QString line, CellAlign align) {
    while (align != CellAlign::Left && line.endsWith(u' '))
        line.chop(1);
    return line;
}

void PlaceLines(LaidCell& laid, const std::vector<QString>& texts) {
    double baseline = laid.box.top() + laid.font->Ascent();
    const CellStyle& style = laid.cell->style;
    for (const QString& text : texts) {
        const QString shown = ShownPart(text, style.align);
        laid.lines.push_back({{LeftOf(shown, *laid.font, style, laid.box), baseline}, shown});
        baseline += laid.font->LineHeight();
    }
}

/// How much more than its cell's height a text takes. A single line always has room.
double GrowthOf(const ReportCell& cell, const ReportFont& font, size_t lines) {
    if (lines < 2)
        return 0;
    return std::max(0.0, double(lines) * font.LineHeight() - std::max(cell.box.height(), font.LineHeight()));
}

struct WrappedCell {
    size_t cell;
    double growth;
};

/// From the top down, so that each text knows what pushes it.
BandGrowth CollectGrowth(const ReportBand& band, std::vector<WrappedCell>& wrapped) {
    const auto bottomOf = [&band](const WrappedCell& w) { return band.cells[w.cell].box.bottom(); };
    std::sort(wrapped.begin(), wrapped.end(),
              [&](const WrappedCell& a, const WrappedCell& b) { return bottomOf(a) < bottomOf(b); });
    BandGrowth growth;
    for (const WrappedCell& w : wrapped)
        growth.Add(bottomOf(w), growth.At(band.cells[w.cell].box.top()), w.growth);
    return growth;
}

} // namespace

void BandGrowth::Add(double bottom, double before, double growth) {
    mSteps.push_back({bottom, before + growth});
}

double BandGrowth::At(double y) const {
    double pushed = 0;
    for (const Step& step : mSteps) {
        if (step.bottom <= y + kStepTolerance)
            pushed = std::max(pushed, step.pushed);
    }
    return pushed;
}

LaidBand LayOutBand(const BoundBand& band, const TextPlace& place, ReportFonts& fonts) {
    LaidBand laid;
    laid.band = band.read;
    laid.bound = &band;
    laid.cells.reserve(band.cells.size());
    std::vector<std::vector<QString>> texts;
    texts.reserve(band.cells.size());
    std::vector<WrappedCell> wrapped;
    for (const BoundCell& bound : band.cells) {
        const ReportCell& cell = *bound.read;
        const bool shown = !cell.onlySeveralPages || place.pages > 1;
        const ReportFont& font = fonts.Of(cell.style);
        laid.cells.push_back({&cell, &font, cell.box, shown ? TextOf(bound, place) : QString(), {}});
        const QString& text = laid.cells.back().text;
        texts.push_back(cell.isBarcode ? std::vector<QString>{text.trimmed()}
                                       : font.Wrap(text, cell.box.width() - 2 * kCellPadding));
        if (const double growth = GrowthOf(cell, font, texts.back().size()); growth > 0)
            wrapped.push_back({texts.size() - 1, growth});
    }
    laid.growth = CollectGrowth(*band.read, wrapped);
    laid.height = band.read->height + laid.growth.At(band.read->height);
    for (size_t i = 0; i < texts.size(); ++i) {
        LaidCell& cell = laid.cells[i];
        const double top = cell.box.top();
        const double bottom = cell.box.bottom();
        cell.box.setTop(top + laid.growth.At(top));
        cell.box.setBottom(bottom + laid.growth.At(bottom));
        PlaceLines(cell, texts[i]);
    }
    return laid;
}

std::vector<double> CutsOf(const LaidBand& band, double room) {
    Q_ASSERT(room > 0);
    struct Extent {
        double top;
        double bottom;
    };
    std::vector<Extent> lines;
    for (const LaidCell& cell : band.cells) {
        for (const LaidLine& line : cell.lines) {
            const double top = line.start.y() - cell.font->Ascent();
            lines.push_back({top, top + cell.font->LineHeight()});
        }
    }
    std::sort(lines.begin(), lines.end(), [](const Extent& a, const Extent& b) { return a.top < b.top; });
    std::vector<double> cuts;
    double from = 0;
    auto first = lines.cbegin();
    while (band.height - from > room) {
        double cut = from + room;
        // Only the lines of this piece are looked at: a text may have a million of them.
        first = std::find_if(first, lines.cend(), [from](const Extent& line) { return line.top > from; });
        auto line = std::find_if(first, lines.cend(), [cut](const Extent& next) { return next.top >= cut; });
        // From the bottom up, so that a cut that gives way to one line still meets the lines above it.
        while (line != first) {
            --line;
            if (line->bottom > cut && line->top < cut)
                cut = line->top;
        }
        cuts.push_back(cut);
        from = cut;
    }
    cuts.push_back(band.height);
    return cuts;
}
