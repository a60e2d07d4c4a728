#include "charges/AssessmentGround.h"
#include "charges/frmAssessment.h"
#include "components/shared.h"
#include "patients/commands.h"
#include "patients/frmCashWalkIn.h"
#include "patients/PatientContext.h"
#include "support/RevenueRows.h"
#include "support/WhileModal.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

class frmAssessmentTest : public AssessmentGround {
  protected:
    /// What the list of cash patients is answered for a text.
    void ExpectCashPatients(const QString& text, const QString& kind) {
        gateway.Expect(GetCashPatientCommand(text, kind),
                       Rows({u"ADM. #"_s, u"HOSP. #"_s, u"PATIENT NAME"_s, u"ADM. DATE"_s, u"AdmissionNum"_s},
                            {{u"10231B"_s, u"100090"_s, u"CRUZ, EVA UY"_s, Value(), u"10231B"_s}}));
    }
};

TEST_F(frmAssessmentTest, HasAHeadingForATitleAndAPictureOnItsSearch) {
    const auto& screen = Open();
    EXPECT_EQ(screen.windowTitle(), QString());
    EXPECT_EQ(Find<QLabel>(Find<QWidget>(screen, "Picture1"), "Label1").text(), u"Assessment Entry     "_s);
    EXPECT_FALSE(Button("cmdSearch").icon().isNull());
}

TEST_F(frmAssessmentTest, EachInputIsNamedForTheEarToo) {
    Open();
    const std::vector<std::pair<const char*, QString>> names = {{"txtSname", u"Name "_s},
                                                                {"txtHospNum", u"Hospital No."_s},
                                                                {"txtIdnum", u"Admission No."_s},
                                                                {"txtGross", u"Total Amount"_s}};
    for (const auto& [name, spoken] : names)
        EXPECT_EQ(Box(name).accessibleName(), spoken);
    for (const char* name : {"txtDoctorID", "txtDoctor"})
        EXPECT_FALSE(Box(name).accessibleName().isEmpty()) << name;
    for (const char* name : {"cmdSearch", "cmdDoctor"})
        EXPECT_FALSE(Button(name).accessibleName().isEmpty()) << name;
}

TEST_F(frmAssessmentTest, LoadSetsTheGridUpAndWritesNoTotal) {
    Open();
    EXPECT_EQ(Cells().Rows(), 9);
    EXPECT_EQ(Cells().Cols(), 13);
    EXPECT_EQ(Cells().TextMatrix(0, 4), u"Price"_s);
    EXPECT_EQ(Cells().TextMatrix(0, 5), u"Quantity"_s);
    EXPECT_EQ(Box("txtGross").text(), QString());
}

TEST_F(frmAssessmentTest, LinesCanBeKeyedOnceTheListHasEnabledThem) {
    auto& screen = Open();
    EXPECT_FALSE(Frame("fraExams").isEnabled());
    Box("txtSname").setText(u"CRUZ"_s);
    EXPECT_FALSE(Frame("fraExams").isEnabled());
    screen.EnableExams();
    EXPECT_TRUE(Frame("fraExams").isEnabled());
}

TEST_F(frmAssessmentTest, NoPatientTypeIsOnAtTheStartWhereALetterStandsAndItGoesOnStanding) {
    for (const QString& letter : {u"I"_s, u"O"_s, u"W"_s}) {
        gPatientType = letter;
        const auto& screen = Open();
        for (int i = 0; i < 3; ++i)
            EXPECT_FALSE(screen.PatientTypeOn(i)) << i;
        EXPECT_EQ(gPatientType, letter);
        Screens::Unload<frmAssessment>();
    }
}

TEST_F(frmAssessmentTest, BeforeAnyLetterStandsTheFirstPatientTypeIsOn) {
    for (const QString& letter : {QString(), u"X"_s, u"IO"_s, u"i"_s}) {
        gPatientType = letter;
        const auto& screen = Open();
        EXPECT_TRUE(screen.PatientTypeOn(0)) << letter.toStdString();
        EXPECT_EQ(gPatientType, u"I"_s);
        Screens::Unload<frmAssessment>();
    }
}

TEST_F(frmAssessmentTest, PatientTypeSetsTheLetter) {
    const auto& screen = Open();
    for (const auto& [index, letter] : {std::pair(2, u"W"_s), {0, u"I"_s}, {1, u"O"_s}}) {
        Click(Type(index));
        EXPECT_EQ(gPatientType, letter);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(screen.PatientTypeOn(i), i == index) << i;
    }
}

TEST_F(frmAssessmentTest, PatientTypeIsChosenByTheKeyboardToo) {
    Open();
    EXPECT_TRUE(Type(0).hasFocus());
    Press(Type(0), Qt::Key_Space);
    EXPECT_EQ(gPatientType, u"I"_s);
    Press(Type(0), Qt::Key_Down);
    EXPECT_EQ(gPatientType, u"O"_s);
    Press(Type(1), Qt::Key_Down);
    EXPECT_EQ(gPatientType, u"W"_s);
}

TEST_F(frmAssessmentTest, SearchHandsTheNameOverAsItStandsAndOpensTheListModally) {
    Open();
    Click(Type(2));
    Box("txtSname").setText(u" Cruz "_s);
    ExpectCashPatients(u"Cruz"_s, u"3"_s);
    bool opened = false;
    WhileModal([&opened](Form& list) {
        opened = &list == &Screens::Get<frmCashWalkIn>();
        EXPECT_EQ(gCashSearchText, u" Cruz "_s);
    });
    Click(Button("cmdSearch"));
    EXPECT_TRUE(opened);
}

TEST_F(frmAssessmentTest, EnterInTheNameOpensTheListAndThePickLeadsToTheGrid) {
    gRoomClass = u"C"_s;
    Open();
    Click(Type(1));
    Box("txtSname").setFocus();
    ::Type(Box("txtSname"), u"cruz"_s);
    EXPECT_EQ(Box("txtSname").text(), u"CRUZ"_s);
    ExpectCashPatients(u"CRUZ"_s, u"2"_s);
    WhileModal([](Form& list) { Press(Find<FlexGrid>(list, "MSHFlexCash"), Qt::Key_Return); });
    Press(Box("txtSname"), Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(Box("txtSname").text(), u"CRUZ, EVA UY"_s);
    EXPECT_EQ(Box("txtHospNum").text(), u"100090"_s);
    EXPECT_EQ(Box("txtIdnum").text(), u"10231B"_s);
    EXPECT_EQ(gRoomClass, u"A"_s);
    EXPECT_TRUE(Frame("fraExams").isEnabled());
    EXPECT_TRUE(Box("txtEntry").hasFocus()) << "the grid hands the focus to its editor";
    EXPECT_EQ(std::pair(Cells().Row(), Cells().Col()), std::pair(1, 1));
}

TEST_F(frmAssessmentTest, ListClosedWithoutAPickLeavesTheFocusInTheName) {
    Open();
    Click(Type(1));
    Box("txtSname").setFocus();
    ExpectCashPatients(QString(), u"2"_s);
    WhileModal([](Form& list) { Click(Find<QPushButton>(list, "Command1")); });
    Press(Box("txtSname"), Qt::Key_Return);
    RunEvents();
    EXPECT_FALSE(Frame("fraExams").isEnabled());
    EXPECT_TRUE(Box("txtSname").hasFocus());
}

TEST_F(frmAssessmentTest, OtherKeysInTheNameOpenNoList) {
    Open();
    ::Type(Box("txtSname"), u"ñ"_s);
    EXPECT_EQ(Box("txtSname").text(), u"Ñ"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
}

TEST_F(frmAssessmentTest, ListOpensOverTheModalAssessmentAndGivesItBack) {
    ExpectCashPatients(u"CRUZ"_s, u"3"_s);
    bool returned = false;
    WhileModal([&returned](Form& assessment) {
        Activate(assessment);
        Click(Type(2));
        Box("txtSname").setFocus();
        ::Type(Box("txtSname"), u"cruz"_s);
        WhileModal([](Form& list) { Press(Find<FlexGrid>(list, "MSHFlexCash"), Qt::Key_Return); });
        Press(Box("txtSname"), Qt::Key_Return);
        RunEvents();
        returned = QApplication::activeModalWidget() == &assessment && Form::Active() == &assessment;
        EXPECT_TRUE(Box("txtEntry").hasFocus());
    });
    Screens::Get<frmAssessment>().ShowModal();
    EXPECT_TRUE(returned);
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
}

TEST_F(frmAssessmentTest, DoctorsCodeIsLookedUpAndTabIsSent) {
    listing->doctor = {u"D003"_s, u"CASTAÑEDA"_s, u"LUIS"_s, u"PEÑA"_s};
    listing->answers = {true};
    OpenWithPatient();
    Box("txtDoctorID").clear();
    Box("txtDoctorID").setFocus();
    ::Type(Box("txtDoctorID"), u"d3"_s);
    EXPECT_TRUE(listing->searches.empty());
    Press(Box("txtDoctorID"), Qt::Key_Return);
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u"d3"_s, ListingKind::kDoctor, u""_s}}));
    EXPECT_TRUE(listing->searchMode);
    EXPECT_EQ(Box("txtDoctor").text(), u"DR. LUIS CASTAÑEDA"_s);
    EXPECT_EQ(Box("txtDoctorID").text(), u"D003"_s);
    EXPECT_TRUE(Box("txtDoctorID").hasFocus());
    RunEvents();
    EXPECT_TRUE(Box("txtEntry").hasFocus());
}

TEST_F(frmAssessmentTest, UnknownDoctorsCodeDoesNothing) {
    OpenWithPatient();
    Box("txtDoctorID").setText(u"QQ"_s);
    Box("txtDoctorID").setFocus();
    Press(Box("txtDoctorID"), Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(Box("txtDoctorID").text(), u"QQ"_s);
    EXPECT_EQ(Box("txtDoctor").text(), u"DR. LUIS CASTAÑEDA"_s);
    EXPECT_FALSE(Box("txtDoctor").isEnabled());
    EXPECT_TRUE(Box("txtDoctorID").hasFocus());
}

TEST_F(frmAssessmentTest, PickerOfDoctorsSendsNoTab) {
    listing->answers = {true};
    Open();
    Click(Button("cmdDoctor"));
    RunEvents();
    EXPECT_TRUE(Button("cmdDoctor").hasFocus());
}

const Message kCloseQuestion{.text = u"Are you sure to close this program?"_s,
                             .icon = MsgIcon::Question,
                             .title = u"OPD Registration System"_s,
                             .buttons = MsgButtons::OkCancel};

TEST_F(frmAssessmentTest, ExitAsksAndOkUnloadsTheScreenAlone) {
    OpenWithPatient();
    gLineCount = gLineCount2 = 4;
    messages.Expect(kCloseQuestion, MsgAnswer::Ok);
    Click(Button("cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
    EXPECT_EQ(gLineCount, 0);
    EXPECT_EQ(gLineCount2, 0);
}

TEST_F(frmAssessmentTest, CancelAtTheCloseQuestionKeepsTheLines) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s});
    messages.Expect(kCloseQuestion, MsgAnswer::Cancel);
    Click(Button("cmdClose"));
    ASSERT_TRUE(Screens::IsLoaded<frmAssessment>());
    EXPECT_TRUE(Screens::Get<frmAssessment>().isVisible());
    EXPECT_EQ(Cells().TextMatrix(1, 3), u"CLEANING"_s);
}

TEST_F(frmAssessmentTest, FreshScreenAfterAnUnloadHoldsNothingOfThePatientBefore) {
    auto& screen = OpenWithPatient();
    Click(Type(2));
    PutLine(1, {u"HC"_s, u"S1"_s});
    screen.Unload();
    Open();
    EXPECT_EQ(Cells().TextMatrix(1, 1), QString());
    EXPECT_EQ(Box("txtSname").text(), QString());
    EXPECT_FALSE(Type(2).isChecked());
    EXPECT_FALSE(Frame("fraExams").isEnabled());
}

TEST_F(frmAssessmentTest, ReturnFromAnotherScreenKeepsALongGrid) {
    auto& screen = OpenWithPatient();
    Cells().SetRows(12);
    PutLine(11, {u"XR"_s, u"KEPT"_s});
    Screens::Get<Form>().Show();
    screen.Show();
    EXPECT_EQ(Cells().Rows(), 12);
    EXPECT_EQ(Cells().TextMatrix(11, 2), u"KEPT"_s);
}

TEST_F(frmAssessmentTest, FirstEnterAtTheEndOfTheLastLineIsAbsorbedAndTheSecondAddsALine) {
    OpenWithPatient();
    Cells().SetCell(8, Column::kAmount);
    Grid().setFocus();
    Press(Box("txtEntry"), Qt::Key_Return);
    EXPECT_EQ(Cells().Rows(), 9);
    Press(Box("txtEntry"), Qt::Key_Return);
    EXPECT_EQ(Cells().Rows(), 10);
}

TEST_F(frmAssessmentTest, CodeIsCheckedThroughTheScreen) {
    const auto& screen = OpenWithPatient();
    PutLine(1, {u"HD"_s, u"G1"_s});
    PutLine(2, {u"HD"_s, u""_s});
    Cells().SetRow(2);
    EXPECT_TRUE(screen.Check_Code(u"G1"_s));
    EXPECT_FALSE(screen.Check_Code(u"G2"_s));
}

TEST_F(frmAssessmentTest, NormalLineGoesFromDepartmentByCodePriceAndQuantityToAmountAndTotal) {
    gRoomClass = u"C"_s;
    listing->service.ResultCode = u"S1"_s;
    listing->service.OtherRevenue = u"CLEANING"_s;
    listing->service.Rates = {101, 102, 103};
    listing->answers = {true};
    OpenWithPatient();
    Grid().setFocus();
    auto& editor = Box("txtEntry");
    std::vector<int> columns;
    ExpectExact(gateway, {u"EAR CARE"_s, u"HC"_s});
    for (const QString& keyed : {u"hc"_s, u"s1"_s, QString(), u"2"_s, QString()}) {
        columns.push_back(Cells().Col());
        ::Type(editor, keyed);
        Press(editor, Qt::Key_Return);
    }
    EXPECT_EQ(columns, (std::vector<int>{1, 2, 4, 5, 6}));
    EXPECT_EQ(std::pair(Cells().Row(), Cells().Col()), std::pair(2, 1));
    EXPECT_EQ(Cells().TextMatrix(1, Column::kAmount), u"206.00"_s);
    EXPECT_EQ(Box("txtGross").text(), u"206.00"_s);
    EXPECT_EQ(gLineCount, 1);
}

TEST_F(frmAssessmentTest, TabGoesDownTheOrderOfWork) {
    OpenWithPatient();
    EXPECT_TRUE(Type(0).hasFocus());
    std::vector<QString> order;
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.push_back(QApplication::focusWidget()->objectName());
    }
    // The options pass the focus on as a group, and the grid to its editor.
    EXPECT_EQ(order, (std::vector<QString>{u"txtSname"_s, u"txtDoctorID"_s, u"txtEntry"_s, u"cmdSave"_s,
                                           u"cmdPrint"_s, u"cmdClose"_s, u"cmdSearch"_s, u"cmdDoctor"_s}));
}
