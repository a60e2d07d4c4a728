#include "tour/DepartmentReports.h"

#include "driver/Driver.h"
#include "tour/Album.h"

using namespace Qt::StringLiterals;

namespace {

void View(Driver& clerk, Album& album, const QString& window, const QString& picture) {
    clerk.TabTo(u"cmdView"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(window);
    album.Take(picture);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(window);
}

void OpenIncome(Driver& clerk, Album& album) {
    clerk.ChooseMenu(u"mnuOPDIncome"_s);
    clerk.ExpectFocus(u"dtpStartDate"_s);
    // One month back.
    clerk.Press(Qt::Key_Down);
    album.Take(u"report-date"_s);
    View(clerk, album, u"frmReportviewer"_s, u"income-report"_s);
}

void OpenLedger(Driver& clerk, Album& album) {
    clerk.ChooseMenu(u"mnuLedger"_s);
    clerk.ExpectFocus(u"cmbPatientCode"_s);
    clerk.Type(u"I"_s);
    clerk.ExpectFocus(u"txtIDNum"_s);
    clerk.Type(u"de"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectFocus(u"ListView1"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmSearchPatient"_s);
    album.Take(u"ledger"_s);
    View(clerk, album, u"frmReportviewer"_s, u"ledger-report"_s);
}

void OpenCensus(Driver& clerk, Album& album) {
    clerk.ChooseMenu(u"mnuCensus"_s);
    clerk.ExpectFocus(u"optCensus(0)"_s);
    clerk.Press(Qt::Key_Down);
    View(clerk, album, u"frmReport"_s, u"census"_s);
}

} // namespace

void LookAtTheReports(Driver& clerk, Album& album) {
    OpenIncome(clerk, album);
    OpenLedger(clerk, album);
    OpenCensus(clerk, album);
}
