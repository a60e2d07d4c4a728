#include "charges/ChargeGrid.h"
#include "charges/ChargeGridGround.h"
#include "charges/Twins.h"
#include "support/CaseName.h"

#include <QApplication>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

// Where the floating editor of a charge grid lies.

class ChargeGridEditorTest : public ChargeGridGround, public testing::WithParamInterface<Twin> {
  protected:
    ChargeGridEditorTest()
        : ChargeGridGround(*GetParam().differences) {}
};

INSTANTIATE_TEST_SUITE_P(Twins, ChargeGridEditorTest, testing::ValuesIn(kTwins), CaseName());

TEST_P(ChargeGridEditorTest, EditorOfACutLineComesToTheDepartmentOfTheFirstEmptyOne) {
    cells.SetRows(12);
    for (const int row : {1, 2, 4, 8, 11})
        PutLine(row, u"XR"_s, u"Y"_s);
    ClickCell(11, Column::kAmount);
    charges->SetupGrid();
    EXPECT_EQ(Place(), std::pair(3, 1));
    ExpectOver(3, 1, Qt::AlignLeft);
    Key(u"hc"_s);
    EXPECT_EQ(At(3, 1), u"HC"_s);
    EXPECT_EQ(At(8, 1), u"XR"_s);
}

TEST_P(ChargeGridEditorTest, ALineWithoutADepartmentIsEmptyOnlyWhereNothingElseStandsInIt) {
    cells.SetRows(12);
    PutLine(1, QString(), u"Y"_s);
    PutLine(11, u"XR"_s, u"Y"_s);
    ASSERT_FALSE(At(1, Column::kAmount).isEmpty());
    ClickCell(11, 1);
    charges->SetupGrid();
    EXPECT_EQ(Place(), std::pair(2, 1));
}

TEST_P(ChargeGridEditorTest, WhereNoLineIsEmptyNothingIsKeyedIntoALineThatStands) {
    cells.SetRows(12);
    for (int row = 1; row < 12; ++row)
        PutLine(row, u"XR"_s, u"Y"_s);
    ClickCell(11, 1);
    charges->SetupGrid();
    EXPECT_EQ(cells.Rows(), 9);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_TRUE(grid.hasFocus());
    for (int row = 1; row < 9; ++row)
        EXPECT_EQ(At(row, 1), u"XR"_s) << row;
}

TEST_P(ChargeGridEditorTest, TheTotalFollowsAGridThatWasCutAndNoOther) {
    cells.SetRows(12);
    Put(2, Column::kAmount, u"100.00"_s);
    Put(11, Column::kAmount, u"50.00"_s);
    total->setText(u"150.00"_s);
    charges->SetupGrid();
    EXPECT_EQ(total->text(), u"100.00"_s);
    total->setText(u"0.00"_s);
    charges->SetupGrid();
    EXPECT_EQ(total->text(), u"0.00"_s);
}

TEST_P(ChargeGridEditorTest, EditorLeavesNoGhostWhereRedrawIsOff) {
    const auto shownIn = [this](int row, int col) {
        const QPoint place = frame->mapTo(&window, CellPlace(row, col).center());
        return window.screen()->grabWindow(window.winId()).toImage().pixelColor(place + QPoint(12, 3));
    };
    OpenByFocus(1, 1);
    RunEvents();
    const QColor open = shownIn(1, 1);
    ASSERT_NE(open, QColor(Qt::white));
    charges->SetRedraw(false);
    cells.SetCell(2, 1);
    ClickCell(3, 1);
    RunEvents();
    EXPECT_EQ(shownIn(3, 1), open);
    EXPECT_EQ(shownIn(1, 1), QColor(Qt::white));
    charges->HideEditor();
    RunEvents();
    EXPECT_NE(shownIn(3, 1), open);
    EXPECT_FALSE(grid.Redraw());
}

TEST_P(ChargeGridEditorTest, EditorFollowsAColumnThatTheClerkWidens) {
    OpenByFocus(2, 2);
    for (const int col : {1, 2}) {
        grid.setColumnWidth(col - 1, 200);
        EXPECT_EQ(editor.geometry(), CellPlace(2, 2)) << col;
    }
    EXPECT_GT(editor.width(), 190);
}

TEST_P(ChargeGridEditorTest, KeysWidenTheColumnThatIsKeyed) {
    OpenByFocus(2, 2);
    editor.setText(u"AB"_s);
    const int before = grid.columnWidth(1);
    QTest::keyClick(&editor, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(grid.columnWidth(1), before);
    EXPECT_EQ(editor.geometry(), CellPlace(2, 2));
    QTest::keyClick(&editor, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(grid.columnWidth(1), before);
    EXPECT_EQ(editor.text(), u"AB"_s);
}

TEST_P(ChargeGridEditorTest, EditorFollowsTheColumnsBackToTheirWidths) {
    OpenByFocus(2, 2);
    const QRect before = editor.geometry();
    grid.setColumnWidth(0, 200);
    charges->SetupGrid();
    EXPECT_EQ(editor.geometry(), before);
}

TEST_P(ChargeGridEditorTest, LinesThatComeAndGoLeaveTheColumnAsTheClerkWidenedIt) {
    OpenByFocus(2, 2);
    grid.setColumnWidth(0, 200);
    const QRect widened = editor.geometry();
    for (const int lines : {10, 8}) {
        cells.SetRows(lines);
        EXPECT_EQ(editor.geometry(), widened) << lines;
        EXPECT_EQ(grid.columnWidth(0), 200) << lines;
    }
}

TEST_P(ChargeGridEditorTest, EditorStandsOnTheRightInTheNumbersAlone) {
    PutLine(3, u"XR"_s, u"Y"_s);
    for (const int col : {1, 4, 2, 5, 1, 6}) {
        ClickCell(3, col);
        ExpectOver(3, col, col >= 4 ? Qt::AlignRight : Qt::AlignLeft);
    }
}

TEST_P(ChargeGridEditorTest, EditorIsHiddenUntilACellOpens) {
    EXPECT_FALSE(editor.isVisible());
    OpenByFocus(1, 1);
    ExpectOpen(1, 1);
}

TEST_P(ChargeGridEditorTest, EditorKeepsItsMovingKeysFromTheButtons) {
    OpenByFocus(1, 1);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down}) {
        QKeyEvent shortcut(QEvent::ShortcutOverride, key, Qt::NoModifier);
        shortcut.ignore();
        QApplication::sendEvent(&editor, &shortcut);
        EXPECT_TRUE(shortcut.isAccepted()) << key;
    }
}

TEST_P(ChargeGridEditorTest, EditorFollowsTheScrolledGrid) {
    grid.setFixedHeight(110);
    QApplication::processEvents();
    OpenByFocus(8, 2);
    ASSERT_GT(grid.verticalScrollBar()->value(), 0);
    ExpectOpen(8, 2);
    grid.verticalScrollBar()->setValue(0);
    EXPECT_FALSE(frame->rect().intersects(editor.geometry()));
    EXPECT_TRUE(editor.hasFocus());
    Key(u"X"_s);
    EXPECT_EQ(At(8, 2), u"X"_s);
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    EXPECT_EQ(editor.geometry(), CellPlace(8, 2));
}

TEST_P(ChargeGridEditorTest, EditorFollowsTheGridThatIsResized) {
    OpenByFocus(8, 2);
    grid.resize(grid.width(), 110);
    QApplication::processEvents();
    ASSERT_EQ(grid.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(frame->rect().intersects(editor.geometry()));
    grid.resize(grid.width(), 300);
    QApplication::processEvents();
    EXPECT_EQ(editor.geometry(), CellPlace(8, 2));
}

TEST_P(ChargeGridEditorTest, CellThatOpensIsBroughtIntoSight) {
    grid.setFixedHeight(110);
    QApplication::processEvents();
    OpenByFocus(8, Column::kAmount);
    grid.verticalScrollBar()->setValue(0);
    // The first Enter at the end of the last line opens the same cell again.
    Enter();
    ExpectOpen(8, Column::kAmount);
    EXPECT_TRUE(grid.geometry().contains(editor.geometry().center()));
}

TEST_P(ChargeGridEditorTest, HiddenEditorLeavesTheFocusWithTheGridAndOpensNoCell) {
    OpenByFocus(2, 1);
    charges->HideEditor();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(Place(), std::pair(2, 1));
}

TEST_P(ChargeGridEditorTest, HiddenEditorTakesTheFocusFromNobody) {
    OpenByFocus(2, 1);
    elsewhere->setFocus();
    charges->HideEditor();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_TRUE(elsewhere->hasFocus());
}

TEST_P(ChargeGridEditorTest, HiddenEditorComesBackWithTheNextCellThatOpens) {
    Put(3, 1, u"XR"_s);
    OpenByFocus(2, 1);
    charges->HideEditor();
    ClickCell(3, 1);
    ExpectOpen(3, 1);
    charges->HideEditor();
    elsewhere->setFocus();
    OpenByFocus(2, 1);
    ExpectOpen(2, 1);
}

TEST_P(ChargeGridEditorTest, TabReachesTheGridAgainWhenItsEditorIsHidden) {
    OpenByFocus(2, 1);
    ASSERT_EQ(grid.focusPolicy(), Qt::NoFocus);
    charges->HideEditor();
    EXPECT_EQ(grid.focusPolicy(), Qt::TabFocus);
}

TEST_P(ChargeGridEditorTest, HiddenEditorStaysHiddenWhereItsLineIsCutOrTheGridChanges) {
    cells.SetRows(12);
    Put(8, 1, u"XR"_s);
    Put(11, 1, u"MD"_s);
    ClickCell(11, 1);
    charges->HideEditor();
    const QString text = editor.text();
    charges->SetupGrid();
    grid.resize(grid.width(), 110);
    QApplication::processEvents();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(editor.text(), text);
    EXPECT_EQ(At(8, 1), u"XR"_s);
}
