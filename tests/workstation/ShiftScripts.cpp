#include "workstation/ShiftScripts.h"

#include "workstation/ClerkKeys.h"

#include <QLineEdit>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Tells how far the shift has come, and waits until the test lets it go on.
void Pause(const QString& step) {
    Tell(step);
    std::fflush(stdout);
    std::getchar();
}

void SaveSlip(Driver& clerk) {
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    KeyThreeLines(clerk);
    PressSave(clerk);
    CloseSlip(clerk);
}

void KeyWrongPassword(Driver& clerk, const QString& user) {
    clerk.ExpectScreen(u"SignOnDialog"_s);
    clerk.OnScreen([] { dynamic_cast<QLineEdit&>(VisibleControl(u"txtUser"_s)).setFocus(); });
    clerk.OnScreen([] { dynamic_cast<QLineEdit&>(VisibleControl(u"txtUser"_s)).clear(); });
    clerk.Type(user);
    clerk.Press(Qt::Key_Tab);
    clerk.Type(u"wrong"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"lblProblem"_s);
}

} // namespace

void ShiftInSteps(Driver& clerk) {
    SignOn(clerk);
    Pause(u"signed on"_s);
    SaveSlip(clerk);
    Pause(u"slip saved"_s);
    clerk.ChooseMenu(u"mnuReportAudit"_s);
    clerk.TabTo(u"cmdView"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmReportviewer"_s);
    Pause(u"report printed"_s);
    SaveSlip(clerk);
    Pause(u"second slip saved"_s);
    clerk.ChooseMenu(u"mnuExit"_s);
    clerk.WaitFor([] { return false; }, u"the program did not end"_s);
}

void WrongPassword(Driver& clerk) {
    KeyWrongPassword(clerk, u"CLERK"_s);
    Tell(clerk.Text(u"lblProblem"_s));
    clerk.Press(Qt::Key_Escape);
    clerk.WaitFor([] { return false; }, u"the program did not end"_s);
}

void ThirdTry(Driver& clerk) {
    KeyWrongPassword(clerk, u"NURSE"_s);
    KeyWrongPassword(clerk, u"NURSE"_s);
    clerk.ExpectFocus(u"txtPassword"_s);
    clerk.Type(u"nurse"_s);
    clerk.Press(Qt::Key_Return);
    AnswerBox(clerk);
    clerk.ExpectNoScreen(u"SignOnDialog"_s);
}
