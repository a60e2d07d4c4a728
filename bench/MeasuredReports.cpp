#include "MeasuredReports.h"

#include "components/ReportConnector.h"
#include "report/ReportEngine.h"
#include "report/viewer/ReportViewer.h"
#include "reports/Reports.h"
#include "text/Format.h"
#include "toolkit/ProgramFiles.h"

#include <QCoreApplication>

#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QString PathOf(const char* file) {
    return ProgramDirectory() + QString::fromLatin1(file);
}

} // namespace

ReportConnections::ReportConnections(const QString& hospital)
    : mHospital(hospital) {
    SetReportConnector([this](const ReportLogOn& logOn) { return Connect(logOn.database); });
}

ReportConnections::~ReportConnections() {
    SetReportConnector({});
}

std::unique_ptr<EmbeddedGateway> ReportConnections::Connect(const QString& database) const {
    auto gateway = std::make_unique<EmbeddedGateway>(mHospital, EmbeddedGateway::Access::Reading);
    gateway->SetCommandTimeout(0);
    if (!database.isEmpty())
        gateway->SetDefaultDatabase(database);
    return gateway;
}

DateTime ReportConnections::LastDay() const {
    return Connect()
        ->Execute(u"select max(TransDate) from BILLING..tbPatientCharges"_s)
        .Fields(0)
        .ToDate()
        .DateOnly();
}

QString ReportConnections::LongestAccount() const {
    return Connect()
        ->Execute(
            u"select top 1 IdNum from BILLING..tbPatientCharges group by IdNum order by count(*) desc"_s)
        .Fields(0)
        .ToText();
}

void OpenPeriod(const PeriodReport& report, const DateTime& lastDay, int days) {
    std::vector<Value> values;
    if (*report.kind)
        values.emplace_back(QString::fromLatin1(report.kind));
    values.emplace_back(Format(lastDay.AddDays(1 - days), u"mm/dd/yyyy"));
    values.emplace_back(Format(lastDay, u"mm/dd/yyyy"));
    values.emplace_back(u"HOSPITAL"_s);
    values.emplace_back(u"ADDRESS"_s);
    if (values.size() == 4)
        values.emplace_back(u"NURSE"_s);
    OpenReport(PathOf(report.file), values);
}

void OpenCensus(const DirectReport& report) {
    gReport = ReportEngine().OpenReport(PathOf(report.file), 1);
    for (ReportTable& table : gReport->Tables())
        SetTableLogOn(table, u"PATIENT_DATA"_s);
}

void OpenLedger(const QString& idNumber) {
    OpenReport(PathOf(kLedger.file), {u"O"_s, idNumber, u"HOSPITAL"_s, u"PATIENT"_s, u"1"_s, u""_s, u""_s,
                                      u""_s, u""_s, u"ADDRESS"_s, u""_s});
}

void ShowFirstPage() {
    ReportViewer viewer;
    viewer.resize(1100, 800);
    viewer.SetReportSource(gReport.Shared());
    viewer.ViewReport();
    viewer.show();
    while (viewer.IsWorking())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    viewer.grab();
}
