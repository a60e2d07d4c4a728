#include "maintenance/commands.h"
#include "maintenance/ReprintGround.h"
#include "support/FakeWorkspace.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QTest>

using namespace Qt::StringLiterals;

using frmReprintTest = ReprintGround;

TEST_F(frmReprintTest, BeginsWithInPatientsAndNothingToPrint) {
    Open();
    EXPECT_EQ(PatientCode().count(), 2);
    EXPECT_EQ(PatientCode().itemText(0), u"Inpatient"_s);
    EXPECT_EQ(PatientCode().itemText(1), u"Outpatient"_s);
    EXPECT_EQ(PatientCode().currentIndex(), 0);
    EXPECT_FALSE(PrintButton().isEnabled());
}

TEST_F(frmReprintTest, EachActivationMovesItToTheTopLeftCorner) {
    FakeWorkspace workspace;
    workspace.show();
    auto& screen = Screens::Get<frmReprint>();
    screen.Show();
    QMdiSubWindow& frame = *workspace.Area()->subWindowList().front();
    EXPECT_EQ(frame.pos(), QPoint(0, 0));
    frame.move(60, 70);
    Form other;
    other.Show();
    EXPECT_EQ(frame.pos(), QPoint(60, 70));
    screen.Show();
    EXPECT_EQ(frame.pos(), QPoint(0, 0));
    Screens::Clear();
}

struct CodeKeyCase {
    const char* name;
    QString key;
    int before;
    int after;
    bool movesOn;
};

class CodeKeyTest : public frmReprintTest, public testing::WithParamInterface<CodeKeyCase> {};

INSTANTIATE_TEST_SUITE_P(Keys, CodeKeyTest,
                         testing::Values(CodeKeyCase{"CapitalI", u"I"_s, 1, 0, true},
                                         CodeKeyCase{"SmallI", u"i"_s, 1, 0, true},
                                         CodeKeyCase{"CapitalO", u"O"_s, 0, 1, true},
                                         CodeKeyCase{"SmallO", u"o"_s, 0, 1, true},
                                         CodeKeyCase{"IWhereItStands", u"I"_s, 0, 0, true},
                                         CodeKeyCase{"AnotherLetter", u"x"_s, 1, 1, false},
                                         CodeKeyCase{"Digit", u"1"_s, 0, 0, false}),
                         CaseName());

TEST_P(CodeKeyTest, InThePatientCode) {
    Open();
    PatientCode().setCurrentIndex(GetParam().before);
    PatientCode().setFocus();
    Type(PatientCode(), GetParam().key);
    EXPECT_EQ(PatientCode().currentIndex(), GetParam().after);
    EXPECT_EQ(Number().hasFocus(), GetParam().movesOn);
}

TEST_F(frmReprintTest, EnterInThePatientCodeMovesToTheNumber) {
    Open();
    PatientCode().setCurrentIndex(1);
    PatientCode().setFocus();
    Press(PatientCode(), Qt::Key_Return);
    EXPECT_TRUE(Number().hasFocus());
    EXPECT_EQ(PatientCode().currentIndex(), 1);
}

TEST_F(frmReprintTest, KeysInTheNumberAreRaisedAndSetTheHourglass) {
    Open();
    Type(Number(), u"104b"_s);
    EXPECT_EQ(Number().text(), u"104B"_s);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_TRUE(personFinder->validated.empty());
}

TEST_F(frmReprintTest, InPatientFillsTheBoxesAndTheGrid) {
    Open();
    Number().setText(u"typed"_s);
    ExpectCharges(u"104233"_s, {line});
    Press(Number(), Qt::Key_Return);
    EXPECT_EQ(personFinder->validated, std::vector<QString>{u"typed"_s});
    EXPECT_EQ(Number().text(), u"104233"_s);
    EXPECT_EQ(Box("txtHospNum").text(), u"100085"_s);
    EXPECT_EQ(Box("txtLastName").text(), u"DELA CRUZ  "_s);
    EXPECT_EQ(Box("txtFirstName").text(), u"JUAN "_s);
    EXPECT_EQ(Box("txtMiddleName").text(), u"PEÑA   "_s);
    EXPECT_EQ(Row(0), QStringList({u"REF. #"_s, u"DATE"_s, u"CODE"_s, u"DESCRIPTION"_s, u"QTY"_s, u"AMOUNT"_s,
                                   u"ENCODER"_s, u"REVENUEID"_s}));
    EXPECT_EQ(Row(1), QStringList({u"H1042C"_s, u"11/20/2026 02:05PM"_s, u"HC001"_s, u"TREATMENT"_s, u"2"_s,
                                   u"2800.50"_s, u"CLERK"_s, u"HC"_s}));
    EXPECT_TRUE(PrintButton().isEnabled());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_TRUE(Grid().hasFocus());
    EXPECT_TRUE(gateway.Openings().empty()) << "the charges are executed";
}

TEST_F(frmReprintTest, GridHasItsWidths) {
    OpenPatient({line});
    std::vector<int> widths;
    for (int col = 1; col <= 8; ++col)
        widths.push_back(Grid().ColWidth(col));
    EXPECT_EQ(widths, (std::vector<int>{1000, 2000, 1000, 3000, 1000, 1000, 1000, 500}));
}

TEST_F(frmReprintTest, NumbersStandOnTheRight) {
    OpenPatient({line});
    const auto& cells = Grid().Cells();
    for (int col = 1; col < cells.Cols(); ++col) {
        const auto alignment =
            cells.data(cells.index(0, col - 1), Qt::TextAlignmentRole).value<Qt::Alignment>();
        EXPECT_EQ(alignment.testFlag(Qt::AlignRight), col == 5 || col == 6) << col;
    }
}

TEST_F(frmReprintTest, NullDescriptionAndZeroNumbersAreEmpty) {
    ReprintLine bare = line;
    bare.description = Value();
    bare.quantity = 0;
    bare.amount = u"0.0000"_s;
    OpenPatient({bare});
    EXPECT_EQ(Row(1).mid(3, 3), QStringList({u""_s, u""_s, u""_s}));
}

TEST_F(frmReprintTest, NumberThatIsNotZeroIsShownEvenWhereItRoundsToZero) {
    std::vector<ReprintLine> lines(3, line);
    lines[0].quantity = 0.4;
    lines[0].amount = u"0.0040"_s;
    lines[1].quantity = 0.5;
    lines[1].amount = u"0.0050"_s;
    lines[2].quantity = 2.5;
    lines[2].amount = u"1.0050"_s;
    OpenPatient(lines);
    EXPECT_EQ(Row(1).mid(4, 2), QStringList({u"0"_s, u"0.00"_s}));
    EXPECT_EQ(Row(2).mid(4, 2), QStringList({u"1"_s, u"0.01"_s}));
    EXPECT_EQ(Row(3).mid(4, 2), QStringList({u"3"_s, u"1.01"_s}));
}

TEST_F(frmReprintTest, MorningHasNoBlankBeforeItsAM) {
    ReprintLine morning = line;
    morning.moment = DateTime::FromFields({2026, 1, 2, 0, 7, 59, 0}).value();
    OpenPatient({morning});
    EXPECT_EQ(Row(1)[1], u"01/02/2026 12:07AM"_s);
}

TEST_F(frmReprintTest, NegativeLineShowsItsSign) {
    ReprintLine reversal = line;
    reversal.quantity = -2;
    reversal.amount = u"-2800.5000"_s;
    OpenPatient({reversal});
    EXPECT_EQ(Row(1).mid(4, 2), QStringList({u"-2"_s, u"-2800.50"_s}));
}

TEST_F(frmReprintTest, NullWhereverALineMustHaveAValueFails) {
    const std::vector<QString> names = {u"RefNum"_s,   u"TransDate"_s, u"ItemID"_s, u"Description"_s,
                                        u"Quantity"_s, u"Amount"_s,    u"UserId"_s, u"RevenueID"_s};
    for (size_t null = 0; null < names.size(); ++null) {
        std::vector<Value> row = {u"H1042C"_s, DateTime(), u"HC001"_s, u"TREATMENT"_s,
                                  2,           1,          u"CLERK"_s, u"HC"_s};
        row[null] = Value();
        Open();
        Number().setText(u"104233"_s);
        gateway.Expect(ChargesByPatientCommand(u"104233"_s), Rows(names, {row}));
        Press(Number(), Qt::Key_Return);
        EXPECT_EQ(TakeFailure(), names[null] == u"Description"_s ? 0 : RunTime::kInvalidUseOfNull)
            << names[null].toStdString();
    }
}

TEST_F(frmReprintTest, FailingCommandLeavesTheLinesOfThePatientBefore) {
    OpenPatient({line, line});
    gateway.ExpectFailure(ChargesByPatientCommand(u"104233"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    Press(Number(), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_EQ(Cells().Rows(), 3);
    EXPECT_EQ(Row(1)[0], u"H1042C"_s);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(frmReprintTest, UnknownInPatientDisablesPrintAndLeavesTheRestAndTheHourglass) {
    OpenPatient({line});
    personFinder->hasAdmission = false;
    Number().setText(u"999999"_s);
    Press(Number(), Qt::Key_Return);
    EXPECT_FALSE(PrintButton().isEnabled());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_EQ(Number().text(), u"999999"_s);
    EXPECT_EQ(Box("txtLastName").text(), u"DELA CRUZ  "_s);
    EXPECT_EQ(Row(1)[0], u"H1042C"_s);
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmReprintTest, PatientWithoutChargesLeavesAnEmptyGridAndADisabledPrint) {
    OpenPatient({line, line});
    Number().setFocus();
    ExpectCharges(u"104233"_s, {});
    Press(Number(), Qt::Key_Return);
    EXPECT_FALSE(PrintButton().isEnabled());
    EXPECT_EQ(Row(0)[0], u"REF. #"_s);
    for (int row = 1; row < Cells().Rows(); ++row)
        EXPECT_EQ(Row(row).join(QString()), u""_s);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_TRUE(Grid().hasFocus());
}

TEST_F(frmReprintTest, ShorterListCutsTheRowsOfTheOneBefore) {
    OpenPatient({line, line, line});
    EXPECT_EQ(Cells().Rows(), 4);
    ExpectCharges(u"104233"_s, {line});
    Press(Number(), Qt::Key_Return);
    EXPECT_EQ(Cells().Rows(), 2);
}

TEST_F(frmReprintTest, OutpatientWithoutASearchFails) {
    Open();
    PatientCode().setCurrentIndex(1);
    Number().setText(u"104233B"_s);
    Press(Number(), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
    EXPECT_TRUE(personFinder->validated.empty());
}

TEST_F(frmReprintTest, OutpatientOfASearchFillsTheBoxesAndTheGrid) {
    SetOutpatient();
    Open();
    PatientCode().setCurrentIndex(1);
    Number().setText(u"104"_s);
    ExpectCharges(u"104233B"_s, {line});
    Press(Number(), Qt::Key_Return);
    EXPECT_EQ(outpatient->validated, std::vector<QString>{u"104"_s});
    EXPECT_EQ(Number().text(), u"104233B"_s);
    EXPECT_EQ(Box("txtHospNum").text(), u"100482"_s);
    EXPECT_EQ(Box("txtLastName").text(), u"SANTOS "_s);
    EXPECT_EQ(Box("txtFirstName").text(), u" EVA "_s);
    EXPECT_EQ(Box("txtMiddleName").text(), u"LIM "_s);
    EXPECT_TRUE(PrintButton().isEnabled());
    EXPECT_TRUE(Grid().hasFocus());
}

TEST_F(frmReprintTest, UnknownOutpatientLeavesPrintAsItIs) {
    OpenPatient({line});
    SetOutpatient();
    outpatient->found = false;
    PatientCode().setCurrentIndex(1);
    Press(Number(), Qt::Key_Return);
    EXPECT_TRUE(PrintButton().isEnabled());
    EXPECT_EQ(Box("txtLastName").text(), u"DELA CRUZ  "_s);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(frmReprintTest, PrintFollowsTheSlipNumberOfTheCurrentRow) {
    ReprintLine nameless = line;
    nameless.slip = u""_s;
    OpenPatient({line, nameless});
    ClickRow(2);
    EXPECT_FALSE(PrintButton().isEnabled());
    Press(Grid(), Qt::Key_Up);
    EXPECT_TRUE(PrintButton().isEnabled());
    ClickRow(2);
    EXPECT_FALSE(PrintButton().isEnabled());
    DoubleClick(*Grid().viewport(), PlaceOf(2));
    EXPECT_TRUE(gateway.IsDone()) << "a double click does nothing while Print is disabled";
}

TEST_F(frmReprintTest, MoveToAnotherColumnOfTheSameRowEnablesPrintToo) {
    OpenPatient({line});
    PrintButton().setEnabled(false);
    Press(Grid(), Qt::Key_Right);
    ASSERT_EQ(Cells().Row(), 1);
    ASSERT_EQ(Cells().Col(), 2);
    EXPECT_TRUE(PrintButton().isEnabled());
}

TEST_F(frmReprintTest, ExitClosesWithoutAQuestion) {
    Open();
    Click(Close());
    EXPECT_FALSE(Screens::IsLoaded<frmReprint>());
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmReprintTest, EscapeClosesWithoutAQuestion) {
    Open();
    Press(Number(), Qt::Key_Escape);
    EXPECT_FALSE(Screens::IsLoaded<frmReprint>());
    EXPECT_TRUE(messages.Shown().empty());
}
