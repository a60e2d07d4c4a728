#include "charges/frmPostCharges.h"
#include "charges/PostChargesGround.h"
#include "components/shared.h"
#include "patients/commands.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "support/FakeWorkspace.h"
#include "support/RevenueRows.h"
#include "support/WhileModal.h"
#include "text/RunTimeError.h"
#include "toolkit/ListView.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class frmPostChargesTest : public PostChargesGround {
  protected:
    static QGroupBox& Frame(const char* name) {
        return Find<QGroupBox>(Screens::Get<frmPostCharges>(), name);
    }
    static QPushButton& Button(const char* name) {
        return Find<QPushButton>(Screens::Get<frmPostCharges>(), name);
    }

    static QString Message() { return Find<QLabel>(Screens::Get<frmPostCharges>(), "lblMessage").text(); }
    /// The clerk is at another screen, where another patient of that room class is taken, and comes back.
    void TakeAnotherElsewhere(const QString& roomClass) {
        Screens::Get<Form>().Show();
        gRoomClass = roomClass;
        Screens::Get<frmPostCharges>().Show();
    }

    /// What the finder is answered for a name.
    void ExpectPatients(const QString& name) {
        gateway.Expect(GetPatientCommand(gPatientType, name),
                       Rows({u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s,
                             u"Billing Date"_s},
                            {{u"100085"_s, u"104233"_s, u"DELA CRUZ, JUAN"_s, Value(), Value()}}));
    }
};

TEST_F(frmPostChargesTest, DepartmentLabelsShowTheWorkstationsDepartment) {
    gDeptDesc = u"HEMODIALYSIS"_s;
    gDeptCode = u"HD"_s;
    const auto& screen = Open();
    for (const auto& [name, text] : {std::pair("lblDepartment", gDeptDesc), {"lblDeptCode", gDeptCode}}) {
        EXPECT_EQ(Find<QLabel>(screen, name).text(), text) << name;
        EXPECT_TRUE(Find<QLabel>(screen, name).isVisible()) << name;
    }
}

TEST_F(frmPostChargesTest, LoadSetsTheGridUpAndWritesTheTotal) {
    Open();
    EXPECT_EQ(Cells().Rows(), 9);
    EXPECT_EQ(Cells().Cols(), 13);
    EXPECT_EQ(Cells().TextMatrix(0, 4), u"Quantity"_s);
    EXPECT_EQ(Box("txtTAmount").text(), u"0.00"_s);
}

TEST_F(frmPostChargesTest, FramesAreDisabledUntilAFirstNameComesAndStayEnabled) {
    Open();
    EXPECT_FALSE(Frame("Frame2").isEnabled());
    EXPECT_FALSE(Frame("Frame4").isEnabled());
    Box("txtLastName").setText(u"CRUZ"_s);
    EXPECT_FALSE(Frame("Frame2").isEnabled());
    Box("txtFirstName").setText(u"J"_s);
    EXPECT_TRUE(Frame("Frame2").isEnabled());
    EXPECT_TRUE(Frame("Frame4").isEnabled());
    Box("txtFirstName").clear();
    EXPECT_TRUE(Frame("Frame2").isEnabled());
    EXPECT_TRUE(Frame("Frame4").isEnabled());
}

TEST_F(frmPostChargesTest, EnterInTheNameOpensTheFinderForIt) {
    gPatientType = u"O"_s;
    gChargeMode = u"Post"_s;
    Open();
    Type(Box("txtLastName"), u"dela p"_s);
    EXPECT_EQ(Box("txtLastName").text(), u"DELA P"_s);
    ExpectPatients(u"DELA P"_s);
    Press(Box("txtLastName"), Qt::Key_Return);
    ASSERT_TRUE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_FALSE(Screens::Get<frmSearchPatient>().IsModal());
    EXPECT_TRUE(Screens::Get<frmSearchPatient>().isVisible());
}

TEST_F(frmPostChargesTest, TabOfTheNameArrivesInTheFinderAndReachesTheRows) {
    const FakeWorkspace workspace;
    gPatientType = u"O"_s;
    gChargeMode = u"Post"_s;
    Open();
    ExpectPatients(u""_s);
    Press(Box("txtLastName"), Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(Find<ListView>(Screens::Get<frmSearchPatient>(), "ListView1").hasFocus());
}

TEST_F(frmPostChargesTest, SecondEnterBringsTheSameFinderAndSendsNothing) {
    gPatientType = u"O"_s;
    gChargeMode = u"Post"_s;
    Open();
    ExpectPatients(u""_s);
    Press(Box("txtLastName"), Qt::Key_Return);
    Press(Box("txtLastName"), Qt::Key_Return);
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(frmPostChargesTest, PickInTheFinderFillsTheHeaderAndReturnsToTheScreen) {
    personFinder->FillAdmission();
    gPatientType = u"I"_s;
    gChargeMode = u"Post"_s;
    Open();
    ExpectPatients(u""_s);
    Press(Box("txtLastName"), Qt::Key_Return);
    auto& finder = Screens::Get<frmSearchPatient>();
    Activate(finder);
    ExpectPatients(u""_s);
    gateway.Expect(OutPatientCommand(u"104233"_s), Rows({u"DoctorID1"_s, u"DoctorID2"_s, u"DoctorID3"_s}));
    QTest::keyClick(&Find<ListView>(finder, "ListView1"), Qt::Key_Return);
    const std::vector<std::pair<const char*, QString>> header = {{"txtPno", u"100085"_s},
                                                                 {"txtId", u"104233"_s},
                                                                 {"txtDateAdmitted", u"11/03/2026"_s},
                                                                 {"txtRoom", u"301-A"_s},
                                                                 {"txtDoctor", u"DR. LUIS CASTAÑEDA"_s},
                                                                 {"txtLastName", u"DELA CRUZ"_s},
                                                                 {"txtFirstName", u"JUAN"_s},
                                                                 {"txtMiddleName", u"PEÑA"_s},
                                                                 {"txtSex", u"M"_s},
                                                                 {"txtDob", u"5/6/1960"_s},
                                                                 {"txtAge", u"66"_s}};
    for (const auto& [name, text] : header)
        EXPECT_EQ(Box(name).text(), text) << name;
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(Frame("Frame2").isEnabled());
    EXPECT_EQ(Form::Active(), &Screens::Get<frmPostCharges>());
    const QString usual = Message();
    TakeAnotherElsewhere(gRoomClass + u"Z"_s);
    EXPECT_NE(Message(), usual) << "whom the pick has taken is known";
}

TEST_F(frmPostChargesTest, TellsThatAnotherPatientWasTakenMeanwhile) {
    gRoomClass = u"B"_s;
    Open();
    const QString usual = Message();
    TakeAnotherElsewhere(u"A"_s);
    EXPECT_EQ(Message(), usual) << "nobody is shown yet";
    OpenWithPatient().HoldPatient();
    TakeAnotherElsewhere(u"A"_s);
    EXPECT_EQ(Message(), usual) << "he is the same";
    TakeAnotherElsewhere(u"D"_s);
    EXPECT_TRUE(Message().startsWith(u"Another patient is in hand"_s)) << Message().toStdString();
    Screens::Get<frmPostCharges>().HoldPatient();
    EXPECT_EQ(Message(), usual) << "he was taken again";
}

TEST_F(frmPostChargesTest, DoctorsCodeIsLookedUpAndTabIsSent) {
    listing->doctor = {u"D003"_s, u"CASTAÑEDA"_s, u"LUIS"_s, u"PEÑA"_s};
    listing->answers = {true};
    Open();
    Box("txtDocID").setFocus();
    Type(Box("txtDocID"), u"d3"_s);
    Press(Box("txtDocID"), Qt::Key_Return);
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u"d3"_s, ListingKind::kDoctor, u""_s}}));
    EXPECT_TRUE(listing->searchMode);
    EXPECT_EQ(Box("txtRequestingDoc").text(), u"DR. LUIS CASTAÑEDA"_s);
    EXPECT_EQ(Box("txtDocID").text(), u"D003"_s);
    EXPECT_TRUE(Box("txtDocID").hasFocus());
    RunEvents();
    EXPECT_TRUE(Box("txtRequestingDoc").hasFocus());
}

TEST_F(frmPostChargesTest, UnknownDoctorsCodeDoesNothing) {
    Open();
    Box("txtDocID").setFocus();
    Type(Box("txtDocID"), u"QQ"_s);
    Press(Box("txtDocID"), Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(Box("txtDocID").text(), u"QQ"_s);
    EXPECT_EQ(Box("txtRequestingDoc").text(), u""_s);
    EXPECT_TRUE(Box("txtDocID").hasFocus());
}

TEST_F(frmPostChargesTest, ExitUnloadsAtOnceWithNoQuestionAndNoSave) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    gLineCount = gLineCount2 = 4;
    Click(Button("Command1"));
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>());
    EXPECT_EQ(gLineCount, 0);
    EXPECT_EQ(gLineCount2, 0);
}

TEST_F(frmPostChargesTest, FreshScreenAfterAnUnloadHoldsNoLines) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s});
    Click(Button("Command1"));
    Open();
    EXPECT_EQ(Cells().TextMatrix(1, 1), u""_s);
    EXPECT_EQ(Box("txtLastName").text(), u""_s);
    EXPECT_FALSE(Frame("Frame2").isEnabled());
}

TEST_F(frmPostChargesTest, ReturnFromAnotherScreenCutsTheGridAndLosesTheLinesBeyondEight) {
    auto& screen = OpenWithPatient();
    Cells().SetRows(12);
    PutLine(8, {u"XR"_s, u"KEPT"_s});
    PutLine(11, {u"XR"_s, u"LOST"_s});
    screen.Show();
    EXPECT_EQ(Cells().Rows(), 12) << "it was the active screen already";
    Screens::Get<Form>().Show();
    EXPECT_EQ(Cells().Rows(), 12);
    screen.Show();
    EXPECT_EQ(Cells().Rows(), 9);
    EXPECT_EQ(Cells().TextMatrix(8, 2), u"KEPT"_s);
    Cells().SetRows(12);
    EXPECT_EQ(Cells().TextMatrix(11, 2), u""_s);
}

TEST_F(frmPostChargesTest, ReturnFromThePickerOfDepartmentsCutsTheGridToo) {
    OpenWithPatient();
    Cells().SetRows(11);
    PutLine(10, {u"E"_s, u"LOST"_s});
    Cells().SetCell(10, 1);
    Grid().setFocus();
    gateway.Expect(ExactRevenueCommand(u"E"_s), RevenueRows({}));
    gateway.Expect(PartialRevenueCommand(u"E"_s), RevenueRows({{u"EAR CARE"_s, u"HC"_s}}));
    gateway.Expect(ListedRevenueCommand(u"E"_s), RevenueRows({{u"EAR CARE"_s, u"HC"_s}}));
    WhileModal([](Form& picker) {
        EXPECT_EQ(Cells().Rows(), 11);
        Click(Find<QPushButton>(picker, "cmdCancel"));
    });
    Press(Box("txtEntry"), Qt::Key_Return);
    EXPECT_EQ(Cells().Rows(), 9);
    EXPECT_EQ(Box("txtEntry").text(), u""_s);
}

/// Lines beyond the eighth, which the list of departments cuts off when it closes.
class CutOffLine : public frmPostChargesTest {
  protected:
    /// Keys part of a department into line 10 and leaves the list of departments by that button.
    void KeyDepartment(const char* button) {
        Cells().SetCell(10, 1);
        Grid().setFocus();
        const RevenueCentre earCare{u"EAR CARE"_s, u"HC"_s};
        gateway.Expect(ExactRevenueCommand(u"E"_s), RevenueRows({}));
        gateway.Expect(PartialRevenueCommand(u"E"_s), RevenueRows({earCare}));
        gateway.Expect(ListedRevenueCommand(u"E"_s), RevenueRows({earCare}));
        if (button == std::string_view("cmdSelect"))
            ExpectExact(gateway, earCare);
        WhileModal([button](Form& picker) { Click(Find<QPushButton>(picker, button)); });
        Press(Box("txtEntry"), Qt::Key_Return);
    }
    void FillLines(int last) {
        Cells().SetRows(11);
        for (int row = 1; row <= last; ++row)
            PutLine(row, {u"XR"_s, u"X%1"_s.arg(row), u"CHEST"_s, u"3"_s, u"900.00"_s});
        PutLine(10, {u"E"_s});
    }
    void ExpectKept(int last) {
        for (int row = 1; row <= last; ++row) {
            EXPECT_EQ(Cells().TextMatrix(row, 1), u"XR"_s) << row;
            EXPECT_EQ(Cells().TextMatrix(row, 2), u"X%1"_s.arg(row));
            EXPECT_EQ(Cells().TextMatrix(row, 3), u"CHEST"_s) << row;
        }
    }
    void ExpectOpenAt(int row) {
        EXPECT_EQ(Cells().Row(), row);
        EXPECT_EQ(Cells().Col(), Column::kDepartment);
        EXPECT_EQ(Box("txtEntry").text(), u""_s);
        EXPECT_TRUE(Box("txtEntry").isVisible());
        EXPECT_EQ(Box("txtEntry").window()->focusWidget(), &Box("txtEntry"));
    }
};

TEST_F(CutOffLine, APickForItIsWrittenOverNoChargeThatStands) {
    OpenWithPatient();
    FillLines(8);
    Cells().SetTextMatrix(5, 1, QString());
    for (int col = 2; col <= 6; ++col)
        Cells().SetTextMatrix(5, col, QString());
    KeyDepartment("cmdSelect");
    EXPECT_EQ(Cells().Rows(), 9);
    ExpectOpenAt(5);
    ExpectKept(4);
    EXPECT_EQ(Cells().TextMatrix(8, 2), u"X8"_s);
    EXPECT_EQ(gLineCount, 0) << "no department was accepted";
}

TEST_F(CutOffLine, WhereEveryLineStandsAnEmptyOneIsAddedForTheNext) {
    OpenWithPatient();
    FillLines(8);
    KeyDepartment("cmdSelect");
    EXPECT_EQ(Cells().Rows(), 10);
    ExpectOpenAt(9);
    ExpectKept(8);
}

TEST_F(CutOffLine, AListThatIsLeftForItOpensNoChargeThatStandsEither) {
    OpenWithPatient();
    FillLines(8);
    KeyDepartment("cmdCancel");
    EXPECT_EQ(Cells().Rows(), 10);
    ExpectOpenAt(9);
    ExpectKept(8);
}

TEST_F(frmPostChargesTest, ActivationOpensTheAmountOfAnHCLineToTheNextMoveAndTheEditorStays) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    Cells().SetTextMatrix(1, 5, u"101.00"_s);
    Cells().SetTextMatrix(1, Column::kZeroPrice, u"Y"_s);
    Cells().SetCell(1, 5);
    Grid().setFocus();
    Screens::Get<Form>().Show();
    screen.Show();
    Activate(screen);
    const QRect place = Box("txtEntry").geometry();
    Press(Box("txtEntry"), Qt::Key_Return);
    EXPECT_EQ(Cells().Row(), 1);
    EXPECT_EQ(Cells().Col(), Column::kAmount);
    EXPECT_EQ(Box("txtEntry").geometry(), place) << "the Amount is closed again when it is to open";
}

TEST_F(frmPostChargesTest, ActivationKeepsTheArmedEndOfTheGrid) {
    auto& screen = OpenWithPatient();
    Cells().SetCell(8, Column::kAmount);
    Grid().setFocus();
    Press(Box("txtEntry"), Qt::Key_Return);
    EXPECT_EQ(Cells().Rows(), 9);
    Screens::Get<Form>().Show();
    screen.Show();
    Activate(screen);
    Press(Box("txtEntry"), Qt::Key_Return);
    EXPECT_EQ(Cells().Rows(), 10);
}

TEST_F(frmPostChargesTest, CodeIsCheckedThroughTheScreen) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HD"_s, u"G1"_s});
    PutLine(2, {u"HD"_s, u""_s});
    Cells().SetRow(2);
    EXPECT_TRUE(screen.Check_Code(u"G1"_s));
    EXPECT_FALSE(screen.Check_Code(u"G2"_s));
}

TEST_F(frmPostChargesTest, KeyedLineReachesTheTotal) {
    gRoomClass = u"C"_s;
    listing->service.ResultCode = u"S1"_s;
    listing->service.OtherRevenue = u"CLEANING"_s;
    listing->service.Rates = {101, 102, 103};
    listing->answers = {true};
    OpenWithPatient();
    Grid().setFocus();
    auto& editor = Box("txtEntry");
    ExpectExact(gateway, {u"EAR CARE"_s, u"HC"_s});
    Type(editor, u"hc"_s);
    Press(editor, Qt::Key_Return);
    Type(editor, u"s1"_s);
    Press(editor, Qt::Key_Return);
    Type(editor, u"2"_s);
    Press(editor, Qt::Key_Return);
    EXPECT_EQ(Box("txtTAmount").text(), u"206.00"_s);
    EXPECT_EQ(Cells().TextMatrix(1, 6), u"206.00"_s);
    EXPECT_EQ(listing->searches.at(0).section, u"HC"_s);
    EXPECT_EQ(gLineCount, 1);
}

TEST_F(frmPostChargesTest, TabGoesDownTheOrderOfWork) {
    OpenWithPatient();
    EXPECT_TRUE(Box("txtLastName").hasFocus());
    std::vector<QString> order;
    for (int i = 0; i < 6; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.push_back(QApplication::focusWidget()->objectName());
    }
    // The grid passes the focus on to its editor.
    EXPECT_EQ(order, (std::vector<QString>{u"txtDocID"_s, u"txtRequestingDoc"_s, u"Command2"_s, u"txtEntry"_s,
                                           u"cmdPrint"_s, u"Command1"_s}));
}
