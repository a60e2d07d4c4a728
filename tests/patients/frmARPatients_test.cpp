#include "patients/commands.h"
#include "patients/frmARPatients.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

class frmARPatientsTest : public ScreenTest {
  protected:
    static frmARPatients& Open() {
        auto& screen = Screens::Get<frmARPatients>();
        screen.Show();
        Activate(screen);
        return screen;
    }
    static QLineEdit& Text(const Form& screen) { return Find<QLineEdit>(screen, "txtSearch"); }
    static FlexGrid& Grid(const Form& screen) { return Find<FlexGrid>(screen, "grdTable"); }
    static std::shared_ptr<const RowData> Found(std::vector<std::vector<Value>> rows) {
        return Rows({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s}, std::move(rows));
    }
    static std::vector<Value> Patient(const QString& number) {
        return {u"100233"_s, number, u"DELA CRUZ, ANA SY"_s, Value(), u"OPEN"_s, Value()};
    }
    void Search(const Form& screen, std::shared_ptr<const RowData> rows) {
        gateway.Expect(SearchBilledPatientCommand(u"I"_s, u"DELA"_s), std::move(rows));
        frmARPatients::PatientType = u" I "_s;
        Text(screen).setText(u"DELA"_s);
        Press(Text(screen), Qt::Key_Return);
    }
};

// The two that select nobody come first: nothing takes a selection back before the program ends.

TEST_F(frmARPatientsTest, EnterInTheListDoesNothing) {
    const auto& screen = Open();
    Search(screen, Found({Patient(u"700009"_s)}));
    Grid(screen).setFocus();
    Press(Grid(screen), Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(Screens::IsLoaded<frmARPatients>());
    EXPECT_FALSE(frmARPatients::Valid());
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u""_s);
}

TEST_F(frmARPatientsTest, CloseSelectsNobody) {
    Search(Open(), Found({Patient(u"700009"_s)}));
    Click(Find<QPushButton>(Screens::Get<frmARPatients>(), "cmdClose"));
    EXPECT_FALSE(frmARPatients::Valid());
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u""_s);
    EXPECT_FALSE(Screens::IsLoaded<frmARPatients>());
}

TEST_F(frmARPatientsTest, ControlsBearTheirTexts) {
    const auto& screen = Open();
    const QComboBox& by = Find<QComboBox>(screen, "cmbSearch");
    EXPECT_EQ(by.itemText(0), u"Admission#"_s);
    EXPECT_EQ(by.itemText(1), u"Hospital#"_s);
    EXPECT_EQ(by.itemText(2), u"LastName"_s);
    EXPECT_EQ(by.currentText(), u"LastName"_s);
    EXPECT_EQ(screen.findChild<QGroupBox*>()->title(), u"Patient List"_s);
    EXPECT_EQ(Find<QPushButton>(screen, "cmdSelect").text(), u"&Select"_s);
    for (const char* name : {"cmbSearch", "txtSearch", "grdTable"})
        EXPECT_FALSE(Find<QWidget>(screen, name).accessibleName().isEmpty()) << name;
}

TEST_F(frmARPatientsTest, GridHasItsHeadingsAndWidths) {
    const auto& screen = Open();
    Search(screen, Found({Patient(u"700001"_s)}));
    const FlexGrid& grid = Grid(screen);
    const std::vector<std::pair<QString, int>> columns = {
        {u"Hospital Num"_s, 100},  {u"Adm. Num"_s, 1200},        {u"Patient Name"_s, 1200},
        {u"Billing Date"_s, 3000}, {u"Charging Status"_s, 1800}, {u"Discharge Date"_s, 1800}};
    for (int col = 0; col < int(columns.size()); ++col) {
        EXPECT_EQ(grid.ColWidth(col), columns[size_t(col)].second);
        EXPECT_EQ(grid.Cells().TextMatrix(0, col).trimmed(), columns[size_t(col)].first);
    }
}

TEST_F(frmARPatientsTest, NoHeadingIsCut) {
    const auto& screen = Open();
    // The hospital's own name of the last field, for which the format has no heading.
    Search(screen,
           Rows({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"Discharge Date"_s}, {Patient(u"700001"_s)}));
    const FlexGrid& grid = Grid(screen);
    const QHeaderView& header = *grid.horizontalHeader();
    for (int column = 0; column < header.count(); ++column)
        EXPECT_GE(header.sectionSize(column), header.sectionSizeHint(column)) << column;
    EXPECT_LE(header.length(), grid.viewport()->width()) << "and none lies out of sight";
}

TEST_F(frmARPatientsTest, SearchSendsTheTrimmedTypeAndTheTextAsItStands) {
    const auto& screen = Open();
    Find<QComboBox>(screen, "cmbSearch").setCurrentIndex(0);
    frmARPatients::PatientType = u" O "_s;
    Type(Text(screen), u" dela "_s);
    gateway.Expect(SearchBilledPatientCommand(u"O"_s, u" dela "_s), Found({}));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::ReadOnly);
    EXPECT_EQ(gateway.Openings().back().location, CursorLocation::Client);
}

TEST_F(frmARPatientsTest, SearchTextAndPatientRecordHaveNoEffect) {
    frmARPatients::SearchText = u"SANTOS"_s;
    frmARPatients::SetPatientRecord(u"700009"_s);
    const auto& screen = Open();
    EXPECT_EQ(screen.windowTitle(), u"Search Patient"_s);
    EXPECT_EQ(Text(screen).text(), u""_s);
    EXPECT_TRUE(gateway.Openings().empty());
    Search(screen, Found({Patient(u"700001"_s)}));
    EXPECT_EQ(frmARPatients::SearchText, u"SANTOS"_s);
    Click(Find<QPushButton>(screen, "cmdSelect"));
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u"700001"_s);
}

TEST_F(frmARPatientsTest, OnlyTheBlanksOfTheTypeAreTrimmed) {
    const auto& screen = Open();
    frmARPatients::PatientType = u" \tO\u00a0 "_s;
    gateway.Expect(SearchBilledPatientCommand(u"\tO\u00a0"_s, u""_s), Found({}));
    Press(Text(screen), Qt::Key_Return);
}

TEST_F(frmARPatientsTest, SearchWithoutAHitLeavesTheList) {
    const auto& screen = Open();
    Search(screen, Found({Patient(u"700001"_s), Patient(u"700002"_s)}));
    Search(screen, Found({}));
    EXPECT_EQ(Grid(screen).Cells().Rows(), 3);
    EXPECT_EQ(Grid(screen).Cells().TextMatrix(2, 2), u"700002"_s);
    Search(screen, Found({Patient(u"700003"_s)}));
    EXPECT_EQ(Grid(screen).Cells().TextMatrix(1, 2), u"700003"_s);
}

TEST_F(frmARPatientsTest, SelectGivesTheSecondColumnBack) {
    const auto& screen = Open();
    Search(screen, Found({Patient(u"700001"_s), Patient(u"700002"_s)}));
    Grid(screen).Cells().SetRow(2);
    Click(Find<QPushButton>(screen, "cmdSelect"));
    EXPECT_FALSE(Screens::IsLoaded<frmARPatients>());
    EXPECT_TRUE(frmARPatients::Valid());
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u"700002"_s);
    EXPECT_EQ(frmARPatients::IdNum(), u""_s);
}

TEST_F(frmARPatientsTest, DoubleClickSelects) {
    const auto& screen = Open();
    Search(screen, Found({Patient(u"700001"_s), Patient(u"700002"_s)}));
    FlexGrid& grid = Grid(screen);
    DoubleClick(*grid.viewport(), grid.CellRect(2, 1).center() - grid.viewport()->pos());
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u"700002"_s);
}

TEST_F(frmARPatientsTest, SelectFromAnEmptyListIsASelectionOfNobody) {
    const auto& screen = Open();
    Search(screen, Found({}));
    Click(Find<QPushButton>(screen, "cmdSelect"));
    EXPECT_TRUE(frmARPatients::Valid());
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u""_s);
    EXPECT_FALSE(Screens::IsLoaded<frmARPatients>());
}

TEST_F(frmARPatientsTest, CloseAfterAnEarlierSelectionLeavesItsAnswer) {
    Search(Open(), Found({Patient(u"700001"_s)}));
    Click(Find<QPushButton>(Screens::Get<frmARPatients>(), "cmdSelect"));
    Click(Find<QPushButton>(Open(), "cmdClose"));
    EXPECT_TRUE(frmARPatients::Valid());
    EXPECT_EQ(frmARPatients::ResultCode().ToText(), u"700001"_s);
}
