#include "toolkit/ShowModal.h"

#include "toolkit/Focus.h"

#include <QApplication>
#include <QDialog>

namespace {

/// Right after another dialog has closed the desktop may not have activated the screen below it yet.
QWidget* WindowInUse() {
    QWidget* active = QApplication::activeWindow();
    return active ? active : QApplication::activeModalWidget();
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
