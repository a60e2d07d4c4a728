#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/PrintQt.h"
#include "support/ScriptedGateway.h"
#include "toolkit/FlexCells.h"

#include <QFont>

#include <array>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<const RowData> TwoPatients() {
    return Rows({u"HospNum"_s, u"Name"_s}, {{u"100085"_s, u"DELA CRUZ, JUAN"_s}, {u"100090"_s, Value()}});
}

constexpr std::array kNumberAlone = {GridColumn{}, GridColumn{.heading = u"Hospital #"}};

/// Columns of which the last one alone is aligned.
std::array<GridColumn, 3> ThirdOn(Qt::Alignment alignment) {
    return {GridColumn{}, GridColumn{}, GridColumn{.alignment = alignment}};
}

Qt::Alignment AlignmentOf(const FlexCells& cells, int row, int col) {
    return cells.data(cells.index(row - 1, col - 1), Qt::TextAlignmentRole).value<Qt::Alignment>();
}

TEST(FlexCells, StartWithOneFixedRowAndColumnAndOneCell) {
    const FlexCells cells;
    EXPECT_EQ(cells.Rows(), 2);
    EXPECT_EQ(cells.Cols(), 2);
    EXPECT_EQ(cells.Row(), 1);
    EXPECT_EQ(cells.Col(), 1);
    EXPECT_EQ(cells.rowCount(), 1);
    EXPECT_EQ(cells.columnCount(), 1);
}

TEST(FlexCells, CountFixedRowsAndColumnsThatTheViewShowsAsHeaders) {
    FlexCells cells;
    cells.SetRows(9);
    cells.SetCols(13);
    EXPECT_EQ(cells.rowCount(), 8);
    EXPECT_EQ(cells.columnCount(), 12);
    cells.SetTextMatrix(0, 3, u"Particular"_s);
    cells.SetTextMatrix(8, 12, u"last"_s);
    cells.SetTextMatrix(8, 0, u"*"_s);
    EXPECT_EQ(cells.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), u"Particular"_s);
    EXPECT_EQ(cells.headerData(7, Qt::Vertical, Qt::DisplayRole).toString(), u"*"_s);
    EXPECT_EQ(cells.data(cells.index(7, 11), Qt::DisplayRole).toString(), u"last"_s);
}

TEST(FlexCells, ResizingKeepsTheTextsOfTheCellsThatRemain) {
    FlexCells cells;
    cells.SetRows(4);
    cells.SetCols(4);
    cells.SetTextMatrix(0, 1, u"head"_s);
    cells.SetTextMatrix(2, 3, u"kept"_s);
    cells.SetTextMatrix(3, 1, u"cut"_s);
    cells.SetRows(3);
    cells.SetCols(6);
    EXPECT_EQ(cells.TextMatrix(0, 1), u"head"_s);
    EXPECT_EQ(cells.TextMatrix(2, 3), u"kept"_s);
    cells.SetRows(4);
    EXPECT_EQ(cells.TextMatrix(3, 1), QString());
}

TEST(FlexCells, CuttingTheGridMovesTheCurrentCellIntoIt) {
    FlexCells cells;
    cells.SetRows(10);
    cells.SetCols(5);
    cells.SetCell(9, 4);
    int moves = 0;
    QObject::connect(&cells, &FlexCells::CurrentMoved, &cells, [&moves] { ++moves; });
    cells.SetRows(4);
    EXPECT_EQ(cells.Row(), 3);
    EXPECT_EQ(cells.Col(), 4);
    cells.SetCols(3);
    EXPECT_EQ(cells.Col(), 2);
    EXPECT_EQ(moves, 2);
}

TEST(FlexCells, GrowingTheGridLeavesTheCurrentCell) {
    FlexCells cells;
    cells.SetRows(4);
    cells.SetCell(3, 1);
    cells.SetRows(5);
    EXPECT_EQ(cells.Row(), 3);
}

TEST(FlexCells, RowsThatAreAddedDoNotSetTheViewUpAnew) {
    FlexCells cells;
    cells.SetTextMatrix(1, 1, u"kept"_s);
    int resets = 0;
    std::vector<std::pair<int, int>> added;
    QObject::connect(&cells, &QAbstractItemModel::modelReset, &cells, [&resets] { ++resets; });
    QObject::connect(&cells, &QAbstractItemModel::rowsInserted, &cells,
                     [&added](const QModelIndex&, int first, int last) { added.emplace_back(first, last); });
    cells.SetRows(3);
    cells.SetRows(6);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(added, (std::vector<std::pair<int, int>>{{1, 1}, {2, 4}}));
    EXPECT_EQ(cells.TextMatrix(1, 1), u"kept"_s);
    EXPECT_EQ(cells.TextMatrix(5, 1), QString());
    EXPECT_EQ(cells.rowCount(), 5);
}

TEST(FlexCells, TheCurrentCellIsReadAndWrittenByText) {
    FlexCells cells;
    cells.SetRows(3);
    cells.SetRow(2);
    cells.SetText(u"MD"_s);
    EXPECT_EQ(cells.TextMatrix(2, 1), u"MD"_s);
    EXPECT_EQ(cells.Text(), u"MD"_s);
    cells.SetCol(0);
    EXPECT_EQ(cells.Text(), QString());
}

TEST(FlexCells, ClearEmptiesHeadersTooAndKeepsTheSizes) {
    FlexCells cells;
    cells.SetRows(5);
    cells.SetCols(4);
    cells.SetTextMatrix(0, 1, u"head"_s);
    cells.SetTextMatrix(4, 3, u"text"_s);
    cells.SetRow(4);
    cells.Clear();
    EXPECT_EQ(cells.TextMatrix(0, 1), QString());
    EXPECT_EQ(cells.TextMatrix(4, 3), QString());
    EXPECT_EQ(cells.Rows(), 5);
    EXPECT_EQ(cells.Cols(), 4);
    EXPECT_EQ(cells.Row(), 4);
}

TEST(FlexCells, ABindingShowsFieldNInColumnNPlusOneUnderTheFieldNames) {
    FlexCells cells;
    cells.SetRows(20);
    cells.SetCell(12, 1);
    cells.Bind(TwoPatients());
    EXPECT_EQ(cells.Rows(), 3);
    EXPECT_EQ(cells.Cols(), 3);
    EXPECT_EQ(cells.Row(), 1);
    EXPECT_EQ(cells.Col(), 1);
    EXPECT_EQ(cells.TextMatrix(0, 0), QString());
    EXPECT_EQ(cells.TextMatrix(0, 2), u"Name"_s);
    EXPECT_EQ(cells.TextMatrix(1, 1), u"100085"_s);
    EXPECT_EQ(cells.TextMatrix(1, 0), QString());
    EXPECT_EQ(cells.TextMatrix(2, 2), QString()) << "a Null shows as an empty cell";
}

TEST(FlexCells, ABindingWithoutRowsLeavesTheHeadersAlone) {
    FlexCells cells;
    cells.Bind(Rows({u"HospNum"_s, u"Name"_s}));
    EXPECT_EQ(cells.Rows(), 1);
    EXPECT_EQ(cells.Cols(), 3);
    EXPECT_EQ(cells.Row(), 0);
    EXPECT_EQ(cells.TextMatrix(0, 1), u"HospNum"_s);
    cells.Bind(TwoPatients());
    EXPECT_EQ(cells.Row(), 1);
}

TEST(FlexCells, ABoundGridKeepsItsRowsWhenTheRowSetIsClosed) {
    ScriptedGateway gateway;
    gateway.Expect(u"select"_s, TwoPatients());
    RowSet rows = gateway.Execute(u"select"_s);
    FlexCells cells;
    cells.Bind(rows.Data());
    rows.Close();
    EXPECT_EQ(cells.TextMatrix(2, 1), u"100090"_s);
}

TEST(FlexCells, AWriteMakesTheTextsOfABoundGridItsOwn) {
    FlexCells cells;
    const auto rows = TwoPatients();
    cells.Bind(rows);
    cells.SetTextMatrix(1, 2, u"changed"_s);
    EXPECT_EQ(cells.TextMatrix(1, 2), u"changed"_s);
    EXPECT_EQ(cells.TextMatrix(0, 1), u"HospNum"_s);
    EXPECT_EQ(cells.TextMatrix(2, 1), u"100090"_s);
    EXPECT_EQ(rows->Cell(0, 1).ToText(), u"DELA CRUZ, JUAN"_s) << "the rows of the result stay as they were";
}

TEST(FlexCells, ALineAddedToABoundGridIsEmptyAndKeepsTheOthers) {
    FlexCells cells;
    cells.Bind(TwoPatients());
    cells.SetRows(4);
    EXPECT_EQ(cells.TextMatrix(1, 2), u"DELA CRUZ, JUAN"_s);
    EXPECT_EQ(cells.TextMatrix(0, 2), u"Name"_s);
    EXPECT_EQ(cells.TextMatrix(3, 1), QString());
}

TEST(FlexCells, ColumnsSetHeadersAndAlignmentsAndGrowTheGrid) {
    FlexCells cells;
    cells.SetColumns(std::array{GridColumn{}, GridColumn{.heading = u"Code", .alignment = Qt::AlignLeft},
                                GridColumn{.heading = u"Item", .alignment = Qt::AlignHCenter},
                                GridColumn{.heading = u"Amount", .alignment = Qt::AlignRight},
                                GridColumn{.heading = u"Remarks"}});
    EXPECT_EQ(cells.Cols(), 5);
    EXPECT_EQ(cells.TextMatrix(0, 0), QString());
    EXPECT_EQ(cells.TextMatrix(0, 1), u"Code"_s);
    EXPECT_EQ(cells.TextMatrix(0, 4), u"Remarks"_s);
    EXPECT_EQ(AlignmentOf(cells, 1, 1), Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(AlignmentOf(cells, 1, 2), Qt::AlignHCenter | Qt::AlignVCenter);
    EXPECT_EQ(AlignmentOf(cells, 1, 3), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(AlignmentOf(cells, 1, 4), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST(FlexCells, ColumnsNeverCutOthersOffAndGrowForNoneThatTellsNothing) {
    FlexCells cells;
    cells.SetCols(6);
    cells.SetColumns(kNumberAlone);
    EXPECT_EQ(cells.Cols(), 6);
    FlexCells narrow;
    narrow.SetColumns(std::array{GridColumn{}, GridColumn{.heading = u"Code"}, GridColumn{.width = 900}});
    EXPECT_EQ(narrow.Cols(), 2);
    narrow.SetColumns(std::array{GridColumn{}, GridColumn{}, GridColumn{.alignment = Qt::AlignRight}});
    EXPECT_EQ(narrow.Cols(), 3);
    EXPECT_EQ(narrow.TextMatrix(0, 1), u"Code"_s) << "a column without a heading keeps its own";
}

TEST(FlexCells, HeadersOfTheColumnsStandBeforeFieldNames) {
    FlexCells cells;
    cells.SetColumns(
        std::array{GridColumn{}, GridColumn{.heading = u"Hospital #"}, GridColumn{.heading = u""}});
    cells.Bind(TwoPatients());
    EXPECT_EQ(cells.TextMatrix(0, 1), u"Hospital #"_s);
    EXPECT_EQ(cells.TextMatrix(0, 2), QString()) << "an empty heading stays empty";
    FlexCells boundFirst;
    boundFirst.Bind(TwoPatients());
    int told = 0;
    QObject::connect(&boundFirst, &QAbstractItemModel::headerDataChanged, &boundFirst, [&told] { ++told; });
    boundFirst.SetColumns(kNumberAlone);
    EXPECT_EQ(told, 1) << "the view shows the new heading";
    EXPECT_EQ(boundFirst.TextMatrix(0, 1), u"Hospital #"_s);
    EXPECT_EQ(boundFirst.TextMatrix(0, 2), u"Name"_s);
}

TEST(FlexCells, TheCurrentRowIsReadByItsColumn) {
    FlexCells cells;
    cells.Bind(TwoPatients());
    cells.SetCell(2, 1);
    EXPECT_EQ(cells.CurrentText(2), cells.TextMatrix(2, 2));
    EXPECT_EQ(cells.Col(), 1);
    FlexCells withoutLines;
    withoutLines.Bind(Rows({u"Number"_s, u"Name"_s}));
    EXPECT_EQ(withoutLines.CurrentText(2), u"Name"_s) << "the headers are the current row";
}

TEST(FlexCells, AnAlignmentIsToldForTheHeaderAndForEveryRow) {
    FlexCells cells;
    cells.SetRows(4);
    cells.SetCols(3);
    int headers = 0;
    QString told;
    QObject::connect(&cells, &QAbstractItemModel::headerDataChanged, &cells, [&headers] { ++headers; });
    QObject::connect(
        &cells, &QAbstractItemModel::dataChanged, &cells,
        [&told](const QModelIndex& first, const QModelIndex& last) {
            told +=
                u"%1,%2 to %3,%4"_s.arg(first.row()).arg(first.column()).arg(last.row()).arg(last.column());
        });
    cells.SetColumns(ThirdOn(Qt::AlignRight));
    EXPECT_EQ(headers, 1);
    EXPECT_EQ(told, u"0,1 to 2,1"_s);
    cells.SetRows(1);
    cells.SetColumns(ThirdOn(Qt::AlignLeft));
    EXPECT_EQ(told, u"0,1 to 2,1"_s) << "there is no row to tell of";
}

TEST(FlexCells, AmountsOfABindingStandOnTheRightUnlessAnAlignmentIsSet) {
    FlexCells cells;
    cells.Bind(Rows({u"Item"_s, u"Price"_s, u"Rate"_s, u"Count"_s},
                    {{u"x"_s, Decimal{u"10.0050"_s}, 2.5, qint64{3}}}));
    EXPECT_EQ(AlignmentOf(cells, 1, 1) & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
    EXPECT_EQ(AlignmentOf(cells, 1, 2) & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_EQ(AlignmentOf(cells, 1, 3) & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_EQ(AlignmentOf(cells, 1, 4) & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
    EXPECT_EQ(cells.TextMatrix(1, 2), u"10.005"_s)
        << "the cell holds the number as the run-time turns it into a text";
    cells.SetColumns(ThirdOn(Qt::AlignHCenter));
    EXPECT_EQ(AlignmentOf(cells, 1, 2) & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
}

TEST(FlexCells, AmountsOfABindingShowWithTwoDecimalsUnderTheirHeading) {
    FlexCells cells;
    cells.Bind(
        Rows({u"Hospital #"_s, u"Amount"_s, u"Quantity"_s},
             {{Decimal{u"100085"_s}, Value(), 2.5}, {Decimal{u"100086"_s}, Decimal{u"3360.0000"_s}, 1.0}}));
    const auto shown = [&cells](int row, int col) { return cells.index(row - 1, col - 1).data().toString(); };
    const auto heading = [&cells](int col) {
        return cells.headerData(col - 1, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>() &
               Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(shown(1, 1), u"100085"_s) << "a number of somebody is no amount";
    EXPECT_EQ(shown(1, 2), QString());
    EXPECT_EQ(shown(2, 2), u"3,360.00"_s);
    EXPECT_EQ(shown(1, 3), u"2.5"_s);
    EXPECT_EQ(cells.TextMatrix(2, 2), u"3360"_s) << "what is sent is the number as the run-time has it";
    EXPECT_EQ(heading(1), Qt::AlignLeft);
    EXPECT_EQ(heading(2), Qt::AlignRight);
    EXPECT_EQ(heading(3), Qt::AlignRight);
    cells.SetTextMatrix(1, 2, u"5"_s);
    EXPECT_EQ(shown(1, 2), u"5"_s) << "a text of the grid's own shows as it is";
}

TEST(FlexCells, ABoldHeaderIsBoldAndItsNeighboursAreNot) {
    FlexCells cells;
    cells.SetCols(4);
    cells.SetHeaderBold(2, true);
    EXPECT_TRUE(cells.headerData(1, Qt::Horizontal, Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(cells.headerData(0, Qt::Horizontal, Qt::FontRole).isValid());
    cells.SetHeaderBold(2, false);
    EXPECT_FALSE(cells.headerData(1, Qt::Horizontal, Qt::FontRole).isValid());
}

TEST(FlexCells, EachWriteTellsTheViewWhichCellChanged) {
    FlexCells cells;
    cells.SetRows(3);
    cells.SetCols(3);
    std::vector<QModelIndex> changed;
    std::vector<int> headers;
    QObject::connect(&cells, &QAbstractItemModel::dataChanged, &cells,
                     [&changed](const QModelIndex& from) { changed.push_back(from); });
    QObject::connect(&cells, &QAbstractItemModel::headerDataChanged, &cells,
                     [&headers](Qt::Orientation orientation, int first) {
                         headers.push_back(orientation == Qt::Horizontal ? first : 100 + first);
                     });
    cells.SetTextMatrix(2, 1, u"x"_s);
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed[0], cells.index(1, 0));
    cells.SetTextMatrix(0, 2, u"head"_s);
    cells.SetTextMatrix(2, 0, u"*"_s);
    EXPECT_EQ(headers, (std::vector<int>{1, 101}));
}

struct OutsideCase {
    const char* name;
    std::function<void(FlexCells&)> action;
    int number;
};

class FlexCellsOutside : public testing::TestWithParam<OutsideCase> {};

TEST_P(FlexCellsOutside, RaisesAndChangesNothing) {
    FlexCells cells;
    cells.SetRows(3);
    cells.SetCols(3);
    cells.SetCell(2, 2);
    EXPECT_EQ(ErrorOf([&cells] { GetParam().action(cells); }), GetParam().number);
    EXPECT_EQ(cells.Rows(), 3);
    EXPECT_EQ(cells.Cols(), 3);
    EXPECT_EQ(cells.Row(), 2);
    EXPECT_EQ(cells.Col(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Places, FlexCellsOutside,
    testing::Values(OutsideCase{"ReadBelow", [](FlexCells& c) { c.TextMatrix(3, 1); }, 30009},
                    OutsideCase{"ReadAbove", [](FlexCells& c) { c.TextMatrix(-1, 1); }, 30009},
                    OutsideCase{"ReadRight", [](FlexCells& c) { c.TextMatrix(1, 3); }, 30010},
                    OutsideCase{"ReadLeft", [](FlexCells& c) { c.TextMatrix(1, -1); }, 30010},
                    OutsideCase{"WriteBelow", [](FlexCells& c) { c.SetTextMatrix(3, 1, {}); }, 30009},
                    OutsideCase{"WriteRight", [](FlexCells& c) { c.SetTextMatrix(1, 3, {}); }, 30010},
                    OutsideCase{"RowBelow", [](FlexCells& c) { c.SetRow(3); }, 30009},
                    OutsideCase{"ColRight", [](FlexCells& c) { c.SetCol(3); }, 30010},
                    OutsideCase{"CellBelow", [](FlexCells& c) { c.SetCell(3, 1); }, 30009},
                    OutsideCase{"NoRows", [](FlexCells& c) { c.SetRows(0); }, 30009},
                    OutsideCase{"NoColumns", [](FlexCells& c) { c.SetCols(0); }, 30010},
                    OutsideCase{"BoldRight", [](FlexCells& c) { c.SetHeaderBold(3, true); }, 30010},
                    OutsideCase{"CurrentRight", [](FlexCells& c) { c.CurrentText(3); }, 30010}),
    CaseName());

TEST(FlexCells, ReadingOutsideABoundGridRaisesToo) {
    FlexCells cells;
    cells.Bind(TwoPatients());
    EXPECT_EQ(ErrorOf([&cells] { cells.TextMatrix(3, 1); }), 30009);
    EXPECT_EQ(ErrorOf([&cells] { cells.TextMatrix(1, 3); }), 30010);
}

TEST(FlexCells, ABoundGridGrowsForNoColumn) {
    for (const GridColumn& missing :
         {GridColumn{.heading = u"Address"}, GridColumn{.alignment = Qt::AlignRight}}) {
        FlexCells cells;
        cells.Bind(TwoPatients());
        const std::array columns = {GridColumn{}, GridColumn{}, GridColumn{}, missing};
        EXPECT_EQ(ErrorOf([&] { cells.SetColumns(columns); }), 30010);
        EXPECT_EQ(cells.Cols(), 3);
    }
}

} // namespace
