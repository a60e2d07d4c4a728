#include "reports/PeriodReports.h"

#include <algorithm>
#include <array>

namespace {

constexpr PeriodReport PrintAudit{ReportType::Audit, u"/Reports/AuditReport.RPT", u"Audit Report", {}, true};
constexpr PeriodReport PrintOutIncome{ReportType::OutPatientIncome, u"\\Reports\\IncomeReport.RPT",
                                      u"Out-Patient Income Report", u"O"};
constexpr PeriodReport PrintInIncome{ReportType::InPatientIncome, u"/Reports/IncomeReport.RPT",
                                     u"In-Patient Income Report", u"I"};
constexpr PeriodReport PrintCashIncome{ReportType::CashIncome, u"\\Reports\\IncomeReportCash.RPT",
                                       u"Cash Patient Income Report"};
constexpr PeriodReport PrintStatistics{ReportType::Statistics, u"/Reports/StatisticsReport.RPT",
                                       u"Monthly Statistical Report"};
constexpr PeriodReport PrintInCompany{ReportType::InPatientCompany, u"\\Reports\\CompanyReport.RPT",
                                      u"In-Patient Company Report", u"I"};
constexpr PeriodReport PrintOutCompany{ReportType::OutPatientCompany, u"\\Reports\\CompanyReport.RPT",
                                       u"Out-Patient Company Report", u"O"};

constexpr std::array kPeriodReports = {PrintAudit,      PrintOutIncome, PrintInIncome,  PrintCashIncome,
                                       PrintStatistics, PrintInCompany, PrintOutCompany};

} // namespace

const PeriodReport* FindPeriodReport(ReportType type) {
    const auto found = std::ranges::find(kPeriodReports, type, &PeriodReport::type);
    return found == kPeriodReports.end() ? nullptr : &*found;
}
