#include "report/pages/BoundTemplate.h"

#include "report/pages/BandNumbers.h"
#include "report/pages/FormatValue.h"
#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// Finds what a template names among the rows.
class Binder {
  public:
    Binder(const ReportTemplate& read, const ReportValues& values, const QueryRows& queries)
        : mRead(read)
        , mValues(values)
        , mQueries(queries) {}

    size_t Column(size_t query, const QString& name, int line) const {
        if (const auto column = mQueries[query]->Find(name))
            return *column;
        throw TemplateError(mRead.file, line, u"The rows have no field \"%1\"."_s.arg(name));
    }

    std::optional<BoundBand> Bind(const std::optional<ReportBand>& band) const {
        if (!band)
            return std::nullopt;
        BoundBand bound{&*band, {}, {}};
        for (const ReportCell& cell : band->cells)
            bound.cells.push_back(Bind(cell));
        for (const ReportChart& chart : band->charts)
            bound.charts.push_back(Bind(chart));
        return bound;
    }

    BoundCell Bind(const ReportCell& cell) const {
        BoundCell bound{&cell, {}};
        for (const TextPiece& piece : cell.text) {
            BoundPiece next = Bind(piece, cell);
            const bool goesOn = !bound.text.empty() && next.kind == BoundPiece::Kind::Words &&
                                bound.text.back().kind == BoundPiece::Kind::Words;
            if (goesOn)
                bound.text.back().words += next.words;
            else
                bound.text.push_back(std::move(next));
        }
        return bound;
    }

  private:
    BoundChart Bind(const ReportChart& chart) const {
        BoundChart bound{&chart, Column(0, chart.by, chart.line), Column(0, chart.label, chart.line), {}, {}};
        if (!chart.only.isEmpty())
            bound.only = Column(0, chart.only, chart.line);
        for (const ChartSeries& series : chart.series)
            bound.values.push_back(Column(0, series.value, series.line));
        return bound;
    }

    BoundPiece Bind(const TextPiece& piece, const ReportCell& cell) const {
        switch (piece.kind) {
        case TextPiece::Kind::Literal:
            return {BoundPiece::Kind::Words, piece.text};
        case TextPiece::Kind::Field:
            return piece.query ? Words(FirstOf(*piece.query, piece.text, cell.line), cell)
                               : Shown(BoundPiece::Kind::Field, piece, cell);
        case TextPiece::Kind::Parameter:
            return Words(mValues.parameters[piece.number], cell);
        case TextPiece::Kind::Page:
            return {BoundPiece::Kind::Page, {}};
        case TextPiece::Kind::Pages:
            return {BoundPiece::Kind::Pages, {}};
        case TextPiece::Kind::Now:
            return Words(mValues.now, cell);
        case TextPiece::Kind::User:
            return {BoundPiece::Kind::Words, mValues.user};
        case TextPiece::Kind::Sum:
            return Shown(BoundPiece::Kind::Sum, piece, cell);
        case TextPiece::Kind::Count:
            return {BoundPiece::Kind::Count, {}};
        }
        return {};
    }

    BoundPiece Shown(BoundPiece::Kind kind, const TextPiece& piece, const ReportCell& cell) const {
        return {kind, {}, Column(0, piece.text, cell.line)};
    }

    static BoundPiece Words(const Value& value, const ReportCell& cell) {
        return {BoundPiece::Kind::Words, FormatValue(value, cell.format)};
    }

    Value FirstOf(size_t query, const QString& name, int line) const {
        const size_t column = Column(query, name, line);
        const RowData& rows = *mQueries[query];
        return rows.RowCount() > 0 ? rows.Cell(0, column) : Value();
    }

    const ReportTemplate& mRead;
    const ReportValues& mValues;
    const QueryRows& mQueries;
};

} // namespace

BoundTemplate::BoundTemplate(std::shared_ptr<const ReportTemplate> read, const ReportValues& values,
                             const QueryRows& queries)
    : mRead(std::move(read)) {
    const Binder binder(*mRead, values, queries);
    const BandNumbers numbers(mRead->groups.size());
    mBands.resize(numbers.Count());
    // A title has words alone.
    for (const BoundPiece& piece : binder.Bind(mRead->title).text)
        mTitle += piece.words;
    mPageHeader = binder.Bind(mRead->pageHeader);
    mPageFooter = binder.Bind(mRead->pageFooter);
    mBands[BandNumbers::kReportHeader] = binder.Bind(mRead->reportHeader);
    mBands[numbers.ReportFooter()] = binder.Bind(mRead->reportFooter);
    mBands[numbers.Detail()] = binder.Bind(mRead->detail);
    for (size_t level = 0; level < mRead->groups.size(); ++level) {
        const ReportGroup& group = mRead->groups[level];
        mGroupColumns.push_back(binder.Column(0, group.by, group.line));
        mBands[numbers.Header(level)] = binder.Bind(group.header);
        mBands[numbers.Footer(level)] = binder.Bind(group.footer);
    }
}
