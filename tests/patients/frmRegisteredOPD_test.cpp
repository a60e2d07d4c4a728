#include "patients/commands.h"
#include "patients/frmRegisteredOPD.h"
#include "patients/VisitRows.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

class frmRegisteredOPDTest : public ScreenTest {
  protected:
    static frmRegisteredOPD& Open() {
        auto& screen = Screens::Get<frmRegisteredOPD>();
        screen.Show();
        Activate(screen);
        return screen;
    }
    static QLineEdit& Text(const Form& screen) { return Find<QLineEdit>(screen, "txtSearch"); }
    static FlexGrid& Grid(const Form& screen) { return Find<FlexGrid>(screen, "grdTable"); }
    static QPushButton& Button(const Form& screen, const char* name) {
        return Find<QPushButton>(screen, name);
    }
    void Search(const Form& screen, std::shared_ptr<const RowData> rows) {
        Text(screen).setText(u"DELA"_s);
        gateway.Expect(RegisteredOPDCommand(u"0"_s, u"0"_s, u"DELA"_s), std::move(rows));
        Press(Text(screen), Qt::Key_Return);
    }
    static std::shared_ptr<const RowData> Two() {
        return Visits({Visit(), Visit({{u"IdNum"_s, u"104299B"_s}})});
    }
    static void ExpectHeadings(const FlexGrid& grid) {
        const std::vector<std::pair<QString, int>> columns = {{u""_s, 200},
                                                              {u"Adm #"_s, 1000},
                                                              {u"Last Name"_s, 2000},
                                                              {u"First Name"_s, 2000},
                                                              {u"Middle Name"_s, 2000},
                                                              {u"Adm. Date"_s, 1500}};
        for (int col = 0; col < int(columns.size()); ++col) {
            EXPECT_EQ(grid.ColWidth(col), columns[size_t(col)].second);
            EXPECT_EQ(grid.Cells().TextMatrix(0, col), columns[size_t(col)].first);
        }
    }
};

TEST_F(frmRegisteredOPDTest, ControlsBearTheirTexts) {
    frmRegisteredOPD::PatientRecord = u"104233B"_s;
    const auto& screen = Open();
    EXPECT_EQ(screen.windowTitle(), u"104233B"_s);
    EXPECT_EQ(Find<QLabel>(screen, "lblLabel(1)").text(), u"Search"_s);
    EXPECT_EQ(Find<QCheckBox>(screen, "chkCurrent").text(), u"Current Registration Only"_s);
    EXPECT_EQ(Button(screen, "cmdSelect").text(), u"&Select"_s);
    EXPECT_EQ(screen.findChild<QGroupBox*>()->title(), u"Patient List"_s);
    const QComboBox& by = Find<QComboBox>(screen, "cmbSearch");
    EXPECT_EQ(by.itemText(0), u"Last Name"_s);
    EXPECT_EQ(by.itemText(1), u"Admission #"_s);
    EXPECT_EQ(by.currentIndex(), 0);
    for (const char* name : {"cmbSearch", "txtSearch", "grdTable"})
        EXPECT_FALSE(Find<QWidget>(screen, name).accessibleName().isEmpty()) << name;
}

TEST_F(frmRegisteredOPDTest, OpensEmptyWithTheFocusInTheSearch) {
    frmRegisteredOPD::Valid = true;
    frmRegisteredOPD::ResultCode = u"1"_s;
    const auto& screen = Open();
    EXPECT_FALSE(frmRegisteredOPD::Valid.ToBoolean());
    EXPECT_EQ(frmRegisteredOPD::ResultCode.ToText(), u""_s);
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
    EXPECT_EQ(Grid(screen).Cells().Cols(), 6);
    ExpectHeadings(Grid(screen));
    EXPECT_FALSE(Button(screen, "cmdSelect").isEnabled());
    EXPECT_TRUE(Text(screen).hasFocus());
}

TEST_F(frmRegisteredOPDTest, EachActivationGivesTheSearchTheFocus) {
    auto& screen = Open();
    Find<QComboBox>(screen, "cmbSearch").setFocus();
    ASSERT_FALSE(Text(screen).hasFocus());
    Screens::Get<Form>().Show();
    screen.Show();
    Activate(screen);
    EXPECT_TRUE(Text(screen).hasFocus());
}

TEST_F(frmRegisteredOPDTest, TextIsUpperCasedAndSentTrimmed) {
    const auto& screen = Open();
    Find<QComboBox>(screen, "cmbSearch").setCurrentIndex(1);
    Type(Text(screen), u" 104233b "_s);
    EXPECT_EQ(Text(screen).text(), u" 104233B "_s);
    gateway.Expect(RegisteredOPDCommand(u"0"_s, u"1"_s, u"104233B"_s), Visits({}));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings().back().location, CursorLocation::Client);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(frmRegisteredOPDTest, OnlyBlanksAreTrimmed) {
    const auto& screen = Open();
    Text(screen).setText(u" \tDELA\u00a0 "_s);
    gateway.Expect(RegisteredOPDCommand(u"0"_s, u"0"_s, u"\tDELA\u00a0"_s), Visits({}));
    Press(Text(screen), Qt::Key_Return);
}

TEST_F(frmRegisteredOPDTest, HourglassStandsWhileTheCommandRunsAndStaysWhenItFails) {
    const auto& screen = Open();
    Text(screen).setText(u"O'BRIEN"_s);
    gateway.ExpectFailure(RegisteredOPDCommand(u"0"_s, u"0"_s, u"O'BRIEN"_s),
                          RunTimeError(102, u"Incorrect syntax near 'BRIEN'."_s));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), 102);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
}

TEST_F(frmRegisteredOPDTest, HitsFillTheList) {
    const auto& screen = Open();
    Search(screen, Two());
    EXPECT_EQ(Grid(screen).Cells().Rows(), 3);
    EXPECT_EQ(Grid(screen).Cells().TextMatrix(2, 1), u"104299B"_s);
    ExpectHeadings(Grid(screen));
    EXPECT_TRUE(Grid(screen).Redraw());
    EXPECT_TRUE(Button(screen, "cmdSelect").isEnabled());
}

TEST_F(frmRegisteredOPDTest, SearchWithoutAHitEmptiesTheListAndLeavesTheButton) {
    const auto& screen = Open();
    Search(screen, Two());
    Search(screen, Visits({}));
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
    EXPECT_EQ(Grid(screen).Cells().TextMatrix(1, 1), u""_s);
    ExpectHeadings(Grid(screen));
    EXPECT_TRUE(Button(screen, "cmdSelect").isEnabled());
}

TEST_F(frmRegisteredOPDTest, SearchWithoutAHitLeavesTheWidthsAlone) {
    const auto& screen = Open();
    Grid(screen).SetColWidth(2, 3000);
    Search(screen, Visits({}));
    EXPECT_EQ(Grid(screen).ColWidth(2), 3000);
    EXPECT_EQ(Grid(screen).Cells().TextMatrix(0, 2), u"Last Name"_s);
    Search(screen, Two());
    EXPECT_EQ(Grid(screen).ColWidth(2), 2000);
}

TEST_F(frmRegisteredOPDTest, CurrentOnlySearchesAtOnceEvenWithoutAText) {
    const auto& screen = Open();
    gateway.Expect(RegisteredOPDCommand(u"1"_s, u"0"_s, u""_s), Two());
    Click(Find<QCheckBox>(screen, "chkCurrent"));
    EXPECT_EQ(Grid(screen).Cells().Rows(), 3);
    gateway.Expect(RegisteredOPDCommand(u"0"_s, u"0"_s, u""_s), Visits({}));
    Click(Find<QCheckBox>(screen, "chkCurrent"));
}

TEST_F(frmRegisteredOPDTest, DownArrowGoesToTheFirstRow) {
    const auto& screen = Open();
    Search(screen, Two());
    Grid(screen).Cells().SetRow(2);
    Press(Text(screen), Qt::Key_Down);
    EXPECT_EQ(Grid(screen).Cells().Row(), 1);
    EXPECT_TRUE(Grid(screen).hasFocus());
}

TEST_F(frmRegisteredOPDTest, SelectGivesTheNumberBack) {
    const auto& screen = Open();
    Search(screen, Two());
    Grid(screen).Cells().SetRow(2);
    Click(Button(screen, "cmdSelect"));
    EXPECT_FALSE(Screens::IsLoaded<frmRegisteredOPD>());
    EXPECT_TRUE(frmRegisteredOPD::Valid.ToBoolean());
    EXPECT_EQ(frmRegisteredOPD::ResultCode.ToText(), u"104299B"_s);
}

TEST_F(frmRegisteredOPDTest, EnterAndDoubleClickSelectWhereTheButtonIsEnabled) {
    auto* screen = &Open();
    Press(Grid(*screen), Qt::Key_Return);
    FlexGrid& empty = Grid(*screen);
    DoubleClick(*empty.viewport(), empty.CellRect(1, 1).center() - empty.viewport()->pos());
    EXPECT_TRUE(Screens::IsLoaded<frmRegisteredOPD>()) << "nothing to select yet";
    Search(*screen, Two());
    Press(Grid(*screen), Qt::Key_Return);
    EXPECT_EQ(frmRegisteredOPD::ResultCode.ToText(), u"104233B"_s);
    screen = &Open();
    Search(*screen, Two());
    FlexGrid& grid = Grid(*screen);
    DoubleClick(*grid.viewport(), grid.CellRect(2, 1).center() - grid.viewport()->pos());
    EXPECT_EQ(frmRegisteredOPD::ResultCode.ToText(), u"104299B"_s);
}

TEST_F(frmRegisteredOPDTest, CloseSelectsNothing) {
    const auto& screen = Open();
    Search(screen, Two());
    frmRegisteredOPD::Valid = true;
    Click(Button(screen, "cmdClose"));
    EXPECT_FALSE(frmRegisteredOPD::Valid.ToBoolean()) << "whatever the caller has set meanwhile";
    EXPECT_EQ(frmRegisteredOPD::ResultCode.ToText(), u""_s);
    EXPECT_FALSE(Screens::IsLoaded<frmRegisteredOPD>());
}
