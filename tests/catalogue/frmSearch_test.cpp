#include "catalogue/frmSearch.h"
#include "components/shared.h"
#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QApplication>
#include <QFont>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class frmSearchTest : public ScreenTest {
  protected:
    frmSearchTest() {
        frmSearch::SearchCaption = u"Codes"_s;
        frmSearch::Query = u"sp '##'"_s;
        frmSearch::Criteria = u"E"_s;
        gHospitalName = u"SAN ROQUE"_s;
    }
    ~frmSearchTest() override { frmSearch::DisableSearch = false; }

    static std::shared_ptr<const RowData> Found(const std::vector<QString>& names) {
        std::vector<std::vector<Value>> rows;
        for (const QString& name : names)
            rows.push_back({name, name.left(1) + u"-CODE"_s, u"x"_s});
        return Rows({u"Name"_s, u"Code"_s, u"Other"_s}, std::move(rows));
    }

    void ExpectFill(const QString& text, const std::vector<QString>& names) {
        gateway.Expect(u"sp '"_s + text + u"'"_s, Found(names));
    }

    /// The dialog over those rows, active.
    frmSearch& Open(const std::vector<QString>& names) {
        ExpectFill(frmSearch::Criteria, names);
        return OpenAsItStands();
    }

    /// Picks a row in an earlier dialog.
    void PickBefore() {
        Click(Select(Open({u"ASTHMA"_s})));
        EXPECT_EQ(frmSearch::ResultCode(), u"A-CODE"_s);
        EXPECT_TRUE(frmSearch::Valid());
    }

    static frmSearch& OpenAsItStands() {
        auto& search = Screens::Get<frmSearch>();
        search.Show();
        Activate(search);
        return search;
    }

    static QLineEdit& SearchBox(const frmSearch& search) { return Find<QLineEdit>(search, "txtSearchStr"); }
    static QPushButton& Select(const frmSearch& search) { return Find<QPushButton>(search, "cmdSelect"); }

    static void ClickRow(const frmSearch& search, int row) {
        const FlexGrid& grid = *search.grdDispWindow;
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, PlaceOf(search, row));
    }

    static QPoint PlaceOf(const frmSearch& search, int row) {
        const FlexGrid& grid = *search.grdDispWindow;
        return grid.CellRect(row, 1).center() - grid.viewport()->pos();
    }

    const std::vector<QString> three = {u"EAR"_s, u"EYE"_s, u"HEART"_s};
};

static_assert(!std::is_assignable_v<decltype(frmSearch::ResultCode()), QString>, "written inside alone");
static_assert(!std::is_assignable_v<decltype(frmSearch::Valid()), bool>, "written inside alone");

TEST_F(frmSearchTest, LoadShowsHospitalTitlesAndTheRowsOfTheCriteria) {
    const auto& search = Open(three);
    EXPECT_EQ(Find<QLabel>(search, "lblHospital").text(), u"SAN ROQUE"_s);
    EXPECT_EQ(Find<QLabel>(search, "lblTitle").text(), u"Codes"_s);
    EXPECT_EQ(Find<QLabel>(search, "lblSTitle").text(), u"Codes"_s);
    EXPECT_EQ(search.windowTitle(), u"Codes"_s);
    const FlexCells& cells = search.grdDispWindow->Cells();
    EXPECT_EQ(cells.Rows(), 4);
    EXPECT_EQ(cells.Cols(), 4);
    EXPECT_EQ(cells.TextMatrix(0, 1), u"Name"_s);
    EXPECT_EQ(cells.TextMatrix(2, 1), u"EYE"_s);
    EXPECT_EQ(cells.Row(), 1);
    EXPECT_EQ(cells.Col(), 1);
    EXPECT_EQ(SearchBox(search).text(), u""_s);
}

TEST_F(frmSearchTest, ColumnsHaveTheirWidthsAndEveryHeaderIsBold) {
    const auto& search = Open(three);
    const FlexGrid& grid = *search.grdDispWindow;
    EXPECT_EQ(grid.ColWidth(0), 200);
    EXPECT_EQ(grid.ColWidth(1), 4150);
    EXPECT_EQ(grid.ColWidth(2), 1500);
    for (int section = 0; section < 3; ++section)
        EXPECT_TRUE(grid.Cells().headerData(section, Qt::Horizontal, Qt::FontRole).value<QFont>().bold());
}

TEST_F(frmSearchTest, FillUsesADynamicOptimisticClientCursorOnTheSharedConnection) {
    Open(three);
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Client);
}

TEST_F(frmSearchTest, EverySlotTakesTheText) {
    frmSearch::Query = u"a '##' b '##'"_s;
    gateway.Expect(u"a 'E' b 'E'"_s, Found({}));
    OpenAsItStands();
}

TEST_F(frmSearchTest, EmptyResultDisablesSelect) {
    const auto& search = Open({});
    EXPECT_EQ(search.grdDispWindow->Cells().Rows(), 1);
    EXPECT_FALSE(Select(search).isEnabled());
    ExpectFill(u"H"_s, three);
    Type(SearchBox(search), u"h"_s);
    EXPECT_TRUE(Select(search).isEnabled());
}

TEST_F(frmSearchTest, EachTypedKeyIsUpperCasedAndSearchesExactlyOnce) {
    const auto& search = Open(three);
    ExpectFill(u"Ñ"_s, three);
    ExpectFill(u"ÑA"_s, {u"EYE"_s});
    Type(SearchBox(search), u"ña"_s);
    EXPECT_EQ(SearchBox(search).text(), u"ÑA"_s);
    EXPECT_EQ(search.grdDispWindow->Cells().TextMatrix(1, 1), u"EYE"_s);
}

TEST_F(frmSearchTest, ComposedCharacterSearchesExactlyOnce) {
    const auto& search = Open(three);
    ExpectFill(u"Ñ"_s, {u"EYE"_s});
    QInputMethodEvent composed;
    composed.setCommitString(u"ñ"_s);
    QApplication::sendEvent(&SearchBox(search), &composed);
    EXPECT_EQ(SearchBox(search).text(), u"Ñ"_s);
    EXPECT_EQ(search.grdDispWindow->Cells().TextMatrix(1, 1), u"EYE"_s);
}

TEST_F(frmSearchTest, BackspaceSearchesToo) {
    const auto& search = Open(three);
    ExpectFill(u"A"_s, three);
    ExpectFill(u""_s, three);
    Type(SearchBox(search), u"a"_s);
    Press(SearchBox(search), Qt::Key_Backspace);
}

TEST_F(frmSearchTest, ChangeByTheProgramSearchesNothing) {
    const auto& search = Open(three);
    SearchBox(search).setText(u"EYE"_s);
    // The flag comes down with each fill.
    ExpectFill(u"EYEX"_s, three);
    Type(SearchBox(search), u"x"_s);
    SearchBox(search).setText(u"HEART"_s);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmSearchTest, DownAndEnterDoNotRaiseTheFlag) {
    const auto& search = Open({});
    Press(SearchBox(search), Qt::Key_Return);
    SearchBox(search).setText(u"A"_s);
    Press(SearchBox(search), Qt::Key_Down);
    SearchBox(search).setText(u"B"_s);
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(frmSearchTest, AnyOtherKeyRaisesTheFlagAlthoughItChangesNothing) {
    const auto& search = Open(three);
    Press(SearchBox(search), Qt::Key_Home);
    ExpectFill(u"A"_s, three);
    SearchBox(search).setText(u"A"_s);
}

TEST_F(frmSearchTest, RowChangePutsItsNameIntoTheBoxWithoutASearch) {
    const auto& search = Open(three);
    ClickRow(search, 3);
    EXPECT_EQ(SearchBox(search).text(), u"HEART"_s);
    QTest::keyClick(search.grdDispWindow, Qt::Key_Up);
    EXPECT_EQ(SearchBox(search).text(), u"EYE"_s);
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(frmSearchTest, RowChangeSearchesNothingAlsoAfterAKeyThatRaisedTheFlag) {
    const auto& search = Open(three);
    Press(SearchBox(search), Qt::Key_Home);
    ClickRow(search, 3);
    EXPECT_EQ(SearchBox(search).text(), u"HEART"_s);
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(frmSearchTest, ColumnChangeAloneLeavesTheBox) {
    const auto& search = Open(three);
    QTest::keyClick(search.grdDispWindow, Qt::Key_Right);
    EXPECT_EQ(SearchBox(search).text(), u""_s);
}

TEST_F(frmSearchTest, DownGoesToTheTopVisibleRow) {
    std::vector<QString> many;
    for (int i = 1; i <= 60; ++i)
        many.push_back(u"ROW %1"_s.arg(i));
    const auto& search = Open(many);
    search.grdDispWindow->Reveal(60, 1);
    const int top = search.grdDispWindow->TopRow();
    ASSERT_GT(top, 1);
    Press(SearchBox(search), Qt::Key_Down);
    EXPECT_EQ(search.grdDispWindow->Cells().Row(), top);
    EXPECT_TRUE(search.grdDispWindow->hasFocus());
    EXPECT_EQ(SearchBox(search).text(), u"ROW %1"_s.arg(top));
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(frmSearchTest, DownOnAnEmptyGridTakesTheFocusThere) {
    const auto& search = Open({});
    Press(SearchBox(search), Qt::Key_Down);
    EXPECT_TRUE(search.grdDispWindow->hasFocus());
}

TEST_F(frmSearchTest, EnterInTheBoxSelectsTheTopVisibleRow) {
    std::vector<QString> many;
    for (int i = 1; i <= 60; ++i)
        many.push_back(u"%1 ROW"_s.arg(i % 10));
    const auto& search = Open(many);
    search.grdDispWindow->Reveal(60, 1);
    const QString code = search.grdDispWindow->Cells().TextMatrix(search.grdDispWindow->TopRow(), 2);
    Press(SearchBox(search), Qt::Key_Return);
    EXPECT_TRUE(frmSearch::Valid());
    EXPECT_EQ(frmSearch::ResultCode(), code);
    EXPECT_FALSE(Screens::IsLoaded<frmSearch>());
}

TEST_F(frmSearchTest, EnterInTheBoxOverAnEmptyGridDoesNothing) {
    const auto& search = Open({});
    Press(SearchBox(search), Qt::Key_Return);
    EXPECT_FALSE(frmSearch::Valid());
    EXPECT_TRUE(Screens::IsLoaded<frmSearch>());
}

TEST_F(frmSearchTest, SelectTakesColumnTwoOfTheCurrentRow) {
    const auto& search = Open(three);
    ClickRow(search, 3);
    Click(Select(search));
    EXPECT_EQ(frmSearch::ResultCode(), u"H-CODE"_s);
    EXPECT_TRUE(frmSearch::Valid());
    EXPECT_FALSE(Screens::IsLoaded<frmSearch>());
}

TEST_F(frmSearchTest, EnterOnTheGridSelects) {
    const auto& search = Open(three);
    ClickRow(search, 2);
    QTest::keyClick(search.grdDispWindow, Qt::Key_Return);
    EXPECT_TRUE(frmSearch::Valid());
    EXPECT_EQ(frmSearch::ResultCode(), u"E-CODE"_s);
}

TEST_F(frmSearchTest, DoubleClickOnTheGridSelects) {
    const auto& search = Open(three);
    QTest::mouseDClick(search.grdDispWindow->viewport(), Qt::LeftButton, {}, PlaceOf(search, 3));
    EXPECT_TRUE(frmSearch::Valid());
    EXPECT_EQ(frmSearch::ResultCode(), u"H-CODE"_s);
}

TEST_F(frmSearchTest, DoubleClickAndEnterOnTheGridDoNothingWhileSelectIsDisabled) {
    const auto& search = Open({});
    QTest::keyClick(search.grdDispWindow, Qt::Key_Return);
    QTest::mouseDClick(search.grdDispWindow->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_FALSE(frmSearch::Valid());
    EXPECT_TRUE(Screens::IsLoaded<frmSearch>());
}

TEST_F(frmSearchTest, CancelLeavesTheResultCodeAsItWas) {
    PickBefore();
    const auto& search = Open(three);
    Click(Find<QPushButton>(search, "cmdCancel"));
    EXPECT_EQ(frmSearch::ResultCode(), u"A-CODE"_s);
    EXPECT_FALSE(frmSearch::Valid());
    EXPECT_FALSE(Screens::IsLoaded<frmSearch>());
}

TEST_F(frmSearchTest, CloseBoxPicksNothing) {
    PickBefore();
    Open(three).close();
    EXPECT_EQ(frmSearch::ResultCode(), u"A-CODE"_s);
    EXPECT_FALSE(frmSearch::Valid());
    EXPECT_FALSE(Screens::IsLoaded<frmSearch>());
}

TEST_F(frmSearchTest, ApostropheReachesTheQueryAsItIs) {
    const auto& search = Open(three);
    gateway.Expect(u"sp '''"_s, Found({}));
    Type(SearchBox(search), u"'"_s);
}

TEST_F(frmSearchTest, FailingQueryIsNotTrapped) {
    const auto& search = Open(three);
    gateway.ExpectFailure(u"sp '''"_s, RunTimeError(105, u"Unclosed quotation mark"_s));
    Type(SearchBox(search), u"'"_s);
    EXPECT_EQ(TakeFailure(), 105);
}

TEST_F(frmSearchTest, QueryWithoutASlotGivesTheSameRowsOnEveryKey) {
    frmSearch::Query = u"sp"_s;
    for (int i = 0; i < 3; ++i)
        gateway.Expect(u"sp"_s, Found(three));
    const auto& search = OpenAsItStands();
    Type(SearchBox(search), u"zz"_s);
    EXPECT_EQ(search.grdDispWindow->Cells().Rows(), 4);
}

TEST_F(frmSearchTest, BoxHasTheFocusAndItsTextIsSelectedWheneverTheFocusComes) {
    const auto& search = Open(three);
    EXPECT_TRUE(SearchBox(search).hasFocus());
    ClickRow(search, 2);
    EXPECT_FALSE(SearchBox(search).hasFocus());
    SearchBox(search).deselect();
    SearchBox(search).setFocus();
    EXPECT_EQ(SearchBox(search).selectedText(), u"EYE"_s);
}

TEST_F(frmSearchTest, EachActivationGivesTheBoxTheFocusOrTheGridWhenTheSearchIsOff) {
    for (const bool disabled : {false, true}) {
        frmSearch::DisableSearch = disabled;
        auto& search = disabled ? OpenAsItStands() : Open(three);
        Select(search).setFocus();
        Screens::Get<Form>().Show();
        search.Show();
        Activate(search);
        EXPECT_EQ(SearchBox(search).hasFocus(), !disabled);
        EXPECT_EQ(search.grdDispWindow->hasFocus(), disabled);
        Screens::Clear();
    }
}

TEST_F(frmSearchTest, DisabledSearchSendsNothingAndGivesTheGridTheFocus) {
    frmSearch::DisableSearch = true;
    const auto& search = OpenAsItStands();
    EXPECT_FALSE(SearchBox(search).isEnabled());
    EXPECT_TRUE(search.grdDispWindow->hasFocus());
    EXPECT_TRUE(Select(search).isEnabled());
    EXPECT_TRUE(gateway.Openings().empty());
}

TEST_F(frmSearchTest, ColumnChangeLeavesTheBoxAlsoWhenTheSearchIsOff) {
    frmSearch::DisableSearch = true;
    auto& search = Screens::Get<frmSearch>();
    search.grdDispWindow->Cells().SetTextMatrix(1, 1, u"HEART STATION"_s);
    OpenAsItStands();
    QTest::keyClick(search.grdDispWindow, Qt::Key_Right);
    EXPECT_EQ(search.grdDispWindow->Cells().Col(), 2);
    EXPECT_EQ(SearchBox(search).text(), u""_s);
}
