#pragma once

#include "report/pages/BandLayout.h"
#include "report/pages/Pagination.h"
#include "report/pages/ReportData.h"
#include "report/pages/ReportFont.h"
#include "report/template/ReportTemplate.h"

#include <QPageLayout>
#include <QSizeF>
#include <QString>

#include <vector>

class QPainter;

/// A band, or a piece of one, where it stands on a page. Lengths are in points from the page's top left
/// corner.
struct PageBand {
    const ReportBand* band = nullptr;
    TextPlace place;
    double x = 0;
    double y = 0;
    /// Where the piece begins within its band.
    double top = 0;
    double height = 0;
    /// A piece of a band that is too tall for one page.
    bool isPiece = false;

    /// Whether a line of the band stands within the piece.
    bool Shows(const LaidLine& line) const { return line.start.y() >= top && line.start.y() <= top + height; }
};

/// A group of the rows for the group tree.
struct GroupEntry {
    QString label;
    /// 0 for the outermost groups.
    int level = 0;
    /// Where it begins, from 1.
    int page = 1;
};

/// A report with its rows, spread over pages. Pages count from 1. Nothing that it shows changes any more, but
/// it remembers fonts and sums as they are asked for: whoever holds it, one thread at a time may use it.
class ReportDocument {
  public:
    /// Raises the template's error with file and line for a field that the rows do not have, and for a page
    /// header or page footer whose texts have grown so far that no row has room between them.
    ReportDocument(ReportTemplate report, ReportData data);
    ReportDocument(const ReportDocument&) = delete;
    ReportDocument& operator=(const ReportDocument&) = delete;

    int PageCount() const { return static_cast<int>(mPages.size()); }
    /// In points.
    QSizeF PageSize() const { return mReport.PageSize(); }
    /// The paper without margins, for printers.
    const QPageLayout& Paper() const { return mReport.paper; }
    /// The rows of the report's main query.
    const RowData& Rows() const { return mData.Rows(); }

    /// What stands on a page, from top to bottom.
    std::vector<PageBand> BandsOf(int page) const;
    /// A band of BandsOf with its texts in place.
    LaidBand LayOut(const PageBand& band) const;
    /// Paints a page with a painter whose unit is the point and whose origin is the page's top left corner,
    /// whatever the device is.
    void PaintPage(QPainter& painter, int page) const;
    /// The texts of a page as lines of plain text, roughly where they stand.
    QString PageText(int page) const;
    /// The groups that have a header, in the order in which they print.
    std::vector<GroupEntry> Groups() const;

  private:
    double MeasureEdge(const std::optional<ReportBand>& band) const;
    double RoomBetweenEdges() const;
    void AddEdge(std::vector<PageBand>& bands, const std::optional<ReportBand>& band, int page, double y,
                 double height) const;
    void AddItem(std::vector<PageBand>& bands, const FlowItem& item, int page, double& y) const;

    ReportTemplate mReport;
    ReportData mData;
    mutable ReportFonts mFonts;
    std::vector<const ReportBand*> mBands;
    double mHeaderHeight = 0;
    double mFooterHeight = 0;
    std::vector<FlowItem> mItems;
    std::vector<PageSpan> mPages;
};
