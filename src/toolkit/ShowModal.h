#pragma once

#include <QPointer>
#include <QWidget>

class QDialog;

/// Remembers the active window and the control with the focus, and gives both back when it ends. Without a
/// window manager nothing is activated again after a modal window. The control hears its GotFocus before the
/// guard has ended, so the handler that opened the modal window goes on with the focus where it was.
class FocusKeeper {
  public:
    FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;
    ~FocusKeeper();

    /// Gives the window back alone: another screen has come to the front in it meanwhile.
    void KeepWindowOnly() { mFocus.clear(); }

  private:
    QPointer<QWidget> mWindow;
    QPointer<QWidget> mFocus;
};

/// Runs a dialogue of one of the suite's components over the active window. True when it was accepted.
bool ShowModal(QDialog& dialog);
