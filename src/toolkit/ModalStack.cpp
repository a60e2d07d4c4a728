#include "toolkit/ModalStack.h"

#include "toolkit/Failure.h"
#include "toolkit/Focus.h"
#include "toolkit/Form.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

/// The frames of the screens, the one that was opened last at the end.
std::vector<ModalStack::ScreenFrame*>& Frames() {
    static std::vector<ModalStack::ScreenFrame*> frames;
    return frames;
}

QPointer<Form> shownInPlace;

/// Right after another dialogue has closed the desktop may not have activated the window below it yet: the
/// control to which the focus is coming back tells which one that is.
QWidget* WindowInUse() {
    if (QWidget* active = QApplication::activeWindow(); active && active->isVisible())
        return active;
    if (QWidget* top = ModalStack::Top())
        return top;
    const QWidget* owner = FocusOwner();
    return owner ? owner->window() : nullptr;
}

QWidget* FocusIn(const QWidget* window) {
    QWidget* focus = QApplication::focusWidget();
    return focus || !window ? focus : window->focusWidget();
}

} // namespace

ModalStack::Frame::Frame()
    : mWindow(WindowInUse())
    , mFocus(FocusIn(mWindow)) {}

ModalStack::Frame::~Frame() {
    // The control's GotFocus may fail, and nobody is behind a destructor to hear of it.
    try {
        GiveBack();
    } catch (...) {
        Failure::End(std::current_exception());
    }
}

void ModalStack::Frame::GiveBack() const {
    if (mWindow && mWindow->isVisible())
        Activate(*mWindow);
    if (!mFocus || !mFocus->isVisible())
        return;
    mFocus->setFocus(Qt::ActiveWindowFocusReason);
    FocusReturned(mFocus);
}

ModalStack::ScreenFrame::ScreenFrame(const Form& screen)
    : mScreen(screen)
    , mBefore(Form::Active()) {
    Frames().push_back(this);
}

ModalStack::ScreenFrame::~ScreenFrame() {
    std::erase(Frames(), this);
}

void ModalStack::ScreenFrame::Close() {
    shownInPlace = nullptr;
    mLoop.quit();
}

Form* ModalStack::ScreenFrame::Before() const {
    return mBefore;
}

QWidget* ModalStack::Top() {
    // The window system's answer: it knows of the windows that dialogues open by themselves, and of those
    // that are hidden while their frame has yet to end.
    return QApplication::activeModalWidget();
}

bool ModalStack::Covers(const QWidget* window) {
    const QWidget* top = Top();
    return top && top != window;
}

ModalStack::ScreenFrame* ModalStack::FrameOf(const Form& screen) {
    const auto found = std::find_if(Frames().begin(), Frames().end(), [&screen](const ScreenFrame* frame) {
        return &frame->mScreen == &screen;
    });
    return found == Frames().end() ? nullptr : *found;
}

void ModalStack::Activate(QWidget& window) {
    constexpr std::chrono::milliseconds kMoment(250);
    static QPointer<QWidget> wanted;
    wanted = &window;
    if (!window.isModal())
        window.activateWindow();
    else
        QTimer::singleShot(0, &window, [&window] {
            if (wanted == &window && window.isVisible() && !Covers(&window))
                window.activateWindow();
        });
    QTimer::singleShot(kMoment, &window, [&window] {
        if (window.isVisible() && !QApplication::activeWindow() && !Covers(&window))
            window.activateWindow();
    });
}

void ModalStack::Shown(Form& screen) {
    shownInPlace = &screen;
}

Form* ModalStack::ShownInPlace() {
    return shownInPlace;
}
