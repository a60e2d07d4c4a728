#include "components/ReportConnector.h"
#include "report/Report.h"
#include "report/template/TemplateReader.h"
#include "report/viewer/FetchThread.h"
#include "support/report/ReportFixture.h"
#include "toolkit/EndProcess.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ProcessEnded {};

class FetchThreadTest : public testing::Test {
  protected:
    FetchThreadTest() { database.Set(u"SELECT"_s, Rows({u"A"_s}, {{u"one"_s}})); }

    static ReportOrder Order() {
        Report report(ReadTemplate(
            u"r.rpt"_s, SmallTemplate(u"<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text>"
                                      "</detail>"_s)));
        report.Tables()[0].SetLogOnInfo({}, {}, {}, {});
        return report.Order();
    }

    ReportDatabase database;
};

} // namespace

TEST_F(FetchThreadTest, MakesThePagesOnAThreadOfItsOwnAndTellsOnThisOne) {
    FetchThread fetch(Order(), nullptr);
    QSignalSpy finished(&fetch, &FetchThread::Finished);
    QThread* told = nullptr;
    QObject::connect(&fetch, &FetchThread::Finished, &fetch, [&] { told = QThread::currentThread(); });
    EXPECT_TRUE(finished.wait());
    EXPECT_EQ(told, QThread::currentThread());
    EXPECT_EQ(PageText(*fetch.Result(), 1).simplified(), u"one"_s);
}

TEST_F(FetchThreadTest, TheConnectionIsMadeUsedAndClosedOnThatThread) {
    std::vector<QThread*> threads;
    SetReportConnector([&](const ReportLogOn&) -> std::unique_ptr<CommandGateway> {
        threads.push_back(QThread::currentThread());
        throw RunTimeError(18456, u"Login failed."_s);
    });
    FetchThread fetch(Order(), nullptr);
    EXPECT_TRUE(QSignalSpy(&fetch, &FetchThread::Finished).wait());
    ASSERT_EQ(threads.size(), 1U);
    EXPECT_NE(threads[0], QThread::currentThread());
}

TEST_F(FetchThreadTest, WhatTheFetchingRaisesIsRaisedWhereItsResultIsTaken) {
    ReportOrder order = Order();
    order.commands = QStringList{u"spNowhere"_s};
    FetchThread fetch(std::move(order), nullptr);
    EXPECT_TRUE(QSignalSpy(&fetch, &FetchThread::Finished).wait());
    EXPECT_EQ(TextOfFailure([&] { fetch.Result(); }), u"Invalid object name."_s);
}

TEST_F(FetchThreadTest, DestroyedItCancelsTheCommand) {
    database.Hold();
    auto fetch = std::make_unique<FetchThread>(Order(), nullptr);
    database.AwaitCommand();
    fetch.reset();
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
}

TEST_F(FetchThreadTest, DestroyedItDoesNotWaitForADatabaseThatHeedsNothing) {
    database.Hold(true);
    auto fetch = std::make_unique<FetchThread>(Order(), nullptr);
    database.AwaitCommand();
    fetch.reset();
    EXPECT_EQ(database.open, 1);
    database.Release();
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
    QCoreApplication::processEvents();
}

TEST_F(FetchThreadTest, TheProgramsEndDoesNotWaitForADatabaseThatHeedsNothing) {
    const auto ending = EndProcessSeam().Replace([] { throw ProcessEnded(); });
    database.Hold(true);
    auto fetch = std::make_unique<FetchThread>(Order(), nullptr);
    database.AwaitCommand();
    fetch.reset();
    EXPECT_THROW(LeaveFetchThreads(), ProcessEnded);
    database.Release();
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
}

TEST_F(FetchThreadTest, TheProgramsEndGoesItsOwnWayWhenTheRowsAreThere) {
    const auto ending = EndProcessSeam().Replace([] { throw ProcessEnded(); });
    FetchThread fetch(Order(), nullptr);
    EXPECT_TRUE(QSignalSpy(&fetch, &FetchThread::Finished).wait());
    EXPECT_NO_THROW(LeaveFetchThreads());
}
