#pragma once

#include "text/DateTime.h"
#include "trial/EmbeddedGateway.h"

#include <QString>

#include <array>
#include <memory>

/// A report of the period: its template, and the letter that comes first among its values, if any.
struct PeriodReport {
    const char* name;
    const char* file;
    const char* kind = "";
};
inline constexpr std::array kPeriodReports = {PeriodReport{"audit", "/Reports/AuditReport.RPT"},
                                              PeriodReport{"income, out", "/Reports/IncomeReport.RPT", "O"},
                                              PeriodReport{"income, in", "/Reports/IncomeReport.RPT", "I"},
                                              PeriodReport{"income, cash", "/Reports/IncomeReportCash.RPT"},
                                              PeriodReport{"statistics", "/Reports/StatisticsReport.RPT"},
                                              PeriodReport{"company, out", "/Reports/CompanyReport.RPT", "O"},
                                              PeriodReport{"company, in", "/Reports/CompanyReport.RPT", "I"}};

/// A report without a period.
struct DirectReport {
    const char* name;
    const char* file;
};
inline constexpr std::array kCensusReports = {
    DirectReport{"census", "/Reports/CensusAll.rpt"},
    DirectReport{"census by station", "/Reports/CensusStation.rpt"}};
inline constexpr DirectReport kLedger = {"ledger of the longest account", "/Reports/Orvandelle_Ledger.rpt"};

/// The connections of the reports while it lives, as the program makes them but for the user's password,
/// which is the sign-on's and takes its time by purpose.
class ReportConnections {
  public:
    explicit ReportConnections(const QString& hospital);
    ReportConnections(const ReportConnections&) = delete;
    ReportConnections& operator=(const ReportConnections&) = delete;
    ~ReportConnections();

    std::unique_ptr<EmbeddedGateway> Connect(const QString& database = {}) const;
    /// The last day with charges, on which the periods end.
    DateTime LastDay() const;
    /// The number of the admission or visit with the most charge lines.
    QString LongestAccount() const;

  private:
    QString mHospital;
};

/// The report over so many days, the last one included, becomes the report in hand.
void OpenPeriod(const PeriodReport& report, const DateTime& lastDay, int days);
/// The census becomes the report in hand.
void OpenCensus(const DirectReport& report);
/// The ledger of an account becomes the report in hand.
void OpenLedger(const QString& idNumber);

/// Shows the report in hand in a viewer until its first page is painted.
void ShowFirstPage();
