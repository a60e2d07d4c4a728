#include "reports/frmReportRange.h"

#include "components/shared.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"
#include "toolkit/Look.h"
#include "toolkit/MousePointer.h"
#include "toolkit/MsgBox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

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
void Present(const PeriodReport& report, std::vector<Value> values) {
    OpenReport(PathOf(report.file), values);
    values.clear();
    ShowReport(false, report.title.toString(), false);
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
    if (storedType == ::ReportType::Audit)
        setWindowTitle(u"Audit Report"_s);
    else if (storedType == ::ReportType::Income)
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
    const PeriodReport* report = FindPeriodReport(storedType);
    if (!report)
        return;
    std::vector<Value> values = RangeValues();
    if (!report->patientType.isEmpty())
        values.insert(values.begin(), report->patientType.toString());
    if (report->namesUser)
        values.emplace_back(gCurrentUser->EmployeeCode());
    Present(*report, std::move(values));
}

/// Reads both days, and answers what every report of a period is given.
std::vector<Value> frmReportRange::RangeValues() {
    mStartDate = DateText(*dtpStartDate);
    mEndDate = DateText(*dtpEndDate);
    return {mStartDate, mEndDate, gHospitalName, gHospitalAddress};
}
