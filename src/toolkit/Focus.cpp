#include "toolkit/Focus.h"

#include "toolkit/Aside.h"

#include <QApplication>
#include <QHash>
#include <QMessageBox>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace {

/// The one place where the program's GotFocus is told from the window system's focus events.
class FocusTracker : public QObject {
  public:
    using Hold = HeldGotFocus::Hold;

    static FocusTracker& Instance() {
        // Lives as long as the application object whose focus it follows.
        static QPointer<FocusTracker> tracker;
        if (!tracker)
            tracker = new FocusTracker;
        return *tracker;
    }

    void Watch(QWidget* control, std::function<void()> handler) {
        if (!mHandlers.contains(control))
            connect(control, &QObject::destroyed, this, [this, control] { mHandlers.remove(control); });
        mHandlers[control] = std::move(handler);
    }

    void Begin(Hold& hold) { mHolds.push_back(&hold); }

    void End(Hold& hold, bool raise) {
        std::erase(mHolds, &hold);
        if (raise && hold.isDue && hold.control && mLast == hold.control)
            Tell(hold.control);
    }

    void Arrived(QWidget* control) {
        if (!control || qobject_cast<QMessageBox*>(control->window()) || StandsAside(control) ||
            control == mLast)
            return;
        mLast = control;
        Tell(control);
    }

    QWidget* Last() const { return mLast; }

  private:
    FocusTracker()
        : QObject(qApp) {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Arrived(now); });
    }

    /// Raises the GotFocus, or leaves it to the innermost hold of the control.
    void Tell(QWidget* control) {
        const auto hold = std::find_if(mHolds.rbegin(), mHolds.rend(),
                                       [control](const Hold* held) { return held->control == control; });
        if (hold != mHolds.rend()) {
            (*hold)->isDue = true;
            return;
        }
        // A copy: the handler may load a screen, whose controls come into the same table.
        if (const std::function<void()> handler = mHandlers.value(control))
            handler();
    }

    QHash<QObject*, std::function<void()>> mHandlers;
    QPointer<QWidget> mLast;
    /// The holds that live, the innermost last.
    std::vector<Hold*> mHolds;
};

} // namespace

void OnGotFocus(QWidget* control, std::function<void()> handler) {
    FocusTracker::Instance().Watch(control, std::move(handler));
}

HeldGotFocus::HeldGotFocus(QWidget* control)
    : mHold{control} {
    FocusTracker::Instance().Begin(mHold);
}

HeldGotFocus::~HeldGotFocus() {
    FocusTracker::Instance().End(mHold, false);
}

void HeldGotFocus::Release() {
    FocusTracker::Instance().End(mHold, true);
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

void FollowFocus() {
    FocusTracker::Instance();
}

QWidget* LastFocus() {
    return FocusTracker::Instance().Last();
}
