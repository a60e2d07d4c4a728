#pragma once

#include "text/Seam.h"

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

/// What shows the box and waits.
Seam<MsgAnswer(const Message& message)>& MessageSeam();
