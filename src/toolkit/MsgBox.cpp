#include "toolkit/MsgBox.h"

#include "toolkit/Aside.h"
#include "toolkit/Keys.h"
#include "toolkit/ModalStack.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>

#include <vector>

using namespace Qt::StringLiterals;

const QString kDefaultTitle = u"TARVEN"_s;

namespace {

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

/// What a window manager's title bar has beside the title: the window's picture and three buttons.
constexpr int kTitleBarRoom = 150;
/// Title bars are lettered bold, and often larger than the program.
constexpr double kTitleSize = 1.25;

/// A box is as wide as its text and its buttons need; a title that is wider would be cut.
void MakeRoomForTitle(QMessageBox& box) {
    QFont font = QApplication::font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleSize);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + kTitleBarRoom;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

MsgAnswer ShowBox(const Message& message) {
    const ModalStack::Frame frame;
    // A screen that was just unloaded may still count as the active window, and one that stands aside may be
    // closed any time; it would take the box along.
    QWidget* owner = QApplication::activeWindow();
    QMessageBox box(owner && owner->isVisible() && !StandsAside(owner) ? owner : nullptr);
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
    MakeRoomForTitle(box);
    box.setEscapeButton(ButtonOf(answers.back()));
    IgnoreHeldKeys(box);
    box.exec();
    for (const MsgAnswer answer : answers) {
        if (box.clickedButton() == box.button(ButtonOf(answer)))
            return answer;
    }
    return answers.back();
}

} // namespace

MsgAnswer MsgBox(const Message& message) {
    return MessageSeam()(message);
}

Seam<MsgAnswer(const Message&)>& MessageSeam() {
    static Seam<MsgAnswer(const Message&)> seam(ShowBox);
    return seam;
}
