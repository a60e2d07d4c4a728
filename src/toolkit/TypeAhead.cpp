#include "toolkit/TypeAhead.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <cstring>
#include <deque>
#include <xcb/xcb.h>

namespace {

/// How long keys wait for a window that does not come to the front, and a sent key for its return.
constexpr std::chrono::milliseconds kPatience(1000);
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

/// The window in front, where keys belong; null where there is none.
QWindow* Front() {
    QWindow* modal = QGuiApplication::modalWindow();
    return modal ? modal : QGuiApplication::focusWindow();
}

/// False while the focus is on its way: the window that has it is gone, or shut by a modal one.
bool IsSettled() {
    const QWindow* owner = QGuiApplication::focusWindow();
    const QWindow* modal = QGuiApplication::modalWindow();
    if (!owner || !owner->isVisible())
        return false;
    return !modal || owner == modal || owner->type() == Qt::Popup || modal->isAncestorOf(owner);
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
        return mWasHeld && key.time == mReleased;
    }

  private:
    /// In milliseconds.
    static constexpr xcb_timestamp_t kHeld = 20;

    xcb_keycode_t mKey = 0;
    xcb_timestamp_t mPressed = 0;
    xcb_timestamp_t mReleased = 0;
    bool mWasHeld = false;
};

class KeyQueue : public QObject, public QAbstractNativeEventFilter {
  public:
    KeyQueue()
        : QObject(qApp) {
        mTurn.setSingleShot(true);
        mTurn.setInterval(0);
        connect(&mTurn, &QTimer::timeout, this, &KeyQueue::Advance);
        mPatience.setSingleShot(true);
        mPatience.setInterval(kPatience);
        connect(&mPatience, &QTimer::timeout, this, &KeyQueue::LosePatience);
        connect(qApp, &QGuiApplication::focusWindowChanged, &mTurn, qOverload<>(&QTimer::start));
        qApp->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr*) override {
        const xcb_key_press_event_t* key = KeyOf(kind, message);
        if (!key)
            return false;
        if (mIsSent && (key->response_type & kSent))
            mIsSent = false;
        else if (const bool isRepeat = mHeldDown.Repeats(*key); MustWait())
            return Hold(*key, isRepeat);
        mTurn.start();
        return false;
    }

  private:
    bool MustWait() const { return mIsSent || !mWaiting.empty() || mTurn.isActive() || !IsSettled(); }

    bool Hold(const xcb_key_press_event_t& key, bool isRepeat) {
        // A key that is held down does not type ahead: it would go on through the screens below.
        if (!isRepeat)
            mWaiting.push_back(key);
        mTurn.start();
        return true;
    }

    void Advance() {
        if (mWaiting.empty() || mIsSent)
            return;
        if (IsSettled())
            SendNext();
        else if (!mPatience.isActive())
            mPatience.start();
    }

    void LosePatience() {
        mIsSent = false;
        if (!mWaiting.empty())
            SendNext();
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
        mPatience.start();
    }

    std::deque<xcb_key_press_event_t> mWaiting;
    /// Runs while a key is with the program: it has it, but may not have done all that the key does.
    QTimer mTurn;
    QTimer mPatience;
    /// A key that waited is on its way back from the server.
    bool mIsSent = false;
    HeldDown mHeldDown;
};

} // namespace

void KeepTypedAhead() {
    if (qApp->nativeInterface<QNativeInterface::QX11Application>())
        new KeyQueue;
}
