#include "workstation/AttackScripts.h"

#include "workstation/CashDeskScripts.h"
#include "workstation/ClerkKeys.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

/// Keys a department and a code; the editor stands on the amount of a doctor's fee.
void KeyFee(Driver& clerk) {
    Key(clerk, {u"md"_s, u"D003"_s});
}

void OpenCharges(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    clerk.TabTo(u"txtEntry"_s);
}

/// Types a text into the cell and leaves it by an arrow key, so that it stays as it was typed.
void TypeAndLeave(Driver& clerk, const QString& text) {
    clerk.Type(text);
    clerk.Press(Qt::Key_Down);
}

/// Takes a walk-in into the assessment, so that lines can be keyed.
void OpenAssessmentOfAWalkIn(Driver& clerk) {
    SignOn(clerk);
    OpenForWalkIn(clerk);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmCashWalkIn"_s);
    clerk.TabTo(u"MSHFlexCash"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmCashWalkIn"_s);
    clerk.ExpectFocus(u"txtEntry"_s);
}

void SaveAndFail(Driver& clerk, const QString& button) {
    clerk.TabTo(button);
    clerk.Press(Qt::Key_Return);
    ReadFailure(clerk);
}

} // namespace

void TailInAFeesAmount(Driver& clerk) {
    OpenCharges(clerk);
    KeyFee(clerk);
    TypeAndLeave(clerk, u"-5000','ADMIN','P306','D001','DR. X','I','FEE'--"_s);
    SaveAndFail(clerk, u"cmdPrint"_s);
}

void TailInAFeesCode(Driver& clerk) {
    OpenCharges(clerk);
    Key(clerk, {u"md"_s});
    TypeAndLeave(clerk, u"D003','','H9999C','-5000','ADMIN','P306','D001','DR. X','I','FEE'--"_s);
    SaveAndFail(clerk, u"cmdPrint"_s);
}

void TailInAPatientsName(Driver& clerk) {
    OpenAssessmentOfAWalkIn(clerk);
    Key(clerk, {u"hc"_s, u"HC001"_s, QString(), u"1"_s, QString()});
    clerk.OnScreen([] {
        auto& name = dynamic_cast<QLineEdit&>(VisibleControl(u"txtSname"_s));
        name.setFocus();
        name.selectAll();
    });
    clerk.Type(u"X','HC001','HC','1','-5000','HC','ADMIN','','','',''--"_s);
    SaveAndFail(clerk, u"cmdSave"_s);
}

void TailInAnAssessmentsAmount(Driver& clerk) {
    OpenAssessmentOfAWalkIn(clerk);
    KeyFee(clerk);
    TypeAndLeave(clerk, u"-5000','HC','ADMIN','','','',''--"_s);
    SaveAndFail(clerk, u"cmdSave"_s);
}
