#include "toolkit/ShowModal.h"

#include "toolkit/Focus.h"

#include <QApplication>
#include <QDialog>

FocusKeeper::FocusKeeper()
    : mWindow(QApplication::activeWindow())
    , mFocus(QApplication::focusWidget()) {}

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
