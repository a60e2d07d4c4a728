#include "reports/frmReportRange.h"

#include "components/shared.h"
#include "reports/Reports.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"
#include "toolkit/Look.h"
#include "toolkit/MousePointer.h"
#include "toolkit/MsgBox.h"
#include "toolkit/ProgramFiles.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// The report types by their numbers. The second one has no report.
enum ReportNumber {
    kAudit = 1,
    kIncome = 2,
    kOutIncome = 3,
    kInIncome = 4,
    kCashIncome = 5,
    kStatistics = 6,
    kInCompany = 7,
    kOutCompany = 8
};

DatePicker* NewDayPicker(const QString& name, QWidget* parent) {
    DatePicker* picker = NewDatePicker(name, parent);
    picker->SetRequired();
    // A report asks for the day behind the last one, too.
    picker->SetLastDay(*DateTime::FromFields({.year = 9998, .month = 12, .day = 31}));
    return picker;
}

QString DateText(const DatePicker& picker) {
    return Format(picker.Value().value(), u"mm/dd/yyyy");
}

/// The values are let go before the report shows, which may stand for hours.
void Present(const QString& file, std::vector<Value> values, const QString& title) {
    OpenReport(ProgramDirectory() + file, values);
    values.clear();
    ShowReport(false, title, false);
}

} // namespace

frmReportRange::frmReportRange() {
    Layout();
    Wire();
}

void frmReportRange::Layout() {
    setObjectName(u"frmReportRange"_s);
    setWindowTitle(u"Report Date"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(LayoutRange());
    layout->addStretch(1);
    layout->addLayout(LayoutActions());
    SetTabOrder({dtpStartDate, dtpEndDate, cmdView, cmdClose});
    dtpStartDate->setFocus();
}

QGroupBox* frmReportRange::LayoutRange() {
    QGroupBox* frame1 = NewFrame(u"Frame1"_s, u"Select Range"_s, this);
    dtpStartDate = NewDayPicker(u"dtpStartDate"_s, frame1);
    dtpEndDate = NewDayPicker(u"dtpEndDate"_s, frame1);
    auto* grid = new QGridLayout(frame1);
    AddLabelled(*grid, 0, 0, u"Start Date"_s, dtpStartDate);
    AddLabelled(*grid, 1, 0, u"End Date"_s, dtpEndDate);
    grid->setColumnStretch(1, 1);
    return frame1;
}

QHBoxLayout* frmReportRange::LayoutActions() {
    cmdView = NewButton(u"cmdView"_s, u"View"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"Close"_s, this);
    return RightAligned({cmdView, cmdClose});
}

void frmReportRange::Wire() {
    connect(cmdView, &QPushButton::clicked, this, &frmReportRange::cmdView_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmReportRange::Form_Load() {
    MoveTo(5500, 3000);
    // Kept: the reports of the other types go without a title of their own.
    if (storedType == kAudit)
        setWindowTitle(u"Audit Report"_s);
    else if (storedType == kIncome)
        setWindowTitle(u"Income Report"_s);
    dtpStartDate->SetValue(Today());
    dtpEndDate->SetValue(Today());
}

void frmReportRange::cmdView_Click() {
    // A report for other days than those shown would pass for the right one.
    if (!dtpStartDate->TakeKeyed() || !dtpEndDate->TakeKeyed())
        return;
    if (dtpStartDate->Value() > dtpEndDate->Value()) {
        // Kept: equal days pass, whatever the wording says.
        MsgBox({.text = u"End date must be greater than start date."_s, .icon = MsgIcon::Exclamation});
        return;
    }
    SetMousePointer(MousePointer::Wait);
    RunRoutine();
    SetMousePointer(MousePointer::Default);
    Unload();
}

/// A type without a report shows nothing.
void frmReportRange::RunRoutine() {
    switch (storedType) {
    case kAudit:
        return PrintAudit();
    case kOutIncome:
        return PrintOutIncome();
    case kInIncome:
        return PrintInIncome();
    case kCashIncome:
        return PrintCashIncome();
    case kStatistics:
        return PrintStatistics();
    case kInCompany:
        return PrintInCompany();
    case kOutCompany:
        return PrintOutCompany();
    default:
        return;
    }
}

/// Reads both days, and answers what every report of a period is given.
std::vector<Value> frmReportRange::RangeValues() {
    mStartDate = DateText(*dtpStartDate);
    mEndDate = DateText(*dtpEndDate);
    return {mStartDate, mEndDate, gHospitalName, gHospitalAddress};
}

/// The same behind the patient type, for the reports that are made for one type alone.
std::vector<Value> frmReportRange::RangeValuesOf(const QString& patientType) {
    std::vector<Value> values = RangeValues();
    values.insert(values.begin(), patientType);
    return values;
}

void frmReportRange::PrintAudit() {
    std::vector<Value> values = RangeValues();
    values.emplace_back(gCurrentUser->EmployeeCode());
    Present(u"/Reports/AuditReport.RPT"_s, std::move(values), u"Audit Report"_s);
}

void frmReportRange::PrintOutIncome() {
    Present(u"\\Reports\\IncomeReport.RPT"_s, RangeValuesOf(u"O"_s), u"Out-Patient Income Report"_s);
}

void frmReportRange::PrintInIncome() {
    Present(u"/Reports/IncomeReport.RPT"_s, RangeValuesOf(u"I"_s), u"In-Patient Income Report"_s);
}

void frmReportRange::PrintCashIncome() {
    Present(u"\\Reports\\IncomeReportCash.RPT"_s, RangeValues(), u"Cash Patient Income Report"_s);
}

void frmReportRange::PrintStatistics() {
    Present(u"/Reports/StatisticsReport.RPT"_s, RangeValues(), u"Monthly Statistical Report"_s);
}

void frmReportRange::PrintInCompany() {
    Present(u"\\Reports\\CompanyReport.RPT"_s, RangeValuesOf(u"I"_s), u"In-Patient Company Report"_s);
}

void frmReportRange::PrintOutCompany() {
    Present(u"\\Reports\\CompanyReport.RPT"_s, RangeValuesOf(u"O"_s), u"Out-Patient Company Report"_s);
}
