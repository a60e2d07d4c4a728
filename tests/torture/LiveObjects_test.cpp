#include "support/process/ChildProcess.h"
#include "torture/LiveObjects.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>

// What a shift's footprint counts of the toolkit's objects. Each case is a process of its own, since whoever
// counts begins before the application is made.

namespace {

/// Runs a case with an application, watched from its beginning; answers whether it was well.
bool Watched(const std::function<bool()>& holds) {
    return RunInChild([&] {
               LiveObjects::Watch();
               int argumentCount = 1;
               char name[] = "watched";
               char* arguments[] = {name, nullptr};
               const QCoreApplication application(argumentCount, arguments);
               return holds() ? 0 : 1;
           }) == 0;
}

} // namespace

TEST(LiveObjects, AreCountedUntilTheyEnd) {
    EXPECT_TRUE(Watched([] {
        const qsizetype before = LiveObjects::Count();
        auto object = std::make_unique<QObject>();
        new QObject(object.get());
        const bool isCounted = LiveObjects::Count() == before + 2;
        object.reset();
        return isCounted && LiveObjects::Count() == before;
    }));
}

TEST(LiveObjects, TimersAreCountedWhetherTheyRunOrNot) {
    EXPECT_TRUE(Watched([] {
        const QTimer idle;
        QTimer running;
        running.start(1000);
        return LiveObjects::Timers() == 2 && LiveObjects::RunningClocks() == 1;
    }));
}

TEST(LiveObjects, ObjectsWithAClockOfTheirOwnAreCounted) {
    EXPECT_TRUE(Watched([] {
        QObject object;
        object.startTimer(1000);
        object.startTimer(2000);
        return LiveObjects::Timers() == 0 && LiveObjects::RunningClocks() == 2;
    }));
}

TEST(LiveObjects, WhatIsPutOffIsTold) {
    EXPECT_TRUE(Watched([] {
        const bool before = LiveObjects::IsAnythingPutOff();
        QTimer::singleShot(100000, [] {});
        return !before && LiveObjects::IsAnythingPutOff();
    }));
}
