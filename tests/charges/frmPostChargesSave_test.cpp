#include "charges/commands.h"
#include "charges/PostChargesGround.h"
#include "components/shared.h"
#include "patients/PatientContext.h"
#include "reports/Reports.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/slip/SlipPrint.h"
#include "text/Clock.h"
#include "text/RunTimeError.h"
#include "toolkit/MousePointer.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const Message kNothingToSave{
    .text = u"Please Enter type of Exam."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};

constexpr auto kSlipBump =
    "UPDATE Clinical_Area..tbEarCareChargeSlip SET [ChargeSlip]=1043 WHERE [ChargeSlip]=1042"_L1;

} // namespace

class SaveChargesTest : public PostChargesGround {
  protected:
    void ExpectCounter(const Value& number = 1042) {
        gateway.Expect(ChargeSlipCounterCommand(), Rows({u"ChargeSlip"_s}, {{number}}));
        gateway.Expect(kSlipBump);
        gateway.Expect(ClearChargePrintCommand());
    }

    /// The posting of a line as the patient of OpenWithPatient is sent.
    static QString Posting(const QString& department, const QString& code, const QString& quantity,
                           const QString& amount, const QString& particular) {
        return AppendChargingCommand({.hospitalNumber = u"100085"_s,
                                      .admissionNumber = u"104233"_s,
                                      .moment = u"11/21/2026 10:30:15 AM"_s,
                                      .department = department,
                                      .code = code,
                                      .quantity = quantity,
                                      .slipNumber = u"H1042C"_s,
                                      .amount = amount,
                                      .userCode = u"NURSE"_s,
                                      .room = u"301-A"_s,
                                      .requestingDoctorCode = u"D003"_s,
                                      .admittingDoctorName = u"DR. LUIS CASTAÑEDA"_s,
                                      .patientType = u"I"_s,
                                      .particular = particular});
    }
    static QString Printed(const QString& department, const QString& code, const QString& quantity,
                           const QString& amount, const QString& particular) {
        return SaveChargePrintCommand({.code = code,
                                       .amount = amount,
                                       .quantity = quantity,
                                       .department = department,
                                       .particular = particular});
    }
    void ExpectLine(const QString& department, const QString& code, const QString& quantity,
                    const QString& amount, const QString& particular) {
        gateway.Expect(Posting(department, code, quantity, amount, particular));
        gateway.Expect(Printed(department, code, quantity, amount, particular));
    }

    /// The number of the failure that the save raises, 0 for none.
    static int SaveFails() {
        return ErrorOf([] { Screens::Get<frmPostCharges>().SaveCharges(); });
    }

    static void Print() { Click(Find<QPushButton>(Screens::Get<frmPostCharges>(), "cmdPrint")); }
};

TEST_F(SaveChargesTest, SendsCounterBumpClearAndTwoCommandsForEachLineInThisOrder) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"2"_s, u"202.00"_s});
    PutLine(2, {u"XR"_s, u"X7"_s, u"CHEST PA"_s, u"1"_s, u"350.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"2"_s, u"202.00"_s, u"CLEANING"_s);
    ExpectLine(u"XR"_s, u"X7"_s, u"1"_s, u"350.00"_s, u"CHEST PA"_s);
    EXPECT_TRUE(screen.SaveCharges());
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(gSlipNumber, u"H1042C"_s);
    EXPECT_TRUE(gSlipTableCleared);
    EXPECT_TRUE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(SaveChargesTest, CounterIsOpenedDynamicOptimistic) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"2"_s, u"202.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"2"_s, u"202.00"_s, u"CLEANING"_s);
    screen.SaveCharges();
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].command, ChargeSlipCounterCommand());
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_F(SaveChargesTest, CounterValueIsTrimmed) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(ChargeSlipCounterCommand(), Rows({u"ChargeSlip"_s}, {{u" 1042 "_s}}));
    gateway.Expect(
        u"UPDATE Clinical_Area..tbEarCareChargeSlip SET [ChargeSlip]=1043 WHERE [ChargeSlip]=' 1042 '"_s);
    gateway.Expect(ClearChargePrintCommand());
    ExpectLine(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
    EXPECT_TRUE(screen.SaveCharges());
    EXPECT_EQ(gSlipNumber, u"H1042C"_s);
}

TEST_F(SaveChargesTest, EmptyCounterTableLeavesTheSlipEmptyAndThePrintTableAsItIs) {
    auto& screen = OpenWithPatient();
    gSlipNumber = u"H1041C"_s;
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(ChargeSlipCounterCommand(), Rows({u"ChargeSlip"_s}));
    QString posting = Posting(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
    gateway.Expect(posting.remove(u"H1042C"_s));
    gateway.Expect(Printed(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s));
    EXPECT_TRUE(screen.SaveCharges());
    EXPECT_EQ(gSlipNumber, u""_s);
    EXPECT_FALSE(gSlipTableCleared);
}

TEST_F(SaveChargesTest, LinesWithoutADepartmentArePassedOverWhereverTheyStand) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u""_s, u"S0"_s, u"EMPTIED"_s, u"1"_s, u"1.00"_s});
    PutLine(3, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    PutLine(5, {u""_s, u"S2"_s, u"EMPTIED"_s, u"1"_s, u"1.00"_s});
    PutLine(8, {u"XR"_s, u"X7"_s, u"CHEST"_s, u"1"_s, u"350.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
    ExpectLine(u"XR"_s, u"X7"_s, u"1"_s, u"350.00"_s, u"CHEST"_s);
    EXPECT_TRUE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, PackageLineReachesNeitherCommand) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"YP"_s, u"P1"_s, u"PACKAGE"_s, u"1"_s, u"900.00"_s});
    PutLine(2, {u"yp"_s, u"P2"_s, u"OTHER"_s, u"1"_s, u"10.00"_s});
    ExpectCounter();
    ExpectLine(u"yp"_s, u"P2"_s, u"1"_s, u"10.00"_s, u"OTHER"_s);
    EXPECT_TRUE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, DoctorsFeePostsAnEmptyQuantity) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"MD"_s, u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u""_s, u"1500.00"_s});
    ExpectCounter();
    ExpectLine(u"MD"_s, u"D003"_s, u""_s, u"1500.00"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s);
    EXPECT_TRUE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, LineWithADepartmentAndNoCodeIsStillPosted) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u""_s, u"EAR CARE"_s, u"1"_s, u""_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u""_s, u"1"_s, u""_s, u"EAR CARE"_s);
    EXPECT_TRUE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, PriceIsNotSent) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"2"_s, u"202.00"_s});
    Cells().SetTextMatrix(1, 5, u"777.77"_s);
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"2"_s, u"202.00"_s, u"CLEANING"_s);
    EXPECT_TRUE(screen.SaveCharges());
}

struct TypeCase {
    const char* name;
    QString id;
    QString type;
};

class PatientTypeTest : public SaveChargesTest, public testing::WithParamInterface<TypeCase> {};

INSTANTIATE_TEST_SUITE_P(Numbers, PatientTypeTest,
                         testing::Values(TypeCase{"Numeric", u"104233"_s, u"I"_s},
                                         TypeCase{"WithALetter", u"10231B"_s, u"O"_s},
                                         TypeCase{"Empty", u""_s, u"O"_s}),
                         CaseName());

TEST_P(PatientTypeTest, GoesByTheAdmissionNumberWhateverTheMenuSaid) {
    for (const QString& menu : {u"I"_s, u"O"_s}) {
        auto& screen = OpenWithPatient();
        Box("txtId").setText(GetParam().id);
        PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
        gPatientType = menu;
        ExpectCounter();
        QString posting = Posting(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
        posting.replace(u"'104233'"_s, u"'"_s + GetParam().id + u"'"_s);
        posting.replace(u"', 'I','"_s, u"', '"_s + GetParam().type + u"','"_s);
        gateway.Expect(posting);
        gateway.Expect(Printed(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s));
        EXPECT_TRUE(screen.SaveCharges());
        EXPECT_EQ(gPatientType, GetParam().type);
    }
}

TEST_F(SaveChargesTest, EachLineBearsTheTimeOfItsOwnPosting) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    PutLine(2, {u"XR"_s, u"X7"_s, u"CHEST"_s, u"1"_s, u"350.00"_s});
    int seconds = 0;
    const auto clock = ClockSeam().Replace([&seconds] {
        return DateTime::FromFields({2026, 11, 21, 13, 5, seconds++, 0}).value();
    });
    ExpectCounter();
    for (const auto& [line, second] : {std::pair(1, u"00"_s), std::pair(2, u"01"_s)}) {
        QString posting = line == 1 ? Posting(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s)
                                    : Posting(u"XR"_s, u"X7"_s, u"1"_s, u"350.00"_s, u"CHEST"_s);
        gateway.Expect(posting.replace(u"10:30:15 AM"_s, u"01:05:"_s + second + u" PM"_s));
        gateway.Expect(line == 1 ? Printed(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s)
                                 : Printed(u"XR"_s, u"X7"_s, u"1"_s, u"350.00"_s, u"CHEST"_s));
    }
    EXPECT_TRUE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, EmptyGridIsToldAndLeavesTheRedrawOffAndThePointerAsItWas) {
    auto& screen = OpenWithPatient();
    messages.Expect(kNothingToSave);
    EXPECT_FALSE(screen.SaveCharges());
    EXPECT_FALSE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_TRUE(gateway.Openings().empty());
    // The next full save turns it on again.
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
    EXPECT_TRUE(screen.SaveCharges());
    EXPECT_TRUE(Grid().Redraw());
}

TEST_F(SaveChargesTest, FirstLineWithoutAParticularIsNoLineForTheTest) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u""_s, u"1"_s, u"101.00"_s});
    PutLine(2, {u"HC"_s, u"S2"_s, u"TEST"_s, u"1"_s, u"101.00"_s});
    messages.Expect(kNothingToSave);
    EXPECT_FALSE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, ParticularWithoutADepartmentPassesTheTestAndPostsNothing) {
    auto& screen = OpenWithPatient();
    PutLine(1, {u""_s, u""_s, u"EMPTIED"_s});
    gPatientType = u"O"_s;
    ExpectCounter();
    EXPECT_TRUE(screen.SaveCharges());
    EXPECT_EQ(gSlipNumber, u"H1042C"_s);
    EXPECT_EQ(gPatientType, u"O"_s) << "no line was sent";
}

TEST_F(SaveChargesTest, FilledLastLinePassesTheTestThoughTheFirstIsEmpty) {
    auto& screen = OpenWithPatient();
    PutLine(8, {u"HC"_s, u"S1"_s, u""_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u""_s);
    EXPECT_TRUE(screen.SaveCharges());
}

TEST_F(SaveChargesTest, CounterTakenByAnotherWorkstationFailsBeforeAnythingIsPosted) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(ChargeSlipCounterCommand(), Rows({u"ChargeSlip"_s}, {{1042}}));
    gateway.Expect(kSlipBump, nullptr, 0);
    gSlipNumber = u"H1041C"_s;
    EXPECT_EQ(SaveFails(), RunTime::kRowChanged);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(gSlipTableCleared);
    EXPECT_EQ(gSlipNumber, u"H1041C"_s);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_TRUE(Grid().Redraw());
}

TEST_F(SaveChargesTest, ApostropheFailsInTheMiddleAndWhatWasSentBeforeStays) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    PutLine(2, {u"HC"_s, u"S2"_s, u"MENIERE'S TEST"_s, u"1"_s, u"200.00"_s});
    PutLine(3, {u"HC"_s, u"S3"_s, u"NEVER SENT"_s, u"1"_s, u"300.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
    gateway.ExpectFailure(Posting(u"HC"_s, u"S2"_s, u"1"_s, u"200.00"_s, u"MENIERE'S TEST"_s),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    EXPECT_EQ(SaveFails(), 105);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(gSlipNumber, u"H1042C"_s);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_FALSE(Grid().Redraw());
}

TEST_F(SaveChargesTest, PrintTableThatCannotBeEmptiedFailsBeforeAnythingIsPosted) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    gSlipNumber = u"H1041C"_s;
    gateway.Expect(ChargeSlipCounterCommand(), Rows({u"ChargeSlip"_s}, {{1042}}));
    gateway.Expect(kSlipBump, nullptr, 1);
    gateway.ExpectFailure(ClearChargePrintCommand(),
                          RunTimeError(229, u"The DELETE permission was denied"_s));
    EXPECT_EQ(SaveFails(), 229);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(gSlipTableCleared);
    EXPECT_EQ(gSlipNumber, u"H1041C"_s);
}

TEST_F(SaveChargesTest, GridWithTooFewColumnsFailsBeforeANumberIsSpent) {
    OpenWithPatient();
    Grid().Cells().SetCols(5);
    EXPECT_EQ(SaveFails(), 30010);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(SaveChargesTest, GridWithoutLinesFailsBeforeANumberIsSpent) {
    OpenWithPatient();
    Grid().Cells().SetRows(1);
    EXPECT_EQ(SaveFails(), 30009);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(SaveChargesTest, PrintShowsTheSlipWithItsTenParametersAndUnloadsTheScreenAfterwards) {
    const SlipPrint slip(programDirectory, u"Charge_Slip.RPT"_s, 10);
    OpenWithPatient();
    Box("txtId").setText(u"10231B"_s);
    Box("txtLastName").setText(u" CRUZ "_s);
    Box("txtFirstName").setText(u"JUAN "_s);
    Box("txtMiddleName").setText(u" SY"_s);
    gAccountNumber = u"500123"_s;
    gStationName = u"STATION 3"_s;
    PutLine(1, {u""_s, u""_s, u"EMPTIED"_s});
    ExpectCounter();
    const std::vector<QString> values = slip.Values(u"Print ChargeSlip"_s, Print, [] {
        EXPECT_TRUE(Screens::IsLoaded<frmPostCharges>());
        EXPECT_EQ(Screens::Get<frmPostCharges>().SlipPatientName, u" CRUZ , JUAN   SY"_s);
    });
    EXPECT_EQ(values, (std::vector<QString>{u"H1042C"_s, u"11/21/2026"_s, u" CRUZ , JUAN   SY"_s, u"10231B"_s,
                                            u"100085"_s, u"301-A"_s, u"10:30:15 AM"_s, u"500123"_s,
                                            u"STATION 3"_s, u"ANA REYES"_s}));
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(SaveChargesTest, RefusedSavePrintsNothingAndKeepsTheScreen) {
    OpenWithPatient();
    messages.Expect(kNothingToSave);
    Print();
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_TRUE(Screens::IsLoaded<frmPostCharges>());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(SaveChargesTest, MissingTemplateFailsAfterTheSave) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    ExpectLine(u"HC"_s, u"S1"_s, u"1"_s, u"101.00"_s, u"CLEANING"_s);
    Print();
    EXPECT_EQ(TakeFailure(), RunTime::kFileNotFound);
    EXPECT_TRUE(Screens::IsLoaded<frmPostCharges>());
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}
