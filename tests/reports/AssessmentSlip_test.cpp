#include "components/ReportConnector.h"
#include "hospital/HospitalScripts.h"
#include "report/ReportEngine.h"
#include "reports/Reports.h"
#include "support/ProgramDirectoryAt.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "toolkit/ProgramFiles.h"
#include "trial/EmbeddedGateway.h"

using namespace Qt::StringLiterals;

namespace {

struct AssessmentLine {
    QString department;
    QString code;
    QString particular;
    QString quantity;
    QString amount;
};

/// The assessment slip as the program prints it, over fixed rows.
class AssessmentSlip : public ScreenTest {
  protected:
    AssessmentSlip() {
        database.Set(u"tbhospitalInfo"_s,
                     Rows({u"company"_s, u"Address1"_s}, {{u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                                           u"128 Rizal Avenue, San Isidro, Nueva Ecija"_s}}));
    }
    const Seam<QString()>::Replacement directory = ProgramDirectoryAt(QStringLiteral(TARVEN_SOURCE_DIR));
    ~AssessmentSlip() override { gReport = nullptr; }

    QString TextOf(const std::vector<AssessmentLine>& lines, const std::vector<Value>& parameters) {
        std::vector<std::vector<Value>> rows;
        for (const AssessmentLine& line : lines)
            rows.push_back(
                {line.code, line.department, line.particular, line.quantity, Decimal{line.amount}});
        database.Set(u"tbEarCareChargePrint"_s,
                     Rows({u"ItemID"_s, u"RevenueID"_s, u"Description"_s, u"Quantity"_s, u"Amount"_s}, rows));
        OpenReport(ProgramDirectory() + u"/Reports/AssessmentSlip.RPT"_s, parameters);
        return TextOfPages(*gReport->Document());
    }

    ReportDatabase database;
};

const std::vector<Value> kAssessmentParameters = {
    u"5017"_s, u"DELA CRUZ, JUAN MIGUEL SANTOS"_s, u"100482"_s, u"104233B"_s, u"OPD"_s, u"REYES, ANA B."_s};

const std::vector<AssessmentLine> kAssessmentLines = {
    {u"HC"_s, u"HC001"_s, u"HEMODIALYSIS TREATMENT, FOUR HOURS"_s, u"1"_s, u"3500.0000"_s},
    {u"HB"_s, u"EPO4000"_s, u"ERYTHROPOIETIN 4000 IU"_s, u"2"_s, u"2401.5000"_s},
    {u"YP"_s, u"PKG01"_s,
     u"HEMODIALYSIS PACKAGE WITH DIALYZER, BLOODLINES, NEEDLES AND FOUR VIALS OF HEPARIN"_s, u"1"_s,
     u"1850.2500"_s},
    {u"MD"_s, u"0142"_s, u"(PF) DR. PEÑAFLOR, MARIA"_s, u""_s, u"1500.0000"_s}};

} // namespace

TEST_F(AssessmentSlip, OfFourLinesFitsOnePage) {
    ExpectGolden(TextOf(kAssessmentLines, kAssessmentParameters), u"assessment_slip.txt"_s);
}

TEST_F(AssessmentSlip, OfFiftyLinesRunsOverPagesWithRepeatedHeads) {
    std::vector<AssessmentLine> lines;
    for (int i = 1; i <= 50; ++i)
        lines.push_back({u"HC"_s, u"HC%1"_s.arg(i), u"HEMODIALYSIS TREATMENT"_s, u"1"_s, u"100.0000"_s});
    ExpectGolden(TextOf(lines, kAssessmentParameters), u"assessment_slip_fifty_lines.txt"_s);
}

TEST_F(AssessmentSlip, WithoutLinesShowsATotalOfZero) {
    ExpectGolden(TextOf({}, kAssessmentParameters), u"assessment_slip_empty.txt"_s);
}

TEST_F(AssessmentSlip, OfAWalkInWithALongNameAndNoNumbersCutsNothing) {
    std::vector<Value> parameters = kAssessmentParameters;
    parameters[1] = u"DE LOS SANTOS-MONTENEGRO Y VILLAVICENCIO, MARIA CONCEPCION MAGDALENA DEL ROSARIO"_s;
    parameters[2] = QString();
    parameters[3] = QString();
    ExpectGolden(TextOf(kAssessmentLines, parameters), u"assessment_slip_long_name.txt"_s);
}

TEST_F(AssessmentSlip, TakesTheSixValuesInTheScreensOrder) {
    TextOf({}, kAssessmentParameters);
    QStringList names;
    for (const ParameterField& field : gReport->ParameterFields())
        names << field.Name();
    EXPECT_EQ(names.join(u' '), u"Number Patient HospitalNumber VisitNumber Room User"_s);
}

TEST_F(AssessmentSlip, ReadsTheLinesInTheOrderInWhichTheyWereSaved) {
    TextOf({}, kAssessmentParameters);
    EXPECT_EQ(database.commands.at(0), u"SELECT ItemID, RevenueID, Description, Quantity, Amount FROM "
                                       "Clinical_Area.dbo.tbEarCareChargePrint ORDER BY PrintID"_s);
}

TEST(AssessmentSlipOverTheEmbeddedHospital, PrintsWhatTheTwoDumpCommandsHaveLeft) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"hospital.db"_s);
    HospitalFile::Create(file, HospitalStructure());
    {
        EmbeddedGateway gateway(file);
        gateway.SetSessionUser(u"NURSE"_s);
        gateway.ExecuteNoResult(
            u"INSERT INTO PATIENT_DATA..tbhospitalInfo (company, Address1, TinNo, Bygeneric) VALUES "
            "('NUESTRA SEÑORA HOSPITAL', 'San Isidro', '', 0)"_s);
        gateway.ExecuteNoResult(
            u"Clinical_Area..spEarCare_GlobalDumpChargeSlip 'HC001','TREATMENT','2','1750.00','3500.00','NURSE'"_s);
        gateway.ExecuteNoResult(
            u"Clinical_Area..spEarCare_DumpChargeSlip 'HC001','TREATMENT','2','3500.00','HC'"_s);
        gateway.ExecuteNoResult(
            u"Clinical_Area..spEarCare_GlobalDumpChargeSlip '0142','DOCTOR','','','1500.50','NURSE'"_s);
        gateway.ExecuteNoResult(
            u"Clinical_Area..spEarCare_DumpChargeSlip '0142','DOCTOR','','1500.50','MD'"_s);
    }
    SetReportConnector([&file](const ReportLogOn&) { return std::make_unique<EmbeddedGateway>(file); });
    const auto report =
        ReportEngine().OpenReport(QStringLiteral(TARVEN_SOURCE_DIR "/Reports/AssessmentSlip.RPT"), 1);
    for (ReportTable& table : report->Tables())
        table.SetLogOnInfo(u"TRIAL"_s, u"PASSWORD"_s, {}, {});
    for (size_t i = 0; i < kAssessmentParameters.size(); ++i)
        report->ParameterFields()[i].AddCurrentValue(kAssessmentParameters[i]);
    const QString text = PageText(*report->Document(), 1).simplified();
    SetReportConnector({});
    EXPECT_TRUE(text.startsWith(u"NUESTRA SEÑORA HOSPITAL ASSESSMENT SLIP San Isidro 5017"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(u"HC HC001 TREATMENT 2 3,500.00 MD 0142 DOCTOR 1,500.50"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(u"TOTAL AMOUNT 5,000.50"_s)) << text.toStdString();
}
