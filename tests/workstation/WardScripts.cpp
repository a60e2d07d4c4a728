#include "workstation/WardScripts.h"

#include "components/shared.h"
#include "toolkit/FlexGrid.h"
#include "workstation/ClerkKeys.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Tells the test that the program is idle, at once.
void TellIdle() {
    Tell(u"idle"_s);
    std::fflush(stdout);
}

/// Double-clicks a control. The click goes through the event queue, since its handler opens a modal screen.
void DoubleClick(Driver& clerk, const QString& name) {
    clerk.OnScreen([name] {
        QWidget& control = VisibleControl(name);
        const QPointF place = control.rect().center();
        QCoreApplication::postEvent(&control, new QMouseEvent(QEvent::MouseButtonDblClick, place,
                                                              control.mapToGlobal(place), Qt::LeftButton,
                                                              Qt::LeftButton, Qt::NoModifier));
    });
}

void TellChargeScreen(Driver& clerk) {
    for (const QString& box : {u"txtPno"_s, u"txtId"_s, u"txtLastName"_s, u"txtSex"_s, u"txtRoom"_s})
        Tell(box + u' ' + clerk.Text(box));
    clerk.OnScreen([] {
        const FlexCells& cells = dynamic_cast<FlexGrid&>(VisibleControl(u"grdTable"_s)).Cells();
        QStringList line;
        for (int col = 1; col <= 6; ++col)
            line << cells.TextMatrix(1, col);
        Tell(u"line "_s + line.join(u'|'));
    });
}

} // namespace

void WardRequest(Driver& clerk) {
    SignOn(clerk);
    clerk.ExpectNoScreen(u"pctPending"_s);
    TellIdle();
    clerk.ExpectScreen(u"pctPending"_s);
    clerk.ExpectScreen(u"Label1"_s);
    DoubleClick(clerk, u"Image1"_s);
    clerk.ExpectScreen(u"frmNursingRequest"_s);
    clerk.ExpectFocus(u"grdRequest"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmNursingRequest"_s);
    clerk.ExpectScreen(u"frmPostCharges"_s);
    clerk.ExpectNoScreen(u"txtEntry"_s);
    TellChargeScreen(clerk);
    clerk.TabTo(u"cmdPrint"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmPostCharges"_s);
    clerk.ExpectNoScreen(u"pctPending"_s);
    clerk.ExpectNoScreen(u"Label1"_s);
    clerk.OnScreen([] { Tell(u"slip "_s + gSlipNumber); });
}

void IdleUntilFailure(Driver& clerk) {
    SignOn(clerk);
    TellIdle();
    ReadFailure(clerk);
}

void ModalUntilFailure(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuReportStatus"_s);
    clerk.ExpectScreen(u"frmAssessStatus"_s);
    TellIdle();
    ReadFailure(clerk);
}
