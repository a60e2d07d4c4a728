#pragma once

#include "report/pages/BoundTemplate.h"
#include "report/pages/CellText.h"
#include "report/pages/ReportFont.h"
#include "report/template/ReportTemplate.h"

#include <QPointF>
#include <QRectF>
#include <QString>

#include <vector>

/// One line of a cell's text, with its place from the band's top left corner.
struct LaidLine {
    /// On the baseline.
    QPointF start;
    QString text;
};

/// A cell with its text, ready to be painted.
struct LaidCell {
    const ReportCell* cell = nullptr;
    const ReportFont* font = nullptr;
    QRectF box;
    QString text;
    std::vector<LaidLine> lines;
};

/// What wrapped texts have pushed down in a band.
class BandGrowth {
  public:
    /// A text that ended at `bottom` as designed, below what is pushed by `before`, has grown.
    void Add(double bottom, double before, double growth);
    /// How far what stood at that height in the design now stands below it.
    double At(double y) const;

  private:
    struct Step {
        double bottom;
        double pushed;
    };
    std::vector<Step> mSteps;
};

/// A band with its texts in place for one row.
struct LaidBand {
    const ReportBand* band = nullptr;
    const BoundBand* bound = nullptr;
    double height = 0;
    BandGrowth growth;
    std::vector<LaidCell> cells;
};

/// The room between a cell's edge and its text, in points.
constexpr double kCellPadding = 1;

/// Puts the texts of a band in place. A text that takes more lines than its cell has room for makes the cell
/// taller and pushes down what stands below it.
LaidBand LayOutBand(const BoundBand& band, const TextPlace& place, ReportFonts& fonts);

/// Where a band that is too tall for a page can be cut without cutting a line of text: the heights, from the
/// band's top, at which its pieces end. No piece is higher than `room`.
std::vector<double> CutsOf(const LaidBand& band, double room);
