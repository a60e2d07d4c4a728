#include "support/ScreenTest.h"
#include "toolkit/Focus.h"
#include "toolkit/ShowModal.h"

#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A window with two text boxes, of which the first one counts its GotFocus.
class FocusTest : public ScreenTest {
  protected:
    FocusTest()
        : box(new QLineEdit(&window))
        , other(new QLineEdit(&window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(other);
        other->setFocus();
        OnGotFocus(box, [this] { ++count; });
        Activate(window);
    }

    QWidget window;
    QLineEdit* box;
    QLineEdit* other;
    int count = 0;
};

TEST_F(FocusTest, IsRaisedWhenTheFocusComesFromAnotherControl) {
    EXPECT_EQ(count, 0);
    box->setFocus();
    EXPECT_EQ(count, 1);
    other->setFocus();
    EXPECT_EQ(count, 1);
    box->setFocus();
    EXPECT_EQ(count, 2);
}

TEST_F(FocusTest, IsRaisedByTabAndByClick) {
    Press(*other, Qt::Key_Tab);
    EXPECT_EQ(count, 1);
    other->setFocus();
    Click(*box);
    EXPECT_EQ(count, 2);
}

TEST_F(FocusTest, IsNotRaisedOnTheControlThatHasTheFocus) {
    box->setFocus();
    box->setFocus();
    box->selectAll();
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, IsRaisedWhenAScreenOpensOnTheControl) {
    QWidget screen;
    auto* first = new QLineEdit(&screen);
    int raised = 0;
    OnGotFocus(first, [&raised] { ++raised; });
    first->setFocus();
    EXPECT_EQ(raised, 0) << "a screen that is not shown has no focus";
    Activate(screen);
    EXPECT_EQ(raised, 1);
}

TEST_F(FocusTest, IsRaisedOnTheReturnFromAnotherScreen) {
    box->setFocus();
    QWidget screen;
    auto* elsewhere = new QLineEdit(&screen);
    elsewhere->setFocus();
    Activate(screen);
    ASSERT_TRUE(elsewhere->hasFocus());
    EXPECT_EQ(count, 1);
    Activate(window);
    EXPECT_EQ(count, 2);
}

TEST_F(FocusTest, IsRaisedOnTheReturnFromAModalDialogueBeforeItsCallerGoesOn) {
    box->setFocus();
    QDialog dialog;
    QLineEdit inside(&dialog);
    QTimer::singleShot(0, &dialog, [&] {
        EXPECT_TRUE(QTest::qWaitFor([&inside] { return inside.hasFocus(); }));
        EXPECT_EQ(count, 1);
        dialog.accept();
    });
    EXPECT_TRUE(ShowModal(dialog));
    EXPECT_EQ(count, 2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return box->hasFocus(); }));
    EXPECT_EQ(count, 2);
}

TEST_F(FocusTest, IsNotRaisedWhenAMessageBoxCloses) {
    box->setFocus();
    const auto boxes = MessageSeam().Replace(MessageSeam().Own());
    QTimer::singleShot(0, qApp, [] {
        auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(message, nullptr);
        message->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(message));
        EXPECT_NE(QApplication::focusWidget(), nullptr) << "the box took the focus";
        message->accept();
    });
    MsgBox({.text = u"Input quantity."_s});
    EXPECT_TRUE(QTest::qWaitFor([this] { return box->hasFocus(); }));
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, IsNotRaisedOnTheReturnFromAnotherProgramsWindow) {
    box->setFocus();
    QWindow foreign;
    foreign.show();
    foreign.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&foreign));
    ASSERT_FALSE(box->hasFocus());
    Activate(window);
    ASSERT_TRUE(box->hasFocus());
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, IsRaisedOnTheOtherControlThatGetsItAfterAMessageBox) {
    box->setFocus();
    other->setFocus();
    ASSERT_EQ(count, 1);
    QMessageBox message(&window);
    message.show();
    message.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&message));
    message.hide();
    Activate(window);
    box->setFocus();
    EXPECT_EQ(count, 2);
}

TEST_F(FocusTest, AHandlerMayPassTheFocusOn) {
    OnGotFocus(box, [this] { other->setFocus(); });
    box->setFocus();
    EXPECT_TRUE(other->hasFocus());
    box->setFocus();
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(FocusTest, HeldBackItComesWithTheRelease) {
    HeldGotFocus hold(box);
    box->setFocus();
    EXPECT_EQ(count, 0);
    hold.Release();
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, HeldBackItIsDroppedWhenTheFocusHasMovedOn) {
    HeldGotFocus hold(box);
    box->setFocus();
    other->setFocus();
    hold.Release();
    EXPECT_EQ(count, 0);
}

TEST_F(FocusTest, ReleasingWithoutAFocusThatCameRaisesNothing) {
    box->setFocus();
    HeldGotFocus hold(box);
    box->setFocus();
    hold.Release();
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, AHoldThatIsNeverReleasedDropsIt) {
    {
        const HeldGotFocus hold(box);
        box->setFocus();
    }
    EXPECT_EQ(count, 0);
    other->setFocus();
    box->setFocus();
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, AHoldConcernsItsControlAlone) {
    OnGotFocus(other, [this] { ++count; });
    box->setFocus();
    const HeldGotFocus hold(box);
    other->setFocus();
    EXPECT_EQ(count, 2);
}

TEST_F(FocusTest, AHoldInsideAnotherLeavesTheOuterOneInForce) {
    HeldGotFocus outer(box);
    {
        HeldGotFocus inner(other);
        inner.Release();
    }
    box->setFocus();
    EXPECT_EQ(count, 0);
    outer.Release();
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, AHoldInsideOneOfTheSameControlLeavesTheGotFocusToTheOuter) {
    HeldGotFocus outer(box);
    HeldGotFocus inner(box);
    box->setFocus();
    inner.Release();
    EXPECT_EQ(count, 0);
    outer.Release();
    EXPECT_EQ(count, 1);
}

TEST_F(FocusTest, AnotherHandlerTakesThePlaceOfTheFirst) {
    int raised = 0;
    OnGotFocus(box, [&raised] { ++raised; });
    box->setFocus();
    EXPECT_EQ(count, 0);
    EXPECT_EQ(raised, 1);
}

TEST_F(FocusTest, AHandlerRunsToItsEndThoughAnotherTakesItsPlaceMeanwhile) {
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watch = held;
    bool alive = false;
    OnGotFocus(box, [target = box, &watch, &alive, mine = std::move(held)] {
        const std::weak_ptr<int>& seen = watch;
        bool& answer = alive;
        OnGotFocus(target, [] {});
        answer = !seen.expired();
    });
    box->setFocus();
    EXPECT_TRUE(alive);
    EXPECT_TRUE(watch.expired());
}

TEST_F(FocusTest, AControlThatIsGoneIsForgotten) {
    auto* shortLived = new QLineEdit(&window);
    window.layout()->addWidget(shortLived);
    OnGotFocus(shortLived, [] { FAIL(); });
    delete shortLived;
    box->setFocus();
    EXPECT_EQ(count, 1);
}

} // namespace
