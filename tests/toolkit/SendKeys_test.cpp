#include "support/ScreenTest.h"
#include "toolkit/Keys.h"
#include "toolkit/SendKeys.h"
#include "toolkit/ShowModal.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

/// A window with three text boxes.
class SendTabTest : public ScreenTest {
  protected:
    SendTabTest() {
        auto* layout = new QVBoxLayout(&window);
        for (QLineEdit*& box : boxes) {
            box = new QLineEdit(&window);
            layout->addWidget(box);
        }
        boxes[0]->setFocus();
        Activate(window);
    }

    QWidget window;
    std::array<QLineEdit*, 3> boxes{};
};

TEST_F(SendTabTest, MovesTheFocusOnceTheRunningHandlerHasEnded) {
    OnKeyPress(boxes[0], [this](int& key) {
        if (key != Key::kEnter)
            return;
        SendTab();
        EXPECT_TRUE(boxes[0]->hasFocus());
    });
    Press(*boxes[0], Qt::Key_Return);
    EXPECT_TRUE(boxes[0]->hasFocus());
    RunEvents();
    EXPECT_TRUE(boxes[1]->hasFocus());
}

TEST_F(SendTabTest, GoesToTheControlThatHasTheFocusThen) {
    SendTab();
    boxes[1]->setFocus();
    RunEvents();
    EXPECT_TRUE(boxes[2]->hasFocus());
}

TEST_F(SendTabTest, TwoSentTabsMoveTwice) {
    SendTab();
    SendTab();
    RunEvents();
    EXPECT_TRUE(boxes[2]->hasFocus());
}

TEST_F(SendTabTest, MovesOnAfterAMessageBoxOrAModalDialogueHasClosed) {
    // The window system may not have given the focus back yet when the Tab comes.
    boxes[1]->setFocus();
    QDialog dialog;
    QLineEdit inside(&dialog);
    QTimer::singleShot(0, &dialog, [&dialog] {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
        dialog.accept();
    });
    ShowModal(dialog);
    SendTab();
    RunEvents();
    EXPECT_TRUE(QTest::qWaitFor([this] { return boxes[2]->hasFocus(); }));
}

TEST_F(SendTabTest, GoesNowhereWithoutAFocus) {
    window.hide();
    SendTab();
    RunEvents();
    EXPECT_EQ(TakeFailure(), 0);
}

} // namespace
