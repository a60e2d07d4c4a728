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

struct ChargeLine {
    QString department;
    QString code;
    QString particular;
    QString quantity;
    QString amount;
};

/// The charge slip as the program prints it, over fixed rows.
class ChargeSlip : public ScreenTest {
  protected:
    ChargeSlip() {
        database.Set(u"tbhospitalInfo"_s,
                     Rows({u"company"_s, u"Address1"_s}, {{u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                                           u"128 Rizal Avenue, San Isidro, Nueva Ecija"_s}}));
    }
    const Seam<QString()>::Replacement directory = ProgramDirectoryAt(QStringLiteral(TARVEN_SOURCE_DIR));
    ~ChargeSlip() override { gReport = nullptr; }

    QString TextOf(const std::vector<ChargeLine>& lines, const std::vector<Value>& parameters) {
        std::vector<std::vector<Value>> rows;
        for (const ChargeLine& line : lines)
            rows.push_back(
                {line.code, line.department, line.particular, line.quantity, Decimal{line.amount}});
        database.Set(u"tbEarCareChargePrint"_s,
                     Rows({u"ItemID"_s, u"RevenueID"_s, u"Description"_s, u"Quantity"_s, u"Amount"_s}, rows));
        OpenReport(ProgramDirectory() + u"/Reports/Charge_Slip.RPT"_s, parameters);
        return TextOfPages(*gReport->Document());
    }

    ReportDatabase database;
};

const std::vector<Value> kChargeParameters = {
    u"H1042C"_s,       u"11/21/2026"_s, u"DELA CRUZ, JUAN MIGUEL SANTOS"_s,
    u"100482"_s,       u"20387"_s,      u"204-B"_s,
    u"10:30:15 AM"_s,  u"A-5521"_s,     u"THIRD FLOOR STATION"_s,
    u"REYES, ANA B."_s};

const std::vector<ChargeLine> kChargeLines = {
    {u"HC"_s, u"HD001"_s, u"HEMODIALYSIS TREATMENT, FOUR HOURS"_s, u"1"_s, u"3500.0000"_s},
    {u"HB"_s, u"EPO4000"_s, u"ERYTHROPOIETIN 4000 IU"_s, u"2"_s, u"2401.5000"_s},
    {u"HD"_s, u"DLZ18"_s,
     u"HIGH-FLUX POLYSULFONE DIALYZER, SURFACE 1.8 SQUARE METRES, STEAM STERILISED, WITH BLOODLINE SET AND NEEDLES"_s,
     u"1"_s, u"1850.2500"_s},
    {u"MD"_s, u"0142"_s, u"DR. PEÑAFLOR, MARIA - PROFESSIONAL FEE"_s, u""_s, u"1500.0000"_s}};

} // namespace

TEST_F(ChargeSlip, OfFourLinesFitsOnePage) {
    ExpectGolden(TextOf(kChargeLines, kChargeParameters), u"charge_slip.txt"_s);
}

TEST_F(ChargeSlip, OfFiftyLinesRunsOverPagesWithRepeatedHeads) {
    std::vector<ChargeLine> lines;
    for (int i = 1; i <= 50; ++i)
        lines.push_back({u"HC"_s, u"HD%1"_s.arg(i), u"HEMODIALYSIS TREATMENT"_s, u"1"_s, u"100.0000"_s});
    ExpectGolden(TextOf(lines, kChargeParameters), u"charge_slip_fifty_lines.txt"_s);
}

TEST_F(ChargeSlip, WithoutLinesShowsATotalOfZero) {
    ExpectGolden(TextOf({}, kChargeParameters), u"charge_slip_empty.txt"_s);
}

TEST_F(ChargeSlip, WithLongWordsCutsNothing) {
    std::vector<Value> parameters = kChargeParameters;
    parameters[2] = u"DE LOS SANTOS-MONTENEGRO Y VILLAVICENCIO, MARIA CONCEPCION MAGDALENA DEL ROSARIO"_s;
    parameters[7] = u"PHILIPPINE HEALTH INSURANCE CORPORATION AND INTELLIGENT CARE CORPORATE ACCOUNTS"_s;
    parameters[8] = u"INTENSIVE CARE UNIT, MAIN BUILDING, FOURTH FLOOR"_s;
    ExpectGolden(TextOf(kChargeLines, parameters), u"charge_slip_long_words.txt"_s);
}

TEST_F(ChargeSlip, TakesTheTenValuesInTheScreensOrder) {
    TextOf({}, kChargeParameters);
    QStringList names;
    for (const ParameterField& field : gReport->ParameterFields())
        names << field.Name();
    EXPECT_EQ(names.join(u' '),
              u"SlipNumber Date Patient AdmissionNumber HospitalNumber Room Time Account Station User"_s);
}

TEST_F(ChargeSlip, ReadsTheLinesInTheOrderInWhichTheyWereSaved) {
    TextOf({}, kChargeParameters);
    EXPECT_EQ(database.commands.at(0), u"SELECT ItemID, RevenueID, Description, Quantity, Amount FROM "
                                       "Clinical_Area.dbo.tbEarCareChargePrint ORDER BY PrintID"_s);
}

TEST(ChargeSlipOverTheEmbeddedHospital, PrintsWhatTheSavesHavePutIntoThePrintTable) {
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
            u"Clinical_Area..spEarCare_SaveChargePrint 'HD001','3500.00','1','HC','TREATMENT', 'O'"_s);
        gateway.ExecuteNoResult(
            u"Clinical_Area..spEarCare_SaveChargePrint '0142','1500.50','','MD','DOCTOR', 'O'"_s);
    }
    SetReportConnector([&file](const ReportLogOn&) { return std::make_unique<EmbeddedGateway>(file); });
    const auto report =
        ReportEngine().OpenReport(QStringLiteral(TARVEN_SOURCE_DIR "/Reports/Charge_Slip.RPT"), 1);
    for (ReportTable& table : report->Tables())
        table.SetLogOnInfo(u"TRIAL"_s, u"PASSWORD"_s, {}, {});
    for (size_t i = 0; i < kChargeParameters.size(); ++i)
        report->ParameterFields()[i].AddCurrentValue(kChargeParameters[i]);
    const QString text = PageText(*report->Document(), 1).simplified();
    SetReportConnector({});
    EXPECT_TRUE(text.startsWith(u"NUESTRA SEÑORA HOSPITAL CHARGE SLIP San Isidro H1042C"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(
        u"HC HD001 TREATMENT 1 3,500.00 MD 0142 DOCTOR 1,500.50 TOTAL AMOUNT 5,000.50 REYES, ANA B."_s))
        << text.toStdString();
}
