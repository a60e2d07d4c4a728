#include "workstation/CashDeskScripts.h"

#include "components/shared.h"
#include "workstation/ClerkKeys.h"

using namespace Qt::StringLiterals;

namespace {

void KeyFiveLines(Driver& clerk) {
    // Department, code, price, quantity, amount; a doctor's fee has its amount alone.
    Key(clerk, {u"hc"_s, u"HC001"_s, QString(), u"2"_s, QString()});
    Key(clerk, {u"hb"_s, u"M0002"_s, QString(), u"3"_s, QString()});
    Key(clerk, {u"hc"_s, u"HC018"_s, QString(), u"1"_s, QString()});
    Key(clerk, {u"yp"_s, u"PK002"_s, QString(), u"1"_s, QString()});
    Key(clerk, {u"md"_s, u"D003"_s, u"1500"_s});
    Tell(u"total "_s + clerk.Text(u"txtGross"_s));
}

void CloseViewer(Driver& clerk) {
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmReportviewer"_s);
}

} // namespace

void OpenForWalkIn(Driver& clerk) {
    clerk.Press(Qt::Key_A, Qt::ControlModifier);
    clerk.ExpectScreen(u"frmAssessment"_s);
    clerk.ExpectFocus(u"optType(0)"_s);
    clerk.Press(Qt::Key_Space);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Tab);
    clerk.ExpectFocus(u"txtSname"_s);
}

void OpenRegistration(Driver& clerk) {
    OpenForWalkIn(clerk);
    clerk.Type(u"quintos"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmCashWalkIn"_s);
    clerk.TabTo(u"cmdRegister"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmCashWalkInPatient"_s);
    clerk.ExpectFocus(u"txtInfo(0)"_s);
}

void FinishRegistration(Driver& clerk) {
    clerk.ExpectFocus(u"mskBirth"_s);
    Key(clerk, {u"05061990"_s});
    Tell(u"age "_s + clerk.Text(u"txtInfo(3)"_s));
    clerk.TabTo(u"cboSex"_s);
    clerk.Type(u"F"_s);
    clerk.TabTo(u"cmdOption(0)"_s);
    clerk.Press(Qt::Key_Return);
}

void FindAssessments(Driver& clerk, const QString& name) {
    clerk.TabTo(u"txtSearch"_s);
    clerk.Type(name);
    clerk.Press(Qt::Key_Return);
    clerk.TabTo(u"grdTable"_s);
}

void NewWalkInAssessment(Driver& clerk) {
    SignOn(clerk);
    OpenRegistration(clerk);
    Key(clerk, {u"Quintos"_s, u"Perla"_s, u"Ramos"_s});
    FinishRegistration(clerk);
    clerk.ExpectNoScreen(u"frmCashWalkInPatient"_s);
    clerk.ExpectScreen(u"frmCashWalkIn"_s);
    clerk.TabTo(u"MSHFlexCash"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmCashWalkIn"_s);
    clerk.ExpectFocus(u"txtEntry"_s);
    Tell(u"patient "_s + clerk.Text(u"txtSname"_s) + u' ' + clerk.Text(u"txtHospNum"_s));
    KeyFiveLines(clerk);
    clerk.TabTo(u"cmdPrint"_s);
    clerk.Press(Qt::Key_Return);
    CloseViewer(clerk);
    clerk.ExpectNoScreen(u"frmAssessment"_s);
    clerk.OnScreen([] { Tell(u"assessment "_s + gSlipNumber); });
}

void AssessmentStatusAndRevoke(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuReportStatus"_s);
    clerk.ExpectScreen(u"frmAssessStatus"_s);
    FindAssessments(clerk, u"quintos"_s);
    clerk.TabTo(u"cmdPrint"_s);
    clerk.Press(Qt::Key_Return);
    CloseViewer(clerk);
    clerk.TabTo(u"grdTable"_s);
    clerk.Press(Qt::Key_Return);
    AnswerBox(clerk);
    AnswerBox(clerk);
    clerk.Press(Qt::Key_Escape);
    AnswerBox(clerk);
    clerk.ExpectNoScreen(u"frmAssessStatus"_s);
}

void AssessmentOfAnApostrophe(Driver& clerk) {
    SignOn(clerk);
    OpenForWalkIn(clerk);
    clerk.Type(u"o'brien"_s);
    clerk.Press(Qt::Key_Return);
    ReadFailure(clerk);
}
