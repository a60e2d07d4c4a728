#pragma once

#include <QString>

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { Ok, OkCancel, YesNo };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// The title of a message box whose caller names none.
extern const QString kDefaultTitle;

/// One message box as a caller asks for it. An empty title stands for the default one.
struct Message {
    QString text;
    MsgIcon icon = MsgIcon::None;
    QString title = {};
    MsgButtons buttons = MsgButtons::Ok;
    /// The button that Enter presses; the first one when it is not among the buttons.
    MsgAnswer defaultAnswer = MsgAnswer::Ok;
};

/// Shows a message box over the active window and waits for the answer. The text is shown letter for letter.
/// Closing the box answers Ok, Cancel or No, whichever it has.
MsgAnswer MsgBox(const Message& message);

/// Stands between the callers of MsgBox and the screen, so that a test can answer and see what was asked.
class MessageSeam {
  public:
    virtual ~MessageSeam() = default;
    virtual MsgAnswer Show(const Message& message) = 0;
};

/// Puts a seam in place of the real boxes; null brings the real ones back. Answers the seam before.
MessageSeam* SetMessageSeam(MessageSeam* seam);
