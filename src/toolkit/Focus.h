#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

/// Raises GotFocus on the control by the run-time's rule: when the focus comes to it from another control or
/// from another screen of the program, the return from a modal screen included. A message box that closes and
/// another program's window that is left raise nothing.
///
/// A control has one handler; another one takes the place of the first.
void OnGotFocus(QWidget* control, std::function<void()> handler);

/// Holds back the GotFocus of one control while it lives. A grid that is clicked takes the focus first and
/// tells of its new cell before its own GotFocus. Holds may nest, when a handler opens a screen with a grid
/// of its own.
class HeldGotFocus {
  public:
    explicit HeldGotFocus(QWidget* control);
    HeldGotFocus(const HeldGotFocus&) = delete;
    HeldGotFocus& operator=(const HeldGotFocus&) = delete;
    ~HeldGotFocus();

    /// Ends the hold and raises the GotFocus that came meanwhile, unless the focus has moved on.
    void Release();

    struct Hold {
        QPointer<QWidget> control;
        bool isDue = false;
    };

  private:
    Hold mHold;
};

/// The focus was given back to the control by the program itself, after a modal window; the window system may
/// tell of it later, when the handler that waited has long gone on.
void FocusReturned(QWidget* control);

/// The control that has the focus, or the one that it is coming back to while the window system has yet to
/// tell of it. Null for none.
QWidget* FocusOwner();

/// Begins to follow the focus; the application does it at its start.
void FollowFocus();

/// The control that raised its GotFocus last, shown or not; null when it is gone.
QWidget* LastFocus();
