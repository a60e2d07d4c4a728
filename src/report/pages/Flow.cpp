#include "report/pages/Flow.h"

#include "report/pages/BandMeasure.h"
#include "report/pages/BandNumbers.h"

#include <algorithm>
#include <optional>
#include <set>

namespace {

/// The server leaves trailing blanks out of its comparisons.
QStringView WithoutTrailingBlanks(QStringView text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

bool SameGroup(const Value& a, const Value& b) {
    const auto* left = std::get_if<QString>(&a.Get());
    const auto* right = std::get_if<QString>(&b.Get());
    if (!left || !right)
        return a == b;
    // The server sorts without regard to letter case, so its rows may alternate between the spellings of a
    // group.
    return std::equal(left->begin(), left->end(), right->begin(), right->end()) ||
           WithoutTrailingBlanks(*left).compare(WithoutTrailingBlanks(*right), Qt::CaseInsensitive) == 0;
}

class FlowBuilder {
  public:
    FlowBuilder(const BoundTemplate& report, const RowData& rows)
        : mReport(report)
        , mRows(rows)
        , mGroups(report.Read().groups)
        , mNumbers(mGroups.size())
        , mOpen(mGroups.size()) {}

    FlowItems Build() {
        const auto count = static_cast<quint32>(mRows.RowCount());
        const size_t groups = mGroups.size();
        Add(BandNumbers::kReportHeader, 0, count, 0);
        for (quint32 row = 0; row < count; ++row) {
            const size_t changed = ChangedLevel(row);
            if (row > 0)
                Close(changed, row);
            for (size_t level = changed; level < groups; ++level)
                Open(level, row);
            Add(mNumbers.Detail(), row, row + 1, groups);
        }
        if (count > 0)
            Close(0, count);
        Add(mNumbers.ReportFooter(), 0, count, 0);
        return std::move(mItems);
    }

  private:
    struct OpenGroup {
        quint32 firstItem = 0;
        quint32 firstRow = 0;
    };

    /// The outermost group that begins with the row; the number of groups where none does.
    size_t ChangedLevel(quint32 row) const {
        if (row == 0)
            return 0;
        for (size_t level = 0; level < mGroups.size(); ++level) {
            const size_t column = mReport.GroupColumns()[level];
            if (!SameGroup(mRows.Cell(row - 1, column), mRows.Cell(row, column)))
                return level;
        }
        return mGroups.size();
    }

    void Add(quint16 number, quint32 firstRow, quint32 endRow, size_t depth) {
        if (!mReport.Bands()[number])
            return;
        const ReportBand* band = mReport.Bands()[number]->read;
        if (band->keepWithPrevious && !mItems.empty())
            mItems.back().keepWithNext = true;
        mItems.push_back({.firstRow = firstRow,
                          .endRow = endRow,
                          .band = number,
                          .depth = static_cast<quint8>(depth),
                          .keepWithNext = band->keepWithNext});
    }

    void Open(size_t level, quint32 row) {
        mOpen[level] = {static_cast<quint32>(mItems.size()), row};
        Add(mNumbers.Header(level), row, row, level);
        if (const auto& header = mGroups[level].header) {
            mItems.back().isHead = true;
            mItems.back().repeats = header->repeats;
        }
    }

    void Close(size_t changed, quint32 row) {
        for (size_t level = mGroups.size(); level-- > changed;) {
            const OpenGroup& open = mOpen[level];
            Add(mNumbers.Footer(level), open.firstRow, row, level + 1);
            if (open.firstItem == mItems.size())
                continue;
            FlowItem& first = mItems[open.firstItem];
            if (mGroups[level].header)
                first.endRow = row;
            // Where a group and one within it begin with the same item, the larger one counts.
            if (mGroups[level].keepTogether)
                first.keepEnd = static_cast<quint32>(mItems.size());
        }
    }

    const BoundTemplate& mReport;
    const RowData& mRows;
    const std::vector<ReportGroup>& mGroups;
    BandNumbers mNumbers;
    std::vector<OpenGroup> mOpen;
    FlowItems mItems;
};

std::vector<size_t> SummedColumns(const BoundBand& band) {
    std::vector<size_t> columns;
    for (const BoundCell& cell : band.cells) {
        for (const BoundPiece& piece : cell.text) {
            if (piece.kind == BoundPiece::Kind::Sum)
                columns.push_back(piece.column);
        }
    }
    return columns;
}

/// What the bands of the items add up.
ReportSums SumsOf(const FlowItems& items, const BoundTemplate& report, const RowData& rows) {
    std::set<size_t> columns;
    std::vector<bool> adds;
    for (const std::optional<BoundBand>& band : report.Bands()) {
        const std::vector<size_t> summed = band ? SummedColumns(*band) : std::vector<size_t>();
        columns.insert(summed.begin(), summed.end());
        adds.push_back(!summed.empty());
    }
    std::vector<RowRun> runs;
    for (const FlowItem& item : items) {
        if (adds[item.band])
            runs.push_back({item.firstRow, item.endRow});
    }
    return {rows, {columns.begin(), columns.end()}, std::move(runs)};
}

/// Gives the items their heights, and parts those that are too tall for a page.
class FlowMeasure {
  public:
    FlowMeasure(const BoundTemplate& report, const RowData& rows, const ReportSums& sums, ReportFonts& fonts)
        : mReport(report)
        , mRows(rows)
        , mSums(sums)
        , mFonts(fonts) {}

    /// Answers the greatest of the heights.
    double Measure(FlowItems& items) const {
        const TextPlace anywhere{
            .rows = mRows, .sums = mSums, .page = kWidestPageNumber, .pages = kWidestPageNumber};
        std::vector<std::optional<BandMeasure>> measures;
        for (const std::optional<BoundBand>& band : mReport.Bands()) {
            if (band)
                measures.emplace_back(std::in_place, *band, anywhere, mFonts);
            else
                measures.emplace_back();
        }
        double tallest = 0;
        for (FlowItem& item : items) {
            const double height = measures[item.band]->HeightAt(Place(item));
            item.height = float(height);
            tallest = std::max(tallest, height);
        }
        return tallest;
    }

    FlowItems Cut(const FlowItems& items, double room) const {
        FlowItems pieces;
        std::vector<quint32> newNumbers;
        for (const FlowItem& item : items) {
            newNumbers.push_back(static_cast<quint32>(pieces.size()));
            if (double(item.height) <= room)
                pieces.push_back(item);
            else
                AddPieces(pieces, item, room);
        }
        newNumbers.push_back(static_cast<quint32>(pieces.size()));
        for (FlowItem& piece : pieces) {
            if (piece.keepEnd != 0)
                piece.keepEnd = newNumbers[piece.keepEnd];
        }
        return pieces;
    }

  private:
    TextPlace Place(const FlowItem& item) const { return PlaceOf(item, mReport, mRows, mSums); }

    void AddPieces(FlowItems& pieces, const FlowItem& item, double room) const {
        const LaidBand laid = LayOutBand(*mReport.Bands()[item.band], Place(item), mFonts);
        double top = 0;
        for (const double bottom : CutsOf(laid, room)) {
            FlowItem piece = item;
            piece.top = float(top);
            piece.height = float(bottom - top);
            piece.isPiece = true;
            piece.repeats = false;
            pieces.push_back(piece);
            top = bottom;
        }
    }

    const BoundTemplate& mReport;
    const RowData& mRows;
    const ReportSums& mSums;
    ReportFonts& mFonts;
};

} // namespace

TextPlace PlaceOf(const FlowItem& item, const BoundTemplate& report, const RowData& rows,
                  const ReportSums& sums) {
    const bool footer = BandNumbers(report.GroupColumns().size()).IsFooter(item.band);
    return {.rows = rows,
            .sums = sums,
            .row = footer && item.endRow > item.firstRow ? item.endRow - 1 : item.firstRow,
            .firstRow = item.firstRow,
            .endRow = item.endRow,
            .page = kWidestPageNumber,
            .pages = kWidestPageNumber};
}

Flow BuildFlow(const BoundTemplate& report, const RowData& rows, ReportFonts& fonts, double room) {
    FlowItems items = FlowBuilder(report, rows).Build();
    ReportSums sums = SumsOf(items, report, rows);
    const FlowMeasure measure(report, rows, sums, fonts);
    if (measure.Measure(items) > room)
        items = measure.Cut(items, room);
    return {std::move(items), std::move(sums)};
}
