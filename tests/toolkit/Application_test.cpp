#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/Application.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using ApplicationTest = ScreenTest;

TEST_F(ApplicationTest, CatchesWhatLeavesAHandler) {
    QPushButton button;
    QObject::connect(&button, &QPushButton::clicked, &button,
                     [] { throw RunTime::Error(RunTime::kInvalidUseOfNull); });
    Activate(button);
    Click(button);
    EXPECT_EQ(TakeFailure(), 94);
}

TEST_F(ApplicationTest, TypesNothingWhereAltIsHeld) {
    QLineEdit box;
    Activate(box);
    QTest::keyClick(box.windowHandle(), Qt::Key_R, Qt::AltModifier);
    QTest::keyClick(box.windowHandle(), Qt::Key_7, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.text(), QString()) << "a wrong letter would stand in a patient's name";
    QKeyEvent third(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, u"@"_s);
    QCoreApplication::sendEvent(&box, &third);
    EXPECT_EQ(box.text(), u"@"_s);
}

TEST_F(ApplicationTest, ChoosesInAMenuByTheLetterThoughAltIsStillHeld) {
    QMenu menu;
    QAction* charges = menu.addAction(u"&Charges"_s);
    const QSignalSpy chosen(charges, &QAction::triggered);
    menu.popup({});
    QTest::keyClick(&menu, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ApplicationTest, IsNamedForThePlaceOfTheUsersFiles) {
    EXPECT_EQ(QCoreApplication::organizationName(), u"TARVEN"_s);
    EXPECT_EQ(QCoreApplication::applicationName(), u"Hemodialysis"_s);
}

TEST_F(ApplicationTest, GoesOnWhenTheLastWindowCloses) {
    // A message box before the main window is often the only window there is.
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}

} // namespace
