#include "toolkit/MsgBox.h"

#include "toolkit/ShowModal.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

using namespace Qt::StringLiterals;

const QString kDefaultTitle = u"TARVEN"_s;

namespace {

MessageSeam* currentSeam = nullptr;

QMessageBox::Icon IconOf(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QMessageBox::StandardButton ButtonOf(MsgAnswer answer) {
    switch (answer) {
    case MsgAnswer::Cancel:
        return QMessageBox::Cancel;
    case MsgAnswer::Yes:
        return QMessageBox::Yes;
    case MsgAnswer::No:
        return QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

std::vector<MsgAnswer> AnswersOf(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::OkCancel:
        return {MsgAnswer::Ok, MsgAnswer::Cancel};
    case MsgButtons::YesNo:
        return {MsgAnswer::Yes, MsgAnswer::No};
    default:
        return {MsgAnswer::Ok};
    }
}

} // namespace

MsgAnswer MsgBox(const Message& message) {
    if (currentSeam)
        return currentSeam->Show(message);
    const FocusKeeper keeper;
    // A screen that was just unloaded may still count as the active window; it would take the box along.
    QWidget* owner = QApplication::activeWindow();
    QMessageBox box(owner && owner->isVisible() ? owner : nullptr);
    box.setObjectName(u"MsgBox"_s);
    box.setWindowTitle(message.title.isEmpty() ? kDefaultTitle : message.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(message.text);
    box.setIcon(IconOf(message.icon));
    const std::vector<MsgAnswer> answers = AnswersOf(message.buttons);
    for (const MsgAnswer answer : answers) {
        QPushButton* button = box.addButton(ButtonOf(answer));
        if (answer == message.defaultAnswer || answer == answers.front())
            box.setDefaultButton(button);
    }
    box.setEscapeButton(ButtonOf(answers.back()));
    box.exec();
    for (const MsgAnswer answer : answers) {
        if (box.clickedButton() == box.button(ButtonOf(answer)))
            return answer;
    }
    return answers.back();
}

MessageSeam* SetMessageSeam(MessageSeam* seam) {
    MessageSeam* before = currentSeam;
    currentSeam = seam;
    return before;
}
