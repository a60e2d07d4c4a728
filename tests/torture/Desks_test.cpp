#include "charges/commands.h"
#include "nursing/commands.h"
#include "odbc/OdbcGateway.h"
#include "support/tds/TestDataSources.h"
#include "torture/DeskPlan.h"
#include "torture/DeskServer.h"

#include <algorithm>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

// What the replay of many desks is made of: the plan of one, and the server that answers all of them.

namespace {

using std::chrono::hours;

const QString kPrintLine = u"Clinical_Area..spEarCare_SaveChargePrint 'HC001','3360.00','1','HC','X', 'O'"_s;
const QString kReadPrint = u"SELECT ItemID FROM Clinical_Area.dbo.tbEarCareChargePrint ORDER BY PrintID"_s;

/// A shift in which each work is one command that bears its name, and a slip has two.
DeskRecord SmallRecord() {
    DeskRecord record;
    for (const DeskWork work :
         {DeskWork::Asking, DeskWork::Search, DeskWork::Save, DeskWork::List, DeskWork::Report})
        record.works[work] = {{.isApart = work == DeskWork::Report, .commands = {NameOf(work)}}};
    record.works[DeskWork::Keying] = {{.isApart = false, .commands = {u"code"_s, u"amount"_s}}};
    return record;
}

std::map<DeskWork, int> CountsOf(const std::vector<DeskDeed>& plan) {
    std::map<DeskWork, int> counts;
    for (const DeskDeed& deed : plan)
        counts[deed.work] += int(deed.said.commands.size());
    return counts;
}

/// What is answered to a slip of one line and to a question for requests: that it was done.
DeskRecord RecordOfOneLine() {
    TdsConnection nowhere(-1);
    DeskRecord record;
    for (const QString& text : {ClearChargePrintCommand(), kPrintLine, kReadPrint, CheckPendingCommand()})
        record.answers[text] = TdsAnswer(nowhere).Whole();
    record.workOf[CheckPendingCommand()] = DeskWork::Asking;
    return record;
}

/// A server that desks share.
class OneServer : public testing::Test {
  protected:
    std::unique_ptr<OdbcGateway> Desk(const QString& user) {
        return std::make_unique<OdbcGateway>(mSource, user, u"p"_s);
    }

    const DeskRecord record = RecordOfOneLine();
    DeskServer server{record};

  private:
    QString mSource = TestDataSources::Instance().Add(server.Port());
};

} // namespace

TEST(DeskPlan, AsksFourTimesASecondAndSavesOnceAMinute) {
    const auto counts = CountsOf(PlanDesk(SmallRecord(), {}, hours(10), 1));
    EXPECT_NEAR(counts.at(DeskWork::Asking), 10 * 3600 * 4, 1);
    EXPECT_NEAR(counts.at(DeskWork::Save), 600, 75);
    EXPECT_NEAR(counts.at(DeskWork::Keying), 2 * counts.at(DeskWork::Save), 2);
    EXPECT_NEAR(counts.at(DeskWork::Search), counts.at(DeskWork::Save) + 300, 75);
    EXPECT_NEAR(counts.at(DeskWork::List), 120, 40);
    EXPECT_NEAR(counts.at(DeskWork::Report), 40, 25);
}

TEST(DeskPlan, HurryIsTheClerksAloneNotTheMonitors) {
    const auto counts = CountsOf(PlanDesk(SmallRecord(), DeskPace().Hurried(10), hours(1), 1));
    EXPECT_NEAR(counts.at(DeskWork::Asking), 3600 * 4, 1);
    EXPECT_NEAR(counts.at(DeskWork::Save), 600, 75);
}

TEST(DeskPlan, KeysASlipBetweenItsSearchAndItsSave) {
    QStringList told;
    for (const DeskDeed& deed : PlanDesk(SmallRecord(), {}, hours(1), 7)) {
        if (deed.work == DeskWork::Keying || deed.work == DeskWork::Save)
            told << deed.said.commands;
    }
    const qsizetype save = told.indexOf(NameOf(DeskWork::Save), 2);
    EXPECT_EQ(told.mid(save - 2, 3), QStringList({u"code"_s, u"amount"_s, NameOf(DeskWork::Save)}));
}

TEST(DeskPlan, IsInTheOrderOfItsMomentsAndTheSameForASeed) {
    const auto plan = PlanDesk(SmallRecord(), {}, hours(1), 3);
    EXPECT_TRUE(std::ranges::is_sorted(plan, {}, &DeskDeed::moment));
    EXPECT_EQ(CountsOf(plan), CountsOf(PlanDesk(SmallRecord(), {}, hours(1), 3)));
    EXPECT_NE(plan[0].moment, PlanDesk(SmallRecord(), {}, hours(1), 4)[0].moment);
}

TEST_F(OneServer, TellsWhatWentOverTheWire) {
    const auto desk = Desk(u"DESK1"_s);
    // The desk is let in a moment before the server has begun its session.
    desk->Execute(CheckPendingCommand());
    server.BeginToCount();
    for (int i = 0; i < 3; ++i)
        desk->Execute(CheckPendingCommand());
    server.Close();
    const DeskServer::Traffic& traffic = server.ByWork().at(DeskWork::Asking);
    // The packet's header, the batch's headers, two bytes for each letter; the answer is a header and an end.
    EXPECT_EQ(traffic.exchanges, 3);
    EXPECT_EQ(traffic.received, 3 * (8 + 22 + 2 * CheckPendingCommand().size()));
    EXPECT_EQ(traffic.sent, 3 * (8 + 13));
    EXPECT_EQ(server.Logons().exchanges, 0);
}

TEST_F(OneServer, CountsTheLogonsThatComeLater) {
    server.BeginToCount();
    Desk(u"DESK1"_s);
    server.Close();
    EXPECT_EQ(server.Logons().exchanges, 1);
    EXPECT_GT(server.Logons().received, 0);
}

TEST_F(OneServer, GivesANumberOnce) {
    const auto open = [](OdbcGateway& desk) {
        return desk.Open(ChargeSlipCounterCommand(), CursorType::Dynamic, LockType::Optimistic);
    };
    const auto one = Desk(u"DESK1"_s);
    const auto two = Desk(u"DESK2"_s);
    RowSet first = open(*one);
    RowSet second = open(*two);
    for (RowSet* counter : {&first, &second})
        counter->SetField(u"ChargeSlip", counter->Fields(u"ChargeSlip").ToInteger() + 1);
    EXPECT_NO_THROW(first.Update());
    EXPECT_ANY_THROW(second.Update());
}

TEST_F(OneServer, ASlipThatIsPrintedAloneIsWhole) {
    const auto desk = Desk(u"DESK1"_s);
    for (const QString& text : {ClearChargePrintCommand(), kPrintLine, kReadPrint})
        desk->Execute(text);
    EXPECT_EQ(server.SlipsRead(), 1);
    EXPECT_EQ(server.SlipsSpoilt(), 0);
}

TEST_F(OneServer, ASlipIsSpoiltByADeskThatPrintsMeanwhile) {
    const auto one = Desk(u"DESK1"_s);
    const auto two = Desk(u"DESK2"_s);
    for (const QString& text : {ClearChargePrintCommand(), kPrintLine})
        one->Execute(text);
    two->Execute(ClearChargePrintCommand());
    one->Execute(kReadPrint);
    two->Execute(kPrintLine);
    two->Execute(kReadPrint);
    EXPECT_EQ(server.SlipsRead(), 2);
    EXPECT_EQ(server.SlipsSpoilt(), 1);
}

TEST_F(OneServer, TellsATextThatWasNotRecorded) {
    EXPECT_ANY_THROW(Desk(u"DESK1"_s)->Execute(u"another text"_s));
    server.Close();
    EXPECT_EQ(server.TakeProblems(), QStringList(u"nothing was recorded for another text"_s));
}
