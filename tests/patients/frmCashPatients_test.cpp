#include "components/shared.h"
#include "patients/commands.h"
#include "patients/frmCashPatients.h"
#include "patients/frmWalkIn.h"
#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "text/RunTimeError.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Names = std::vector<QString>;

/// The objects that nothing in this release makes.
class FakeVisitByText : public VisitByText {
  public:
    bool finds = true;
    Names asked;
    bool ValidatePatient(const QString& text) override {
        asked.push_back(text);
        return finds;
    }
    Value IDNumber() const override { return u"10231B"_s; }
};

class FakeAdmissionByText : public AdmissionByText {
  public:
    bool finds = true;
    Names asked;
    AdmissionRecord admission;
    FakeAdmissionByText() { admission.IDNumber = u"104233"_s; }
    bool ValidateAdmission(const QString& text, const QString& hospitalNumber) override {
        asked.push_back(text + u"|"_s + hospitalNumber);
        return finds;
    }
    const AdmissionRecord& Admission() const override { return admission; }
};

} // namespace

class frmCashPatientsTest : public ScreenTest {
  protected:
    /// The searches are made by nothing in this release, and outlive the screen.
    ~frmCashPatientsTest() override {
        frmCashPatients::outPatientSearch = {};
        frmCashPatients::admissionSearch = {};
    }

    static frmCashPatients& Open() {
        auto& screen = Screens::Get<frmCashPatients>();
        screen.Show();
        Activate(screen);
        return screen;
    }

    static QLineEdit& Text(const Form& screen) { return Find<QLineEdit>(screen, "txtSearch"); }
    static QComboBox& Kind(const Form& screen) { return Find<QComboBox>(screen, "cmbPatientType"); }
    static QPushButton& Button(const Form& screen, const char* name) {
        return Find<QPushButton>(screen, name);
    }
    static FlexGrid& Grid(const Form& screen) { return Find<FlexGrid>(screen, "grdTable"); }

    /// The columns stand in an order of their own, since they are read by name.
    static std::shared_ptr<const RowData> WalkIns(const std::vector<Names>& walkIns) {
        std::vector<std::vector<Value>> rows;
        for (const Names& walkIn : walkIns)
            rows.push_back({walkIn[3], walkIn[1], walkIn[0], walkIn[2]});
        return Rows({u"MiddleName"_s, u"LastName"_s, u"HospNum"_s, u"FirstName"_s}, std::move(rows));
    }

    void Search(const Form& screen, const std::vector<Names>& found) {
        Text(screen).setText(u"CRUZ"_s);
        gateway.Expect(WalkInCommand(u"0"_s, u"CRUZ"_s), WalkIns(found));
        Press(Text(screen), Qt::Key_Return);
    }

    static Names Row(const Form& screen, int row) {
        Names texts;
        for (int col = 1; col < 5; ++col)
            texts.push_back(Grid(screen).Cells().TextMatrix(row, col));
        return texts;
    }

    const Names ana = {u"W000012"_s, u"CRUZ"_s, u"ANA"_s, u"SY"_s};
    const Names eva = {u"W000013"_s, u"CRUZ"_s, u"EVA"_s, u""_s};
    const Names blank = {u""_s, u""_s, u""_s, u""_s};
};

TEST_F(frmCashPatientsTest, ControlsBearTheirTexts) {
    const auto& screen = Open();
    EXPECT_EQ(Find<QLabel>(screen, "lblLabel(0)").text(), u"Cash Patients    "_s);
    const auto entries = [&](const char* name) {
        const auto& combo = Find<QComboBox>(screen, name);
        Names texts;
        for (int i = 0; i < combo.count(); ++i)
            texts.push_back(combo.itemText(i));
        return texts;
    };
    EXPECT_EQ(entries("cmbPatientType"), (Names{u"WALK-IN"_s, u"OUTPATIENT"_s, u"INPATIENT"_s}));
    EXPECT_EQ(entries("cmbSearch"), (Names{u"Last Name"_s, u"Cash Patient #"_s}));
    EXPECT_EQ(Button(screen, "cmdClose").text(), u"&Close"_s);
    EXPECT_EQ(Button(screen, "cmdAdd").text(), u"&Add Patient"_s);
}

TEST_F(frmCashPatientsTest, EveryInputIsSpoken) {
    const auto& screen = Open();
    for (const char* name : {"cmbPatientType", "cmbSearch", "txtSearch", "grdTable"})
        EXPECT_FALSE(Find<QWidget>(screen, name).accessibleName().isEmpty()) << name;
}

TEST_F(frmCashPatientsTest, LoadEmptiesTheResultAndShowsWhoseRecordIsLookedFor) {
    frmCashPatients::ResultCode = u"before"_s;
    frmCashPatients::Valid = true;
    frmCashPatients::PatientType = u"O"_s;
    frmCashPatients::SetPatientRecord(u"Search record of a donor"_s);
    const auto& screen = Open();
    EXPECT_EQ(frmCashPatients::ResultCode, Value(u""_s));
    EXPECT_EQ(frmCashPatients::Valid, Value(false));
    EXPECT_EQ(frmCashPatients::PatientType, Value(u"O"_s));
    EXPECT_EQ(Find<QLabel>(screen, "lblPatient").text(), u"Search record of a donor"_s);
    EXPECT_EQ(Kind(screen).currentIndex(), 0);
    EXPECT_EQ(Find<QComboBox>(screen, "cmbSearch").currentIndex(), 0);
    EXPECT_FALSE(Button(screen, "cmdSelect").isEnabled());
    EXPECT_TRUE(Button(screen, "cmdAdd").isEnabled());
}

TEST_F(frmCashPatientsTest, PatientRecordReadsAsNothing) {
    frmCashPatients::SetPatientRecord(u"donor"_s);
    EXPECT_EQ(frmCashPatients::PatientRecord(), u""_s);
}

TEST_F(frmCashPatientsTest, LoadSetsUpTheGrid) {
    const auto& screen = Open();
    const FlexGrid& grid = Grid(screen);
    EXPECT_EQ(grid.Cells().Rows(), 2);
    ASSERT_EQ(grid.Cells().Cols(), 5);
    const std::vector<int> widths = {200, 1000, 2500, 2500, 2500};
    for (int col = 0; col < 5; ++col)
        EXPECT_EQ(grid.ColWidth(col), widths[size_t(col)]);
    EXPECT_EQ(Row(screen, 0), (Names{u"Adm #"_s, u"Last Name"_s, u"First Name"_s, u"Middle Name"_s}));
    EXPECT_EQ(Row(screen, 1), blank);
}

TEST_F(frmCashPatientsTest, EachActivationGivesThePatientTypeTheFocus) {
    auto& screen = Open();
    EXPECT_TRUE(Kind(screen).hasFocus());
    Text(screen).setFocus();
    Screens::Get<Form>().Show();
    screen.Show();
    Activate(screen);
    EXPECT_TRUE(Kind(screen).hasFocus());
}

TEST_F(frmCashPatientsTest, OnlyWalkInsCanBeAdded) {
    const auto& screen = Open();
    for (const int index : {1, 0, 2}) {
        Kind(screen).setCurrentIndex(index);
        EXPECT_EQ(Button(screen, "cmdAdd").isEnabled(), index == 0) << index;
    }
}

struct TypeKeyCase {
    const char* name;
    QString key;
    /// -1 for a key that does nothing.
    int index;
};

class TypeKeyTest : public frmCashPatientsTest, public testing::WithParamInterface<TypeKeyCase> {};

INSTANTIATE_TEST_SUITE_P(Keys, TypeKeyTest,
                         testing::Values(TypeKeyCase{"W", u"W"_s, 0}, TypeKeyCase{"SmallW", u"w"_s, 0},
                                         TypeKeyCase{"O", u"O"_s, 1}, TypeKeyCase{"SmallO", u"o"_s, 1},
                                         TypeKeyCase{"I", u"I"_s, 2}, TypeKeyCase{"SmallI", u"i"_s, 2},
                                         TypeKeyCase{"P", u"p"_s, -1}, TypeKeyCase{"C", u"C"_s, -1},
                                         TypeKeyCase{"Blank", u" "_s, -1}),
                         CaseName());

TEST_P(TypeKeyTest, ChoosesThePatientTypeAndMovesOnToTheText) {
    const auto& screen = Open();
    const int before = GetParam().index == 0 ? 2 : 0;
    Kind(screen).setCurrentIndex(before);
    Type(Kind(screen), GetParam().key);
    EXPECT_EQ(Kind(screen).currentIndex(), GetParam().index < 0 ? before : GetParam().index);
    EXPECT_EQ(Text(screen).hasFocus(), GetParam().index >= 0);
    EXPECT_EQ(Text(screen).text(), u""_s);
}

TEST_F(frmCashPatientsTest, EnterInThePatientTypeMovesOnAndKeepsIt) {
    const auto& screen = Open();
    Kind(screen).setCurrentIndex(2);
    Press(Kind(screen), Qt::Key_Return);
    EXPECT_TRUE(Text(screen).hasFocus());
    EXPECT_EQ(Kind(screen).currentIndex(), 2);
}

TEST_F(frmCashPatientsTest, BlankInThePatientTypeDoesNotOpenItsList) {
    const auto& screen = Open();
    Press(Kind(screen), Qt::Key_Space);
    EXPECT_FALSE(Kind(screen).view()->isVisible());
}

TEST_F(frmCashPatientsTest, KeysOfTheTextBecomeUpperCase) {
    const auto& screen = Open();
    Type(Text(screen), u"peña"_s);
    EXPECT_EQ(Text(screen).text(), u"PEÑA"_s);
}

TEST_F(frmCashPatientsTest, EnterListsTheWalkInsWithTheTextTrimmed) {
    const auto& screen = Open();
    Text(screen).setText(u"  o'b  "_s);
    gateway.Expect(WalkInCommand(u"0"_s, u"o'b"_s), WalkIns({ana, eva}));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(Grid(screen).Cells().Rows(), 3);
    EXPECT_EQ(Row(screen, 0), (Names{u"Adm #"_s, u"Last Name"_s, u"First Name"_s, u"Middle Name"_s}));
    EXPECT_EQ(Row(screen, 1), ana);
    EXPECT_EQ(Row(screen, 2), eva);
    EXPECT_TRUE(Button(screen, "cmdSelect").isEnabled());
    EXPECT_TRUE(Grid(screen).Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(frmCashPatientsTest, SearchByNumberSendsItsIndex) {
    const auto& screen = Open();
    Find<QComboBox>(screen, "cmbSearch").setCurrentIndex(1);
    Text(screen).setText(u"W000012"_s);
    gateway.Expect(WalkInCommand(u"1"_s, u"W000012"_s), WalkIns({ana}));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
    EXPECT_EQ(Row(screen, 1), ana);
}

TEST_F(frmCashPatientsTest, SearchThatFindsNobodyResetsTheGridAndSelectIsOff) {
    const auto& screen = Open();
    Search(screen, {ana, eva});
    Search(screen, {});
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
    EXPECT_EQ(Row(screen, 1), blank);
    EXPECT_FALSE(Button(screen, "cmdSelect").isEnabled());
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(frmCashPatientsTest, SecondSearchLeavesNothingOfTheFirst) {
    const auto& screen = Open();
    Search(screen, {ana, eva});
    Grid(screen).Cells().SetRow(2);
    Search(screen, {eva});
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
    EXPECT_EQ(Row(screen, 1), eva);
    EXPECT_EQ(Grid(screen).Cells().Row(), 1);
}

TEST_F(frmCashPatientsTest, PointerIsAnHourglassWhileTheSearchRuns) {
    const auto& screen = Open();
    gateway.ExpectFailure(WalkInCommand(u"0"_s, u""_s), RunTimeError(105, u"no"_s));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), 105);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(frmCashPatientsTest, NullNameFaults) {
    const auto& screen = Open();
    gateway.Expect(WalkInCommand(u"0"_s, u""_s),
                   Rows({u"HospNum"_s, u"LastName"_s, u"FirstName"_s, u"MiddleName"_s},
                        {{u"W1"_s, u"CRUZ"_s, u"ANA"_s, Value()}}));
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), RunTime::kInvalidUseOfNull);
    EXPECT_FALSE(Grid(screen).Redraw());
}

TEST_F(frmCashPatientsTest, DownGoesToTheFirstRow) {
    const auto& screen = Open();
    Search(screen, {ana, eva});
    EXPECT_TRUE(Grid(screen).Redraw());
    Grid(screen).Cells().SetRow(2);
    Press(Text(screen), Qt::Key_Down);
    EXPECT_TRUE(Grid(screen).hasFocus());
    EXPECT_EQ(Grid(screen).Cells().Row(), 1);
}

TEST_F(frmCashPatientsTest, SearchAmongOutPatientsFaultsForWantOfItsObject) {
    const auto& screen = Open();
    Kind(screen).setCurrentIndex(1);
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
    EXPECT_EQ(frmCashPatients::Valid, Value(false));
}

TEST_F(frmCashPatientsTest, SearchAmongInPatientsFaultsForWantOfItsObject) {
    const auto& screen = Open();
    Kind(screen).setCurrentIndex(2);
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
    EXPECT_EQ(frmCashPatients::Valid, Value(false));
}

TEST_F(frmCashPatientsTest, OutPatientOfAnObjectThatIsThereIsSelected) {
    const auto search = std::make_shared<FakeVisitByText>();
    frmCashPatients::outPatientSearch = search;
    const auto& screen = Open();
    Kind(screen).setCurrentIndex(1);
    Text(screen).setText(u" 10231B "_s);
    search->finds = false;
    Press(Text(screen), Qt::Key_Return);
    EXPECT_TRUE(Screens::IsLoaded<frmCashPatients>());
    EXPECT_EQ(frmCashPatients::Valid, Value(false));
    search->finds = true;
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(search->asked, (Names{u" 10231B "_s, u" 10231B "_s}));
    EXPECT_EQ(frmCashPatients::ResultCode, Value(u"10231B"_s));
    EXPECT_EQ(frmCashPatients::PatientType, Value(u"O"_s));
    EXPECT_EQ(frmCashPatients::Valid, Value(true));
    EXPECT_FALSE(Screens::IsLoaded<frmCashPatients>());
}

TEST_F(frmCashPatientsTest, InPatientOfAnObjectThatIsThereIsSelected) {
    const auto search = std::make_shared<FakeAdmissionByText>();
    frmCashPatients::admissionSearch = search;
    const auto& screen = Open();
    Kind(screen).setCurrentIndex(2);
    Text(screen).setText(u"104233"_s);
    search->finds = false;
    Press(Text(screen), Qt::Key_Return);
    EXPECT_TRUE(Screens::IsLoaded<frmCashPatients>());
    search->finds = true;
    Press(Text(screen), Qt::Key_Return);
    EXPECT_EQ(search->asked, (Names{u"104233|"_s, u"104233|"_s}));
    EXPECT_EQ(frmCashPatients::ResultCode, Value(u"104233"_s));
    EXPECT_EQ(frmCashPatients::PatientType, Value(u"I"_s));
    EXPECT_EQ(frmCashPatients::Valid, Value(true));
    EXPECT_FALSE(Screens::IsLoaded<frmCashPatients>());
}

TEST_F(frmCashPatientsTest, SelectTakesTheNumberOfTheCurrentRow) {
    const auto& screen = Open();
    Search(screen, {ana, eva});
    Grid(screen).Cells().SetRow(2);
    Click(Button(screen, "cmdSelect"));
    EXPECT_EQ(frmCashPatients::ResultCode, Value(u"W000013"_s));
    EXPECT_EQ(frmCashPatients::PatientType, Value(u"C"_s));
    EXPECT_EQ(frmCashPatients::Valid, Value(true));
    EXPECT_FALSE(Screens::IsLoaded<frmCashPatients>());
}

TEST_F(frmCashPatientsTest, SelectOfAnotherTypeLeavesTheResultCode) {
    for (const auto& [index, letter] : {std::pair(1, u"O"_s), std::pair(2, u"I"_s)}) {
        const auto& screen = Open();
        Search(screen, {ana});
        Kind(screen).setCurrentIndex(index);
        frmCashPatients::ResultCode = u"of the caller"_s;
        Click(Button(screen, "cmdSelect"));
        EXPECT_EQ(frmCashPatients::ResultCode, Value(u"of the caller"_s));
        EXPECT_EQ(frmCashPatients::PatientType, Value(letter));
        EXPECT_EQ(frmCashPatients::Valid, Value(true));
    }
}

TEST_F(frmCashPatientsTest, DoubleClickAndEnterInTheGridSelect) {
    for (const bool byKey : {false, true}) {
        const auto& screen = Open();
        Search(screen, {ana, eva});
        const FlexGrid& grid = Grid(screen);
        if (byKey)
            QTest::keyClick(&Grid(screen), Qt::Key_Return);
        else
            DoubleClick(*grid.viewport(), grid.CellRect(1, 1).center() - grid.viewport()->pos());
        EXPECT_EQ(frmCashPatients::ResultCode, Value(u"W000012"_s));
        EXPECT_FALSE(Screens::IsLoaded<frmCashPatients>());
    }
}

TEST_F(frmCashPatientsTest, DoubleClickAndEnterInTheGridDoNothingWhileSelectIsDisabled) {
    const auto& screen = Open();
    const FlexGrid& grid = Grid(screen);
    QTest::keyClick(&Grid(screen), Qt::Key_Return);
    DoubleClick(*grid.viewport(), grid.CellRect(1, 1).center() - grid.viewport()->pos());
    EXPECT_EQ(frmCashPatients::Valid, Value(false));
    EXPECT_TRUE(Screens::IsLoaded<frmCashPatients>());
}

TEST_F(frmCashPatientsTest, OtherKeysInTheGridSelectNothing) {
    const auto& screen = Open();
    Search(screen, {ana, eva});
    Type(Grid(screen), u"x "_s);
    EXPECT_TRUE(Screens::IsLoaded<frmCashPatients>());
}

TEST_F(frmCashPatientsTest, CloseIsNoSelection) {
    const auto& screen = Open();
    Search(screen, {ana});
    frmCashPatients::Valid = true;
    Click(Button(screen, "cmdClose"));
    EXPECT_EQ(frmCashPatients::Valid, Value(false));
    EXPECT_EQ(frmCashPatients::ResultCode, Value(u""_s));
    EXPECT_FALSE(Screens::IsLoaded<frmCashPatients>());
}

TEST_F(frmCashPatientsTest, AddShowsTheOlderRegistrationModally) {
    const auto& screen = Open();
    bool seen = false;
    WhileModal([&](Form& walkIn) {
        seen = true;
        EXPECT_NE(dynamic_cast<frmWalkIn*>(&walkIn), nullptr);
        EXPECT_TRUE(walkIn.IsModal());
    });
    Click(Button(screen, "cmdAdd"));
    EXPECT_TRUE(seen);
    EXPECT_TRUE(Screens::IsLoaded<frmCashPatients>());
}
