#include "tour/CashDesk.h"

#include "driver/Driver.h"
#include "tour/Album.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// Keys texts, each ended by Enter.
void Key(Driver& clerk, const QStringList& texts) {
    for (const QString& text : texts) {
        clerk.Type(text);
        clerk.Press(Qt::Key_Return);
    }
}

void Register(Driver& clerk, Album& album) {
    clerk.TabTo(u"cmdRegister"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmCashWalkInPatient"_s);
    Key(clerk, {u"DE LEON"_s, u"PERLA"_s, u"RAMOS"_s, u"05061990"_s});
    clerk.TabTo(u"txtInfo(4)"_s);
    Key(clerk, {u"12 RIZAL ST."_s, u"POBLACION"_s});
    clerk.TabTo(u"cboSex"_s);
    clerk.Type(u"F"_s);
    album.Take(u"walk-in"_s);
    clerk.TabTo(u"cmdOption(0)"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmCashWalkInPatient"_s);
}

void FindCashPatient(Driver& clerk, Album& album) {
    clerk.Press(Qt::Key_A, Qt::ControlModifier);
    clerk.ExpectScreen(u"frmAssessment"_s);
    clerk.Press(Qt::Key_Space);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Tab);
    clerk.ExpectFocus(u"txtSname"_s);
    Key(clerk, {u"de"_s});
    clerk.ExpectScreen(u"frmCashWalkIn"_s);
    Register(clerk, album);
    clerk.ExpectScreen(u"frmCashWalkIn"_s);
    album.Take(u"cash-patients"_s);
    clerk.TabTo(u"MSHFlexCash"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmCashWalkIn"_s);
}

void WriteAssessment(Driver& clerk, Album& album) {
    clerk.ExpectFocus(u"txtEntry"_s);
    // Department, code, price, quantity, amount.
    Key(clerk, {u"hc"_s, u"HC001"_s, QString(), u"1"_s, QString()});
    Key(clerk, {u"hb"_s, u"M0002"_s, QString(), u"2"_s, QString()});
    Key(clerk, {u"md"_s, u"D003"_s, u"1500"_s});
    album.Take(u"assessment"_s);
    clerk.TabTo(u"cmdPrint"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    album.Take(u"assessment-slip"_s);
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmAssessment"_s);
}

void LookItUpAgain(Driver& clerk, Album& album) {
    clerk.ChooseMenu(u"mnuReportStatus"_s);
    clerk.ExpectScreen(u"frmAssessStatus"_s);
    clerk.TabTo(u"txtSearch"_s);
    Key(clerk, {u"DE"_s});
    clerk.TabTo(u"grdTable"_s);
    album.Take(u"assessment-status"_s);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectScreen(u"MsgBox"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmAssessStatus"_s);
}

} // namespace

void VisitCashDesk(Driver& clerk, Album& album) {
    FindCashPatient(clerk, album);
    WriteAssessment(clerk, album);
    LookItUpAgain(clerk, album);
}
