#pragma once

#include "report/pages/BandLayout.h"
#include "report/pages/BoundTemplate.h"
#include "report/pages/Flow.h"
#include "report/pages/Pagination.h"
#include "report/pages/ReportValues.h"

#include <QPageLayout>
#include <QSizeF>
#include <QString>

#include <memory>
#include <vector>

/// A band, or a piece of one, where it stands on a page. Lengths are in points from the page's top left
/// corner.
struct PageBand {
    const BoundBand* band = nullptr;
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

/// A report with its rows, spread over pages. Pages count from 1. It is whole once it is made: nothing of it
/// changes any more, and nothing is filled in as it is asked for, so any number of threads may read it at
/// once. Faces are not among what it holds; whoever lays its bands out or paints them brings his own.
class ReportDocument {
  public:
    /// `values` has a value for each parameter and `queries` rows for each query of the template. Raises the
    /// template's error with file and line for a field that the rows do not have, and for a page header or
    /// page footer whose texts have grown so far that no row has room between them.
    ReportDocument(std::shared_ptr<const ReportTemplate> report, const ReportValues& values,
                   const QueryRows& queries);
    ReportDocument(const ReportDocument&) = delete;
    ReportDocument& operator=(const ReportDocument&) = delete;

    int PageCount() const { return static_cast<int>(mPages.size()); }
    /// What the report is called; empty where the template does not tell.
    const QString& Title() const { return mReport.Title(); }
    /// In points.
    QSizeF PageSize() const { return mReport.Read().PageSize(); }
    /// The page within its margins, in points.
    QRectF Body() const { return mReport.Read().Body(); }
    /// The paper without margins, for printers.
    const QPageLayout& Paper() const { return mReport.Read().paper; }
    /// The rows of the report's main query.
    const RowData& Rows() const { return *mRows; }

    /// What stands on a page, from top to bottom. It refers to the document, which must outlive it.
    std::vector<PageBand> BandsOf(int page) const;
    /// The groups that have a header, in the order in which they print.
    std::vector<GroupEntry> Groups() const;

  private:
    ReportDocument(BoundTemplate report, std::shared_ptr<const RowData> rows, ReportFonts&& fonts);

    double RoomBetweenEdges() const;
    void AddEdge(std::vector<PageBand>& bands, const std::optional<BoundBand>& band, int page, double y,
                 double height) const;
    void AddItem(std::vector<PageBand>& bands, const FlowItem& item, int page, double& y) const;

    const BoundTemplate mReport;
    const std::shared_ptr<const RowData> mRows;
    const double mHeaderHeight;
    const double mFooterHeight;
    const Flow mFlow;
    const std::vector<PageSpan> mPages;
};
