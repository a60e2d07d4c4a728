#include "charges/AssessmentGround.h"
#include "charges/commands.h"
#include "components/shared.h"
#include "reports/commands.h"
#include "reports/Reports.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/slip/SlipPrint.h"
#include "text/RunTimeError.h"
#include "toolkit/MousePointer.h"

using namespace Qt::StringLiterals;

namespace {

const Message kNoName{
    .text = u"Please enter the patients name."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};
const Message kNoExam{
    .text = u"Please Enter type of Exam."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};

constexpr auto kBump =
    "UPDATE BILLING..tbAssessmentNum SET [AssessmentNum]=5018 WHERE [AssessmentNum]=5017"_L1;

} // namespace

class SaveAssessmentTest : public AssessmentGround {
  protected:
    void ExpectCounter() {
        gateway.Expect(AssessmentCounterCommand(), Rows({u"AssessmentNum"_s}, {{5017}}));
        gateway.Expect(kBump);
    }

    /// An assessed line of the patient of OpenWithPatient.
    static AssessmentLine Line(const QString& code, const QString& department, const QString& quantity,
                               const QString& amount) {
        return {.number = u"5017"_s,
                .patientName = u"CRUZ, JUAN SY"_s,
                .code = code,
                .department = department,
                .quantity = quantity,
                .amount = amount,
                .userCode = u"NURSE"_s,
                .hospitalNumber = u"100085"_s,
                .visitNumber = u"10231B"_s,
                .requestingDoctorCode = u"D003"_s,
                .requestingDoctorName = u"DR. LUIS CASTAÑEDA"_s};
    }
    /// The command for such a line.
    static QString Assessed(const QString& code, const QString& department, const QString& quantity,
                            const QString& amount) {
        return AssessmentCommand(Line(code, department, quantity, amount));
    }
    void ExpectDumps(const QString& code, const QString& particular, const QString& quantity,
                     const QString& price, const QString& amount, const QString& department) {
        const AssessmentPrintLine line = {.code = code,
                                          .particular = particular,
                                          .quantity = quantity,
                                          .price = price,
                                          .amount = amount,
                                          .department = department,
                                          .userCode = u"NURSE"_s};
        gateway.Expect(GlobalDumpChargeSlipCommand(line));
        gateway.Expect(DumpChargeSlipCommand(line));
    }
    void ExpectPackage(const std::vector<std::vector<Value>>& items) {
        gateway.Expect(PackageCommand(u"PKG01"_s),
                       Rows({u"RevenueID"_s, u"ItemID"_s, u"Quantity"_s, u"Amount"_s}, items));
    }

    bool Save() { return Screens::Get<frmAssessment>().SaveAssessment(number); }
    /// The number of the failure that the save raises, 0 for none.
    int SaveFails() {
        return ErrorOf([this] { Save(); });
    }

    static void Print() { Click(Button("cmdPrint")); }

    QString number = u"untouched"_s;
};

TEST_F(SaveAssessmentTest, SendsCounterBumpAndOneCommandForEachLineInThisOrder) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"2"_s, u"202.00"_s});
    PutLine(2, {u"XR"_s, u"X7"_s, u"CHEST PA"_s, u"350.00"_s, u"1"_s, u"350.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"2"_s, u"202.00"_s));
    gateway.Expect(Assessed(u"X7"_s, u"XR"_s, u"1"_s, u"350.00"_s));
    EXPECT_TRUE(Save());
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(number, u"5017"_s);
    EXPECT_EQ(gSlipNumber, u"5017"_s);
    EXPECT_TRUE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(SaveAssessmentTest, CounterIsOpenedDynamicOptimistic) {
    OpenWithPatient();
    PutLine(1, {u""_s, u""_s, u"EMPTIED"_s});
    ExpectCounter();
    Save();
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].command, AssessmentCounterCommand());
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_F(SaveAssessmentTest, NumberIsPlainWithoutPrefixOrDecimals) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(AssessmentCounterCommand(), Rows({u"AssessmentNum"_s}, {{Decimal{u"5017.0000"_s}}}));
    gateway.Expect(
        u"UPDATE BILLING..tbAssessmentNum SET [AssessmentNum]=5018 WHERE [AssessmentNum]=5017.0000"_s);
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    EXPECT_TRUE(Save());
    EXPECT_EQ(gSlipNumber, u"5017"_s);
}

TEST_F(SaveAssessmentTest, EmptyCounterTableFailsAndWritesNothing) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    gSlipNumber = u"5016"_s;
    gateway.Expect(AssessmentCounterCommand(), Rows({u"AssessmentNum"_s}));
    EXPECT_EQ(SaveFails(), RunTime::kNoCurrentRecord);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(gSlipNumber, u"5016"_s);
    EXPECT_TRUE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(SaveAssessmentTest, CounterTakenByAnotherWorkstationFailsBeforeAnythingIsAssessed) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(AssessmentCounterCommand(), Rows({u"AssessmentNum"_s}, {{5017}}));
    gateway.Expect(kBump, nullptr, 0);
    EXPECT_EQ(SaveFails(), RunTime::kRowChanged);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(gSlipNumber, u"5017"_s);
}

struct NameCase {
    const char* name;
    QString text;
};

class NoNameTest : public SaveAssessmentTest, public testing::WithParamInterface<NameCase> {};

INSTANTIATE_TEST_SUITE_P(Names, NoNameTest,
                         testing::Values(NameCase{"Empty", QString()}, NameCase{"Blanks", u"   "_s}),
                         CaseName());

TEST_P(NoNameTest, IsToldAndLeavesTheLinesTheRedrawAndThePointerAsTheyWere) {
    OpenWithPatient();
    Box("txtSname").setText(GetParam().text);
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    messages.Expect(kNoName);
    EXPECT_FALSE(Save());
    EXPECT_EQ(number, u"untouched"_s);
    EXPECT_TRUE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_EQ(Cells().TextMatrix(1, 3), u"CLEANING"_s);
    EXPECT_TRUE(gateway.Openings().empty());
}

TEST_F(SaveAssessmentTest, NameIsAskedForBeforeTheLines) {
    OpenWithPatient();
    Box("txtSname").clear();
    messages.Expect(kNoName);
    EXPECT_FALSE(Save());
    EXPECT_EQ(messages.Shown().size(), 1U);
}

TEST_F(SaveAssessmentTest, EmptyGridIsToldAndLeavesTheRedrawOffAndThePointerAsItWas) {
    OpenWithPatient();
    messages.Expect(kNoExam);
    EXPECT_FALSE(Save());
    EXPECT_FALSE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_EQ(number, u"untouched"_s);
    EXPECT_TRUE(gateway.Openings().empty());
    // A missing name leaves it off, and the next full save turns it on again.
    Box("txtSname").clear();
    messages.Expect(kNoName);
    EXPECT_FALSE(Save());
    EXPECT_FALSE(Grid().Redraw());
    Box("txtSname").setText(u"CRUZ, JUAN SY"_s);
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    EXPECT_TRUE(Save());
    EXPECT_TRUE(Grid().Redraw());
}

TEST_F(SaveAssessmentTest, FirstLineWithoutAParticularIsNoLineForTheTest) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u""_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    messages.Expect(kNoExam);
    EXPECT_FALSE(Save());
}

TEST_F(SaveAssessmentTest, ParticularWithoutADepartmentSpendsANumberForNothing) {
    OpenWithPatient();
    PutLine(1, {u""_s, u""_s, u"EMPTIED"_s});
    ExpectCounter();
    EXPECT_TRUE(Save());
    EXPECT_EQ(gSlipNumber, u"5017"_s);
}

TEST_F(SaveAssessmentTest, FilledLastLinePassesTheTestThoughTheFirstIsEmpty) {
    OpenWithPatient();
    PutLine(8, {u"HC"_s, u"S1"_s, u""_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, LinesWithoutADepartmentArePassedOverWhereverTheyStand) {
    OpenWithPatient();
    PutLine(1, {u""_s, u"S0"_s, u"EMPTIED"_s, u"1.00"_s, u"1"_s, u"1.00"_s});
    PutLine(3, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    PutLine(5, {u""_s, u"S2"_s, u"EMPTIED"_s, u"1.00"_s, u"1"_s, u"1.00"_s});
    PutLine(8, {u"XR"_s, u"X7"_s, u"CHEST"_s, u"350.00"_s, u"1"_s, u"350.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    gateway.Expect(Assessed(u"X7"_s, u"XR"_s, u"1"_s, u"350.00"_s));
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, DoctorsFeeIsWrittenWithAnEmptyQuantity) {
    OpenWithPatient();
    PutLine(1, {u"MD"_s, u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u""_s, u""_s, u"1500.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"D003"_s, u"MD"_s, u""_s, u"1500.00"_s));
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, WalkInWithoutNumbersIsSavedWithEmptyArguments) {
    OpenWithPatient();
    for (const char* box : {"txtHospNum", "txtIdnum"})
        Box(box).clear();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    AssessmentLine line = Line(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s);
    line.hospitalNumber = line.visitNumber = u""_s;
    gateway.Expect(AssessmentCommand(line));
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, NameAndDoctorsCodeAreTrimmedAndTheOtherTextsGoAsTheyStand) {
    OpenWithPatient();
    for (const char* box : {"txtSname", "txtHospNum", "txtIdnum", "txtDoctorID", "txtDoctor"})
        Box(box).setText(u"  X  "_s);
    PutLine(1, {u"HC"_s, u" S1 "_s, u"CLEANING"_s, u"101.00"_s, u" 1 "_s, u" 101.00 "_s});
    ExpectCounter();
    AssessmentLine line = Line(u" S1 "_s, u"HC"_s, u" 1 "_s, u" 101.00 "_s);
    line.patientName = line.requestingDoctorCode = u"X"_s;
    line.hospitalNumber = line.visitNumber = line.requestingDoctorName = u"  X  "_s;
    gateway.Expect(AssessmentCommand(line));
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, PackageLineIsReadAndNotSent) {
    OpenWithPatient();
    PutLine(1, {u"YP"_s, u"PKG01"_s, u"PACKAGE"_s, u"900.00"_s, u"1"_s, u"900.00"_s});
    PutLine(2, {u"yp"_s, u"P2"_s, u"OTHER"_s, u"10.00"_s, u"1"_s, u"10.00"_s});
    ExpectCounter();
    ExpectPackage({{u"HB"_s, u"M0002"_s, 2.0, 2034.0}});
    gateway.Expect(Assessed(u"P2"_s, u"yp"_s, u"1"_s, u"10.00"_s));
    EXPECT_TRUE(Save());
    EXPECT_TRUE(stockItem->entries.empty());
}

TEST_F(SaveAssessmentTest, PackageWithoutItemsLetsTheSaveGoOn) {
    OpenWithPatient();
    PutLine(1, {u"YP"_s, u" PKG01 "_s, u"PACKAGE"_s, u"900.00"_s, u"1"_s, u"900.00"_s});
    PutLine(2, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    ExpectPackage({});
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, PackageWithANullAmountFailsBehindTheLinesBeforeIt) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    PutLine(2, {u"YP"_s, u"PKG01"_s, u"PACKAGE"_s, u"900.00"_s, u"1"_s, u"900.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    ExpectPackage({{u"HB"_s, u"M0002"_s, 2.0, Value()}});
    EXPECT_EQ(SaveFails(), RunTime::kInvalidUseOfNull);
    EXPECT_EQ(gSlipNumber, u"5017"_s);
}

TEST_F(SaveAssessmentTest, ApostropheFailsInTheMiddleAndAPartialAssessmentStandsUnderASpentNumber) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    PutLine(2, {u"HC"_s, u"S'2"_s, u"TEST"_s, u"200.00"_s, u"1"_s, u"200.00"_s});
    PutLine(3, {u"HC"_s, u"S3"_s, u"NEVER SENT"_s, u"300.00"_s, u"1"_s, u"300.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    gateway.ExpectFailure(Assessed(u"S'2"_s, u"HC"_s, u"1"_s, u"200.00"_s),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    EXPECT_EQ(SaveFails(), 105);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(gSlipNumber, u"5017"_s);
    EXPECT_FALSE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(SaveAssessmentTest, SaveButtonPrintsNothingEmptiesTheNameAndUnloadsTheScreen) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    const QLineEdit& name = Box("txtSname");
    Click(Button("cmdSave"));
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
    EXPECT_EQ(name.text(), QString());
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_EQ(gSlipNumber, u"5017"_s);
}

class RefusedSaveTest : public SaveAssessmentTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Buttons, RefusedSaveTest, testing::Values("cmdSave", "cmdPrint"),
                         [](const auto& button) { return std::string(button.param); });

TEST_P(RefusedSaveTest, KeepsTheScreenAndTheNameAndPrintsNothing) {
    OpenWithPatient();
    messages.Expect(kNoExam);
    Click(Button(GetParam()));
    ASSERT_TRUE(Screens::IsLoaded<frmAssessment>());
    EXPECT_EQ(Box("txtSname").text(), u"CRUZ, JUAN SY"_s);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(SaveAssessmentTest, PrintButtonDumpsEachLineIntoTheEmptiedTableAfterTheSave) {
    const SlipPrint slip(programDirectory, u"AssessmentSlip.RPT"_s, 6);
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"2"_s, u"202.00"_s});
    PutLine(2, {u""_s, u"S2"_s, u"EMPTIED"_s, u"1.00"_s, u"1"_s, u"1.00"_s});
    PutLine(3, {u"YP"_s, u"PKG01"_s, u"PACKAGE"_s, u"900.00"_s, u"1"_s, u"900.00"_s});
    PutLine(8, {u"MD"_s, u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u""_s, u""_s, u"1500.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"2"_s, u"202.00"_s));
    ExpectPackage({});
    gateway.Expect(Assessed(u"D003"_s, u"MD"_s, u""_s, u"1500.00"_s));
    gateway.Expect(EmptyChargePrintCommand());
    ExpectDumps(u"S1"_s, u"CLEANING"_s, u"2"_s, u"101.00"_s, u"202.00"_s, u"HC"_s);
    ExpectDumps(u"PKG01"_s, u"PACKAGE"_s, u"1"_s, u"900.00"_s, u"900.00"_s, u"YP"_s);
    ExpectDumps(u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u""_s, u""_s, u"1500.00"_s, u"MD"_s);
    slip.Values(u"Print ChargeSlip"_s, Print);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(SaveAssessmentTest, PrintShowsTheSlipWithItsSixParametersAndUnloadsTheScreenAfterwards) {
    const SlipPrint slip(programDirectory, u"AssessmentSlip.RPT"_s, 6);
    OpenWithPatient();
    Box("txtSname").setText(u" CRUZ, JUAN SY "_s);
    PutLine(1, {u""_s, u""_s, u"EMPTIED"_s});
    ExpectCounter();
    gateway.Expect(EmptyChargePrintCommand());
    const std::vector<QString> values = slip.Values(u"Print ChargeSlip"_s, Print, [] {
        EXPECT_TRUE(Screens::IsLoaded<frmAssessment>());
        EXPECT_EQ(Box("txtSname").text(), u" CRUZ, JUAN SY "_s);
    });
    EXPECT_EQ(values, (std::vector<QString>{u"5017"_s, u" CRUZ, JUAN SY "_s, u"100085"_s, u"10231B"_s,
                                            u"OPD"_s, u"ANA REYES"_s}));
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(SaveAssessmentTest, MissingTemplateFailsAfterTheSaveAndTheDumps) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    gateway.Expect(EmptyChargePrintCommand());
    ExpectDumps(u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s, u"101.00"_s, u"HC"_s);
    Print();
    EXPECT_NE(TakeFailure(), 0);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(SaveAssessmentTest, ApostropheInAParticularFailsAmongTheDumpsWithTheAssessmentWritten) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"MENIERE'S TEST"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    gateway.Expect(EmptyChargePrintCommand());
    gateway.ExpectFailure(GlobalDumpChargeSlipCommand({.code = u"S1"_s,
                                                       .particular = u"MENIERE'S TEST"_s,
                                                       .quantity = u"1"_s,
                                                       .price = u"101.00"_s,
                                                       .amount = u"101.00"_s,
                                                       .department = {},
                                                       .userCode = u"NURSE"_s}),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    Print();
    EXPECT_EQ(TakeFailure(), 105);
    EXPECT_TRUE(Screens::IsLoaded<frmAssessment>());
}
