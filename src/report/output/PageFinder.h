#pragma once

#include "report/output/ReportJob.h"
#include "report/pages/ReportFont.h"

#include <QRectF>
#include <QString>
#include <QStringMatcher>

#include <cstddef>
#include <optional>

class ReportDocument;

/// A cell of a page by its number among the page's cells.
struct CellPosition {
    /// From 1.
    int page = 1;
    size_t cell = 0;
};

struct FoundText {
    CellPosition position;
    /// The cell, or what the page shows of it, in points from the page's top left corner.
    QRectF box;
};

enum class FindDirection { Forwards, Backwards };

/// Looks for the next cell whose text has the given one in it, letter case aside, behind `after` or from the
/// report's start when there is none; behind the report's end it goes on at the start; backwards likewise the
/// other way round. A text is found also where it wraps. Of a cell that goes over several pages each page is
/// asked for the lines that it shows.
class FindJob : public ReportJob {
  public:
    /// The document must outlive the job.
    FindJob(const ReportDocument& document, const QString& text, const std::optional<CellPosition>& after,
            FindDirection direction = FindDirection::Forwards);

    /// Looks through one page.
    bool Step() override;
    const std::optional<FoundText>& Found() const { return mFound; }

  private:
    const ReportDocument& mDocument;
    ReportFonts mFonts;
    QStringMatcher mMatcher;
    FindDirection mDirection;
    /// Where the next step begins: forwards with this cell, backwards with the one before it.
    CellPosition mFrom;
    std::optional<FoundText> mFound;
};
