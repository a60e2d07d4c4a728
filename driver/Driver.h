#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <future>
#include <stdexcept>
#include <thread>

class QWidget;

/// What the driver raises when the program is not where the script expects it.
class DriverError : public std::runtime_error {
  public:
    explicit DriverError(const QString& text)
        : std::runtime_error(text.toStdString()) {}
};

/// Drives the program as a clerk does: keys go to the control that has the focus, controls are known by their
/// names.
///
/// A script runs in a thread of its own, so that it reads from top to bottom although modal screens open and
/// close under it; every step is carried out on the user interface's thread and ends when the program is idle
/// again.
///
/// What a step expects is waited for 20 seconds at most, and the user interface's thread, which may be busy,
/// 100. A step that waits in vain, or cannot be done as the program stands, raises DriverError, which ends
/// the script. So does every step once the driver is about to be destroyed.
class Driver {
  public:
    Driver() = default;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    /// Waits for the end of the script.
    ~Driver();

    /// Runs the script beside the event loop; `ended` is called on the user interface's thread with the text
    /// of the failure, empty when the script came to its end.
    void Start(std::function<void(Driver&)> script, std::function<void(const QString& failure)> ended);

    /// Types a text into the control that has the focus.
    void Type(const QString& text);
    /// Presses a key on the control that has the focus, or on the active window when none has. Raises
    /// DriverError when there is neither.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Chooses a menu item by its name. Raises DriverError unless it is there, visible and enabled.
    void ChooseMenu(const QString& name);
    /// Moves the focus with the Tab key until it is on the control of that name. Raises DriverError when 40
    /// times do not lead there.
    void TabTo(const QString& name);

    /// The name of the control that has the focus; empty for none.
    QString Focus();
    /// Waits until the control of that name has the focus.
    void ExpectFocus(const QString& name);
    /// Waits until a window or screen of that name shows.
    void ExpectScreen(const QString& name);
    /// Waits until none does.
    void ExpectNoScreen(const QString& name);
    /// The text of the box or the label of that name. Raises DriverError when it is not on the screen or has
    /// none.
    QString Text(const QString& name);

    /// Runs a step on the user interface's thread, waits for its end and hands back what it raises. A step
    /// that was given up is never begun later.
    void OnScreen(const std::function<void()>& step);
    /// Waits until a condition holds on the user interface's thread; `what` names it in the error.
    void WaitFor(const std::function<bool()>& condition, const QString& what);

  private:
    void WaitUntilIdle();
    void Await(std::future<void> done, const std::function<bool()>& giveUp) const;

    std::thread mThread;
    std::atomic<bool> mEnded = false;
};

/// The visible control of that name, in the active modal window first; raises DriverError when there is none.
QWidget& VisibleControl(const QString& name);
