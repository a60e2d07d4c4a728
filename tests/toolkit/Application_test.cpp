#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/Application.h"

#include <QLineEdit>
#include <QPushButton>
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

TEST_F(ApplicationTest, IsNamedForThePlaceOfTheUsersFiles) {
    EXPECT_EQ(QCoreApplication::organizationName(), u"TARVEN"_s);
    EXPECT_EQ(QCoreApplication::applicationName(), u"Hemodialysis"_s);
}

TEST_F(ApplicationTest, GoesOnWhenTheLastWindowCloses) {
    // A message box before the main window is often the only window there is.
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}

} // namespace
