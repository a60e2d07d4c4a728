#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class LostFocusTest : public ScreenTest {
  protected:
    LostFocusTest() {
        auto* column = new QVBoxLayout(&window);
        for (QLineEdit* box : {first, second})
            column->addWidget(box);
        Activate(window);
    }

    QWidget window;
    QLineEdit* first = new QLineEdit(&window);
    QLineEdit* second = new QLineEdit(&window);
};

TEST_F(LostFocusTest, GoesBackToTheControlThatHadItLast) {
    second->setFocus();
    second->clearFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return second->hasFocus(); }));
}

TEST_F(LostFocusTest, GoesToTheNearestAroundAControlThatIsShut) {
    auto* frame = new QWidget(&window);
    auto* inner = new QLineEdit(frame);
    auto* beside = new QLineEdit(frame);
    beside->move(0, inner->sizeHint().height());
    window.layout()->addWidget(frame);
    inner->setFocus();
    inner->clearFocus();
    inner->setEnabled(false);
    EXPECT_TRUE(QTest::qWaitFor([beside] { return beside->hasFocus(); }));
}

TEST_F(LostFocusTest, GoesToTheFirstOfAWindowWhereNothingHadIt) {
    QWidget other;
    auto* box = new QLineEdit(&other);
    other.setFocus();
    Activate(other);
    EXPECT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
}

TEST_F(LostFocusTest, StaysInTheModalWindowInFront) {
    QDialog dialog;
    auto* box = new QLineEdit(&dialog);
    second->setFocus();
    dialog.open();
    Activate(dialog);
    box->setFocus();
    box->clearFocus();
    EXPECT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
    dialog.reject();
}

TEST_F(LostFocusTest, GoesToTheScreenInFrontAndNotToAnother) {
    FakeWorkspace workspace;
    std::vector<QLineEdit*> boxes;
    for (int i = 0; i < 2; ++i) {
        auto* screen = new QWidget;
        boxes.push_back(new QLineEdit(screen));
        workspace.Area()->addSubWindow(screen)->show();
    }
    Activate(workspace);
    boxes[1]->setFocus();
    boxes[1]->clearFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return boxes[1]->hasFocus(); }));
}

TEST_F(LostFocusTest, GoesToTheToolbarOfAMainWindowWithoutAScreen) {
    FakeWorkspace workspace;
    workspace.Area()->setFocusPolicy(Qt::NoFocus);
    auto* button = new QToolButton;
    workspace.addToolBar(u"Toolbar"_s)->addWidget(button);
    auto* screen = new QWidget;
    auto* box = new QLineEdit(screen);
    QMdiSubWindow* frame = workspace.Area()->addSubWindow(screen);
    frame->show();
    Activate(workspace);
    box->setFocus();
    delete frame;
    EXPECT_TRUE(QTest::qWaitFor([button] { return button->hasFocus(); }));
}

} // namespace
