#include "workstation/ClerkKeys.h"

#include "components/shared.h"

#include <QMessageBox>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void GoToGrid(Driver& clerk) {
    clerk.TabTo(u"txtDocID"_s);
    clerk.Type(u"D001"_s);
    clerk.Press(Qt::Key_Return);
    clerk.TabTo(u"txtEntry"_s);
}

} // namespace

void Tell(const QString& what) {
    std::printf("%s\n", qPrintable(what));
}

void ReadFailure(Driver& clerk) {
    clerk.ExpectScreen(u"Failure"_s);
    clerk.OnScreen([] {
        const auto* box = qobject_cast<QMessageBox*>(&VisibleControl(u"Failure"_s));
        Tell(box->text().simplified());
        std::fflush(stdout);
    });
    clerk.Press(Qt::Key_Return);
}

void Key(Driver& clerk, const QStringList& texts) {
    for (const QString& text : texts) {
        clerk.Type(text);
        clerk.Press(Qt::Key_Return);
    }
}

void FindPatient(Driver& clerk, const QString& menuItem, const QString& name) {
    clerk.ChooseMenu(menuItem);
    clerk.ExpectFocus(u"txtLastName"_s);
    clerk.Type(name);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmSearchPatient"_s);
    clerk.ExpectFocus(u"ListView1"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmSearchPatient"_s);
    Tell(u"patient "_s + clerk.Text(u"txtPno"_s) + u' ' + clerk.Text(u"txtId"_s));
}

void PressSave(Driver& clerk) {
    clerk.TabTo(u"cmdPrint"_s);
    clerk.Press(Qt::Key_Return);
}

void CloseSlip(Driver& clerk) {
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmPostCharges"_s);
    clerk.OnScreen([] { Tell(u"slip "_s + gSlipNumber); });
}

void KeyThreeLines(Driver& clerk) {
    GoToGrid(clerk);
    // Department, code, quantity, price; an HC line ends there.
    Key(clerk, {u"hc"_s, u"HC001"_s, u"2"_s, QString()});
    Key(clerk, {u"hb"_s, u"M0002"_s, u"3"_s, QString(), QString()});
    Key(clerk, {u"md"_s, u"D003"_s, u"1500"_s});
    Tell(u"total "_s + clerk.Text(u"txtTAmount"_s));
}

void AnswerBox(Driver& clerk) {
    clerk.ExpectScreen(u"MsgBox"_s);
    clerk.OnScreen([] {
        const auto* box = qobject_cast<QMessageBox*>(&VisibleControl(u"MsgBox"_s));
        Tell(box->text());
    });
    clerk.Press(Qt::Key_Return);
}
