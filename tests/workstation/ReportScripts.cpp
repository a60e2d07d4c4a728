#include "workstation/ReportScripts.h"

#include "report/viewer/ReportViewer.h"
#include "toolkit/ProgramFiles.h"
#include "workstation/ClerkKeys.h"

#include <QDate>
#include <QFile>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Tells the title of the report's window, saves the report as PDF, and closes the window.
void LeaveReport(Driver& clerk, const QString& window) {
    clerk.ExpectScreen(window);
    clerk.OnScreen([window] { Tell(VisibleControl(window).windowTitle()); });
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(window);
}

/// A shown date as a clerk writes it, without zeros.
QString AsWritten(const QString& shown) {
    return QDate::fromString(shown, u"MM/dd/yyyy").toString(u"M/d/yyyy");
}

void PeriodReport(Driver& clerk, const QString& menuItem) {
    clerk.ChooseMenu(menuItem);
    clerk.ExpectFocus(u"dtpStartDate"_s);
    // The month is the first part of the date.
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Down);
    const QString start = clerk.Text(u"dtpStartDate"_s);
    clerk.Type(AsWritten(start));
    Tell(start + u" to "_s + clerk.Text(u"dtpEndDate"_s));
    clerk.TabTo(u"cmdView"_s);
    clerk.Press(Qt::Key_Return);
    LeaveReport(clerk, u"frmReportviewer"_s);
    clerk.ExpectNoScreen(u"frmReportRange"_s);
}

} // namespace

void PeriodReports(Driver& clerk) {
    SignOn(clerk);
    for (const QString& menuItem : {u"mnuReportAudit"_s, u"mnuOPDIncome"_s, u"mnuIPDIncomeReport"_s,
                                    u"mnuCashIncome"_s, u"mnuReportMonthly"_s, u"mnuIn"_s, u"mnuOut"_s})
        PeriodReport(clerk, menuItem);
}

void LedgerOfAnInPatient(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuLedger"_s);
    clerk.ExpectFocus(u"cmbPatientCode"_s);
    clerk.Type(u"I"_s);
    clerk.ExpectFocus(u"txtIDNum"_s);
    clerk.Type(u"de guz"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectFocus(u"ListView1"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmSearchPatient"_s);
    Tell(clerk.Text(u"txtIDNum"_s) + u' ' + clerk.Text(u"txtHospNum"_s));
    clerk.TabTo(u"cmdView"_s);
    clerk.Press(Qt::Key_Return);
    LeaveReport(clerk, u"frmReportviewer"_s);
    clerk.ExpectNoScreen(u"frmLedger"_s);
}

void Census(Driver& clerk) {
    SignOn(clerk);
    for (const bool byStation : {false, true}) {
        clerk.ChooseMenu(u"mnuCensus"_s);
        clerk.ExpectFocus(u"optCensus(0)"_s);
        if (byStation)
            clerk.Press(Qt::Key_Down);
        clerk.TabTo(u"cmdView"_s);
        clerk.Press(Qt::Key_Return);
        clerk.ExpectNoScreen(u"frmCensus"_s);
        LeaveReport(clerk, u"frmReport"_s);
    }
}

void LeaveBesideAReport(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuReportAudit"_s);
    clerk.ExpectFocus(u"dtpStartDate"_s);
    // The driver's own keys wait for the end of a report's work, which does not come here.
    clerk.OnScreen(
        [] { QMetaObject::invokeMethod(&VisibleControl(u"cmdView"_s), "click", Qt::QueuedConnection); });
    clerk.WaitFor([] { return QFile::exists(ProgramDirectory() + u"/silent"_s); },
                  u"nobody waits for the report's rows"_s);
    Tell(u"leaving"_s);
    std::fflush(stdout);
    // Gives up the rows, which the viewer does not wait for.
    clerk.OnScreen([] { dynamic_cast<ReportViewer&>(VisibleControl(u"CRViewer1"_s)).StopWork(); });
    clerk.Press(Qt::Key_W, Qt::ControlModifier);
    clerk.ExpectNoScreen(u"frmReportviewer"_s);
    clerk.ChooseMenu(u"mnuExit"_s);
    clerk.WaitFor([] { return false; }, u"the program did not end"_s);
}
