#pragma once

#include <QImage>
#include <QString>

#include <memory>

/// The keyboard, the mouse and the eyes of whoever sits before a display. Keys and clicks are given to the X
/// server as its devices give them; who gets them is decided there.
///
/// Keys are written as they are typed, those without a character in braces by their X names, with what is
/// held meanwhile before them: "de guz{Return}", "{Alt+q}{Down}{Return}", "{Shift+Tab}", "{Control+a}".
class Seat {
  public:
    /// Raises std::runtime_error when there is no such display or it cannot be keyed for.
    explicit Seat(const QString& display);
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;
    ~Seat();

    /// Presses and lets go keys, one right behind the other as a scanner does, and comes back when the server
    /// has them all. Answers how many keys were let go, those held for others included.
    int Press(const QString& keys);
    /// Presses a key and holds it down, until Release. What the server makes up for it comes by Repeat alone.
    void Hold(const QString& key);
    /// The release and the press that the server makes up for a key that is held down, at one moment.
    void Repeat(const QString& key);
    void Release(const QString& key);
    void PointAt(QPoint place);
    /// Points there and clicks with the left button.
    void Click(QPoint place);

    /// Takes the focus from every window, as the display stands while a window manager is busy: keys go to
    /// the window beneath the pointer.
    void TakeFocusAway();

    /// The whole screen as it stands, without the pointer.
    QImage Picture() const;
    /// The part of the screen that the window manager leaves to windows; all of it without one.
    QRect WorkArea() const;
    /// Where a window stands with what the window manager has put around it; empty for one that is gone.
    QRect FrameOf(quint64 window) const;
    /// Asks the window manager for an answer, and tells whether it has given one to an earlier call. One that
    /// has just started may have taken the screen over and not hear anybody yet.
    bool WindowManagerAnswers() const;

  private:
    struct Connection;

    std::unique_ptr<Connection> mConnection;
};

/// Keys taken apart into single ones, each written as Seat takes them.
QStringList SingleKeys(const QString& keys);
