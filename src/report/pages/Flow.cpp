#include "report/pages/Flow.h"

#include "report/pages/BandMeasure.h"

#include <algorithm>

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

/// Numbers of the bands by their order.
struct BandNumbers {
    explicit BandNumbers(size_t groups)
        : mGroups(static_cast<quint16>(groups)) {}
    static constexpr quint16 kReportHeader = 0;
    quint16 Header(size_t level) const { return static_cast<quint16>(1 + level); }
    quint16 Detail() const { return static_cast<quint16>(1 + mGroups); }
    quint16 Footer(size_t level) const { return static_cast<quint16>(1 + 2 * mGroups - level); }
    quint16 ReportFooter() const { return static_cast<quint16>(2 + 2 * mGroups); }
    bool IsFooter(quint16 band) const { return band > Detail(); }

  private:
    quint16 mGroups;
};

class FlowBuilder {
  public:
    FlowBuilder(const ReportTemplate& report, const RowData& rows)
        : mReport(report)
        , mRows(rows)
        , mBands(BandsInOrder(report))
        , mNumbers(report.groups.size())
        , mOpen(report.groups.size()) {}

    std::vector<FlowItem> Build() {
        const auto count = static_cast<quint32>(mRows.RowCount());
        const size_t groups = mReport.groups.size();
        mItems.reserve(count + 2);
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
        for (size_t level = 0; level < mReport.groups.size(); ++level) {
            const size_t column = mReport.groups[level].column;
            if (!SameGroup(mRows.Cell(row - 1, column), mRows.Cell(row, column)))
                return level;
        }
        return mReport.groups.size();
    }

    void Add(quint16 number, quint32 firstRow, quint32 endRow, size_t depth) {
        const ReportBand* band = mBands[number];
        if (!band)
            return;
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
        if (const auto& header = mReport.groups[level].header) {
            mItems.back().isHead = true;
            mItems.back().repeats = header->repeats;
        }
    }

    void Close(size_t changed, quint32 row) {
        for (size_t level = mReport.groups.size(); level-- > changed;) {
            const OpenGroup& open = mOpen[level];
            Add(mNumbers.Footer(level), open.firstRow, row, level + 1);
            if (open.firstItem == mItems.size())
                continue;
            FlowItem& first = mItems[open.firstItem];
            if (mReport.groups[level].header)
                first.endRow = row;
            // Where a group and one within it begin with the same item, the larger one counts.
            if (mReport.groups[level].keepTogether)
                first.keepEnd = static_cast<quint32>(mItems.size());
        }
    }

    const ReportTemplate& mReport;
    const RowData& mRows;
    std::vector<const ReportBand*> mBands;
    BandNumbers mNumbers;
    std::vector<OpenGroup> mOpen;
    std::vector<FlowItem> mItems;
};

/// Measures the items; true when one of them is too tall for a page.
bool Measure(std::vector<FlowItem>& items, const ReportTemplate& report, const ReportData& data,
             ReportFonts& fonts, double room) {
    const TextPlace anywhere{.data = data, .page = kWidestPageNumber, .pages = kWidestPageNumber};
    std::vector<std::optional<BandMeasure>> measures;
    for (const ReportBand* band : BandsInOrder(report)) {
        if (band)
            measures.emplace_back(std::in_place, *band, anywhere, fonts);
        else
            measures.emplace_back();
    }
    double tallest = 0;
    for (FlowItem& item : items) {
        const double height = measures[item.band]->HeightAt(PlaceOf(item, report, data));
        item.height = float(height);
        tallest = std::max(tallest, height);
    }
    return tallest > room;
}

/// Parts the items that are too tall for a page.
std::vector<FlowItem> Cut(const std::vector<FlowItem>& items, const ReportTemplate& report,
                          const ReportData& data, ReportFonts& fonts, double room) {
    const std::vector<const ReportBand*> bands = BandsInOrder(report);
    std::vector<FlowItem> pieces;
    std::vector<quint32> newNumbers;
    for (const FlowItem& item : items) {
        newNumbers.push_back(static_cast<quint32>(pieces.size()));
        if (double(item.height) <= room) {
            pieces.push_back(item);
            continue;
        }
        const LaidBand laid = LayOutBand(*bands[item.band], PlaceOf(item, report, data), fonts);
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
    newNumbers.push_back(static_cast<quint32>(pieces.size()));
    for (FlowItem& piece : pieces) {
        if (piece.keepEnd != 0)
            piece.keepEnd = newNumbers[piece.keepEnd];
    }
    return pieces;
}

} // namespace

std::vector<const ReportBand*> BandsInOrder(const ReportTemplate& report) {
    const auto pointer = [](const std::optional<ReportBand>& band) { return band ? &*band : nullptr; };
    std::vector<const ReportBand*> bands{pointer(report.reportHeader)};
    for (const ReportGroup& group : report.groups)
        bands.push_back(pointer(group.header));
    bands.push_back(pointer(report.detail));
    for (auto group = report.groups.rbegin(); group != report.groups.rend(); ++group)
        bands.push_back(pointer(group->footer));
    bands.push_back(pointer(report.reportFooter));
    return bands;
}

TextPlace PlaceOf(const FlowItem& item, const ReportTemplate& report, const ReportData& data) {
    const bool footer = BandNumbers(report.groups.size()).IsFooter(item.band);
    TextPlace place{.data = data, .page = kWidestPageNumber, .pages = kWidestPageNumber};
    place.row = footer && item.endRow > item.firstRow ? item.endRow - 1 : item.firstRow;
    place.firstRow = item.firstRow;
    place.endRow = item.endRow;
    return place;
}

std::vector<FlowItem> BuildFlow(const ReportTemplate& report, const ReportData& data, ReportFonts& fonts,
                                double room) {
    std::vector<FlowItem> items = FlowBuilder(report, data.Rows()).Build();
    if (Measure(items, report, data, fonts, room))
        return Cut(items, report, data, fonts, room);
    return items;
}
