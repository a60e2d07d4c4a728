#include "support/PrintQt.h"
#include "text/Clock.h"
#include "trial/file/SignOnTrail.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using std::chrono::seconds;

namespace {

/// A file's trail, on a clock of the test's own.
class SignOnTrailTest : public testing::Test {
  protected:
    SignOnTrail At(const QString& workstation) { return {database, workstation}; }
    /// Begins a try, when its wait is over.
    void Begin(SignOnTrail& trail, const QString& user) {
        for (seconds wait = trail.Begin(user, true); wait.count() > 0; wait = trail.Begin(user, true))
            Pass(wait);
    }
    void Fail(const QString& user, const QString& workstation, int times = 1) {
        SignOnTrail trail = At(workstation);
        for (int i = 0; i < times; ++i)
            Begin(trail, user);
    }
    std::optional<FailedSignOns> SignOn(const QString& user, const QString& workstation) {
        SignOnTrail trail = At(workstation);
        Begin(trail, user);
        return trail.SignedOn(user);
    }
    void Pass(seconds time) { now = DateTime::FromMilliseconds(now.Milliseconds() + time.count() * 1000); }

    DateTime now = *DateTime::FromFields({.year = 2026, .month = 11, .day = 20, .hour = 8, .minute = 15});
    const Seam<DateTime()>::Replacement clock = ClockSeam().Replace([this] { return now; });
    QTemporaryDir folder;
    SqliteDatabase database{folder.filePath(u"t.db"_s), SqliteDatabase::Mode::New};
};

} // namespace

TEST_F(SignOnTrailTest, TwoFailuresCostNothingAndEachFurtherOneTwiceAsMuch) {
    std::vector<qint64> waits;
    for (int failures = 0; failures <= 9; ++failures)
        waits.push_back(SignOnTrail::WaitAfter(failures).count());
    EXPECT_EQ(waits, (std::vector<qint64>{0, 0, 0, 2, 4, 8, 16, 32, 60, 60}));
    EXPECT_EQ(SignOnTrail::WaitAfter(100000), seconds(60)) << "never more than a minute";
}

TEST_F(SignOnTrailTest, AWaitRunsFromTheLastFailure) {
    Fail(u"NURSE"_s, u"DESK1"_s, 5);
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"NURSE"_s), seconds(8));
    Pass(seconds(5));
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"NURSE"_s), seconds(3));
    Pass(seconds(3));
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"NURSE"_s), seconds(0));
    Fail(u"NURSE"_s, u"DESK1"_s);
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"NURSE"_s), seconds(16));
}

TEST_F(SignOnTrailTest, OutlivesTheConnection) {
    Fail(u"NURSE"_s, u"DESK1"_s, 4);
    SqliteDatabase another(folder.filePath(u"t.db"_s), SqliteDatabase::Mode::Existing);
    EXPECT_EQ(SignOnTrail(another, u"DESK1"_s).Wait(u"NURSE"_s), seconds(4));
}

TEST_F(SignOnTrailTest, CountsByUserWhereverHeFails) {
    Fail(u"NURSE"_s, u"DESK1"_s, 2);
    Fail(u"nurse"_s, u"DESK2"_s);
    EXPECT_EQ(At(u"DESK3"_s).Wait(u"NURSE"_s), seconds(2));
    EXPECT_EQ(At(u"DESK3"_s).Wait(u"CLERK"_s), seconds(0));
    EXPECT_EQ(At(u"DESK3"_s).WaitHere(), seconds(0)) << "nothing has failed there";
}

TEST_F(SignOnTrailTest, CountsByWorkstationWhoeverFailsThere) {
    Fail(u"NURSE"_s, u"DESK1"_s);
    Fail(QString(), u"DESK1"_s);
    Fail(u"CLERK"_s, u"DESK1"_s);
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"ADMIN"_s), seconds(2));
    EXPECT_EQ(At(u"DESK1"_s).Wait(QString()), seconds(2));
    EXPECT_EQ(At(u"DESK1"_s).WaitHere(), seconds(2));
    EXPECT_EQ(At(u"DESK2"_s).Wait(u"ADMIN"_s), seconds(0));
}

TEST_F(SignOnTrailTest, ASignOnEndsTheCountOfItsUserAndItsWorkstation) {
    Fail(u"NURSE"_s, u"DESK1"_s, 4);
    SignOn(u"NURSE"_s, u"DESK2"_s);
    EXPECT_EQ(At(u"DESK3"_s).Wait(u"NURSE"_s), seconds(0));
    EXPECT_EQ(At(u"DESK1"_s).WaitHere(), seconds(4)) << "there nobody has signed on since";
    SignOn(u"CLERK"_s, u"DESK1"_s);
    EXPECT_EQ(At(u"DESK1"_s).WaitHere(), seconds(0));
}

TEST_F(SignOnTrailTest, ATryThatNobodyHasFinishedCountsAsFailed) {
    Fail(u"NURSE"_s, u"DESK1"_s, 2);
    At(u"DESK1"_s).Begin(u"NURSE"_s);
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"NURSE"_s), seconds(2));
}

TEST_F(SignOnTrailTest, AClockThatWasSetBackMakesNobodyWaitLonger) {
    Fail(u"NURSE"_s, u"DESK1"_s, 4);
    now = now.AddDays(-30);
    EXPECT_EQ(At(u"DESK1"_s).Begin(u"NURSE"_s), seconds(4)) << "from the first look on";
    Pass(seconds(1));
    EXPECT_EQ(At(u"DESK1"_s).Begin(u"NURSE"_s), seconds(3));
    Pass(seconds(3));
    EXPECT_EQ(At(u"DESK1"_s).Begin(u"NURSE"_s), seconds(0));
}

TEST_F(SignOnTrailTest, ATryThatHasToWaitIsNotNoted) {
    Fail(u"NURSE"_s, u"DESK1"_s, 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(At(u"DESK1"_s).Begin(u"NURSE"_s), seconds(2)) << i;
}

TEST_F(SignOnTrailTest, WhoHasServedHisWaitIsHeldUpByHisWorkstationAlone) {
    Fail(u"NURSE"_s, u"DESK1"_s, 3);
    EXPECT_EQ(At(u"DESK2"_s).Begin(u"NURSE"_s), seconds(2));
    EXPECT_EQ(At(u"DESK1"_s).Begin(u"NURSE"_s, true), seconds(2));
    EXPECT_EQ(At(u"DESK2"_s).Begin(u"NURSE"_s, true), seconds(0));
}

TEST_F(SignOnTrailTest, ARightPasswordEndsTheCountButWhatFailedIsToldAtTheSignOn) {
    Fail(u"NURSE"_s, u"DESK1"_s, 3);
    SignOnTrail trail = At(u"DESK1"_s);
    Begin(trail, u"NURSE"_s);
    trail.PasswordWasRight();
    EXPECT_EQ(At(u"DESK1"_s).Wait(u"NURSE"_s), seconds(0));
    Fail(u"NURSE"_s, u"DESK1"_s);
    const auto failed = SignOn(u"NURSE"_s, u"DESK1"_s);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->count, 4);
    EXPECT_FALSE(SignOn(u"NURSE"_s, u"DESK1"_s));
}

TEST_F(SignOnTrailTest, TellsWhatFailedSinceTheUsersLastSignOn) {
    EXPECT_FALSE(SignOn(u"NURSE"_s, u"DESK1"_s));
    const DateTime signedOn = now;
    Pass(seconds(3600));
    Fail(u"NURSE"_s, u"DESK2"_s, 2);
    Fail(u"CLERK"_s, u"DESK2"_s);
    Pass(seconds(60));
    Fail(u"NURSE"_s, u"DESK3"_s);
    const DateTime last = now;
    Pass(seconds(3600));
    const auto failed = SignOn(u"NURSE"_s, u"DESK1"_s);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->count, 3);
    EXPECT_EQ(failed->since, signedOn);
    EXPECT_EQ(failed->last, last);
    EXPECT_EQ(failed->workstation, u"DESK3"_s);
    EXPECT_FALSE(SignOn(u"NURSE"_s, u"DESK1"_s)) << "it was told";
}

TEST_F(SignOnTrailTest, WhoNeverSignedOnIsToldSinceTheFirstFailure) {
    const DateTime first = now;
    Fail(u"NURSE"_s, u"DESK2"_s);
    Pass(seconds(60));
    Fail(u"NURSE"_s, u"DESK2"_s);
    EXPECT_EQ(SignOn(u"NURSE"_s, u"DESK1"_s)->since, first);
}

TEST_F(SignOnTrailTest, ForgetsWhatIsOlderThanAQuarterOfAYear) {
    Fail(u"NURSE"_s, u"DESK1"_s, 3);
    now = now.AddDays(91);
    SignOn(u"CLERK"_s, u"DESK2"_s);
    EXPECT_FALSE(SignOn(u"NURSE"_s, u"DESK1"_s));
    EXPECT_EQ(database.RunForValue(u"SELECT count(*) FROM tarven_sign_on"_s), Cell(qint64(2)));
}
