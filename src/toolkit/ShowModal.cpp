#include "toolkit/ShowModal.h"

#include "toolkit/Focus.h"

#include <QApplication>
#include <QDialog>

namespace {

/// Right after another dialogue has closed the desktop may not have activated the window below it yet: the
/// control to which the focus is coming back tells which one that is.
QWidget* WindowInUse() {
    if (QWidget* active = QApplication::activeWindow(); active && active->isVisible())
        return active;
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    const QWidget* owner = FocusOwner();
    return owner ? owner->window() : nullptr;
}

QWidget* FocusIn(const QWidget* window) {
    QWidget* focus = QApplication::focusWidget();
    return focus || !window ? focus : window->focusWidget();
}

} // namespace

FocusKeeper::FocusKeeper()
    : mWindow(WindowInUse())
    , mFocus(FocusIn(mWindow)) {}

FocusKeeper::~FocusKeeper() {
    if (mWindow && mWindow->isVisible())
        mWindow->activateWindow();
    if (!mFocus || !mFocus->isVisible())
        return;
    mFocus->setFocus(Qt::ActiveWindowFocusReason);
    FocusReturned(mFocus);
}

bool ShowModal(QDialog& dialog) {
    const FocusKeeper keeper;
    return dialog.exec() == QDialog::Accepted;
}
