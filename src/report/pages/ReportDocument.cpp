#include "report/pages/ReportDocument.h"

#include "report/pages/Flow.h"
#include "report/pages/PagePainter.h"
#include "report/pages/PageText.h"
#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

ReportDocument::ReportDocument(ReportTemplate report, ReportData data)
    : mReport(std::move(report))
    , mData(std::move(data)) {
    ResolveFields(mReport, mData);
    mBands = BandsInOrder(mReport);
    mHeaderHeight = MeasureEdge(mReport.pageHeader);
    mFooterHeight = MeasureEdge(mReport.pageFooter);
    const double room = RoomBetweenEdges();
    mItems = BuildFlow(mReport, mData, mFonts, room);
    mPages = Paginate(mItems, room);
    // Faces belong to the thread that has measured them, and the pages may be painted on another.
    mFonts = {};
}

/// A strip at the page's edge has one height on all pages.
double ReportDocument::MeasureEdge(const std::optional<ReportBand>& band) const {
    if (!band)
        return 0;
    const TextPlace place{.data = mData, .page = kWidestPageNumber, .pages = kWidestPageNumber};
    return LayOutBand(*band, place, mFonts).height;
}

/// The height that the rows have on each page. Texts that wrap may have made the strips taller than the
/// template has them.
double ReportDocument::RoomBetweenEdges() const {
    const double room = mReport.Body().height() - mHeaderHeight - mFooterHeight;
    if (room < kLeastBody) {
        const auto& taller = mHeaderHeight >= mFooterHeight ? mReport.pageHeader : mReport.pageFooter;
        throw TemplateError(mReport.file, taller->line,
                            u"The page header and the page footer leave no room between them."_s);
    }
    return room;
}

std::vector<PageBand> ReportDocument::BandsOf(int page) const {
    const PageSpan& span = mPages.at(static_cast<size_t>(page - 1));
    const QRectF body = mReport.Body();
    std::vector<PageBand> bands;
    bands.reserve(span.end - span.first + span.heads.size() + 2);
    AddEdge(bands, mReport.pageHeader, page, body.top(), mHeaderHeight);
    double y = body.top() + mHeaderHeight;
    for (const quint32 head : span.heads)
        AddItem(bands, mItems[head], page, y);
    for (quint32 i = span.first; i < span.end; ++i)
        AddItem(bands, mItems[i], page, y);
    AddEdge(bands, mReport.pageFooter, page, body.bottom() - mFooterHeight, mFooterHeight);
    return bands;
}

void ReportDocument::AddEdge(std::vector<PageBand>& bands, const std::optional<ReportBand>& band, int page,
                             double y, double height) const {
    if (!band)
        return;
    const TextPlace place{.data = mData, .page = page, .pages = PageCount()};
    bands.push_back({&*band, place, mReport.Body().left(), y, 0, height, false});
}

void ReportDocument::AddItem(std::vector<PageBand>& bands, const FlowItem& item, int page, double& y) const {
    TextPlace place = PlaceOf(item, mReport, mData);
    place.page = page;
    place.pages = PageCount();
    bands.push_back({mBands[item.band], place, mReport.Body().left(), y, double(item.top),
                     double(item.height), item.isPiece});
    y += double(item.height);
}

LaidBand ReportDocument::LayOut(const PageBand& band) const {
    return LayOutBand(*band.band, band.place, mFonts);
}

void ReportDocument::PaintPage(QPainter& painter, int page) const {
    PagePainter(painter).Paint(*this, page);
}

QString ReportDocument::PageText(int page) const {
    return TextOfPage(*this, page);
}

std::vector<GroupEntry> ReportDocument::Groups() const {
    std::vector<GroupEntry> groups;
    for (size_t page = 0; page < mPages.size(); ++page) {
        for (quint32 i = mPages[page].first; i < mPages[page].end; ++i) {
            const FlowItem& item = mItems[i];
            if (!item.isHead || item.top > 0)
                continue;
            const Value& value = Rows().Cell(item.firstRow, mReport.groups[item.depth].column);
            groups.push_back({value.TextOrEmpty(), item.depth, static_cast<int>(page + 1)});
        }
    }
    return groups;
}
