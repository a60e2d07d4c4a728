#pragma once

#include <functional>

class QString;
class QKeyEvent;
class QWidget;

/// The codes of the keys that handlers ask for by number.
namespace Key {
constexpr int kBackspace = 8;
constexpr int kEnter = 13;
constexpr int kEscape = 27;
/// Key codes of KeyDown, which tells keys and not characters.
constexpr int kUp = 38;
constexpr int kDown = 40;
} // namespace Key

/// Ctrl+W or Ctrl+F4, which leave the screen in front. They are the screen's: no control takes them for a
/// character.
bool IsClosingKey(const QKeyEvent& event);

/// A character key on its way to a control. The handler may change it; 0 swallows it.
using KeyPressHandler = std::function<void(int& keyAscii)>;

/// A key on its way to a control: kEnter, kUp, kDown, or 0 for one that no handler asks for by number.
/// Answers true to keep the key from the control and from the KeyPress handlers.
using KeyDownHandler = std::function<bool(int keyCode)>;

/// Calls the handler for each character key before the control gets it: letters, digits, signs, Enter,
/// Escape, Backspace and Ctrl combinations, also what an input method composes. Tab, Delete, the arrow and
/// function keys are no characters. Handlers of one control run in the order in which they were added.
void OnKeyPress(QWidget* control, KeyPressHandler handler);

/// Calls the handler for each key going down, before the KeyPress handlers. A character that an input method
/// composes comes as 0.
void OnKeyDown(QWidget* control, KeyDownHandler handler);

/// What the handlers of a control leave of a text that comes at once: each of its characters passes them as a
/// key of its own. The control itself gets nothing.
QString PassedAsKeys(QWidget* control, const QString& text);

/// The common KeyPress handler of name boxes: each key becomes its upper-case form.
void UpperCaseKeys(QWidget* control);

/// Keeps the repeats of a character key that is held down from a dialogue and the buttons that it has by now,
/// or from a list: the Enter that opened it would answer it, or pick from it, before anybody has read it.
/// Arrows go on.
void IgnoreHeldKeys(QWidget& widget);
