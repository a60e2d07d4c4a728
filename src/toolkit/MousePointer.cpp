#include "toolkit/MousePointer.h"

#include <QCursor>
#include <QGuiApplication>

void SetMousePointer(MousePointer pointer) {
    if (pointer == CurrentMousePointer())
        return;
    if (pointer == MousePointer::Wait)
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    else
        QGuiApplication::restoreOverrideCursor();
}

MousePointer CurrentMousePointer() {
    return QGuiApplication::overrideCursor() ? MousePointer::Wait : MousePointer::Default;
}
