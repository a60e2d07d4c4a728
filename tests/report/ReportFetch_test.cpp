#include "components/ReportConnector.h"
#include "report/Report.h"
#include "report/ReportFetch.h"
#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

class ReportFetchTest : public testing::Test {
  protected:
    ReportFetchTest() { database.Set(u"SELECT"_s, Rows({u"A"_s}, {{u"one"_s}, {u"two"_s}})); }

    static ReportOrder Order() {
        Report report(ReadTemplate(
            u"r.rpt"_s,
            SmallTemplate(u"<query>SELECT * FROM {T}</query><query name=\"Again\">SELECT 2 FROM {T}</query>"
                          "<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"_s)));
        report.Tables()[0].SetLogOnInfo(u"S"_s, u"D"_s, u"U"_s, u"secret"_s);
        return report.Order();
    }

    ReportDatabase database;
};

} // namespace

TEST_F(ReportFetchTest, MakesThePagesOfTheOrdersRowsAndClosesItsConnection) {
    ReportFetch fetch(Order());
    EXPECT_EQ(PageText(*fetch.Run(), 1).simplified(), u"one two"_s);
    EXPECT_EQ(database.commands.size(), 2);
    EXPECT_EQ(database.open, 0);
}

TEST_F(ReportFetchTest, CancelledBeforehandItAsksNobody) {
    ReportFetch fetch(Order());
    fetch.Cancel();
    EXPECT_EQ(fetch.Run(), nullptr);
    EXPECT_TRUE(database.logOns.empty());
}

TEST_F(ReportFetchTest, CancelledInAQueryItGivesTheQueryUpAndAsksNoOther) {
    database.Hold();
    ReportFetch fetch(Order());
    const std::jthread clerk([&] {
        database.AwaitCommand();
        fetch.Cancel();
    });
    EXPECT_EQ(fetch.Run(), nullptr);
    EXPECT_EQ(database.commands.size(), 1);
    EXPECT_EQ(database.open, 0);
}

TEST_F(ReportFetchTest, CancelledWhileItConnectsItRunsNoQuery) {
    ReportFetch fetch(Order());
    SetReportConnector([&](const ReportLogOn&) -> std::unique_ptr<CommandGateway> {
        fetch.Cancel();
        return std::make_unique<ScriptedGateway>();
    });
    EXPECT_EQ(fetch.Run(), nullptr);
}

TEST_F(ReportFetchTest, AFailureOfTheConnectionIsNoneWhenTheClerkHasGivenUp) {
    ReportFetch fetch(Order());
    SetReportConnector([&](const ReportLogOn&) -> std::unique_ptr<CommandGateway> {
        fetch.Cancel();
        throw RunTimeError(18456, u"Login failed."_s);
    });
    EXPECT_EQ(fetch.Run(), nullptr);
}

TEST_F(ReportFetchTest, OverwritesThePasswordAsSoonAsTheConnectionStands) {
    const QChar* password = nullptr;
    SetReportConnector([&](const ReportLogOn& logOn) {
        password = logOn.password.constData();
        EXPECT_EQ(password[0], u's');
        auto gateway = std::make_unique<ScriptedGateway>();
        gateway->ExpectFailure(u"SELECT * FROM D.dbo.T"_s, RunTimeError(208, u"Invalid object name."_s));
        return gateway;
    });
    ReportFetch fetch(Order());
    EXPECT_EQ(TextOfFailure([&] { fetch.Run(); }), u"Invalid object name."_s);
    ASSERT_TRUE(password);
    EXPECT_EQ(password[0], QChar());
}

TEST_F(ReportFetchTest, OverwritesThePasswordWhenTheConnectionFails) {
    const QChar* password = nullptr;
    SetReportConnector([&](const ReportLogOn& logOn) -> std::unique_ptr<CommandGateway> {
        password = logOn.password.constData();
        throw RunTimeError(18456, u"Login failed."_s);
    });
    ReportFetch fetch(Order());
    EXPECT_EQ(TextOfFailure([&] { fetch.Run(); }), u"Login failed."_s);
    EXPECT_EQ(password[0], QChar());
}
