#include "reporting/PageFinder.h"

#include "reporting/ReportDocument.h"

#include <QStringMatcher>

namespace {

QRectF BoxOf(const ReportDocument& document, const PageBand& band, size_t cell) {
    const QRectF box = document.LayOut(band).cells[cell].box;
    return box.translated(band.x, band.y - band.top);
}

std::optional<FoundText> FindOnPage(const ReportDocument& document, const QStringMatcher& matcher,
                                    CellPosition from) {
    size_t number = 0;
    for (const PageBand& band : document.BandsOf(from.page)) {
        for (size_t i = 0; i < band.band->cells.size(); ++i, ++number) {
            const ReportCell& cell = band.band->cells[i];
            const bool shown = !cell.onlySeveralPages || document.PageCount() > 1;
            if (number >= from.cell && shown && matcher.indexIn(TextOf(cell, band.place)) >= 0)
                return FoundText{{from.page, number}, BoxOf(document, band, i)};
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<FoundText> FindText(const ReportDocument& document, const QString& text,
                                  const std::optional<CellPosition>& after) {
    if (text.isEmpty())
        return std::nullopt;
    const QStringMatcher matcher(text, Qt::CaseInsensitive);
    CellPosition from = after ? CellPosition{after->page, after->cell + 1} : CellPosition{};
    // The page that the search begins on is looked through once more at the end, for what stands before.
    for (int pages = 0; pages <= document.PageCount(); ++pages) {
        if (const auto found = FindOnPage(document, matcher, from))
            return found;
        from = {from.page % document.PageCount() + 1, 0};
    }
    return std::nullopt;
}
