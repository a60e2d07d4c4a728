#include "maintenance/ListChargesGround.h"
#include "patients/commands.h"
#include "patients/frmSearchPatient.h"
#include "reports/Reports.h"
#include "support/FakeWorkspace.h"
#include "support/slip/SlipPrint.h"
#include "toolkit/ListView.h"
#include "toolkit/Twips.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QTest>

using namespace Qt::StringLiterals;

using frmListChargesTest = ListChargesGround;

namespace {

/// What the finder asks as soon as it opens for this screen.
QString FinderCommand(const QString& type, const QString& text) {
    return GetPatientCommand(type, text);
}

std::shared_ptr<const RowData> Patients(const std::vector<std::vector<Value>>& rows = {}) {
    return Rows(
        {u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s, u"Billing Date"_s}, rows);
}

/// What others could do with the screen if it were the finder's target itself.
template <class Screen>
concept HasOperationsOfATarget = requires(Screen& screen) {
    screen.Picked();
}
|| requires(Screen& screen) {
    screen.FinderText();
}
|| requires(Screen& screen) {
    screen.LoadPick();
};

static_assert(!HasOperationsOfATarget<frmListCharges>, "Get_Charges is its one public operation");
static_assert(!std::is_base_of_v<FinderTarget, frmListCharges>);

} // namespace

TEST_F(frmListChargesTest, SaysThatNothingIsEntered) {
    Open();
    EXPECT_EQ(Box("txtMessage").text(), u"No Charges Entered........"_s);
}

TEST_F(frmListChargesTest, StandsAtItsPlaceInTheMainWindow) {
    FakeWorkspace workspace;
    workspace.show();
    Screens::Get<frmListCharges>().Show();
    EXPECT_EQ(workspace.Area()->subWindowList().front()->pos(),
              QPoint(TwipsToPixels(1800), TwipsToPixels(2000)));
    Screens::Clear();
}

TEST_F(frmListChargesTest, TabGoesDownTheOrderOfWork) {
    OpenList({service});
    Box("txtLastName").setFocus();
    for (QWidget* control :
         std::vector<QWidget*>{&Box("txtLastName"), &ListButton(), &Grid(), &Reprint(), &Cancel()}) {
        EXPECT_EQ(QApplication::focusWidget(), control);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(frmListChargesTest, OpensOnInPatientsWithTheTwoButtonsDisabledAndInSight) {
    gPatientType = u"O"_s;
    Open();
    EXPECT_TRUE(PatientType(0).isChecked());
    EXPECT_EQ(gPatientType, u"I"_s);
    EXPECT_FALSE(Reprint().isEnabled());
    EXPECT_FALSE(Cancel().isEnabled());
    EXPECT_TRUE(OptionsAreShown());
    EXPECT_FALSE(Box("txtMessage").isVisible());
    EXPECT_TRUE(Grid().isVisible());
}

TEST_F(frmListChargesTest, PatientTypeIsWrittenByAClickThatAsksNothing) {
    OpenList({service});
    Click(PatientType(1));
    EXPECT_EQ(gPatientType, u"O"_s);
    Click(PatientType(0));
    EXPECT_EQ(gPatientType, u"I"_s);
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmListChargesTest, ClickOnTheStandingPatientTypeWritesItAgain) {
    Open();
    gPatientType = u"O"_s;
    Click(PatientType(0));
    EXPECT_EQ(gPatientType, u"I"_s);
}

TEST_F(frmListChargesTest, LastNameIsTypedInUpperCase) {
    Open();
    Box("txtLastName").clear();
    Type(Box("txtLastName"), u"peña"_s);
    EXPECT_EQ(Box("txtLastName").text(), u"PEÑA"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(frmListChargesTest, EnterInTheLastNameOpensTheFinderNotModal) {
    Open();
    Box("txtLastName").setText(u"CRUZ"_s);
    gateway.Expect(FinderCommand(u"I"_s, u"CRUZ"_s), Patients());
    Press(Box("txtLastName"), Qt::Key_Return);
    ASSERT_TRUE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(Screens::Get<frmSearchPatient>().isVisible());
    EXPECT_FALSE(Screens::Get<frmSearchPatient>().IsModal());
}

TEST_F(frmListChargesTest, TabOfTheNameArrivesInTheFinderAndReachesTheRows) {
    FakeWorkspace workspace;
    Activate(workspace);
    Open();
    Box("txtLastName").setText(u"CRUZ"_s);
    gateway.Expect(FinderCommand(u"I"_s, u"CRUZ"_s),
                   Patients({{u"100085"_s, u"104233"_s, u"CRUZ, JUAN"_s, Value(), Value()}}));
    Press(Box("txtLastName"), Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(Find<ListView>(Screens::Get<frmSearchPatient>(), "ListView1").hasFocus());
    Screens::Clear();
}

TEST_F(frmListChargesTest, OutPatientsAreSoughtAfterAClickOnTheirType) {
    Open();
    Click(PatientType(1));
    Box("txtLastName").setText(u"CRUZ"_s);
    gateway.Expect(FinderCommand(u"O"_s, u"CRUZ"_s), Patients());
    Press(Box("txtLastName"), Qt::Key_Return);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmListChargesTest, PickFillsTheHeaderAndBlanksTheGrid) {
    OpenList({service, medicine});
    Box("txtLastName").setText(u"DELA"_s);
    Box("txtLastName").setFocus();
    gateway.Expect(FinderCommand(u"I"_s, u"DELA"_s),
                   Patients({{u"100085"_s, u"104233"_s, u"DELA CRUZ, JUAN"_s, Value(), Value()}}));
    Press(Box("txtLastName"), Qt::Key_Return);
    gateway.Expect(FinderCommand(u"I"_s, u"DELA"_s), Patients());
    gateway.Expect(OutPatientCommand(u"104233"_s), Rows({u"DoctorID1"_s, u"DoctorID2"_s, u"DoctorID3"_s}));
    auto& finder = Screens::Get<frmSearchPatient>();
    Activate(finder);
    auto& list = Find<ListView>(finder, "ListView1");
    list.setFocus();
    Press(list, Qt::Key_Down);
    Press(list, Qt::Key_Return);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_EQ(Box("txtLastName").text(), u"DELA CRUZ"_s);
    EXPECT_EQ(Box("txtMiddleName").text(), u"PEÑA"_s);
    EXPECT_EQ(Box("txtPno").text(), u"100085"_s);
    EXPECT_EQ(Box("txtId").text(), u"104233"_s);
    EXPECT_EQ(Box("txtRoom").text(), u"301-A"_s);
    EXPECT_EQ(Box("txtDateAdmitted").text(), u"11/03/2026"_s);
    EXPECT_EQ(Box("txtDoctor").text(), u"DR. LUIS CASTAÑEDA"_s);
    EXPECT_EQ(Box("txtSex").text(), u"M"_s);
    EXPECT_EQ(Box("txtAge").text(), u"66"_s);
    EXPECT_EQ(Cells().Row(), 0);
    EXPECT_EQ(Cells().Col(), 0);
    for (int row = 0; row < Cells().Rows(); ++row)
        for (int col = 0; col < Cells().Cols(); ++col)
            EXPECT_EQ(Cells().TextMatrix(row, col), u""_s) << row << "," << col;
}

TEST_F(frmListChargesTest, ListShowsTheRowsUnderItsHeadersInItsWidths) {
    OpenList({service, medicine});
    EXPECT_EQ(Cells().Rows(), 3);
    EXPECT_EQ(Cells().Cols(), 10);
    QStringList headers;
    for (int col = 0; col < 10; ++col)
        headers << Cells().TextMatrix(0, col);
    EXPECT_EQ(headers,
              QStringList({u"  "_s, u"Dept. "_s, u"Item. #"_s, u" Item   Description    "_s, u"QTY"_s,
                           u"Amount "_s, u"ChargeSlip #"_s, u"Field7"_s, u"Field8"_s, u"Field9"_s}));
    std::vector<int> widths;
    for (int col = 0; col < 8; ++col)
        widths.push_back(Grid().ColWidth(col));
    EXPECT_EQ(widths, (std::vector<int>{1, 500, 800, 3500, 800, 900, 1800, 2000}));
    const FlexGrid fresh;
    for (const int col : {8, 9})
        EXPECT_EQ(Grid().ColWidth(col), fresh.ColWidth(col)) << col;
    EXPECT_EQ(Cells().TextMatrix(2, 1), u"HB"_s);
    EXPECT_EQ(Cells().TextMatrix(2, 5), u"2034.5"_s);
    EXPECT_EQ(Cells().TextMatrix(2, 9), u"LINE7"_s);
    EXPECT_EQ(Cells().Row(), 1);
    EXPECT_TRUE(OptionsAreEnabled());
    EXPECT_TRUE(OptionsAreShown());
}

TEST_F(frmListChargesTest, ListIsOpenedStaticAndReadOnly) {
    OpenList({service});
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Static);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::ReadOnly);
}

TEST_F(frmListChargesTest, ListIsThatOfHCOnAWorkstationOfAnotherDepartment) {
    gDeptCode = u"LB"_s;
    OpenList({service});
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmListChargesTest, ListAfterAMoveStandsOnItsFirstRow) {
    OpenList({service, medicine});
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, PlaceOf(2));
    ASSERT_EQ(Cells().Row(), 2);
    List({service, medicine});
    EXPECT_EQ(Cells().Row(), 1);
}

TEST_F(frmListChargesTest, EmptyListShowsTheMessageAndHidesTheGridAndBothButtonsThatItEnables) {
    OpenList({});
    EXPECT_TRUE(Box("txtMessage").isVisible());
    EXPECT_FALSE(Grid().isVisible());
    EXPECT_TRUE(NoOptionIsShown());
    EXPECT_TRUE(OptionsAreEnabled());
}

TEST_F(frmListChargesTest, EmptyListByItselfEnablesNothing) {
    auto& screen = Open();
    ExpectList({});
    screen.Get_Charges();
    EXPECT_FALSE(Reprint().isEnabled());
    EXPECT_FALSE(Cancel().isEnabled());
}

TEST_F(frmListChargesTest, LaterListBringsTheGridBackAndLeavesTheButtonsOutOfSight) {
    OpenList({});
    List({service});
    EXPECT_FALSE(Box("txtMessage").isVisible());
    EXPECT_TRUE(Grid().isVisible());
    EXPECT_TRUE(OptionsAreEnabled());
    EXPECT_TRUE(NoOptionIsShown());
}

TEST_F(frmListChargesTest, DoubleClickBringsTheButtonsBackIntoSight) {
    OpenList({});
    List({service});
    gateway.Expect(VerifyChargesCommand(u"104233"_s, u"HC001"_s, u"H1042C"_s, u"HC"_s),
                   Rows({u"Amount"_s}, {{Decimal{u"0.0000"_s}}}));
    messages.Expect({.text = u"Can't Cancel this Charges. The Total Amount is already Zero!"_s,
                     .icon = MsgIcon::Critical,
                     .title = u"Message"_s});
    DoubleClick(*Grid().viewport(), PlaceOf(1));
    EXPECT_TRUE(OptionsAreShown());
}

TEST_F(frmListChargesTest, FailingListEndsInTheGeneralFailureOverAnEmptiedGrid) {
    OpenList({service, medicine});
    gateway.ExpectFailure(ListAllChargesCommand(u"100085"_s, u"104233"_s),
                          RunTimeError(2812, u"Could not find stored procedure"_s));
    Click(ListButton());
    EXPECT_EQ(TakeFailure(), 2812);
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_EQ(Cells().Cols(), 8);
    EXPECT_EQ(Cells().TextMatrix(0, 2), u"Item. #"_s);
    EXPECT_EQ(Cells().TextMatrix(0, 6), u"ChargeSlip #"_s);
    EXPECT_EQ(Cells().TextMatrix(0, 7), u""_s);
    EXPECT_EQ(Cells().TextMatrix(1, 2), u""_s);
}

TEST_F(frmListChargesTest, ReprintTellsTheDatabaseAndFillsTheSlip) {
    const SlipPrint slip(programDirectory, u"Charge_Slip.RPT"_s, 10);
    OpenList({service, {u"HB"_s, u"M0002"_s, u"2"_s, u"1.0000"_s, u" H1043C "_s}});
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, PlaceOf(2));
    gateway.Expect(ReprintChargeSlipCommand(u"H1043C"_s));
    EXPECT_EQ(slip.Values(u"RE-Print ChargeSlip"_s, [] { Click(Reprint()); }),
              (std::vector<QString>{u"H1043C"_s, u"11/21/2026"_s, u"CRUZ, JUAN SY"_s, u"104233"_s,
                                    u"100085"_s, u"ROOM SHOWN"_s, u"10:30:15 AM"_s, u"500123"_s,
                                    u"STATION 3"_s, u"ANA REYES"_s}));
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(gReport.IsSet());
}

TEST_F(frmListChargesTest, ReprintTrimsBlanksAlone) {
    const SlipPrint slip(programDirectory, u"Charge_Slip.RPT"_s, 10);
    OpenList({{u"HB"_s, u"M0002"_s, u"2"_s, u"1.0000"_s, u" \tH1043C "_s}});
    gateway.Expect(ReprintChargeSlipCommand(u"\tH1043C"_s));
    EXPECT_EQ(slip.Values(u"RE-Print ChargeSlip"_s, [] { Click(Reprint()); }).at(0), u"\tH1043C"_s);
}

TEST_F(frmListChargesTest, ReprintAfterAPickIsOfTheBlankHeaderRow) {
    const SlipPrint slip(programDirectory, u"Charge_Slip.RPT"_s, 10);
    Open();
    List({service});
    ListChargesTarget().Picked();
    gateway.Expect(ReprintChargeSlipCommand(u""_s));
    EXPECT_EQ(slip.Values(u"RE-Print ChargeSlip"_s, [] { Click(Reprint()); }),
              (std::vector<QString>{u""_s, u"11/21/2026"_s, u"CRUZ, JUAN SY"_s, u"104233"_s, u"100085"_s,
                                    u"ROOM SHOWN"_s, u"10:30:15 AM"_s, u"500123"_s, u"STATION 3"_s,
                                    u"ANA REYES"_s}));
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmListChargesTest, ReprintThatFailsToPrintStaysRecorded) {
    OpenList({service});
    gateway.Expect(ReprintChargeSlipCommand(u"H1042C"_s));
    Click(Reprint());
    EXPECT_EQ(TakeFailure(), RunTime::kFileNotFound);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmListChargesTest, ReprintThatTheDatabaseRefusesPrintsNothing) {
    const SlipPrint slip(programDirectory, u"Charge_Slip.RPT"_s, 10);
    OpenList({service});
    gateway.ExpectFailure(ReprintChargeSlipCommand(u"H1042C"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    Click(Reprint());
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_FALSE(gReport.IsSet());
}
