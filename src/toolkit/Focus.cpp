#include "toolkit/Focus.h"

#include <QApplication>
#include <QHash>
#include <QMessageBox>
#include <QPointer>
#include <QWidget>

namespace {

/// The one place where the program's GotFocus is told from the window system's focus events.
class FocusTracker : public QObject {
  public:
    static FocusTracker& Instance() {
        // Lives as long as the application object whose focus it follows.
        static QPointer<FocusTracker> tracker;
        if (!tracker)
            tracker = new FocusTracker;
        return *tracker;
    }

    void Watch(QWidget* control, std::function<void()> handler) {
        connect(control, &QObject::destroyed, this, [this, control] { mHandlers.remove(control); });
        mHandlers.insert(control, std::move(handler));
    }

    void Hold(QWidget* control) {
        mHeld = control;
        mHeldIsDue = false;
    }

    void Release(bool raise) {
        const QPointer<QWidget> control = mHeld;
        mHeld = nullptr;
        if (raise && control && mHeldIsDue && mLast == control)
            Raise(control);
    }

    void Arrived(QWidget* control) {
        if (!control || qobject_cast<QMessageBox*>(control->window()) || control == mLast)
            return;
        mLast = control;
        if (control == mHeld)
            mHeldIsDue = true;
        else
            Raise(control);
    }

    QWidget* Last() const { return mLast; }

    void Reset() {
        mLast = nullptr;
        mHeld = nullptr;
    }

  private:
    FocusTracker()
        : QObject(qApp) {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Arrived(now); });
    }

    void Raise(QWidget* control) {
        const auto handler = mHandlers.constFind(control);
        if (handler != mHandlers.constEnd())
            (*handler)();
    }

    QHash<QObject*, std::function<void()>> mHandlers;
    QPointer<QWidget> mLast;
    QPointer<QWidget> mHeld;
    bool mHeldIsDue = false;
};

} // namespace

void OnGotFocus(QWidget* control, std::function<void()> handler) {
    FocusTracker::Instance().Watch(control, std::move(handler));
}

HeldGotFocus::HeldGotFocus(QWidget* control) {
    FocusTracker::Instance().Hold(control);
}

HeldGotFocus::~HeldGotFocus() {
    if (!mReleased)
        FocusTracker::Instance().Release(false);
}

void HeldGotFocus::Release() {
    mReleased = true;
    FocusTracker::Instance().Release(true);
}

void FocusReturned(QWidget* control) {
    FocusTracker::Instance().Arrived(control);
}

QWidget* FocusOwner() {
    // The control of a window that has just closed may count as the one with the focus for a while.
    for (QWidget* control : {QApplication::focusWidget(), FocusTracker::Instance().Last()}) {
        if (control && control->isVisible())
            return control;
    }
    return nullptr;
}

void ResetFocusTracking() {
    FocusTracker::Instance().Reset();
}
