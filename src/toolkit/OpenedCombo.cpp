#include "toolkit/OpenedCombo.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace {

/// Keys by which a list that is shut goes on to another entry.
bool PassesOn(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return !event.text().isEmpty() && event.text().front().isPrint();
    }
}

} // namespace

void OpenedCombo::keyPressEvent(QKeyEvent* event) {
    if (PassesOn(*event))
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

void OpenedCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
