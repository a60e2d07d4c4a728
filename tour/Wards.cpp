#include "tour/Wards.h"

#include "driver/Driver.h"
#include "tour/Album.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPalette>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

void ListCharges(Driver& clerk, Album& album) {
    clerk.ChooseMenu(u"mnuListCharges"_s);
    clerk.ExpectFocus(u"txtLastName"_s);
    clerk.Type(u"de"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmSearchPatient"_s);
    clerk.ExpectFocus(u"ListView1"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmSearchPatient"_s);
    clerk.TabTo(u"cmdList"_s);
    clerk.Press(Qt::Key_Return);
    clerk.TabTo(u"cmdOption(1)"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"MsgBox"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"MsgBox"_s);
    album.Take(u"list-of-charges"_s);
    clerk.Press(Qt::Key_F4, Qt::ControlModifier);
    clerk.ExpectNoScreen(u"frmListCharges"_s);
}

/// A picture of the strip in each of its colours.
void WatchStrip(Driver& clerk, Album& album) {
    const auto colour = [] {
        return VisibleControl(u"pctPending"_s).palette().color(QPalette::Window).rgb();
    };
    QRgb first = 0;
    clerk.OnScreen([&] { first = colour(); });
    album.Take(u"requests-waiting"_s);
    clerk.WaitFor([&] { return colour() != first; }, u"the strip's other colour"_s);
    album.Take(u"requests-waiting-flash"_s);
}

void TakeRequest(Driver& clerk, Album& album) {
    clerk.OnScreen([] {
        QWidget& bell = VisibleControl(u"Image1"_s);
        const QPointF place = bell.rect().center();
        // Through the event queue, since the handler opens a modal screen.
        QCoreApplication::postEvent(&bell, new QMouseEvent(QEvent::MouseButtonDblClick, place,
                                                           bell.mapToGlobal(place), Qt::LeftButton,
                                                           Qt::LeftButton, Qt::NoModifier));
    });
    clerk.ExpectScreen(u"frmNursingRequest"_s);
    clerk.ExpectFocus(u"grdRequest"_s);
    album.Take(u"request-queue"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmNursingRequest"_s);
    clerk.ExpectScreen(u"frmPostCharges"_s);
    album.Take(u"request-in-hand"_s);
}

} // namespace

void VisitWards(Driver& clerk, Album& album) {
    ListCharges(clerk, album);
    WatchStrip(clerk, album);
    TakeRequest(clerk, album);
}
