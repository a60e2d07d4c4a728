#include "charges/AssessmentGround.h"
#include "charges/commands.h"
#include "components/ReportConnector.h"
#include "components/shared.h"
#include "reports/Reports.h"
#include "support/CaseName.h"
#include "support/WhileModal.h"
#include "text/RunTimeError.h"
#include "toolkit/MousePointer.h"
#include "toolkit/ProgramFiles.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const Message kNoName{
    .text = u"Please enter the patients name."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};
const Message kNoExam{
    .text = u"Please Enter type of Exam."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};

constexpr auto kCounter = "SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_L1;
constexpr auto kBump =
    "UPDATE BILLING..tbAssessmentNum SET [AssessmentNum]=5018 WHERE [AssessmentNum]=5017"_L1;
constexpr auto kClear = "delete Clinical_Area..tbEarCareChargePrint"_L1;

/// A slip of six parameters over one table.
QByteArray SixParameterSlip() {
    QString parameters;
    for (int i = 1; i <= 6; ++i)
        parameters += u"<parameter name=\"P%1\" type=\"text\" prompt=\"%1\"/>"_s.arg(i);
    return (u"<report paper=\"100x100\" margins=\"0 0 0 0\"><parameters>"_s + parameters +
            u"</parameters><tables><table name=\"Lines\" "
            u"location=\"Clinical_Area.dbo.tbEarCareChargePrint\"/></tables>"
            "<query>SELECT ItemID FROM {Lines}</query></report>"_s)
        .toUtf8();
}

} // namespace

class SaveAssessmentTest : public AssessmentGround {
  protected:
    ~SaveAssessmentTest() override { SetReportConnector({}); }

    void ExpectCounter() {
        gateway.Expect(kCounter, Rows({u"AssessmentNum"_s}, {{5017}}));
        gateway.Expect(kBump);
    }

    /// An assessed line of the patient of OpenWithPatient; the middle stands between its fixed parts.
    static QString Assessed(const QString& code, const QString& department, const QString& quantity,
                            const QString& amount) {
        return u"Clinical_Area..spEarCare_Assessment '5017','CRUZ, JUAN SY','"_s + code + u"','"_s +
               department + u"','"_s + quantity + u"','"_s + amount +
               u"','HC','NURSE','100085','10231B','D003','DR. LUIS CASTAÑEDA'"_s;
    }
    void ExpectDumps(const QString& code, const QString& particular, const QString& quantity,
                     const QString& price, const QString& amount, const QString& department) {
        gateway.Expect(u"Clinical_Area..spEarCare_GlobalDumpChargeSlip '"_s + code + u"','"_s + particular +
                       u"','"_s + quantity + u"','"_s + price + u"','"_s + amount + u"','NURSE'"_s);
        gateway.Expect(u"Clinical_Area..spEarCare_DumpChargeSlip '"_s + code + u"','"_s + particular +
                       u"','"_s + quantity + u"','"_s + amount + u"','"_s + department + u"'"_s);
    }
    void ExpectPackage(const std::vector<std::vector<Value>>& items) {
        gateway.Expect(u"SELECT * FROM HEMODIALYSIS..tbhemopackage WHERE PackageCode = 'PKG01'"_s,
                       Rows({u"RevenueID"_s, u"ItemID"_s, u"Quantity"_s, u"Amount"_s}, items));
    }

    bool Save() { return Screens::Get<frmAssessment>().SaveAssessment(number); }
    /// The number of the failure that the save raises, 0 for none.
    int SaveFails() {
        try {
            Save();
        } catch (const RunTimeError& error) {
            return error.Number();
        }
        return 0;
    }

    void WriteTemplate() {
        const QDir directory(programDirectory.path());
        ASSERT_TRUE(directory.mkpath(u"Reports"_s));
        QFile file(directory.filePath(u"Reports/AssessmentSlip.RPT"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_GT(file.write(SixParameterSlip()), 0);
        SetReportConnector([](const ReportLogOn&) {
            auto connection = std::make_unique<ScriptedGateway>();
            connection->Expect(u"SELECT ItemID FROM Clinical_Area.dbo.tbEarCareChargePrint"_s,
                               Rows({u"ItemID"_s}, {{u"S1"_s}}));
            return connection;
        });
    }

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
    EXPECT_EQ(gateway.Openings()[0].command, kCounter);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_F(SaveAssessmentTest, NumberIsPlainWithoutPrefixOrDecimals) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(kCounter, Rows({u"AssessmentNum"_s}, {{Decimal{u"5017.0000"_s}}}));
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
    gateway.Expect(kCounter, Rows({u"AssessmentNum"_s}));
    EXPECT_EQ(SaveFails(), RunTime::kNoCurrentRecord);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(gSlipNumber, u"5016"_s);
    EXPECT_TRUE(Grid().Redraw());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(SaveAssessmentTest, CounterTakenByAnotherWorkstationFailsBeforeAnythingIsAssessed) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    gateway.Expect(kCounter, Rows({u"AssessmentNum"_s}, {{5017}}));
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
    gateway.Expect(u"Clinical_Area..spEarCare_Assessment '5017','CRUZ, JUAN "
                   u"SY','S1','HC','1','101.00','HC','NURSE','','','D003','DR. LUIS CASTAÑEDA'"_s);
    EXPECT_TRUE(Save());
}

TEST_F(SaveAssessmentTest, NameAndDoctorsCodeAreTrimmedAndTheOtherTextsGoAsTheyStand) {
    OpenWithPatient();
    for (const char* box : {"txtSname", "txtHospNum", "txtIdnum", "txtDoctorID", "txtDoctor"})
        Box(box).setText(u"  X  "_s);
    PutLine(1, {u"HC"_s, u" S1 "_s, u"CLEANING"_s, u"101.00"_s, u" 1 "_s, u" 101.00 "_s});
    ExpectCounter();
    gateway.Expect(
        u"Clinical_Area..spEarCare_Assessment '5017','X',' S1 ','HC',' 1 ',' 101.00 ','HC','NURSE','  X "
        u" ','  X  ','X','  X  '"_s);
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
    WriteTemplate();
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"CLEANING"_s, u"101.00"_s, u"2"_s, u"202.00"_s});
    PutLine(2, {u""_s, u"S2"_s, u"EMPTIED"_s, u"1.00"_s, u"1"_s, u"1.00"_s});
    PutLine(3, {u"YP"_s, u"PKG01"_s, u"PACKAGE"_s, u"900.00"_s, u"1"_s, u"900.00"_s});
    PutLine(8, {u"MD"_s, u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u""_s, u""_s, u"1500.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"2"_s, u"202.00"_s));
    ExpectPackage({});
    gateway.Expect(Assessed(u"D003"_s, u"MD"_s, u""_s, u"1500.00"_s));
    gateway.Expect(kClear);
    ExpectDumps(u"S1"_s, u"CLEANING"_s, u"2"_s, u"101.00"_s, u"202.00"_s, u"HC"_s);
    ExpectDumps(u"PKG01"_s, u"PACKAGE"_s, u"1"_s, u"900.00"_s, u"900.00"_s, u"YP"_s);
    ExpectDumps(u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u""_s, u""_s, u"1500.00"_s, u"MD"_s);
    WhileModal([](Form&) {});
    Click(Button("cmdPrint"));
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(SaveAssessmentTest, PrintShowsTheSlipWithItsSixParametersAndUnloadsTheScreenAfterwards) {
    WriteTemplate();
    OpenWithPatient();
    Box("txtSname").setText(u" CRUZ, JUAN SY "_s);
    PutLine(1, {u""_s, u""_s, u"EMPTIED"_s});
    ExpectCounter();
    gateway.Expect(kClear);
    std::vector<QString> values;
    WhileModal([&values](Form& viewer) {
        EXPECT_EQ(viewer.objectName(), u"frmReportviewer"_s);
        EXPECT_EQ(viewer.windowTitle(), u"Print ChargeSlip"_s);
        EXPECT_EQ(gReport->Path(), ProgramDirectory() + u"/Reports/AssessmentSlip.RPT"_s);
        for (const ParameterField& field : gReport->ParameterFields())
            values.push_back(field.CurrentValue()->ToText());
        EXPECT_TRUE(Screens::IsLoaded<frmAssessment>());
        EXPECT_EQ(Box("txtSname").text(), u" CRUZ, JUAN SY "_s);
    });
    Click(Button("cmdPrint"));
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
    gateway.Expect(kClear);
    ExpectDumps(u"S1"_s, u"CLEANING"_s, u"1"_s, u"101.00"_s, u"101.00"_s, u"HC"_s);
    Click(Button("cmdPrint"));
    EXPECT_NE(TakeFailure(), 0);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

TEST_F(SaveAssessmentTest, ApostropheInAParticularFailsAmongTheDumpsWithTheAssessmentWritten) {
    OpenWithPatient();
    PutLine(1, {u"HC"_s, u"S1"_s, u"MENIERE'S TEST"_s, u"101.00"_s, u"1"_s, u"101.00"_s});
    ExpectCounter();
    gateway.Expect(Assessed(u"S1"_s, u"HC"_s, u"1"_s, u"101.00"_s));
    gateway.Expect(kClear);
    gateway.ExpectFailure(
        u"Clinical_Area..spEarCare_GlobalDumpChargeSlip 'S1','MENIERE'S TEST','1','101.00','101.00','NURSE'"_s,
        RunTimeError(105, u"Unclosed quotation mark"_s));
    Click(Button("cmdPrint"));
    EXPECT_EQ(TakeFailure(), 105);
    EXPECT_TRUE(Screens::IsLoaded<frmAssessment>());
}
