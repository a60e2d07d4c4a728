#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/Focus.h"
#include "toolkit/ShowModal.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class ShowModalTest : public ScreenTest {
  protected:
    ShowModalTest() {
        auto* layout = new QVBoxLayout(window.get());
        layout->addWidget(first);
        layout->addWidget(second);
        second->setFocus();
        Activate(*window);
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QLineEdit* first = new QLineEdit(window.get());
    QLineEdit* second = new QLineEdit(window.get());
    QDialog dialog;
};

TEST_F(ShowModalTest, TellsWhetherTheDialogueWasAccepted) {
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    EXPECT_TRUE(ShowModal(dialog));
    QTimer::singleShot(0, &dialog, &QDialog::reject);
    EXPECT_FALSE(ShowModal(dialog));
}

TEST_F(ShowModalTest, GivesTheActiveWindowAndTheFocusBack) {
    QTimer::singleShot(0, &dialog, [this] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        dialog.accept();
    });
    ShowModal(dialog);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(second->hasFocus());
}

TEST_F(ShowModalTest, WindowIsAskedForAgainWhereTheDesktopHasLostTheRequest) {
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    ShowModal(dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QWidget other;
    Activate(other);
    other.hide();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

TEST_F(ShowModalTest, WindowIsNotAskedForAgainUnderTheNextModalWindow) {
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    ShowModal(dialog);
    QDialog next;
    next.setAttribute(Qt::WA_ShowWithoutActivating);
    next.setModal(true);
    next.show();
    QWidget other;
    Activate(other);
    other.hide();
    QTest::qWait(400);
    EXPECT_FALSE(window->isActiveWindow());
}

TEST_F(ShowModalTest, TwoInARowGiveTheFocusBackWhereTheFirstHadTakenItFrom) {
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    ShowModal(dialog);
    QDialog next;
    auto* box = new QLineEdit(&next);
    QTimer::singleShot(0, &next, [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return box->hasFocus(); }));
        next.accept();
    });
    ShowModal(next);
    EXPECT_TRUE(QTest::qWaitFor([this] { return second->hasFocus(); }));
}

TEST_F(ShowModalTest, LeavesAControlThatWasHiddenMeanwhile) {
    QTimer::singleShot(0, &dialog, [this] {
        second->hide();
        dialog.accept();
    });
    ShowModal(dialog);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_FALSE(second->hasFocus());
}

TEST_F(ShowModalTest, AGotFocusThatFailsBehindItReachesTheTop) {
    auto* box = new QLineEdit(&dialog);
    OnGotFocus(second, [] { throw RunTime::Error(RunTime::kInvalidUseOfNull); });
    QTimer::singleShot(0, &dialog, [&] {
        EXPECT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
        dialog.accept();
    });
    EXPECT_TRUE(ShowModal(dialog));
    EXPECT_EQ(TakeFailure(), RunTime::kInvalidUseOfNull);
}

TEST_F(ShowModalTest, OutlivesTheWindowThatItWasOpenedOver) {
    QTimer::singleShot(0, &dialog, [this] {
        window.reset();
        dialog.accept();
    });
    EXPECT_TRUE(ShowModal(dialog));
}

} // namespace
