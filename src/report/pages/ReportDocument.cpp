#include "report/pages/ReportDocument.h"

#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// A strip at the page's edge has one height on all pages.
double EdgeHeight(const std::optional<BoundBand>& band, const RowData& rows, ReportFonts& fonts) {
    if (!band)
        return 0;
    const ReportSums none;
    const TextPlace place{.rows = rows, .sums = none, .page = kWidestPageNumber, .pages = kWidestPageNumber};
    return LayOutBand(*band, place, fonts).height;
}

} // namespace

// Faces belong to the thread that has measured them, and the pages may be painted on another: they go as soon
// as the rows are spread.
ReportDocument::ReportDocument(std::shared_ptr<const ReportTemplate> report, const ReportValues& values,
                               const QueryRows& queries)
    : ReportDocument(BoundTemplate(std::move(report), values, queries), queries.front(), ReportFonts()) {}

ReportDocument::ReportDocument(BoundTemplate report, std::shared_ptr<const RowData> rows, ReportFonts&& fonts)
    : mReport(std::move(report))
    , mRows(std::move(rows))
    , mHeaderHeight(EdgeHeight(mReport.PageHeader(), *mRows, fonts))
    , mFooterHeight(EdgeHeight(mReport.PageFooter(), *mRows, fonts))
    , mFlow(BuildFlow(mReport, *mRows, fonts, RoomBetweenEdges()))
    , mPages(Paginate(mFlow.items, RoomBetweenEdges())) {}

/// The height that the rows have on each page. Texts that wrap may have made the strips taller than the
/// template has them.
double ReportDocument::RoomBetweenEdges() const {
    const double room = mReport.Read().Body().height() - mHeaderHeight - mFooterHeight;
    if (room < kLeastBody) {
        const auto& taller = mHeaderHeight >= mFooterHeight ? mReport.PageHeader() : mReport.PageFooter();
        throw TemplateError(mReport.Read().file, taller->read->line,
                            u"The page header and the page footer leave no room between them."_s);
    }
    return room;
}

std::vector<PageBand> ReportDocument::BandsOf(int page) const {
    const PageSpan& span = mPages.at(static_cast<size_t>(page - 1));
    const QRectF body = mReport.Read().Body();
    std::vector<PageBand> bands;
    bands.reserve(span.end - span.first + span.heads.size() + 2);
    AddEdge(bands, mReport.PageHeader(), page, body.top(), mHeaderHeight);
    double y = body.top() + mHeaderHeight;
    for (const quint32 head : span.heads)
        AddItem(bands, mFlow.items[head], page, y);
    for (quint32 i = span.first; i < span.end; ++i)
        AddItem(bands, mFlow.items[i], page, y);
    AddEdge(bands, mReport.PageFooter(), page, body.bottom() - mFooterHeight, mFooterHeight);
    return bands;
}

void ReportDocument::AddEdge(std::vector<PageBand>& bands, const std::optional<BoundBand>& band, int page,
                             double y, double height) const {
    if (!band)
        return;
    const TextPlace place{.rows = *mRows, .sums = mFlow.sums, .page = page, .pages = PageCount()};
    bands.push_back({&*band, place, mReport.Read().Body().left(), y, 0, height, false});
}

void ReportDocument::AddItem(std::vector<PageBand>& bands, const FlowItem& item, int page, double& y) const {
    TextPlace place = PlaceOf(item, mReport, *mRows, mFlow.sums);
    place.page = page;
    place.pages = PageCount();
    bands.push_back({&*mReport.Bands()[item.band], place, mReport.Read().Body().left(), y, double(item.top),
                     double(item.height), item.isPiece});
    y += double(item.height);
}

std::vector<GroupEntry> ReportDocument::Groups() const {
    std::vector<GroupEntry> groups;
    for (size_t page = 0; page < mPages.size(); ++page) {
        for (quint32 i = mPages[page].first; i < mPages[page].end; ++i) {
            const FlowItem& item = mFlow.items[i];
            if (!item.isHead || item.top > 0)
                continue;
            const Value& value = mRows->Cell(item.firstRow, mReport.GroupColumns()[item.depth]);
            groups.push_back({value.TextOrEmpty(), item.depth, static_cast<int>(page + 1)});
        }
    }
    return groups;
}
