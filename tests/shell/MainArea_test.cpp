#include "shell/MainArea.h"
#include "support/PrintQt.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScrollBar>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class MainAreaTest : public testing::Test {
  protected:
    MainAreaTest() {
        mArea.resize(900, 600);
        mArea.show();
    }
    QWidget* Panel() const { return mArea.findChild<QWidget*>(u"WhereOneIs"_s); }
    void ExpectInTheMiddle() const {
        const QPoint middle = mArea.viewport()->rect().center() - Panel()->geometry().center();
        EXPECT_LE(middle.manhattanLength(), 2);
    }

    MainArea mArea{nullptr};
};

TEST_F(MainAreaTest, TellsNothingBeforeItIsTold) {
    EXPECT_FALSE(Panel()->isVisible());
}

TEST_F(MainAreaTest, StaysInTheMiddleWhateverSizeTheAreaGetsAndHoweverItIsScrolled) {
    mArea.Tell({.hospital = u"SAN ROQUE"_s, .department = u"HC"_s, .dataSource = u"X"_s, .user = u"ANA"_s});
    ExpectInTheMiddle();
    mArea.resize(1200, 800);
    ExpectInTheMiddle();
    auto* screen = mArea.addSubWindow(new QWidget);
    screen->setGeometry(0, 0, 3000, 2000);
    screen->show();
    QApplication::processEvents();
    mArea.verticalScrollBar()->setValue(200);
    ASSERT_EQ(mArea.verticalScrollBar()->value(), 200);
    ExpectInTheMiddle();
}

TEST_F(MainAreaTest, ScreensLieAboveIt) {
    mArea.Tell({.hospital = u"SAN ROQUE"_s, .department = u"HC"_s, .dataSource = u"X"_s, .user = u"ANA"_s});
    auto* screen = mArea.addSubWindow(new QWidget);
    screen->resize(800, 500);
    screen->show();
    mArea.resize(1000, 700);
    const QPoint middle = Panel()->geometry().center();
    const QWidget* there = mArea.viewport()->childAt(middle);
    ASSERT_NE(there, nullptr);
    EXPECT_TRUE(there == screen || screen->isAncestorOf(there));
}

TEST_F(MainAreaTest, TheControlWithTheFocusIsBroughtIntoIt) {
    auto* screen = new QWidget;
    auto* far = new QLineEdit(screen);
    auto* near = new QLineEdit(screen);
    far->setGeometry(1500, 1200, 100, 20);
    near->setGeometry(10, 10, 100, 20);
    auto* frame = mArea.addSubWindow(screen);
    frame->setGeometry(0, 0, 1700, 1300);
    frame->show();
    QApplication::setActiveWindow(&mArea);
    const auto isSeen = [this](const QWidget* control) {
        return mArea.viewport()->rect().contains(
            QRect(control->mapTo(mArea.viewport(), QPoint()), control->size()));
    };
    near->setFocus();
    QApplication::processEvents();
    EXPECT_FALSE(isSeen(far));
    far->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(isSeen(far));
    near->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(isSeen(near));
}

TEST_F(MainAreaTest, AHospitalsNameIsNoMarkup) {
    mArea.Tell({.hospital = u"<b>SAN</b> & ROQUE"_s, .department = {}, .dataSource = {}, .user = {}});
    EXPECT_EQ(mArea.findChild<QLabel*>(u"lblHospital"_s)->textFormat(), Qt::PlainText);
}

} // namespace
