#include "components/shared.h"
#include "nursing/NursingRequestGround.h"
#include "patients/PatientContext.h"
#include "support/CaseName.h"
#include "support/WhileModal.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;

// A request on its way into the charge screen.

class ProcessRequestTest : public NursingRequestGround {
  protected:
    /// Double-clicks a request whose room has that class and whose exams are these.
    void Process(const Request& request, const std::vector<std::vector<QString>>& exams) {
        Open({request});
        ExpectRoom(request.at(18).ToText().trimmed(), {{u"C"_s}});
        ExpectExams(request.at(2).ToText(), exams);
        DoubleClickRow(1);
        EXPECT_TRUE(gateway.IsDone());
    }

    const std::vector<std::vector<QString>> twoExams = {
        {u"HC"_s, u"HC001"_s, u"HEMODIALYSIS"_s, u"1"_s, u"2800.00"_s, u"2800.00"_s, u"Y"_s, u"N"_s},
        {u"HC"_s, u"HC018"_s, u"REPROCESSING"_s, u"3"_s, u"350.00"_s, u"1050.00"_s, u"Y"_s, u"N"_s}};
};

TEST_F(ProcessRequestTest, FillsTheChargeScreen) {
    Process(OfCruz(), twoExams);
    const std::vector<std::pair<const char*, QString>> boxes = {{"txtPno", u"100085"_s},
                                                                {"txtId", u"700121"_s},
                                                                {"txtLastName", u"CRUZ"_s},
                                                                {"txtFirstName", u"JUANA"_s},
                                                                {"txtMiddleName", u"SY"_s},
                                                                {"txtRoom", u" 301-A "_s},
                                                                {"txtDateAdmitted", u"11/19/2026"_s},
                                                                {"txtDocID", u"D003"_s},
                                                                {"txtRequestingDoc", u"DR. LUIS CASTAÑEDA"_s},
                                                                {"txtAge", u"56"_s},
                                                                {"txtDob", u"02/03/1970"_s},
                                                                {"txtSex", u"FEMALE"_s},
                                                                {"txtDoctor", QString()},
                                                                {"txtDoctorID", QString()}};
    for (const auto& [name, text] : boxes)
        EXPECT_EQ(Box(name), text) << name;
    EXPECT_EQ(gRoomClass, u"C"_s);
}

TEST_F(ProcessRequestTest, ThePatientOfTheRequestIsTheOneInHandUntilAnotherIsTaken) {
    Process(OfCruz(), twoExams);
    auto& charges = Screens::Get<frmPostCharges>();
    const auto& message = Find<QLabel>(charges, "lblMessage");
    EXPECT_TRUE(message.text().startsWith(u"Enter moves on"_s)) << message.text().toStdString();
    Screens::Get<Form>().Show();
    gRoomClass = u"Z"_s;
    charges.Show();
    EXPECT_TRUE(message.text().startsWith(u"Another patient is in hand"_s)) << message.text().toStdString();
}

TEST_F(ProcessRequestTest, EnterDoesTheSameAsADoubleClick) {
    Open({{{2, u"1"_s}}, OfCruz()});
    Press(Grid(), Qt::Key_Down);
    ExpectRoom(u"301-A"_s, {{u"C"_s}});
    ExpectExams(u"700121"_s, twoExams);
    Press(Grid(), Qt::Key_Return);
    EXPECT_EQ(Box("txtId"), u"700121"_s);
    EXPECT_EQ(Box("txtLastName"), u"CRUZ"_s);
    EXPECT_EQ(Lines().TextMatrix(1, 2), u"HC001"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
}

TEST_F(ProcessRequestTest, AsksForTheRoomAndTheExamsDynamicOptimistic) {
    Process(OfCruz(), twoExams);
    ASSERT_EQ(gateway.Openings().size(), 3U);
    EXPECT_EQ(gateway.Openings()[1].command, RoomClassCommand(u"301-A"_s));
    EXPECT_EQ(gateway.Openings()[2].command, LoadExamCommand(u"700121"_s));
    for (const size_t i : {1U, 2U}) {
        EXPECT_EQ(gateway.Openings()[i].cursor, CursorType::Dynamic);
        EXPECT_EQ(gateway.Openings()[i].lock, LockType::Optimistic);
    }
}

TEST_F(ProcessRequestTest, TheSecondQuestionForTheExamsGoesThroughTheSharedConnection) {
    ScriptedGateway shared;
    gConnection = &shared;
    Open({OfCruz()});
    ExpectRoom(u"301-A"_s, {{u"C"_s}});
    gateway.Expect(LoadExamCommand(u"700121"_s), Exams({{u"HC"_s, u"FIRST"_s}}));
    shared.Expect(LoadExamCommand(u"700121"_s), Exams({{u"HC"_s, u"SECOND"_s}}));
    DoubleClickRow(1);
    EXPECT_TRUE(shared.IsDone());
    EXPECT_TRUE(shared.Openings().empty());
    EXPECT_EQ(Lines().TextMatrix(1, 2), u"SECOND"_s);
}

TEST_F(ProcessRequestTest, TheExamsBecomeTheLinesOfTheGrid) {
    Process(OfCruz(), twoExams);
    for (int row = 1; row <= 2; ++row) {
        for (int col = 1; col <= 8; ++col)
            EXPECT_EQ(Lines().TextMatrix(row, col), twoExams[size_t(row) - 1][size_t(col) - 1])
                << row << ' ' << col;
    }
    EXPECT_EQ(Lines().TextMatrix(3, 1), QString());
    EXPECT_EQ(Lines().Rows(), 9);
    EXPECT_EQ(Lines().Cols(), 13);
    EXPECT_EQ(Lines().TextMatrix(0, 4), u"Quantity"_s);
}

TEST_F(ProcessRequestTest, OfMoreThanEightExamsTheScreenKeepsEight) {
    std::vector<std::vector<QString>> exams;
    for (int exam = 1; exam <= 10; ++exam)
        exams.push_back({u"HC"_s, u"HC%1"_s.arg(exam)});
    Process(OfCruz(), exams);
    EXPECT_EQ(Lines().Rows(), 9);
    EXPECT_EQ(Lines().TextMatrix(1, 2), u"HC1"_s);
    EXPECT_EQ(Lines().TextMatrix(8, 2), u"HC8"_s);
}

TEST_F(ProcessRequestTest, RoomIsAskedForWithoutItsBlanksAlone) {
    Request request = OfCruz();
    request[18] = u" \t301-A "_s;
    Open({request});
    ExpectRoom(u"\t301-A"_s, {});
    ExpectExams(u"700121"_s, {});
    DoubleClickRow(1);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ProcessRequestTest, OtherColumnsKeepTheirBlanks) {
    Request request = OfCruz();
    request[1] = u" 100085 "_s;
    request[2] = u" 700121 "_s;
    request[3] = u" CRUZ "_s;
    request[4] = u" JUANA "_s;
    request[5] = u" SY "_s;
    request[16] = u" 56 "_s;
    request[19] = u" D003 "_s;
    Process(request, twoExams);
    EXPECT_EQ(gateway.Openings().back().command, LoadExamCommand(u" 700121 "_s));
    const std::vector<std::pair<const char*, QString>> boxes = {
        {"txtPno", u" 100085 "_s},      {"txtId", u" 700121 "_s},     {"txtLastName", u" CRUZ "_s},
        {"txtFirstName", u" JUANA "_s}, {"txtMiddleName", u" SY "_s}, {"txtAge", u" 56 "_s},
        {"txtDocID", u" D003 "_s}};
    for (const auto& [name, text] : boxes)
        EXPECT_EQ(Box(name), text) << name;
}

TEST_F(ProcessRequestTest, ADoubleClickBelowTheLastRowTakesTheCurrentRow) {
    Open({{{2, u"1"_s}}, OfCruz(), {{2, u"3"_s}}});
    Press(Grid(), Qt::Key_Down);
    ASSERT_EQ(Cells().Row(), 2);
    ExpectRoom(u"301-A"_s, {{u"C"_s}});
    ExpectExams(u"700121"_s, {});
    const QPoint belowLastRow(40, Grid().viewport()->height() - 10);
    ASSERT_EQ(Grid().rowAt(belowLastRow.y()), -1);
    DoubleClick(*Grid().viewport(), belowLastRow);
    EXPECT_EQ(Box("txtId"), u"700121"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
}

TEST_F(ProcessRequestTest, TheTotalIsNotComputed) {
    Process(OfCruz(), twoExams);
    EXPECT_EQ(Box("txtTAmount"), u"0.00"_s);
}

TEST_F(ProcessRequestTest, HidesTheEditorUntilACellOpens) {
    Process(OfCruz(), twoExams);
    EXPECT_FALSE(Editor().isVisibleTo(Editor().parentWidget()));
    auto& grid = Find<FlexGrid>(Charges(), "grdTable");
    ASSERT_TRUE(grid.isEnabled()) << "the patient enables the lines";
    grid.setFocus();
    EXPECT_TRUE(Editor().isVisible());
    EXPECT_EQ(Editor().text(), u"HC"_s);
}

TEST_F(ProcessRequestTest, PatientTypeAndChargeModeStayAsTheyAre) {
    gPatientType = u"O"_s;
    gChargeMode = u"List"_s;
    Process(OfCruz(), {});
    EXPECT_EQ(gPatientType, u"O"_s);
    EXPECT_EQ(gChargeMode, u"List"_s);
}

TEST_F(ProcessRequestTest, WhatARequestDoesNotTellStaysThatOfTheFormerPatient) {
    const std::vector<std::pair<QString, QString*>> texts = {{u"account"_s, &gAccountNumber},
                                                             {u"station"_s, &gStationName},
                                                             {u"hospital number"_s, &gHospitalNumber},
                                                             {u"id number"_s, &gIDNumber},
                                                             {u"room"_s, &gRoomID},
                                                             {u"admission"_s, &gAdmissionDate}};
    for (const auto& [name, text] : texts)
        *text = u"former "_s + name;
    gDoctor1 = u"former doctor"_s;
    Find<QLineEdit>(Charges(), "txtDoctor").setText(u"DR. FORMER"_s);
    Process(OfCruz(), twoExams);
    for (const auto& [name, text] : texts)
        EXPECT_EQ(*text, u"former "_s + name);
    EXPECT_EQ(gDoctor1, Value(u"former doctor"_s));
    EXPECT_EQ(Box("txtDoctor"), u"DR. FORMER"_s);
}

TEST_F(ProcessRequestTest, UnloadsTheQueueAndShowsTheChargeScreenNotModal) {
    Process(OfCruz(), twoExams);
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
    ASSERT_TRUE(Screens::IsLoaded<frmPostCharges>());
    EXPECT_TRUE(Charges().isVisible());
    EXPECT_FALSE(Charges().IsModal());
}

TEST_F(ProcessRequestTest, WithoutExamsTheGridGainsOneRowAndKeepsItsLines) {
    // An inactive screen is not set up anew before the end of the test.
    Charges().Show();
    Lines().SetTextMatrix(2, 3, u"KEYED BEFORE"_s);
    int rows = 0;
    Open({OfCruz()});
    ExpectRoom(u"301-A"_s, {{u"C"_s}});
    gateway.Expect(LoadExamCommand(u"700121"_s), Exams({}));
    QObject::connect(&Lines(), &QAbstractItemModel::rowsInserted, &workspace,
                     [&rows] { rows = std::max(rows, Lines().Rows()); });
    DoubleClickRow(1);
    EXPECT_EQ(rows, 10);
    EXPECT_EQ(Lines().TextMatrix(2, 3), u"KEYED BEFORE"_s);
    EXPECT_EQ(Lines().Rows(), 9) << "the activation cuts it back";
}

TEST_F(ProcessRequestTest, WithExamsTheGridGainsOneRowBehindThem) {
    Charges();
    int rows = 0;
    std::vector<int> seen;
    Open({OfCruz()});
    ExpectRoom(u"301-A"_s, {{u"C"_s}});
    ExpectExams(u"700121"_s, twoExams);
    QObject::connect(&Lines(), &QAbstractItemModel::modelReset, &workspace,
                     [&] { seen.push_back(rows = Lines().Rows()); });
    DoubleClickRow(1);
    ASSERT_GE(seen.size(), 2U);
    EXPECT_EQ(seen[0], 3);
    EXPECT_EQ(seen[1], 4);
}

TEST_F(ProcessRequestTest, WithoutExamsAnOpenEditorStaysVisible) {
    Charges().Show();
    Find<QLineEdit>(Charges(), "txtFirstName").setText(u"JUAN"_s);
    Find<FlexGrid>(Charges(), "grdTable").setFocus();
    ASSERT_TRUE(Editor().isVisible());
    Process(OfCruz(), {});
    EXPECT_TRUE(Editor().isVisibleTo(&Charges()));
}

TEST_F(ProcessRequestTest, WithExamsAnOpenEditorIsHidden) {
    Charges().Show();
    Find<QLineEdit>(Charges(), "txtFirstName").setText(u"JUAN"_s);
    Find<FlexGrid>(Charges(), "grdTable").setFocus();
    ASSERT_TRUE(Editor().isVisible());
    Find<QPushButton>(Charges(), "cmdPrint").setFocus();
    Process(OfCruz(), twoExams);
    EXPECT_FALSE(Editor().isVisibleTo(&Charges()));
    EXPECT_EQ(Lines().TextMatrix(1, 1), u"HC"_s);
}

TEST_F(ProcessRequestTest, RoomOnNoListEmptiesTheClass) {
    gRoomClass = u"B"_s;
    Open({OfCruz()});
    ExpectRoom(u"301-A"_s, {});
    ExpectExams(u"700121"_s, {});
    DoubleClickRow(1);
    EXPECT_EQ(gRoomClass, QString());
    EXPECT_EQ(Box("txtRoom"), u" 301-A "_s);
}

TEST_F(ProcessRequestTest, NullClassEndsTheProgramBeforeTheBoxesAreFilled) {
    gRoomClass = u"B"_s;
    Open({OfCruz()});
    ExpectRoom(u"301-A"_s, {{Value()}});
    DoubleClickRow(1);
    EXPECT_EQ(TakeFailure(), RunTime::kInvalidUseOfNull);
    EXPECT_EQ(gRoomClass, u"B"_s);
    EXPECT_EQ(Box("txtId"), u"700121"_s) << "the id number comes before everything else";
    EXPECT_EQ(Box("txtPno"), QString());
    EXPECT_TRUE(Screens::IsLoaded<frmNursingRequest>());
}

TEST_F(ProcessRequestTest, FailingExamsEndTheProgramWithTheBoxesFilled) {
    Open({OfCruz()});
    ExpectRoom(u"301-A"_s, {{u"C"_s}});
    gateway.ExpectFailure(LoadExamCommand(u"700121"_s), RunTimeError(208, u"Invalid object name"_s));
    DoubleClickRow(1);
    EXPECT_EQ(TakeFailure(), 208);
    EXPECT_EQ(Box("txtSex"), u"FEMALE"_s);
    EXPECT_EQ(gRoomClass, u"C"_s);
    EXPECT_FALSE(Charges().isVisible());
}

TEST_F(ProcessRequestTest, EmptyQueueOpensAnEmptyScreen) {
    gRoomClass = u"B"_s;
    Open({});
    EXPECT_EQ(Cells().Rows(), 2) << "a blank row";
    ExpectRoom(u""_s, {});
    ExpectExams(u""_s, {});
    DoubleClickRow(1);
    EXPECT_TRUE(gateway.IsDone());
    for (const char* name : {"txtPno", "txtId", "txtLastName", "txtFirstName", "txtMiddleName", "txtRoom",
                             "txtDateAdmitted", "txtDocID", "txtRequestingDoc", "txtAge", "txtDob"})
        EXPECT_EQ(Box(name), QString()) << name;
    EXPECT_EQ(Box("txtSex"), u"FEMALE"_s);
    EXPECT_EQ(gRoomClass, QString());
    EXPECT_TRUE(Charges().isVisible());
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
}

TEST_F(ProcessRequestTest, NullsOfTheQueueAreBlank) {
    Request request = OfCruz();
    request[15] = request[16] = request[20] = Value();
    Process(request, {});
    for (const char* name : {"txtDob", "txtAge", "txtRequestingDoc"})
        EXPECT_EQ(Box(name), QString()) << name;
}

TEST_F(ProcessRequestTest, BirthDateThatIsNoDateIsShownAsItStands) {
    Request request = OfCruz();
    request[15] = u"unknown"_s;
    Process(request, {});
    EXPECT_EQ(Box("txtDob"), u"unknown"_s);
}

TEST_F(ProcessRequestTest, BirthDateWrittenAsTextIsReadAsADate) {
    Request request = OfCruz();
    request[15] = u"Feb 3, 1970"_s;
    Process(request, {});
    EXPECT_EQ(Box("txtDob"), u"02/03/1970"_s);
}

struct LetterCase {
    const char* name;
    QString letter;
    QString shown;
};

class SexLetter : public ProcessRequestTest, public testing::WithParamInterface<LetterCase> {};

TEST_P(SexLetter, IsShownAsAWord) {
    Request request = OfCruz();
    request[13] = GetParam().letter;
    Process(request, {});
    EXPECT_EQ(Box("txtSex"), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Letters, SexLetter,
                         testing::Values(LetterCase{"M", u"M"_s, u"MALE"_s},
                                         LetterCase{"F", u"F"_s, u"FEMALE"_s},
                                         LetterCase{"SmallM", u"m"_s, u"FEMALE"_s},
                                         LetterCase{"MWithABlank", u"M "_s, u"FEMALE"_s},
                                         LetterCase{"Other", u"X"_s, u"FEMALE"_s},
                                         LetterCase{"Empty", u""_s, u"FEMALE"_s}),
                         CaseName());

class PatientLetter : public ProcessRequestTest, public testing::WithParamInterface<LetterCase> {};

TEST_P(PatientLetter, HasNoEffect) {
    Request request = OfCruz();
    request[23] = GetParam().letter;
    Process(request, {});
    EXPECT_EQ(Box("txtId"), u"700121"_s);
    EXPECT_EQ(Box("txtLastName"), u"CRUZ"_s);
}

INSTANTIATE_TEST_SUITE_P(Letters, PatientLetter,
                         testing::Values(LetterCase{"I", u"I"_s, {}}, LetterCase{"O", u"O"_s, {}},
                                         LetterCase{"Empty", u""_s, {}}),
                         CaseName());

// Opened as the main window opens it.

class ProcessModally : public ProcessRequestTest {
  protected:
    /// Opens the queue modally over whatever stands in the main window and picks its one request.
    void PickModally() {
        gateway.Expect(NurseRequestCommand(), Queue({OfCruz()}));
        WhileModal([this](Form&) {
            ExpectRoom(u"301-A"_s, {{u"C"_s}});
            ExpectExams(u"700121"_s, twoExams);
            DoubleClickRow(1);
        });
        Screens::Get<frmNursingRequest>().ShowModal();
        RunEvents();
    }
};

TEST_F(ProcessModally, TheChargeScreenComesToTheFront) {
    PickModally();
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(Form::Active(), &Charges());
    EXPECT_FALSE(Charges().IsModal());
    EXPECT_FALSE(Editor().isVisibleTo(&Charges()));
    EXPECT_EQ(Lines().TextMatrix(2, 2), u"HC018"_s);
}

/// Any other screen that the clerk had open.
class OtherScreen : public Form {
  public:
    QLineEdit* const box = new QLineEdit(this);
};

TEST_F(ProcessModally, TheChargeScreenComesToTheFrontOfTheScreenThatWasInUse) {
    auto& other = Screens::Get<OtherScreen>();
    other.Show();
    other.box->setFocus();
    RunEvents();
    ASSERT_TRUE(other.box->hasFocus());
    PickModally();
    EXPECT_EQ(Form::Active(), &Charges());
    EXPECT_EQ(workspace.Area()->activeSubWindow()->widget(), &Charges());
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(Charges().isAncestorOf(QApplication::focusWidget()));
}

TEST_F(ProcessModally, TheChargeScreenThatWasInUseTakesTheRequest) {
    Charges().Show();
    Find<QLineEdit>(Charges(), "txtFirstName").setText(u"JUAN"_s);
    Find<FlexGrid>(Charges(), "grdTable").setFocus();
    ASSERT_TRUE(Editor().hasFocus());
    Lines().SetTextMatrix(1, 1, u"OLD"_s);
    PickModally();
    EXPECT_EQ(Form::Active(), &Charges());
    EXPECT_EQ(Box("txtFirstName"), u"JUANA"_s);
    // The focus comes back to the grid, which opens the first of the new lines.
    for (int row = 1; row <= 2; ++row) {
        EXPECT_EQ(Lines().TextMatrix(row, 1), u"HC"_s);
        EXPECT_EQ(Lines().TextMatrix(row, 2), twoExams[size_t(row) - 1][1]);
    }
    EXPECT_TRUE(Editor().hasFocus());
    EXPECT_EQ(Editor().text(), u"HC"_s);
    EXPECT_EQ(Lines().Rows(), 9);
}
