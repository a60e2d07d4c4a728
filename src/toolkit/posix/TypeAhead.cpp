#include "toolkit/TypeAhead.h"

#include "toolkit/Aside.h"

#include <QAbstractNativeEventFilter>
#include <QAccessible>
#include <QApplication>
#include <QBasicTimer>
#include <QTimerEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <xcb/xcb.h>

namespace {

/// How long keys wait for a window that does not come to the front, and a sent key for its return.
constexpr std::chrono::milliseconds kPatience(1000);
/// How much longer keys wait for it once it was asked to the front.
constexpr std::chrono::milliseconds kPatienceOnceAsked(4000);
/// How long keys wait for one that a screen reader has been told of.
constexpr std::chrono::milliseconds kReadersPatience(200);
constexpr uint8_t kSent = 0x80;

/// A press or a release; the server tells both in the same form. Null for any other event.
const xcb_key_press_event_t* KeyOf(const QByteArray& kind, const void* message) {
    if (kind != "xcb_generic_event_t")
        return nullptr;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const int type = event->response_type & ~kSent;
    const bool isKey = type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE;
    return isKey ? reinterpret_cast<const xcb_key_press_event_t*>(event) : nullptr;
}

bool IsPress(const xcb_key_press_event_t& key) {
    return (key.response_type & ~kSent) == XCB_KEY_PRESS;
}

/// The window in front, where keys belong; null where nothing is shown. A window that stands aside may have
/// the focus over a modal one.
QWindow* Front() {
    QWindow* owner = QGuiApplication::focusWindow();
    const bool hasOwner = owner && owner->isVisible();
    if (hasOwner && StandsAside(QWidget::find(owner->winId())))
        return owner;
    if (QWindow* modal = QGuiApplication::modalWindow())
        return modal;
    if (hasOwner)
        return owner;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWindow* window) {
        return window->isVisible() && window->type() != Qt::ToolTip && window->type() != Qt::Popup;
    });
    return shown == windows.end() ? nullptr : *shown;
}

/// False while the focus is on its way: the window that has it is gone, or shut by a modal one.
bool IsSettled() {
    const QWindow* owner = QGuiApplication::focusWindow();
    const QWindow* modal = QGuiApplication::modalWindow();
    if (!owner || !owner->isVisible())
        return false;
    return !modal || owner == modal || owner->type() == Qt::Popup || modal->isAncestorOf(owner);
}

/// True where the server gives the keys to another program, to which the clerk has gone.
bool IsElsewhere(xcb_connection_t* server) {
    xcb_get_input_focus_reply_t* reply =
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr);
    const xcb_window_t owner = reply ? reply->focus : xcb_window_t(XCB_NONE);
    std::free(reply);
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const bool isOurs = std::any_of(windows.begin(), windows.end(), [owner](QWindow* window) {
        return window->handle() && window->winId() == owner;
    });
    return owner != XCB_NONE && owner != XCB_INPUT_FOCUS_POINTER_ROOT && !isOurs;
}

/// Tells the presses that the server makes up for a key that is held down: each comes at the moment of a
/// release that it makes up too, some time after the press before. A scanner's keys are down for no time.
class HeldDown {
  public:
    bool Repeats(const xcb_key_press_event_t& key) {
        if (key.detail != mKey) {
            mKey = key.detail;
            mReleased = 0;
        }
        if (!IsPress(key)) {
            mWasHeld = key.time - mPressed >= kHeld;
            mReleased = key.time;
            return false;
        }
        mPressed = key.time;
        return mWasHeld && key.time - mReleased <= kAtOnce;
    }

  private:
    /// In milliseconds.
    static constexpr xcb_timestamp_t kHeld = 20;
    static constexpr xcb_timestamp_t kAtOnce = 1;

    xcb_keycode_t mKey = 0;
    xcb_timestamp_t mPressed = 0;
    xcb_timestamp_t mReleased = 0;
    bool mWasHeld = false;
};

/// The moment of the last press that was made up.
xcb_timestamp_t lastRepeat = 0;

class KeyQueue : public QObject, public QAbstractNativeEventFilter {
  public:
    KeyQueue()
        : QObject(qApp) {
        connect(qApp, &QGuiApplication::focusWindowChanged, this, &KeyQueue::StartTurn);
        qApp->installNativeEventFilter(this);
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* target, QEvent* event) override {
        const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
        if ((isKey && target->isWindowType()) || event->type() == QEvent::Shortcut)
            TakeBack();
        return false;
    }

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr*) override {
        const xcb_key_press_event_t* key = KeyOf(kind, message);
        if (!key)
            return false;
        if (mIsSent && (key->response_type & kSent)) {
            Arrived();
        } else {
            const bool isRepeat = mHeldDown.Repeats(*key);
            if (isRepeat)
                lastRepeat = key->time;
            if (MustWait(isRepeat))
                return Hold(*key, isRepeat);
        }
        StartTurn();
        LendToReader();
        return false;
    }

  private:
    /// A repeat comes in one go with the release before it, which waits for nothing either.
    bool MustWait(bool isRepeat) const {
        const bool isInHand = mTurn.isActive() || mAtReader.isActive();
        return mIsSent || !mWaiting.empty() || (isInHand && !isRepeat) || !IsSettled();
    }

    /// While a screen reader runs, the toolkit tells it of each key and goes on with that when the answer has
    /// come. The next key does not overtake it: the Alt of Alt+Q would close the menu that the Q has opened.
    void LendToReader() {
        if (QAccessible::isActive())
            mAtReader.start(int(kReadersPatience.count()), this);
    }

    void TakeBack() {
        if (!mAtReader.isActive())
            return;
        mAtReader.stop();
        StartTurn();
    }

    bool Hold(const xcb_key_press_event_t& key, bool isRepeat) {
        // A key that is held down does not type ahead: it would go on through the screens below.
        if (!isRepeat)
            mWaiting.push_back(key);
        StartTurn();
        return true;
    }

    void Arrived() {
        mIsSent = false;
        mPatience.stop();
    }

    void StartTurn() { mTurn.start(0, this); }

    void timerEvent(QTimerEvent* event) override {
        if (event->timerId() == mTurn.timerId()) {
            mTurn.stop();
            Advance();
        } else if (event->timerId() == mAtReader.timerId()) {
            TakeBack();
        } else {
            mPatience.stop();
            LosePatience();
        }
    }

    void Advance() {
        if (mWaiting.empty() || mIsSent || mAtReader.isActive())
            return;
        if (IsSettled()) {
            mHasAsked = false;
            SendNext();
        } else if (!mPatience.isActive()) {
            StartPatience(kPatience);
        }
    }

    void StartPatience(std::chrono::milliseconds patience) { mPatience.start(int(patience.count()), this); }

    void LosePatience() {
        mIsSent = false;
        if (!mWaiting.empty() && !AskToFront())
            SendNext();
    }

    /// A window that the desktop has not brought to the front takes letters, but none of its shortcuts works
    /// there. False where there is nothing to ask for, or where it was asked in vain.
    bool AskToFront() {
        auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
        QWindow* front = Front();
        if (mHasAsked || IsSettled() || !x11 || !front || IsElsewhere(x11->connection()))
            return false;
        mHasAsked = true;
        front->requestActivate();
        StartPatience(kPatienceOnceAsked);
        return true;
    }

    /// The server brings the key back as an event of the window in front.
    void SendNext() {
        auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
        QWindow* front = Front();
        if (!x11 || !front) {
            mWaiting.clear();
            return;
        }
        xcb_key_press_event_t key = mWaiting.front();
        mWaiting.pop_front();
        key.event = xcb_window_t(front->winId());
        const auto mask = IsPress(key) ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE;
        xcb_send_event(x11->connection(), 0, key.event, mask, reinterpret_cast<const char*>(&key));
        xcb_flush(x11->connection());
        mIsSent = true;
        StartPatience(kPatience);
    }

    std::deque<xcb_key_press_event_t> mWaiting;
    // The three are none of the timers that rest while a failure is told: its box is closed by a key.
    /// Runs while a key is with the program: it has it, but may not have done all that the key does.
    QBasicTimer mTurn;
    QBasicTimer mPatience;
    /// Runs while a screen reader has a key.
    QBasicTimer mAtReader;
    /// A key that waited is on its way back from the server.
    bool mIsSent = false;
    /// The window in front was asked to come there, and has not come yet.
    bool mHasAsked = false;
    HeldDown mHeldDown;
};

} // namespace

void KeepTypedAhead() {
    if (qApp->nativeInterface<QNativeInterface::QX11Application>())
        new KeyQueue;
}

bool IsMadeUpPress(quint64 moment) {
    return moment != 0 && moment == lastRepeat;
}
