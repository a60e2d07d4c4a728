#include "reports/PeriodReports.h"

#include "reports/ReportFiles.h"

#include <algorithm>
#include <array>

namespace {

constexpr PeriodReport PrintAudit{ReportType::Audit, ReportFile::kAudit, u"Audit Report", {}, true};
constexpr PeriodReport PrintOutIncome{ReportType::OutPatientIncome, ReportFile::kOutPatientIncome,
                                      u"Out-Patient Income Report", u"O"};
constexpr PeriodReport PrintInIncome{ReportType::InPatientIncome, ReportFile::kInPatientIncome,
                                     u"In-Patient Income Report", u"I"};
constexpr PeriodReport PrintCashIncome{ReportType::CashIncome, ReportFile::kCashIncome,
                                       u"Cash Patient Income Report"};
constexpr PeriodReport PrintStatistics{ReportType::Statistics, ReportFile::kStatistics,
                                       u"Monthly Statistical Report"};
constexpr PeriodReport PrintInCompany{ReportType::InPatientCompany, ReportFile::kCompany,
                                      u"In-Patient Company Report", u"I"};
constexpr PeriodReport PrintOutCompany{ReportType::OutPatientCompany, ReportFile::kCompany,
                                       u"Out-Patient Company Report", u"O"};

constexpr std::array kPeriodReports = {PrintAudit,      PrintOutIncome, PrintInIncome,  PrintCashIncome,
                                       PrintStatistics, PrintInCompany, PrintOutCompany};

} // namespace

const PeriodReport* FindPeriodReport(ReportType type) {
    const auto found = std::ranges::find(kPeriodReports, type, &PeriodReport::type);
    return found == kPeriodReports.end() ? nullptr : &*found;
}
