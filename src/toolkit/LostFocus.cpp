#include "toolkit/LostFocus.h"

#include "toolkit/Focus.h"
#include "toolkit/ModalStack.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>
#include <QWindow>

namespace {

bool TakesFocus(const QWidget* control) {
    return control && control->isVisible() && control->isEnabled() &&
           (control->focusPolicy() & Qt::TabFocus) != 0;
}

/// The control itself or the first in the order of Tab inside it; null for none.
QWidget* FirstIn(QWidget* scope) {
    if (TakesFocus(scope))
        return scope;
    for (QWidget* control = scope->nextInFocusChain(); control && control != scope;
         control = control->nextInFocusChain()) {
        if (scope->isAncestorOf(control) && TakesFocus(control))
            return control;
    }
    return nullptr;
}

/// The screen in front of the window: of a main window the one in its area, itself where there is none.
QWidget* ScreenOf(QWidget* window) {
    const auto* area = window->findChild<QMdiArea*>();
    const QMdiSubWindow* front = area ? area->currentSubWindow() : nullptr;
    return front ? front->widget() : window;
}

/// True where keys would go to a frame that does nothing with them.
bool IsLost(const QWidget* owner) {
    return !owner || !owner->isVisible() || owner->isWindow() || qobject_cast<const QMdiSubWindow*>(owner) ||
           qobject_cast<const QMdiSubWindow*>(owner->parentWidget());
}

/// The control that had the focus last, or the nearest one around it; null where it stood elsewhere.
QWidget* NearestIn(QWidget* screen, QWidget* last) {
    if (!last || !screen->isAncestorOf(last))
        return nullptr;
    for (QWidget* scope = last; scope && scope != screen; scope = scope->parentWidget()) {
        if (QWidget* control = FirstIn(scope))
            return control;
    }
    return nullptr;
}

QWidget* HeirIn(QWidget* screen) {
    if (QWidget* kept = screen->focusWidget(); TakesFocus(kept))
        return kept;
    QWidget* nearest = NearestIn(screen, LastFocus());
    return nearest ? nearest : FirstIn(screen);
}

void GiveFocus() {
    // A window that is not active yet gets the focus by the window system, where its screen has put it.
    QWidget* window = QApplication::activeWindow();
    if (!window || ModalStack::Covers(window) || QApplication::activePopupWidget() ||
        !IsLost(QApplication::focusWidget()))
        return;
    if (QWidget* heir = HeirIn(ScreenOf(window)))
        heir->setFocus(Qt::ActiveWindowFocusReason);
}

} // namespace

void CatchLostFocus() {
    auto* settled = new QTimer(qApp);
    settled->setSingleShot(true);
    QObject::connect(settled, &QTimer::timeout, qApp, GiveFocus);
    // The window system may still be on its way to give the focus: the net waits until it has told all it
    // knew.
    QObject::connect(qApp, &QApplication::focusChanged, settled, [settled](QWidget*, const QWidget* now) {
        if (!now)
            settled->start(0);
    });
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, settled, [settled] { settled->start(0); });
}
