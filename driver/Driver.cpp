#include "driver/Driver.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <future>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kPatience = std::chrono::seconds(20);
/// Longer, since a program that makes its trial hospital takes no step meanwhile.
constexpr auto kLoopPatience = std::chrono::seconds(100);
constexpr auto kPause = std::chrono::milliseconds(5);
/// Sent keys and other work that a handler puts off wait for the event loop at most this often.
constexpr int kIdleRounds = 4;
constexpr int kMostTabs = 40;

QWidget* FindVisible(const QString& name) {
    QWidgetList roots;
    if (QWidget* modal = QApplication::activeModalWidget())
        roots << modal;
    roots << QApplication::topLevelWidgets();
    for (QWidget* root : roots) {
        if (root->objectName() == name && root->isVisible())
            return root;
        for (QWidget* control : root->findChildren<QWidget*>(name)) {
            if (control->isVisible())
                return control;
        }
    }
    return nullptr;
}

/// Whether a control works on something by itself, as a viewer does that has its rows fetched.
bool IsAnythingWorking() {
    const QWidgetList controls = QApplication::allWidgets();
    return std::any_of(controls.begin(), controls.end(), [](const QWidget* control) {
        return control->isVisible() && control->property("IsWorking").toBool();
    });
}

/// Keys arrive through the event queue, so that a handler that opens a modal screen does not hold the script
/// up.
void PostKey(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QWidget* receiver = QApplication::focusWidget();
    if (!receiver)
        receiver = QApplication::activeWindow();
    if (!receiver)
        throw DriverError(u"no window takes keys"_s);
    QCoreApplication::postEvent(receiver, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    QCoreApplication::postEvent(receiver, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
}

QString TextOf(Qt::Key key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return u"\r"_s;
    case Qt::Key_Tab:
        return u"\t"_s;
    case Qt::Key_Backspace:
        return u"\b"_s;
    case Qt::Key_Escape:
        return u"\x1b"_s;
    default:
        return {};
    }
}

} // namespace

QWidget& VisibleControl(const QString& name) {
    QWidget* control = FindVisible(name);
    if (!control)
        throw DriverError(name + u" is not on the screen"_s);
    return *control;
}

Driver::~Driver() {
    // No event loop takes the script's steps any more.
    mEnded = true;
    if (mThread.joinable())
        mThread.join();
}

void Driver::Start(std::function<void(Driver&)> script, std::function<void(const QString&)> ended) {
    mThread = std::thread([this, script = std::move(script), ended = std::move(ended)] {
        QString failure;
        try {
            script(*this);
        } catch (const std::exception& error) {
            failure = QString::fromUtf8(error.what());
        }
        QMetaObject::invokeMethod(
            qApp, [ended, failure] { ended(failure); }, Qt::QueuedConnection);
    });
}

/// Waits for the user interface's thread. `giveUp` answers whether what was waited for may be left alone.
void Driver::Await(std::future<void> done, const std::function<bool()>& giveUp) const {
    const auto end = std::chrono::steady_clock::now() + kLoopPatience;
    while (done.wait_for(kPause) != std::future_status::ready) {
        if ((mEnded || std::chrono::steady_clock::now() > end) && giveUp())
            throw DriverError(u"the program takes no more steps"_s);
    }
    done.get();
}

void Driver::OnScreen(const std::function<void()>& step) {
    // Set by whoever comes first: the step as it begins, or the script as it gives the step up. What has
    // begun is waited for, since it refers to the script's own variables.
    auto settled = std::make_shared<std::atomic<bool>>(false);
    auto done = std::make_shared<std::promise<void>>();
    QMetaObject::invokeMethod(
        qApp,
        [step, settled, done] {
            if (settled->exchange(true))
                return;
            try {
                step();
                done->set_value();
            } catch (...) {
                done->set_exception(std::current_exception());
            }
        },
        Qt::QueuedConnection);
    Await(done->get_future(), [settled] { return !settled->exchange(true); });
}

void Driver::WaitUntilIdle() {
    for (int i = 0; i < kIdleRounds; ++i) {
        auto done = std::make_shared<std::promise<void>>();
        OnScreen([done] { QTimer::singleShot(0, qApp, [done] { done->set_value(); }); });
        Await(done->get_future(), [] { return true; });
    }
    WaitFor([] { return !IsAnythingWorking(); }, u"the end of a report's work"_s);
}

void Driver::Type(const QString& text) {
    for (const QChar c : text)
        OnScreen([c] { PostKey(Qt::Key(c.toUpper().unicode()), Qt::NoModifier, QString(c)); });
    WaitUntilIdle();
}

void Driver::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    OnScreen([key, modifiers] { PostKey(key, modifiers, TextOf(key)); });
    WaitUntilIdle();
}

void Driver::ChooseMenu(const QString& name) {
    OnScreen([name] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* action = window->findChild<QAction*>(name);
            if (!action)
                continue;
            if (!action->isVisible() || !action->isEnabled())
                throw DriverError(name + u" cannot be chosen"_s);
            QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
            return;
        }
        throw DriverError(u"there is no menu item "_s + name);
    });
    WaitUntilIdle();
}

void Driver::TabTo(const QString& name) {
    for (int i = 0; i < kMostTabs; ++i) {
        if (Focus() == name)
            return;
        Press(Qt::Key_Tab);
    }
    throw DriverError(u"the Tab key does not lead to "_s + name);
}

QString Driver::Focus() {
    QString name;
    OnScreen([&name] {
        if (const QWidget* control = QApplication::focusWidget())
            name = control->objectName();
    });
    return name;
}

void Driver::WaitFor(const std::function<bool()>& condition, const QString& what) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
        bool holds = false;
        OnScreen([&] { holds = condition(); });
        if (holds)
            return;
        if (std::chrono::steady_clock::now() > end)
            throw DriverError(u"waited in vain for "_s + what);
        std::this_thread::sleep_for(kPause);
    }
}

void Driver::ExpectFocus(const QString& name) {
    WaitFor(
        [&name] { return QApplication::focusWidget() && QApplication::focusWidget()->objectName() == name; },
        u"the focus on "_s + name);
}

void Driver::ExpectScreen(const QString& name) {
    WaitFor([&name] { return FindVisible(name) != nullptr; }, u"the screen "_s + name);
    WaitUntilIdle();
}

void Driver::ExpectNoScreen(const QString& name) {
    WaitFor([&name] { return FindVisible(name) == nullptr; }, u"the end of "_s + name);
    WaitUntilIdle();
}

QString Driver::Text(const QString& name) {
    QString text;
    OnScreen([&] {
        QWidget& control = VisibleControl(name);
        if (const auto* box = qobject_cast<QLineEdit*>(&control))
            text = box->text();
        else if (const auto* label = qobject_cast<QLabel*>(&control))
            text = label->text();
        else
            throw DriverError(name + u" has no text"_s);
    });
    return text;
}
