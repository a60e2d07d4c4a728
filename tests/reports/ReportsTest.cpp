#include "ReportsTest.h"

#include "components/ReportConnector.h"
#include "hospital/HospitalScripts.h"
#include "report/ReportEngine.h"

using namespace Qt::StringLiterals;

ReportsTest::ReportsTest() {
    SetReportConnector([this](const ReportLogOn&) { return HospitalFile::Open(Path(), HospitalScripts()); });
}

ReportsTest::~ReportsTest() {
    SetReportConnector({});
}

std::shared_ptr<Report> ReportsTest::Open(const QString& file, const std::vector<Value>& values) {
    auto report = ReportEngine().OpenReport(u"" TARVEN_SOURCE_DIR "/Reports/"_s + file, 1);
    for (ReportTable& table : report->Tables())
        table.SetLogOnInfo(u"TRIAL"_s, u"PASSWORD"_s, u"NURSE"_s, {});
    for (size_t i = 0; i < values.size(); ++i)
        report->ParameterFields().at(i).AddCurrentValue(values[i]);
    return report;
}

DateTime ReportsTest::Day(int year, int month, int day) {
    return DateTime::FromFields({.year = year, .month = month, .day = day, .hour = 0}).value();
}
