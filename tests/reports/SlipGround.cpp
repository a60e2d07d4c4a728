#include "reports/SlipGround.h"

#include "components/ReportConnector.h"
#include "hospital/HospitalScripts.h"
#include "report/ReportEngine.h"
#include "toolkit/ProgramFiles.h"
#include "trial/EmbeddedGateway.h"

using namespace Qt::StringLiterals;

std::vector<PrintedLine> FiftyLines(const QString& code) {
    std::vector<PrintedLine> lines;
    for (int i = 1; i <= 50; ++i)
        lines.push_back(
            {u"HC"_s, code + QString::number(i), u"HEMODIALYSIS TREATMENT"_s, u"1"_s, u"100.0000"_s});
    return lines;
}

QString ParameterNames(Report& report) {
    QStringList names;
    for (const ParameterField& field : report.ParameterFields())
        names << field.Name();
    return names.join(u' ');
}

SlipGround::SlipGround() {
    database.Set(u"tbhospitalInfo"_s,
                 Rows({u"company"_s, u"Address1"_s},
                      {{u"SAMPAGUITA GENERAL HOSPITAL"_s, u"128 Rizal Avenue, San Isidro, Nueva Ecija"_s}}));
}

void SlipGround::SetLines(const std::vector<PrintedLine>& lines) {
    std::vector<std::vector<Value>> rows;
    for (const PrintedLine& line : lines)
        rows.push_back({line.code, line.department, line.particular, line.quantity, Decimal{line.amount}});
    database.Set(u"tbEarCareChargePrint"_s,
                 Rows({u"ItemID"_s, u"RevenueID"_s, u"Description"_s, u"Quantity"_s, u"Amount"_s}, rows));
}

QString SlipGround::TextOf(const QString& file, const std::vector<Value>& parameters) {
    OpenReport(ProgramDirectory() + u"/Reports/"_s + file, parameters);
    return TextOfPages(*gReport->Document());
}

SlipHospital::SlipHospital(const QString& user)
    : mUser(user) {
    HospitalFile::Create(mFile, HospitalStructure());
    SetReportConnector([this](const ReportLogOn&) { return std::make_unique<EmbeddedGateway>(mFile); });
    Run(u"INSERT INTO PATIENT_DATA..tbhospitalInfo (company, Address1, TinNo, Bygeneric) VALUES "
        "('NUESTRA SEÑORA HOSPITAL', 'San Isidro', '', 0)"_s);
}

SlipHospital::~SlipHospital() {
    SetReportConnector({});
}

void SlipHospital::Run(const QString& command) {
    EmbeddedGateway gateway(mFile);
    gateway.SetSessionUser(mUser);
    gateway.ExecuteNoResult(command);
}

QString SlipHospital::Page(const QString& file, const std::vector<Value>& parameters) {
    const auto report = ReportEngine().OpenReport(u"" TARVEN_SOURCE_DIR "/Reports/"_s + file, 1);
    for (ReportTable& table : report->Tables())
        table.SetLogOnInfo(u"TRIAL"_s, u"PASSWORD"_s, {}, {});
    for (size_t i = 0; i < parameters.size(); ++i)
        report->ParameterFields()[i].AddCurrentValue(parameters[i]);
    return PageText(*report->Document(), 1).simplified();
}
