#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QWidget>

class Form;

/// The modal windows that stand open, one over the other: screens, dialogues of the suite's components,
/// message boxes. Each has its frame, which is made before the window is shown and ends when it has closed;
/// the frames of screens are a list besides, since a screen asks from where the clerk came.
class ModalStack {
  public:
    /// The frame of a dialogue or a message box. It remembers the active window and the control with the
    /// focus, and gives both back when it ends: without a window manager nothing is activated again after a
    /// modal window. The control hears its GotFocus before the frame has ended, so the handler that opened
    /// the modal window goes on with the focus where it was.
    class Frame {
      public:
        Frame();
        Frame(const Frame&) = delete;
        Frame& operator=(const Frame&) = delete;
        ~Frame();

        /// Gives the window back alone: another screen has come to the front in it meanwhile.
        void KeepWindowOnly() { mFocus.clear(); }

      private:
        void GiveBack() const;

        QPointer<QWidget> mWindow;
        QPointer<QWidget> mFocus;
    };

    /// The frame of a screen, which also remembers from which screen the clerk came.
    class ScreenFrame : public Frame {
      public:
        explicit ScreenFrame(const Form& screen);
        ScreenFrame(const ScreenFrame&) = delete;
        ScreenFrame& operator=(const ScreenFrame&) = delete;
        ~ScreenFrame();

        /// Returns when the screen was closed. Timers go on meanwhile.
        void Run() { mLoop.exec(); }
        /// The screen closes. What is shown from now on until Run has returned is shown in its place.
        void Close();
        /// The screen that was active before; null where there was none, or where it is gone.
        Form* Before() const;

      private:
        friend class ModalStack;

        const Form& mScreen;
        QPointer<Form> mBefore;
        QEventLoop mLoop;
    };

    /// The window in front, one that a dialogue has opened by itself included; null where none is modal.
    static QWidget* Top();
    /// Whether a modal window shuts that window to the clerk.
    static bool Covers(const QWidget* window);
    /// The frame of a screen that stands on the stack; null for any other screen.
    static ScreenFrame* FrameOf(const Form& screen);

    /// Activates a window of the program after a modal one: at once, so that the keys have no moment without
    /// a window. A modal window below is activated once the step in hand is over, since it may be closing as
    /// well, and a desktop that was led to a window that goes gives the focus to nobody. The request may be
    /// lost all the same: where no window of the program is active a moment later, it is asked for once more.
    /// Nothing is asked for where another modal window has come over it by then.
    static void Activate(QWidget& window);

    /// A screen that is not modal was shown.
    static void Shown(Form& screen);
    /// The screen that a modal screen's handler showed behind its closing; null for none.
    static Form* ShownInPlace();
};
