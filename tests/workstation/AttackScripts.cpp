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

/// Goes into a box by the mouse; what is typed takes the place of its text.
void GoInto(Driver& clerk, const QString& box) {
    clerk.OnScreen([&box] {
        auto& text = dynamic_cast<QLineEdit&>(VisibleControl(box));
        text.setFocus();
        text.selectAll();
    });
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

/// Ends the text of the box and goes on with a statement of its own.
const QString kStatement = u"X';UPDATE BILLING..tbPatientCharges SET UserID = 'ADMIN', Amount = 0--"_s;

/// Looks a patient up by that text on a screen of the menu.
void LookUpAndFail(Driver& clerk, const QString& menuItem) {
    SignOn(clerk);
    clerk.ChooseMenu(menuItem);
    clerk.ExpectFocus(u"txtLastName"_s);
    clerk.Type(kStatement);
    clerk.Press(Qt::Key_Return);
    ReadFailure(clerk);
}

/// Registers a walk-in of that first name.
void RegisterAs(Driver& clerk, const QString& firstName) {
    SignOn(clerk);
    OpenRegistration(clerk);
    Key(clerk, {u"Zztest"_s, firstName, u"Ramos"_s});
    FinishRegistration(clerk);
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
    GoInto(clerk, u"txtSname"_s);
    clerk.Type(u"X','HC001','HC','1','-5000','HC','ADMIN','','','',''--"_s);
    SaveAndFail(clerk, u"cmdSave"_s);
}

void TailInAnAssessmentsAmount(Driver& clerk) {
    OpenAssessmentOfAWalkIn(clerk);
    KeyFee(clerk);
    TypeAndLeave(clerk, u"-5000','HC','ADMIN','','','',''--"_s);
    SaveAndFail(clerk, u"cmdSave"_s);
}

void StatementInTheFindersName(Driver& clerk) {
    LookUpAndFail(clerk, u"mnuInTransactionEntry"_s);
}

void StatementInTheChargeListsName(Driver& clerk) {
    LookUpAndFail(clerk, u"mnuListCharges"_s);
}

void StatementInTheStatusSearch(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuReportStatus"_s);
    clerk.ExpectScreen(u"frmAssessStatus"_s);
    clerk.TabTo(u"txtSearch"_s);
    clerk.Type(kStatement);
    clerk.Press(Qt::Key_Return);
    ReadFailure(clerk);
}

void StatementInAWalkInsName(Driver& clerk) {
    RegisterAs(clerk, kStatement);
    ReadFailure(clerk);
}

void TailInAWalkInsName(Driver& clerk) {
    RegisterAs(clerk, u"Ana','','','','','01/02/1990','36','F','1'--"_s);
    clerk.ExpectScreen(u"frmCashWalkIn"_s);
}

void TailInTheDoctorsCode(Driver& clerk) {
    OpenCharges(clerk);
    Key(clerk, {u"md"_s, u"D003"_s, u"1500"_s});
    clerk.TabTo(u"txtDocID"_s);
    clerk.Type(u"D001','DR. X','O','FEE'--"_s);
    PressSave(clerk);
    CloseSlip(clerk);
}
