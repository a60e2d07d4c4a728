#include "driver/Driver.h"
#include "support/PrintQt.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLineEdit>

#include <future>
#include <gmock/gmock.h>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// Runs a script beside an event loop of its own and answers the text of its failure.
QString FailureOf(const std::function<void(Driver&)>& script) {
    QEventLoop loop;
    QString failure;
    Driver driver;
    driver.Start(script, [&](const QString& text) {
        failure = text;
        loop.quit();
    });
    loop.exec();
    return failure;
}

TEST(Driver, KeysReachTheControlWithTheFocus) {
    QLineEdit box;
    box.setObjectName(u"box"_s);
    box.show();
    box.activateWindow();
    EXPECT_EQ(FailureOf([](Driver& clerk) {
                  clerk.ExpectFocus(u"box"_s);
                  clerk.Type(u"de"_s);
                  if (clerk.Text(u"box"_s) != u"de"_s)
                      throw DriverError(u"typed "_s + clerk.Text(u"box"_s));
              }),
              u""_s);
}

TEST(Driver, WhatAStepRaisesEndsTheScript) {
    bool went = false;
    EXPECT_EQ(FailureOf([&went](Driver& clerk) {
                  clerk.OnScreen([] { VisibleControl(u"nothing"_s); });
                  went = true;
              }),
              u"nothing is not on the screen"_s);
    EXPECT_FALSE(went);
}

TEST(Driver, StepThatNoEventLoopTakesEndsTheScriptAndIsNeverBegun) {
    bool begun = false;
    std::string failure;
    {
        Driver driver;
        driver.Start(
            [&](Driver& clerk) {
                try {
                    clerk.OnScreen([&begun] { begun = true; });
                } catch (const DriverError& error) {
                    failure = error.what();
                }
            },
            [](const QString&) {});
    }
    EXPECT_EQ(failure, "the program takes no more steps");
    QCoreApplication::processEvents();
    EXPECT_FALSE(begun);
}

TEST(Driver, IdleProgramThatNoEventLoopBringsAboutEndsTheScript) {
    std::string failure;
    QLineEdit box;
    box.show();
    {
        Driver driver;
        std::promise<void> typing;
        driver.Start(
            [&](Driver& clerk) {
                try {
                    clerk.OnScreen([&typing] { typing.set_value(); });
                    clerk.Press(Qt::Key_A);
                } catch (const DriverError& error) {
                    failure = error.what();
                }
            },
            [](const QString&) {});
        auto typed = typing.get_future();
        while (typed.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            QCoreApplication::processEvents();
    }
    EXPECT_EQ(failure, "the program takes no more steps");
}

} // namespace
