#include "components/ReportConnector.h"
#include "hospital/HospitalScripts.h"
#include "report/ReportEngine.h"
#include "reports/Reports.h"
#include "reports/SlipGround.h"
#include "trial/EmbeddedGateway.h"

using namespace Qt::StringLiterals;

namespace {

/// The older slip as the duplicate's screen opens it, over the embedded hospital.
class OlderChargeSlip : public ScreenTest {
  protected:
    OlderChargeSlip() {
        const QString file = programDirectory.filePath(u"hospital.db"_s);
        HospitalFile::Create(file, HospitalStructure());
        EmbeddedGateway hospital(file);
        hospital.SetSessionUser(u"NURSE"_s);
        hospital.ExecuteNoResult(
            u"Hemodialysis..spKidney_SaveChargePrint 'HCHC001','3500.00','1','HC','TREATMENT'"_s);
        hospital.ExecuteNoResult(
            u"Hemodialysis..spKidney_SaveChargePrint 'MD0142','1500.50','','MD','DOCTOR'"_s);
        SetReportConnector([this, file](const ReportLogOn& logOn) {
            database = QString(logOn.database.constData(), logOn.database.size());
            auto connection = std::make_unique<EmbeddedGateway>(file);
            connection->SetDefaultDatabase(database);
            return connection;
        });
        report = ReportEngine().OpenReport(QStringLiteral(TARVEN_SOURCE_DIR "/Reports/ChargeSlip.rpt"), 1);
    }
    ~OlderChargeSlip() override { SetReportConnector({}); }

    std::shared_ptr<Report> report;
    QString database;
};

} // namespace

TEST_F(OlderChargeSlip, HasTheNamesThatItsScreenFills) {
    EXPECT_EQ(ParameterNames(*report), u"TITLE PATIENT COMPANY ADMNO ISSUER REMARKS USERID CHARGEDATE"_s);
}

TEST_F(OlderChargeSlip, PrintsThePrintTablePointedAtTheReportsDatabase) {
    for (ReportTable& table : report->Tables())
        SetTableLogOn(table, u"REPORTS"_s);
    for (ParameterField& field : report->ParameterFields())
        field.SetCurrentValue(u"<"_s + field.Name() + u">"_s);
    EXPECT_EQ(PageText(*report->Document(), 1).simplified(),
              u"<TITLE> Patient Admission No. Date <PATIENT> <ADMNO> <CHARGEDATE> Company Remarks <COMPANY> "
              "<REMARKS> Dept. Code Particulars Quantity Amount HC HCHC001 TREATMENT 1 3,500.00 MD MD0142 "
              "DOCTOR 1,500.50 TOTAL AMOUNT 5,000.50 <ISSUER> <USERID> Issued by Printed by"_s);
    EXPECT_EQ(database, u"REPORTS"_s);
}
