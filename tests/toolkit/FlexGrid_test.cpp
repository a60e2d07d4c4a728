#include "support/Contrast.h"
#include "support/PaintCounter.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Focus.h"
#include "toolkit/Twips.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// A window with a text box over a grid of 8 rows and 4 columns.
class FlexGridTest : public ScreenTest {
  protected:
    FlexGridTest()
        : box(new QLineEdit(&window))
        , grid(new FlexGrid(&window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(grid);
        grid->Cells().SetRows(9);
        grid->Cells().SetCols(5);
        window.resize(800, 500);
        box->setFocus();
        Activate(window);
        grid->connect(grid, &FlexGrid::LeaveCell, grid, [this] { Note(u"LeaveCell"_s); });
        grid->connect(grid, &FlexGrid::EnterCell, grid, [this] {
            Note(u"EnterCell"_s);
            if (onEnterCell)
                onEnterCell();
        });
        grid->connect(grid, &FlexGrid::RowColChange, grid, [this] { Note(u"RowColChange"_s); });
        grid->connect(grid, &FlexGrid::Click, grid, [this] { Note(u"Click"_s); });
        grid->connect(grid, &FlexGrid::DblClick, grid, [this] { Note(u"DblClick"_s); });
        OnGotFocus(grid, [this] { Note(u"GotFocus"_s); });
    }

    void Note(const QString& event) {
        events.push_back(u"%1 %2,%3"_s.arg(event).arg(grid->Cells().Row()).arg(grid->Cells().Col()));
    }

    /// A place inside a cell, measured in the viewport.
    QPoint Inside(int row, int col) const {
        return grid->CellRect(row, col).center() - grid->viewport()->pos();
    }

    void ClickCell(int row, int col) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, Inside(row, col));
    }

    QWidget window;
    QLineEdit* box;
    FlexGrid* grid;
    QStringList events;
    std::function<void()> onEnterCell;
};

TEST_F(FlexGridTest, WidthsAreInTwipsAndZeroHidesTheColumn) {
    grid->SetColWidth(1, 1000);
    grid->SetColWidth(2, 4000);
    grid->SetColWidth(3, 0);
    EXPECT_EQ(grid->columnWidth(0), TwipsToPixels(1000));
    EXPECT_EQ(grid->columnWidth(1), TwipsToPixels(4000));
    EXPECT_TRUE(grid->isColumnHidden(2));
    EXPECT_FALSE(grid->isColumnHidden(1));
    EXPECT_EQ(grid->ColWidth(2), 4000);
    grid->SetColWidth(3, 500);
    EXPECT_FALSE(grid->isColumnHidden(2));
}

TEST_F(FlexGridTest, ColumnsHaveTheirWidthsOrKeepThem) {
    grid->SetColWidth(1, 1000);
    grid->SetColumns(std::array{GridColumn{}, GridColumn{.heading = u"Code"}, GridColumn{u"Name", 4000},
                                GridColumn{.width = 0}, GridColumn{.width = 700}});
    EXPECT_EQ(grid->ColWidth(0), 960);
    EXPECT_EQ(grid->ColWidth(1), 1000);
    EXPECT_EQ(grid->columnWidth(1), TwipsToPixels(4000));
    EXPECT_TRUE(grid->isColumnHidden(2));
    EXPECT_EQ(grid->ColWidth(4), 700) << "for a column that a binding may bring";
    EXPECT_EQ(grid->Cells().TextMatrix(0, 2), u"Name"_s);
}

TEST_F(FlexGridTest, AColumnWhoseWidthNobodyHasSetHasRoomForItsHeading) {
    grid->SetColumns(std::array{GridColumn{}, GridColumn{.width = 500}});
    grid->Cells().Bind(
        Rows({u"RegistrationNumber"_s, u"RegistrationDate"_s, u"Age"_s}, {{u"1"_s, u"2"_s, u"3"_s}}));
    EXPECT_EQ(grid->columnWidth(0), TwipsToPixels(500)) << "what is set stays";
    EXPECT_GT(grid->columnWidth(1), grid->fontMetrics().horizontalAdvance(u"RegistrationDate"_s));
    EXPECT_EQ(grid->columnWidth(2), TwipsToPixels(960));
    EXPECT_EQ(grid->ColWidth(2), 960) << "it reads as the usual one";
}

TEST_F(FlexGridTest, AColumnWhoseWidthNobodyHasSetHasRoomForItsTexts) {
    const QString name = u"HEMODIALYSIS, HIGH FLUX"_s;
    const QString remark = QString(400, u'X');
    grid->SetColumns(std::array{GridColumn{}, GridColumn{.width = 500}});
    grid->Cells().Bind(Rows({u"A"_s, u"B"_s, u"C"_s}, {{name, name, remark}}));
    EXPECT_EQ(grid->columnWidth(0), TwipsToPixels(500)) << "what is set stays";
    EXPECT_GT(grid->columnWidth(1), grid->fontMetrics().horizontalAdvance(name));
    EXPECT_EQ(grid->columnWidth(2), TwipsToPixels(4800)) << "within reason";
}

TEST_F(FlexGridTest, AColumnAsWideAsItsHeadingHoldsItsBlanksToo) {
    grid->SetColumns(std::array{GridColumn{}, GridColumn{u"Name", GridColumn::kAsHeading},
                                GridColumn{u"Name      ", GridColumn::kAsHeading}});
    const int text = grid->fontMetrics().horizontalAdvance(u"Name"_s);
    const int withBlanks = grid->fontMetrics().horizontalAdvance(u"Name      "_s);
    EXPECT_GT(grid->columnWidth(0), text);
    EXPECT_EQ(grid->columnWidth(1), grid->columnWidth(0) + withBlanks - text);
}

TEST_F(FlexGridTest, TheCurrentRowIsReadByItsColumn) {
    grid->Cells().SetTextMatrix(1, 2, u"GAUZE"_s);
    grid->Cells().SetCell(1, 1);
    EXPECT_EQ(grid->CurrentText(2), u"GAUZE"_s);
}

TEST_F(FlexGridTest, AColumnThatNobodySetHasTheDefaultWidth) {
    grid->SetColWidth(2, 3000);
    EXPECT_EQ(grid->ColWidth(1), 960);
    EXPECT_EQ(grid->ColWidth(4), 960);
    EXPECT_EQ(grid->columnWidth(3), TwipsToPixels(960));
}

TEST_F(FlexGridTest, TheFixedColumnHasItsWidthOrIsGone) {
    grid->Cells().SetTextMatrix(0, 1, u"Code"_s);
    grid->SetColWidth(0, 200);
    EXPECT_TRUE(grid->verticalHeader()->isVisible());
    EXPECT_EQ(grid->verticalHeader()->width(), TwipsToPixels(200));
    grid->SetColWidth(0, 0);
    EXPECT_FALSE(grid->verticalHeader()->isVisible());
}

TEST_F(FlexGridTest, LooksEmptyUntilSomebodyFillsIt) {
    const auto isPlain = [this] {
        const QImage picture = grid->viewport()->grab().toImage();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != Qt::white)
                    return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(isPlain()) << "no lines, no mark";
    EXPECT_FALSE(grid->horizontalHeader()->isVisible());
    EXPECT_FALSE(grid->verticalHeader()->isVisible());
    grid->Cells().SetTextMatrix(1, 2, u"HC01"_s);
    EXPECT_FALSE(isPlain());
    EXPECT_TRUE(grid->horizontalHeader()->isVisible());
    EXPECT_TRUE(grid->verticalHeader()->isVisible());
    grid->Cells().Clear();
    EXPECT_TRUE(isPlain());
    EXPECT_FALSE(grid->horizontalHeader()->isVisible());
    grid->Cells().Bind(Rows({u"Code"_s}, {{u"HC01"_s}}));
    EXPECT_FALSE(isPlain());
    EXPECT_TRUE(grid->horizontalHeader()->isVisible());
}

TEST_F(FlexGridTest, ABlankRowOfAListBearsNoMark) {
    const auto colorInRow = [this](int row) {
        return grid->viewport()->grab().toImage().pixelColor(Inside(row, 2));
    };
    grid->SetRowSelect(true);
    grid->Cells().SetTextMatrix(0, 1, u"Name"_s);
    for (const bool withFocus : {false, true}) {
        if (withFocus)
            grid->setFocus();
        EXPECT_EQ(colorInRow(1), QColor(Qt::white));
        grid->Cells().SetTextMatrix(1, 1, u"CRUZ"_s);
        EXPECT_NE(colorInRow(1), QColor(Qt::white));
        grid->Cells().SetTextMatrix(1, 1, u""_s);
    }
}

TEST_F(FlexGridTest, TheMarkedRowDiffersWithTheFocus) {
    grid->SetRowSelect(true);
    grid->Cells().SetTextMatrix(1, 1, u"CRUZ"_s);
    const auto ground = [this] { return grid->viewport()->grab().toImage().pixelColor(Inside(1, 2)); };
    box->setFocus();
    const QColor without = ground();
    grid->setFocus();
    EXPECT_GE(Contrast(ground(), without), 3);
}

TEST_F(FlexGridTest, WhatWasCoveredIsPaintedThoughRedrawIsOff) {
    grid->Cells().SetTextMatrix(0, 1, u"Code"_s);
    QWidget cover(&window);
    cover.setAutoFillBackground(true);
    cover.setPalette(QPalette(Qt::red));
    const QRect cell = grid->CellRect(2, 2);
    cover.setGeometry(cell.translated(grid->pos()));
    cover.show();
    cover.raise();
    RunEvents();
    const auto shown = [&] {
        return window.screen()
            ->grabWindow(window.winId())
            .toImage()
            .pixelColor(cell.translated(grid->pos()).center());
    };
    ASSERT_EQ(shown(), QColor(Qt::red));
    grid->SetRedraw(false);
    cover.hide();
    RunEvents();
    ASSERT_EQ(shown(), QColor(Qt::red)) << "the ghost";
    grid->Uncover(cell);
    RunEvents();
    EXPECT_EQ(shown(), QColor(Qt::white));
    EXPECT_FALSE(grid->Redraw());
}

TEST_F(FlexGridTest, WidthsOutliveABinding) {
    grid->SetColWidth(1, 4150);
    grid->SetColWidth(2, 0);
    grid->Cells().Bind(Rows({u"Description"_s, u"Code"_s}, {{u"HEART STATION"_s, u"HS"_s}}));
    EXPECT_EQ(grid->columnWidth(0), TwipsToPixels(4150));
    EXPECT_TRUE(grid->isColumnHidden(1));
}

TEST_F(FlexGridTest, WidthsMayBeSetBeforeTheColumnsExist) {
    grid->SetColWidth(7, 0);
    grid->SetColWidth(6, 2000);
    grid->Cells().SetCols(8);
    EXPECT_TRUE(grid->isColumnHidden(6));
    EXPECT_EQ(grid->columnWidth(5), TwipsToPixels(2000));
}

TEST_F(FlexGridTest, MovesByCodeRaiseNothingAndTheViewFollows) {
    grid->Cells().SetCell(4, 2);
    grid->Cells().SetRow(5);
    grid->Cells().SetCol(3);
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(4, 2));
}

TEST_F(FlexGridTest, ResizingAndBindingByCodeRaiseNothing) {
    grid->Cells().SetCell(8, 4);
    grid->Cells().SetRows(3);
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(1, 3));
    grid->Cells().Bind(Rows({u"a"_s, u"b"_s}, {{u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}}));
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(0, 0));
    grid->Cells().Clear();
    EXPECT_EQ(events, QStringList());
}

TEST_F(FlexGridTest, ClearingKeepsTheCurrentCellMarked) {
    grid->Cells().SetCell(3, 2);
    grid->Cells().Clear();
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(2, 1));
}

TEST_F(FlexGridTest, ArrowKeysRaiseLeaveEnterAndRowColChangeInThisOrder) {
    grid->setFocus();
    events.clear();
    Press(*grid, Qt::Key_Down);
    EXPECT_EQ(events, (QStringList{u"LeaveCell 1,1"_s, u"EnterCell 2,1"_s, u"RowColChange 2,1"_s}));
    events.clear();
    Press(*grid, Qt::Key_Right);
    EXPECT_EQ(events, (QStringList{u"LeaveCell 2,1"_s, u"EnterCell 2,2"_s, u"RowColChange 2,2"_s}));
}

TEST_F(FlexGridTest, AnArrowKeyAtTheEdgeRaisesNothing) {
    grid->setFocus();
    events.clear();
    Press(*grid, Qt::Key_Up);
    EXPECT_EQ(events, QStringList());
}

TEST_F(FlexGridTest, AnArrowKeyFindsItsWayOutOfAHiddenColumn) {
    grid->SetColWidth(1, 0);
    grid->setFocus();
    events.clear();
    Press(*grid, Qt::Key_Down);
    EXPECT_EQ(events, (QStringList{u"LeaveCell 1,1"_s, u"EnterCell 2,2"_s, u"RowColChange 2,2"_s}));
    EXPECT_EQ(grid->currentIndex(), grid->Cells().index(1, 1));
}

TEST_F(FlexGridTest, AKeyThatMovesNothingLeavesTheCurrentCellInItsHiddenColumn) {
    grid->SetColWidth(1, 0);
    grid->setFocus();
    events.clear();
    Press(*grid, Qt::Key_Up);
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(grid->Cells().Col(), 1);
    EXPECT_EQ(grid->currentIndex(), grid->Cells().index(0, 0));
}

TEST_F(FlexGridTest, ArrowKeysScrollAListWhoseFirstColumnIsHidden) {
    grid->SetColWidth(1, 0);
    grid->Cells().SetRows(200);
    grid->setFocus();
    for (int i = 0; i < 100; ++i)
        Press(*grid, Qt::Key_Down);
    EXPECT_EQ(grid->Cells().Row(), 101);
    EXPECT_GT(grid->TopRow(), 50);
}

TEST_F(FlexGridTest, AClickTakesTheFocusThenMovesThenTellsOfTheFocusThenOfTheClick) {
    ClickCell(3, 2);
    EXPECT_EQ(events, (QStringList{u"LeaveCell 1,1"_s, u"EnterCell 3,2"_s, u"RowColChange 3,2"_s,
                                   u"GotFocus 3,2"_s, u"Click 3,2"_s}));
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(FlexGridTest, AClickInTheGridThatHasTheFocusRaisesNoGotFocus) {
    ClickCell(3, 2);
    events.clear();
    ClickCell(4, 2);
    EXPECT_EQ(events,
              (QStringList{u"LeaveCell 3,2"_s, u"EnterCell 4,2"_s, u"RowColChange 4,2"_s, u"Click 4,2"_s}));
}

TEST_F(FlexGridTest, AClickOnTheCurrentCellMovesNothing) {
    ClickCell(1, 1);
    EXPECT_EQ(events, (QStringList{u"GotFocus 1,1"_s, u"Click 1,1"_s}));
}

TEST_F(FlexGridTest, AHandlerThatPassesTheFocusOnKeepsGotFocusFromTheGrid) {
    bool gridHadFocus = false;
    onEnterCell = [this, &gridHadFocus] {
        gridHadFocus = grid->hasFocus();
        box->setFocus();
    };
    ClickCell(3, 2);
    EXPECT_TRUE(gridHadFocus) << "the click takes the focus before it moves";
    EXPECT_EQ(events,
              (QStringList{u"LeaveCell 1,1"_s, u"EnterCell 3,2"_s, u"RowColChange 3,2"_s, u"Click 3,2"_s}));
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(FlexGridTest, AClickThatAHandlerSendsElsewhereMarksTheCellThatItChose) {
    QObject::connect(grid, &FlexGrid::RowColChange, grid, [this] { grid->Cells().SetCol(1); });
    ClickCell(3, 4);
    EXPECT_EQ(grid->Cells().Col(), 1);
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(2, 0));
    EXPECT_EQ(grid->selectionModel()->selectedIndexes(), QModelIndexList{grid->model()->index(2, 0)});
}

TEST_F(FlexGridTest, DraggingDoesNotWalkTheCurrentCell) {
    QTest::mousePress(grid->viewport(), Qt::LeftButton, Qt::NoModifier, Inside(2, 1));
    events.clear();
    QMouseEvent move(QEvent::MouseMove, QPointF(Inside(5, 3)),
                     grid->viewport()->mapToGlobal(QPointF(Inside(5, 3))), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(grid->viewport(), &move);
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(grid->Cells().Row(), 2);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, Qt::NoModifier, Inside(5, 3));
}

TEST_F(FlexGridTest, ADoubleClickIsOneClickAndOneDoubleClick) {
    DoubleClick(*grid->viewport(), Inside(1, 1));
    EXPECT_EQ(events, (QStringList{u"GotFocus 1,1"_s, u"Click 1,1"_s, u"DblClick 1,1"_s}));
    ClickCell(1, 1);
    EXPECT_EQ(events.last(), u"Click 1,1"_s) << "the click after it counts again";
    EXPECT_EQ(events.size(), 4);
}

TEST_F(FlexGridTest, TakingTheFocusMovesNothing) {
    grid->Cells().SetCell(0, 0);
    grid->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(events, QStringList{u"GotFocus 0,0"_s});
    box->setFocus();
    grid->Cells().SetCell(4, 2);
    grid->Cells().Clear();
    grid->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(events.last(), u"GotFocus 4,2"_s);
    EXPECT_EQ(events.size(), 2);
}

TEST_F(FlexGridTest, TabLeavesTheGrid) {
    grid->setFocus();
    events.clear();
    Press(*grid, Qt::Key_Tab);
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(events, QStringList());
}

TEST_F(FlexGridTest, TypingALetterSearchesNothing) {
    grid->Cells().SetTextMatrix(5, 1, u"XRAY"_s);
    grid->setFocus();
    events.clear();
    Type(*grid, u"X"_s);
    EXPECT_EQ(events, QStringList());
}

TEST_F(FlexGridTest, CellsCannotBeEditedInPlace) {
    ClickCell(2, 2);
    Press(*grid, Qt::Key_F2);
    EXPECT_EQ(grid->viewport()->findChildren<QLineEdit*>().size(), 0);
}

TEST_F(FlexGridTest, TheTopRowFollowsTheScrolling) {
    EXPECT_EQ(grid->TopRow(), 1);
    grid->Cells().SetRows(200);
    RunEvents();
    grid->verticalScrollBar()->setValue(40);
    EXPECT_EQ(grid->TopRow(), 41);
}

TEST_F(FlexGridTest, TheTopRowOfAnEmptyGridIsTheFirst) {
    grid->Cells().SetRows(1);
    EXPECT_EQ(grid->TopRow(), 1);
}

TEST_F(FlexGridTest, RevealScrollsACellIntoSight) {
    grid->Cells().SetRows(200);
    RunEvents();
    grid->Reveal(150, 1);
    EXPECT_TRUE(
        grid->viewport()->rect().translated(grid->viewport()->pos()).contains(grid->CellRect(150, 1)));
}

TEST_F(FlexGridTest, TheCellRectIsMeasuredInTheControl) {
    grid->SetColWidth(0, 200);
    RunEvents();
    const QRect rect = grid->CellRect(2, 1);
    EXPECT_EQ(rect.left(), grid->viewport()->x());
    EXPECT_EQ(rect.top(), grid->viewport()->y() + grid->rowHeight(0));
    EXPECT_EQ(rect.size().width() + 1, grid->columnWidth(0)) << "the grid line belongs to the column";
}

TEST_F(FlexGridTest, RedrawOffHoldsChangesBack) {
    RunEvents();
    PaintCounter counter(grid->viewport());
    EXPECT_TRUE(grid->Redraw());
    grid->SetRedraw(false);
    EXPECT_FALSE(grid->Redraw());
    grid->Cells().SetTextMatrix(1, 1, u"text"_s);
    RunEvents();
    EXPECT_EQ(counter.paints, 0);
    grid->SetRedraw(true);
    RunEvents();
    EXPECT_GT(counter.paints, 0);
    EXPECT_TRUE(grid->Redraw());
}

TEST_F(FlexGridTest, RowSelectMarksTheWholeCurrentRow) {
    grid->Cells().SetCell(2, 1);
    EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 1);
    grid->SetRowSelect(true);
    grid->Cells().SetCell(3, 1);
    EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 4);
    EXPECT_TRUE(grid->selectionModel()->isRowSelected(2, {}));
}

} // namespace
