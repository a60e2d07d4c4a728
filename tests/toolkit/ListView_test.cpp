#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/PaintCounter.h"
#include "support/ScreenTest.h"
#include "toolkit/ListView.h"
#include "toolkit/Twips.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

DateTime On(int year, int month, int day, int hour = 0) {
    return *DateTime::FromFields({.year = year, .month = month, .day = day, .hour = hour});
}

constexpr std::array kPatientColumns = {GridColumn{u"HOSPITAL #", 1300, u"Number"},
                                        GridColumn{u"PATIENT NAME", 2200, u"name"}};

/// A window with a text box, a list of two columns and a button, in this order of tabs.
Qt::Alignment AlignmentOfHeading(const ListView& list, int column) {
    return list.model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
}

class ListViewTest : public ScreenTest {
  protected:
    ListViewTest()
        : box(new QLineEdit(&window))
        , list(new ListView(&window))
        , button(new QPushButton(&window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(list);
        layout->addWidget(button);
        list->SetColumns(kPatientColumns);
        window.resize(600, 500);
        box->setFocus();
        Activate(window);
    }

    void ShowPatients() {
        list->SetRows(
            Rows({u"name"_s, u"number"_s},
                 {{u"SANTOS"_s, u"100090"_s}, {u"CRUZ"_s, u"100085"_s}, {u"REYES"_s, u"100085"_s}}));
    }

    QStringList Names() const {
        QStringList names;
        for (int row = 0; row < list->RowCount(); ++row)
            names.push_back(list->model()->index(row, 1).data().toString());
        return names;
    }

    void ClickRow(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualRect(list->model()->index(row, 0)).center());
    }

    void ClickHeader(int section) {
        QHeaderView* header = list->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(header->sectionViewportPosition(section) + 10, header->height() / 2));
    }

    QWidget window;
    QLineEdit* box;
    ListView* list;
    QPushButton* button;
};

TEST_F(ListViewTest, SaysThatASearchIsOnItsWay) {
    list->ClearRows();
    const QImage empty = list->grab().toImage();
    const PaintCounter counter(list->viewport());
    {
        const ListSearching sign(*list);
        EXPECT_EQ(counter.paints, 1) << "before anything else is done";
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
        EXPECT_NE(list->grab().toImage(), empty);
        ShowPatients();
    }
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    list->ClearRows();
    EXPECT_EQ(list->grab().toImage(), empty);
}

TEST_F(ListViewTest, LeavesTheWaitingPointerOfWhoeverHasSetIt) {
    SetMousePointer(MousePointer::Wait);
    { const ListSearching sign(*list); }
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    SetMousePointer(MousePointer::Default);
}

TEST_F(ListViewTest, ShowsTheChosenColumnsUnderTheirHeaders) {
    ShowPatients();
    EXPECT_EQ(list->RowCount(), 3);
    EXPECT_EQ(list->model()->headerData(0, Qt::Horizontal).toString(), u"HOSPITAL #"_s);
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), u"100090"_s);
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), u"SANTOS"_s);
    EXPECT_EQ(list->columnWidth(0), TwipsToPixels(1300));
    EXPECT_EQ(list->columnWidth(1), TwipsToPixels(2200));
}

TEST_F(ListViewTest, HeadersStandOnTheLeft) {
    EXPECT_EQ(list->model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(ListViewTest, AColumnIsAlignedWithItsHeading) {
    list->SetColumns(std::array{GridColumn{.heading = u"QTY", .field = u"qty", .alignment = Qt::AlignRight},
                                GridColumn{.heading = u"ITEM", .field = u"item"}});
    list->SetRows(Rows({u"qty"_s, u"item"_s}, {{u"3"_s, u"GAUZE"_s}}));
    const auto right = Qt::AlignRight | Qt::AlignVCenter;
    EXPECT_EQ(list->model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>(),
              right);
    EXPECT_EQ(list->model()->index(0, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>(), right);
    EXPECT_EQ(list->model()->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(ListViewTest, AFieldThatTheRowsLackRaises3265AndTheRowsBeforeStay) {
    ShowPatients();
    try {
        list->SetRows(Rows({u"number"_s}, {{u"1"_s}}));
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), RunTime::kItemNotFound);
    }
    EXPECT_EQ(Names(), (QStringList{u"SANTOS"_s, u"CRUZ"_s, u"REYES"_s}));
}

TEST_F(ListViewTest, ColumnsAreReplacedByNewOnes) {
    list->SetColumns(std::array{GridColumn{u"SLIP #", 1000}});
    EXPECT_EQ(list->model()->columnCount(), 1);
    EXPECT_EQ(list->model()->headerData(0, Qt::Horizontal).toString(), u"SLIP #"_s);
    EXPECT_EQ(list->columnWidth(0), TwipsToPixels(1000));
}

TEST_F(ListViewTest, TheFirstRowIsSelectedWhenRowsArrive) {
    ShowPatients();
    EXPECT_EQ(list->CurrentText(0), u"100090"_s);
    EXPECT_EQ(list->CurrentText(1), u"SANTOS"_s);
}

TEST_F(ListViewTest, AnEmptyListHasNoSelectedRowAndRaises91) {
    for (const bool filledBefore : {false, true}) {
        if (filledBefore) {
            ShowPatients();
            list->ClearRows();
        }
        try {
            list->CurrentText(0);
            FAIL() << "nothing was raised";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), 91);
        }
    }
    list->SetRows(Rows({u"number"_s, u"name"_s}));
    EXPECT_THROW(list->CurrentText(1), RunTimeError);
}

TEST_F(ListViewTest, AColumnThatTheRowsDoNotHaveRaises9) {
    ShowPatients();
    for (const int column : {-1, 2}) {
        EXPECT_EQ(ErrorOf([&] { list->CurrentText(column); }), RunTime::kSubscriptOutOfRange) << column;
        EXPECT_EQ(ErrorOf([&] { list->SetSortKey(column); }), RunTime::kSubscriptOutOfRange) << column;
    }
    EXPECT_EQ(list->CurrentText(1), u"SANTOS"_s);
}

TEST_F(ListViewTest, AClickSelectsTheRowAndIsTold) {
    ShowPatients();
    QStringList selected;
    QObject::connect(list, &ListView::Click, list, [&] { selected.push_back(list->CurrentText(1)); });
    ClickRow(2);
    EXPECT_EQ(selected, QStringList{u"REYES"_s});
}

TEST_F(ListViewTest, AClickBelowTheRowsKeepsTheSelectedRow) {
    ShowPatients();
    ClickRow(1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(10, list->viewport()->height() - 5));
    EXPECT_EQ(list->CurrentText(1), u"CRUZ"_s);
}

TEST_F(ListViewTest, AClickOnAnEmptyListIsToldToo) {
    int clicks = 0;
    QObject::connect(list, &ListView::Click, list, [&clicks] { ++clicks; });
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    EXPECT_EQ(clicks, 1);
}

TEST_F(ListViewTest, ADoubleClickIsOneClickAndOneDoubleClick) {
    ShowPatients();
    QStringList events;
    QObject::connect(list, &ListView::Click, list, [&events] { events.push_back(u"Click"_s); });
    QObject::connect(list, &ListView::DblClick, list, [&events] { events.push_back(u"DblClick"_s); });
    DoubleClick(*list->viewport(), QPoint(10, 10));
    EXPECT_EQ(events, (QStringList{u"Click"_s, u"DblClick"_s}));
    ClickRow(1);
    EXPECT_EQ(events.last(), u"Click"_s) << "the click after it counts again";
    EXPECT_EQ(events.size(), 3);
}

TEST_F(ListViewTest, AHeaderClickTellsTheColumnCountedFromOneAndSortsNothing) {
    ShowPatients();
    std::vector<int> columns;
    QObject::connect(list, &ListView::ColumnClick, list,
                     [&columns](int column) { columns.push_back(column); });
    ClickHeader(1);
    ClickHeader(0);
    EXPECT_EQ(columns, (std::vector<int>{2, 1}));
    EXPECT_EQ(Names(), (QStringList{u"SANTOS"_s, u"CRUZ"_s, u"REYES"_s}));
}

TEST_F(ListViewTest, TheSortOrderTakesEffectWithTheSortKey) {
    ShowPatients();
    EXPECT_EQ(list->SortOrder(), Qt::AscendingOrder);
    list->SetSortOrder(Qt::DescendingOrder);
    EXPECT_EQ(list->SortOrder(), Qt::DescendingOrder);
    EXPECT_EQ(Names().first(), u"SANTOS"_s) << "nothing is sorted yet";
    list->SetSortKey(1);
    EXPECT_EQ(Names(), (QStringList{u"SANTOS"_s, u"REYES"_s, u"CRUZ"_s}));
    list->SetSortOrder(Qt::AscendingOrder);
    list->SetSortKey(1);
    EXPECT_EQ(Names(), (QStringList{u"CRUZ"_s, u"REYES"_s, u"SANTOS"_s}));
    EXPECT_EQ(list->horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_EQ(list->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(ListViewTest, EqualRowsKeepTheirOrderInBothDirections) {
    // Enough rows that a sort which is not stable would mix them.
    std::vector<std::vector<Value>> patients;
    for (int i = 0; i < 90; ++i)
        patients.push_back({u"STATION %1"_s.arg(i % 3), u"%1"_s.arg(i, 3, 10, QChar(u'0'))});
    list->SetColumns(std::array{GridColumn{.field = u"station"}, GridColumn{.field = u"number"}});
    list->SetRows(Rows({u"station"_s, u"number"_s}, patients));
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        list->SetSortOrder(order);
        list->SetSortKey(0);
        const QStringList numbers = Names();
        for (int third = 0; third < 3; ++third) {
            const QStringList station = numbers.mid(third * 30, 30);
            EXPECT_TRUE(std::is_sorted(station.begin(), station.end())) << station.join(u' ').toStdString();
        }
    }
}

TEST_F(ListViewTest, TheSelectedRecordStaysSelectedWhenTheOrderChanges) {
    ShowPatients();
    ClickRow(2);
    list->SetSortKey(1);
    EXPECT_EQ(list->CurrentText(1), u"REYES"_s);
    EXPECT_EQ(list->currentIndex().row(), 1);
    EXPECT_TRUE(list->selectionModel()->isRowSelected(1, {}));
    list->SetSortOrder(Qt::DescendingOrder);
    list->SetSortKey(0);
    EXPECT_EQ(list->CurrentText(1), u"REYES"_s);
    EXPECT_EQ(list->currentIndex().row(), 2);
}

TEST_F(ListViewTest, RowsThatArriveLaterFollowTheSort) {
    list->SetSortKey(1);
    ShowPatients();
    EXPECT_EQ(Names(), (QStringList{u"CRUZ"_s, u"REYES"_s, u"SANTOS"_s}));
    EXPECT_EQ(list->CurrentText(1), u"CRUZ"_s);
}

struct SortCase {
    const char* name;
    std::vector<Value> ascending;
};

class ListViewSort : public testing::TestWithParam<SortCase> {};

TEST_P(ListViewSort, PutsTheCellsInThisOrder) {
    const std::vector<Value>& wanted = GetParam().ascending;
    std::vector<std::vector<Value>> cells;
    for (size_t i = wanted.size(); i-- > 0;)
        cells.push_back({wanted[i]});
    ListView list;
    list.SetColumns(std::array{GridColumn{.field = u"column"}});
    list.SetRows(Rows({u"column"_s}, cells));
    list.SetSortKey(0);
    for (size_t row = 0; row < wanted.size(); ++row) {
        list.setCurrentIndex(list.model()->index(int(row), 0));
        EXPECT_EQ(list.CurrentText(0), wanted[row].TextOrEmpty()) << "row " << row;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Types, ListViewSort,
    testing::Values(SortCase{"DatesByTimeNotByText",
                             {On(2025, 12, 31), On(2026, 2, 1), On(2026, 11, 3, 8), On(2026, 11, 3, 14)}},
                    SortCase{"NumbersBySize", {qint64{-3}, qint64{9}, qint64{10}, qint64{100}}},
                    SortCase{"AmountsBySize",
                             {Decimal{u"9.50"_s}, Decimal{u"10.00"_s}, Decimal{u"1250.00"_s}}},
                    SortCase{"TextWithEnyeBetweenNAndO", {u"NUNEZ"_s, u"NUÑEZ"_s, u"NUOVO"_s}},
                    SortCase{"TextWithoutRegardToLetterCase", {u"abad"_s, u"BELLO"_s, u"cruz"_s}},
                    SortCase{"DigitsInTextsAsText", {u"10"_s, u"100"_s, u"9"_s}},
                    SortCase{"NullBeforeEverything", {Value(), u"A"_s, u"B"_s}},
                    SortCase{"NullBeforeDates", {Value(), On(1899, 12, 30), On(2026, 1, 1)}},
                    SortCase{"NullBeforeNegativeNumbers", {Value(), qint64{-5}, qint64{0}}}),
    CaseName());

TEST_F(ListViewTest, DecimalsWithoutDecimalsShowAsTheirText) {
    list->SetColumns(std::array{GridColumn{.field = u"hospital #"}});
    list->SetRows(Rows({u"hospital #"_s}, {{Decimal{u"100085"_s}}}));
    const QAbstractItemModel& rows = *list->model();
    EXPECT_EQ(rows.data(rows.index(0, 0)).toString(), u"100085"_s);
    EXPECT_EQ(rows.data(rows.index(0, 0), Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(ListViewTest, AmountsShowWithTwoDecimalsOnTheRightUnderTheirHeadingAndReadAsTheyAre) {
    const auto right = Qt::AlignRight | Qt::AlignVCenter;
    list->SetColumns(std::array{GridColumn{.field = u"item"}, GridColumn{.field = u"price"}});
    list->SetRows(Rows({u"item"_s, u"price"_s}, {{u"GAUZE"_s, Decimal{u"1250.5000"_s}}}));
    const QModelIndex price = list->model()->index(0, 1);
    EXPECT_EQ(price.data().toString(), u"1,250.50"_s);
    EXPECT_EQ(price.data(Qt::TextAlignmentRole).value<Qt::Alignment>(), right);
    EXPECT_EQ(AlignmentOfHeading(*list, 1), right);
    EXPECT_EQ(list->CurrentText(1), u"1250.5"_s);
    EXPECT_EQ(AlignmentOfHeading(*list, 0), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(ListViewTest, AnAmountThatIsNotKnownLeavesTheHeadingOverTheOthers) {
    list->SetColumns(std::array{GridColumn{.field = u"price"}});
    list->SetRows(Rows({u"price"_s}, {{Value()}, {Decimal{u"5.0000"_s}}}));
    EXPECT_EQ(AlignmentOfHeading(*list, 0), Qt::AlignRight | Qt::AlignVCenter);
    list->SetRows(Rows({u"price"_s}, {{Value()}}));
    EXPECT_EQ(AlignmentOfHeading(*list, 0), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(ListViewTest, NullsShowAndReadAsEmpty) {
    list->SetRows(Rows({u"number"_s, u"name"_s}, {{u"1"_s, Value()}}));
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), QString());
    EXPECT_EQ(list->CurrentText(1), QString());
}

TEST_F(ListViewTest, TheIconStandsInTheFirstColumnOfEachRow) {
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::black);
    list->SetRowIcon(QIcon(pixmap));
    ShowPatients();
    EXPECT_FALSE(list->model()->index(1, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(list->model()->index(1, 1).data(Qt::DecorationRole).isValid());
}

TEST_F(ListViewTest, TabPassesOverAnEmptyList) {
    Press(*box, Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus());
    ShowPatients();
    box->setFocus();
    Press(*box, Qt::Key_Tab);
    EXPECT_TRUE(list->hasFocus());
    Press(*list, Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus()) << "Tab moves out of the list, not through its cells";
    list->ClearRows();
    box->setFocus();
    Press(*box, Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(ListViewTest, ArrowKeysMoveTheSelectedRow) {
    ShowPatients();
    list->setFocus();
    Press(*list, Qt::Key_Down);
    EXPECT_EQ(list->CurrentText(1), u"CRUZ"_s);
}

TEST_F(ListViewTest, TypingALetterSearchesNothing) {
    ShowPatients();
    list->setFocus();
    Type(*list, u"R"_s);
    EXPECT_EQ(list->CurrentText(1), u"SANTOS"_s);
}

TEST_F(ListViewTest, CtrlWithADigitSortsByThatColumnAsAClickOnItsHeadingDoes) {
    ShowPatients();
    list->setFocus();
    std::vector<int> columns;
    QObject::connect(list, &ListView::ColumnClick, list,
                     [&columns](int column) { columns.push_back(column); });
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_1, Qt::Key_9})
        QTest::keyClick(list, key, Qt::ControlModifier);
    EXPECT_EQ(columns, (std::vector{2, 1})) << "a column that is not there is not asked for";
}

} // namespace
