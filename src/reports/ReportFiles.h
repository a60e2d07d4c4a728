#pragma once

#include "toolkit/ProgramFiles.h"

#include <QStringView>

/// The templates, below the program's folder, each with the stroke that the suite has always written. Those
/// of a period stand in the table of PeriodReports.
namespace ReportFile {
constexpr QStringView kChargeSlip = u"/Reports/Charge_Slip.RPT";
/// The older layout, which stands beside the program.
constexpr QStringView kOlderChargeSlip = u"\\ChargeSlip.rpt";
constexpr QStringView kAssessmentSlip = u"/Reports/AssessmentSlip.RPT";
constexpr QStringView kAssessmentDuplicate = u"/Reports/ReprintAssesSlip.RPT";
constexpr QStringView kConsultation = u"\\RadioConsultation.rpt";
constexpr QStringView kCensusByName = u"\\Reports\\CensusAll.rpt";
constexpr QStringView kCensusByStation = u"\\Reports\\CensusStation.rpt";
constexpr QStringView kLedger = u"\\Reports\\Orvandelle_Ledger.rpt";
} // namespace ReportFile

/// The path by which a template is opened.
inline QString PathOf(QStringView reportFile) {
    return ProgramDirectory() + reportFile.toString();
}
