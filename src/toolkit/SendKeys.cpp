#include "toolkit/SendKeys.h"

#include "toolkit/Focus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

void SendTab() {
    QTimer::singleShot(0, qApp, [] {
        QWidget* receiver = FocusOwner();
        if (!receiver)
            return;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
        QApplication::sendEvent(receiver, &press);
    });
}
