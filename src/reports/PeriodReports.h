#pragma once

#include <QStringView>

/// The reports of a period, by the numbers that the suite gives them.
enum class ReportType {
    None = 0,
    Audit = 1,
    /// Has a title for the screen and no report.
    Income = 2,
    OutPatientIncome = 3,
    InPatientIncome = 4,
    CashIncome = 5,
    Statistics = 6,
    InPatientCompany = 7,
    OutPatientCompany = 8
};

/// One report that asks for its first and its last day.
struct PeriodReport {
    ReportType type;
    /// The template below the program's folder, with the stroke that the suite has always written.
    QStringView file;
    QStringView title;
    /// The patient type that stands before the days, for a report that is made for one type alone.
    QStringView patientType = {};
    /// Whether the user's code stands behind everything else.
    bool namesUser = false;
};

/// The report of a type; null for a type without one.
const PeriodReport* FindPeriodReport(ReportType type);
