#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/ScriptedMessages.h"
#include "toolkit/Look.h"
#include "toolkit/MsgBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Shows a message in a real box and lets the action see and answer it.
MsgAnswer ShowAndDo(const Message& message, const std::function<void(QMessageBox&)>& action) {
    bool seen = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(box));
        seen = true;
        action(*box);
        if (box->isVisible()) {
            ADD_FAILURE() << "the box is still open";
            box->accept();
        }
    });
    const MsgAnswer answer = MsgBox(message);
    EXPECT_TRUE(seen);
    return answer;
}

TEST(MsgBox, ShowsItsTextLetterForLetter) {
    for (const QString& text : {u"<b>Cannot</b> Save. You may not have rights. "_s, u"Fish & Chips &copy;"_s})
        ShowAndDo({.text = text}, [&text](QMessageBox& box) {
            EXPECT_EQ(box.text(), text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            box.accept();
        });
}

TEST(MsgBox, HasTheDefaultTitleUnlessItsCallerNamesOne) {
    ShowAndDo({.text = u"Department not set."_s}, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), u"TARVEN"_s);
        box.accept();
    });
    ShowAndDo({.text = u"text"_s, .title = u"Hemodialysis System"_s}, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), u"Hemodialysis System"_s);
        box.accept();
    });
}

TEST(MsgBox, IsWideEnoughForItsTitleAndItsText) {
    for (const QString& title : {u"OPD Registration System"_s, u"Invalid Code"_s, u"Assessment"_s, QString(),
                                 u"A title that is longer than the line that it stands over"_s})
        ShowAndDo({.text = u"Code not exist!"_s, .title = title}, [](QMessageBox& box) {
            QFont font = QApplication::font();
            font.setBold(true);
            font.setPointSize(font.pointSize() + 2);
            // The picture and three buttons, each in a square as high as a title bar.
            const int buttons = 4 * 2 * QFontMetrics(font).height();
            EXPECT_GE(box.width(), QFontMetrics(font).horizontalAdvance(box.windowTitle()) + buttons)
                << box.windowTitle().toStdString();
            const auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
            EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text()));
            box.accept();
        });
}

TEST(MsgBox, ShowsTheProgramsOwnSigns) {
    const std::pair<MsgIcon, QString> signs[] = {{MsgIcon::Critical, u"critical"_s},
                                                 {MsgIcon::Question, u"question"_s},
                                                 {MsgIcon::Exclamation, u"exclamation"_s},
                                                 {MsgIcon::Information, u"information"_s}};
    for (const auto& [icon, name] : signs)
        ShowAndDo({.text = u"text"_s, .icon = icon}, [&name = name](QMessageBox& box) {
            const QPixmap shown = box.iconPixmap();
            ASSERT_FALSE(shown.isNull()) << name.toStdString();
            EXPECT_EQ(shown.toImage(), ProgramIcon(name).pixmap(shown.size()).toImage())
                << name.toStdString();
            box.accept();
        });
}

TEST(MsgBox, CanBeFoundByItsName) {
    ShowAndDo({.text = u"text"_s}, [](QMessageBox& box) {
        EXPECT_EQ(box.objectName(), u"MsgBox"_s);
        box.accept();
    });
}

struct IconCase {
    const char* name;
    MsgIcon icon;
    QMessageBox::Icon expected;
};

class MsgBoxIcon : public testing::TestWithParam<IconCase> {};

TEST_P(MsgBoxIcon, IsTheOneAskedFor) {
    ShowAndDo({.text = u"text"_s, .icon = GetParam().icon}, [](QMessageBox& box) {
        EXPECT_EQ(box.icon(), GetParam().expected);
        box.accept();
    });
}

INSTANTIATE_TEST_SUITE_P(Icons, MsgBoxIcon,
                         testing::Values(IconCase{"None", MsgIcon::None, QMessageBox::NoIcon},
                                         IconCase{"Critical", MsgIcon::Critical, QMessageBox::Critical},
                                         IconCase{"Question", MsgIcon::Question, QMessageBox::Question},
                                         IconCase{"Exclamation", MsgIcon::Exclamation, QMessageBox::Warning},
                                         IconCase{"Information", MsgIcon::Information,
                                                  QMessageBox::Information}),
                         CaseName());

struct ButtonCase {
    const char* name;
    MsgButtons buttons;
    MsgAnswer defaultAnswer;
    std::vector<MsgAnswer> answers;
    /// What Enter answers, and what Escape and the close box answer.
    MsgAnswer enter;
    MsgAnswer escape;
};

QMessageBox::StandardButton StandardOf(MsgAnswer answer) {
    switch (answer) {
    case MsgAnswer::Ok:
        return QMessageBox::Ok;
    case MsgAnswer::Cancel:
        return QMessageBox::Cancel;
    case MsgAnswer::Yes:
        return QMessageBox::Yes;
    default:
        return QMessageBox::No;
    }
}

class MsgBoxButtons : public testing::TestWithParam<ButtonCase> {
  protected:
    static Message Asked() {
        return {.text = u"text"_s, .buttons = GetParam().buttons, .defaultAnswer = GetParam().defaultAnswer};
    }
};

TEST_P(MsgBoxButtons, AreThose) {
    ShowAndDo(Asked(), [](QMessageBox& box) {
        EXPECT_EQ(box.buttons().size(), static_cast<qsizetype>(GetParam().answers.size()));
        for (const MsgAnswer answer : GetParam().answers)
            EXPECT_NE(box.button(StandardOf(answer)), nullptr);
        box.accept();
    });
}

TEST_P(MsgBoxButtons, EachAnswersForItself) {
    for (const MsgAnswer wanted : GetParam().answers)
        EXPECT_EQ(ShowAndDo(Asked(), [wanted](QMessageBox& box) { box.button(StandardOf(wanted))->click(); }),
                  wanted);
}

TEST_P(MsgBoxButtons, EnterPressesTheDefaultOne) {
    EXPECT_EQ(ShowAndDo(Asked(),
                        [](QMessageBox& box) {
                            EXPECT_TRUE(box.button(StandardOf(GetParam().enter))->hasFocus());
                            QTest::keyClick(&box, Qt::Key_Return);
                        }),
              GetParam().enter);
}

TEST_P(MsgBoxButtons, AKeyThatIsHeldDownAnswersNothing) {
    EXPECT_EQ(ShowAndDo(Asked(),
                        [](QMessageBox& box) {
                            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
                                for (QWidget* target : {static_cast<QWidget*>(&box), box.focusWidget()}) {
                                    QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
                                    QApplication::sendEvent(target, &repeat);
                                }
                            }
                            EXPECT_TRUE(box.isVisible());
                            QTest::keyClick(box.focusWidget(), Qt::Key_Return);
                        }),
              GetParam().enter);
}

TEST_P(MsgBoxButtons, EscapeAnswersTheLastOne) {
    EXPECT_EQ(ShowAndDo(Asked(), [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              GetParam().escape);
}

TEST_P(MsgBoxButtons, TheCloseBoxAnswersTheLastOne) {
    EXPECT_EQ(ShowAndDo(Asked(), [](QMessageBox& box) { box.close(); }), GetParam().escape);
}

INSTANTIATE_TEST_SUITE_P(
    Sets, MsgBoxButtons,
    testing::Values(
        ButtonCase{"Ok", MsgButtons::Ok, MsgAnswer::Ok, {MsgAnswer::Ok}, MsgAnswer::Ok, MsgAnswer::Ok},
        ButtonCase{"OkCancel",
                   MsgButtons::OkCancel,
                   MsgAnswer::Ok,
                   {MsgAnswer::Ok, MsgAnswer::Cancel},
                   MsgAnswer::Ok,
                   MsgAnswer::Cancel},
        ButtonCase{"OkCancelWithCancelAsDefault",
                   MsgButtons::OkCancel,
                   MsgAnswer::Cancel,
                   {MsgAnswer::Ok, MsgAnswer::Cancel},
                   MsgAnswer::Cancel,
                   MsgAnswer::Cancel},
        ButtonCase{"YesNoWithoutADefault",
                   MsgButtons::YesNo,
                   MsgAnswer::Ok,
                   {MsgAnswer::Yes, MsgAnswer::No},
                   MsgAnswer::Yes,
                   MsgAnswer::No},
        ButtonCase{"YesNoWithNoAsDefault",
                   MsgButtons::YesNo,
                   MsgAnswer::No,
                   {MsgAnswer::Yes, MsgAnswer::No},
                   MsgAnswer::No,
                   MsgAnswer::No}),
    CaseName());

TEST(MsgBox, GivesTheFocusBackToTheControlThatHadIt) {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* first = new QLineEdit(&window);
    auto* second = new QLineEdit(&window);
    layout->addWidget(first);
    layout->addWidget(second);
    second->setFocus();
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ShowAndDo({.text = u"text"_s}, [&window](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.accept();
    });
    EXPECT_TRUE(QTest::qWaitFor([second] { return second->hasFocus(); }));
}

TEST(MsgBox, ASeamTakesThePlaceOfTheBoxes) {
    ScriptedMessages messages;
    const Message message = {
        .text = u"Are you sure?"_s, .icon = MsgIcon::Question, .buttons = MsgButtons::YesNo};
    messages.Expect(message, MsgAnswer::Yes);
    EXPECT_EQ(MsgBox(message), MsgAnswer::Yes);
    ASSERT_EQ(messages.Shown().size(), 1U);
    EXPECT_EQ(messages.Shown()[0].text, u"Are you sure?"_s);
}

} // namespace
