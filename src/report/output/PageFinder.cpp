#include "report/output/PageFinder.h"

#include "report/pages/ReportDocument.h"

#include <algorithm>
#include <limits>

namespace {

/// Behind the last cell of any page.
constexpr size_t kWholePage = std::numeric_limits<size_t>::max();

QRectF BoxOf(const PageBand& band, const LaidCell& cell) {
    QRectF box = cell.box.translated(band.x, band.y - band.top);
    if (band.isPiece) {
        box.setTop(std::max(box.top(), band.y));
        box.setBottom(std::min(box.bottom(), band.y + band.height));
    }
    return box;
}

/// Whether the text is found among the lines of a cell that the piece of a band shows. A text that goes on
/// over the page's end is found where it begins.
bool IsInPiece(const LaidCell& cell, const PageBand& band, const QStringMatcher& matcher) {
    const QString text = WithoutControls(cell.text);
    qsizetype at = 0;
    std::optional<qsizetype> begin;
    qsizetype end = text.size();
    for (const LaidLine& line : cell.lines) {
        at = text.indexOf(line.text, at);
        if (band.Shows(line)) {
            begin = begin.value_or(at);
        } else if (begin) {
            end = at;
            break;
        }
        at += line.text.size();
    }
    if (!begin)
        return false;
    const qsizetype found = matcher.indexIn(text, *begin);
    return found >= 0 && found < end;
}

/// Texts are put in place only where that tells what a piece shows: most are not the one looked for.
bool IsIn(const PageBand& band, size_t cell, const QStringMatcher& matcher, ReportFonts& fonts) {
    if (band.isPiece)
        return IsInPiece(LayOutBand(*band.band, band.place, fonts).cells[cell], band, matcher);
    const BoundCell& bound = band.band->cells[cell];
    const bool shown = !bound.read->onlySeveralPages || band.place.pages > 1;
    return shown && matcher.indexIn(TextOf(bound, band.place)) >= 0;
}

/// The first cell of a page from that one on, or the last one before it.
std::optional<FoundText> FindOnPage(const ReportDocument& document, const QStringMatcher& matcher,
                                    CellPosition from, FindDirection direction, ReportFonts& fonts) {
    const bool backwards = direction == FindDirection::Backwards;
    std::optional<FoundText> found;
    size_t number = 0;
    for (const PageBand& band : document.BandsOf(from.page)) {
        for (size_t i = 0; i < band.band->cells.size(); ++i, ++number) {
            if ((number < from.cell) != backwards || !IsIn(band, i, matcher, fonts))
                continue;
            const LaidBand laid = LayOutBand(*band.band, band.place, fonts);
            found = FoundText{{from.page, number}, BoxOf(band, laid.cells[i])};
            if (!backwards)
                return found;
        }
    }
    return found;
}

CellPosition Beginning(const ReportDocument& document, const std::optional<CellPosition>& after,
                       FindDirection direction) {
    if (direction == FindDirection::Forwards)
        return after ? CellPosition{after->page, after->cell + 1} : CellPosition{};
    return after.value_or(CellPosition{document.PageCount(), kWholePage});
}

} // namespace

// The page that the search begins on is looked through once more at the end, for what it left out.
FindJob::FindJob(const ReportDocument& document, const QString& text,
                 const std::optional<CellPosition>& after, FindDirection direction)
    : ReportJob(document.PageCount() + 1)
    , mDocument(document)
    , mMatcher(text, Qt::CaseInsensitive)
    , mDirection(direction)
    , mFrom(Beginning(document, after, direction)) {}

bool FindJob::Step() {
    if (mMatcher.pattern().isEmpty())
        return false;
    mFound = FindOnPage(mDocument, mMatcher, mFrom, mDirection, mFonts);
    if (mDirection == FindDirection::Forwards)
        mFrom = {mFrom.page % mDocument.PageCount() + 1, 0};
    else
        mFrom = {mFrom.page == 1 ? mDocument.PageCount() : mFrom.page - 1, kWholePage};
    return !mFound && StepIsDone();
}
