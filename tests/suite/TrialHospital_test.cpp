#include "suite/SignOn.h"
#include "suite/TrialHospital.h"
#include "support/ErrorOf.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/process/ChildProcess.h"
#include "text/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

void WriteFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

class TrialHospitalTest : public testing::Test {
  protected:
    const Seam<DateTime()>::Replacement clock =
        FixedClock(*DateTime::FromFields({.year = 2026, .month = 11, .day = 21, .hour = 10}));
    QTemporaryDir home;
    TrialHospital hospital{home.filePath(u"share/TARVEN"_s)};
};

TEST_F(TrialHospitalTest, IsMadeWithItsFolderAndTellsHowFarItHasCome) {
    EXPECT_TRUE(hospital.NeedsMaking());
    EXPECT_EQ(hospital.Path(), home.filePath(u"share/TARVEN/trial-hospital.db"_s));
    std::vector<int> steps;
    int total = 0;
    QStringList told;
    hospital.Make([&](int done, int ofAll, const QString& what) {
        steps.push_back(done);
        total = ofAll;
        told.push_back(what);
    });
    EXPECT_FALSE(hospital.NeedsMaking());
    ASSERT_GT(steps.size(), 10U);
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    EXPECT_EQ(steps.front(), 0);
    EXPECT_EQ(steps.back(), total);
    EXPECT_FALSE(told.front().isEmpty());
    EXPECT_EQ(QDir(home.filePath(u"share/TARVEN"_s)).entryList(QDir::Files),
              QStringList{u"trial-hospital.db"_s});
    for (const auto& [user, password] :
         {std::pair{u"NURSE"_s, u"nurse"_s}, {u"CLERK"_s, u"clerk"_s}, {u"ADMIN"_s, u"admin"_s}}) {
        EXPECT_TRUE(hospital.Hint().contains(user));
        EXPECT_TRUE(hospital.Hint().contains(password));
        EXPECT_EQ(TrySignOn(hospital, user, password, {u"HC"_s}).refusal, QString());
    }
}

TEST_F(TrialHospitalTest, MadeAnewItHasLostWhatWasKeyed) {
    hospital.Make({});
    hospital.Connect({}, {})->ExecuteNoResult(
        u"DELETE FROM PASSWORD..tbPasswordMain WHERE EmployeeID = 'NURSE'"_s);
    EXPECT_FALSE(TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).refusal.isEmpty());
    EXPECT_TRUE(hospital.CanBeMadeAnew());
    hospital.MakeAnew({});
    EXPECT_EQ(TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).refusal, QString());
}

TEST_F(TrialHospitalTest, MadeAnewItKnowsWhoFailedToSignOn) {
    hospital.Make({});
    for (int i = 0; i < 3; ++i)
        TrySignOn(hospital, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
    hospital.MakeAnew({});
    EXPECT_EQ(TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).wait.count(), 2);
    const auto later = FixedClock(*DateTime::FromFields({.year = 2026, .month = 11, .day = 21, .hour = 11}));
    const auto user = TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).user;
    ASSERT_NE(user, nullptr);
    ASSERT_TRUE(user->failed);
    EXPECT_EQ(user->failed->count, 3);
}

TEST_F(TrialHospitalTest, AMakingLeavesAHospitalThatAnotherWorkstationHasMadeMeanwhile) {
    const int other = RunInChild([this] {
        hospital.Make({});
        hospital.Connect({}, {})->ExecuteNoResult(
            u"DELETE FROM PASSWORD..tbPasswordMain WHERE EmployeeID = 'NURSE'"_s);
        return 0;
    });
    ASSERT_EQ(other, 0);
    hospital.Make({});
    EXPECT_FALSE(TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).refusal.isEmpty())
        << "what was keyed there stands";
}

TEST_F(TrialHospitalTest, AHospitalThatSomebodyHasOpenIsNotMadeAnew) {
    hospital.Make({});
    const auto clerk = hospital.Connect({}, {});
    clerk->ExecuteNoResult(u"DELETE FROM PASSWORD..tbPasswordMain WHERE EmployeeID = 'NURSE'"_s);
    EXPECT_EQ(RunInChild([this] { return ErrorOf([this] { hospital.MakeAnew({}); }) == 3702 ? 0 : 1; }), 0);
    EXPECT_EQ(TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).refusal,
              u"The user or the password is wrong."_s);
}

TEST_F(TrialHospitalTest, AJournalThatWasLeftBehindIsNotPlayedIntoTheNewFile) {
    QDir().mkpath(home.filePath(u"share/TARVEN"_s));
    WriteFile(hospital.Path() + u"-wal"_s, "left behind");
    WriteFile(hospital.Path() + u"-shm"_s, "left behind");
    hospital.Make({});
    EXPECT_EQ(TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).refusal, QString());
}

TEST_F(TrialHospitalTest, AFileThatIsNoHospitalIsRefusedAndLeftAlone) {
    QDir().mkpath(home.filePath(u"share/TARVEN"_s));
    WriteFile(hospital.Path(), "my letters");
    EXPECT_FALSE(hospital.NeedsMaking());
    EXPECT_EQ(ErrorOf([this] { hospital.Connect({}, {}); }), 5171);
    QFile file(hospital.Path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "my letters");
}

TEST_F(TrialHospitalTest, AFolderThatCannotBeMadeRaises75) {
    WriteFile(home.filePath(u"share"_s), "");
    try {
        hospital.Make({});
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 75);
        EXPECT_EQ(error.Description(), u"Path/File access error: "_s + home.filePath(u"share/TARVEN"_s));
    }
}

TEST_F(TrialHospitalTest, AFolderInItsPlaceIsNotReplaced) {
    QDir().mkpath(hospital.Path() + u"/inside"_s);
    try {
        hospital.MakeAnew({});
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 5171);
        EXPECT_TRUE(error.Description().contains(hospital.Path())) << error.Description().toStdString();
    }
    EXPECT_TRUE(QDir(hospital.Path()).exists());
}

TEST_F(TrialHospitalTest, LiesInAFolderThatIsItsOwnersAlone) {
    const mode_t before = ::umask(0);
    hospital.Make({});
    ::umask(before);
    const QByteArray folder = QFile::encodeName(QFileInfo(hospital.Path()).path());
    struct stat found = {};
    ASSERT_EQ(::stat(folder.constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0700U);
    ASSERT_EQ(::chmod(folder.constData(), 0755), 0);
    hospital.Connect({}, {});
    ASSERT_EQ(::stat(folder.constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0700U) << "one that is found wider is narrowed";
}

TEST_F(TrialHospitalTest, AFileThatIsALinkIsTheOneThatItLeadsTo) {
    hospital.Make({});
    const QString real = home.filePath(u"elsewhere/real.db"_s);
    ASSERT_TRUE(QDir().mkpath(home.filePath(u"elsewhere"_s)));
    const QByteArray elsewhere = QFile::encodeName(home.filePath(u"elsewhere"_s));
    ASSERT_EQ(::chmod(elsewhere.constData(), 0755), 0);
    ASSERT_TRUE(QFile::rename(hospital.Path(), real));
    ASSERT_TRUE(QFile::link(real, hospital.Path()));
    TrialHospital linked(home.filePath(u"share/TARVEN"_s));
    EXPECT_EQ(linked.Path(), real);
    EXPECT_EQ(TrySignOn(linked, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).refusal, QString());
    struct stat found = {};
    ASSERT_EQ(::stat(elsewhere.constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0755U) << "a folder that is not the program's";
}

TEST_F(TrialHospitalTest, HoldsWorkOnceSomebodyHasWrittenInIt) {
    EXPECT_FALSE(hospital.HoldsWork()) << "not made yet";
    hospital.Make({});
    EXPECT_FALSE(hospital.HoldsWork());
    const auto clerk = TrySignOn(hospital, u"NURSE"_s, u"nurse"_s, {u"HC"_s}).user;
    EXPECT_FALSE(hospital.HoldsWork()) << "a sign-on is no work";
    clerk->connection->ExecuteNoResult(u"delete Clinical_Area..tbEarCareChargePrint"_s);
    EXPECT_TRUE(hospital.HoldsWork());
}

TEST_F(TrialHospitalTest, WhatIsNoHospitalHoldsNoWork) {
    QDir().mkpath(QFileInfo(hospital.Path()).path());
    WriteFile(hospital.Path(), "a letter");
    EXPECT_FALSE(hospital.HoldsWork());
}

TEST_F(TrialHospitalTest, FailedSignOnsAreCountedForThisMachine) {
    hospital.Make({});
    for (int i = 0; i < 3; ++i)
        TrySignOn(hospital, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
    EXPECT_EQ(TrySignOn(hospital, u"CLERK"_s, u"clerk"_s, {u"HC"_s}).wait.count(), 2);
}

TEST_F(TrialHospitalTest, AReportReadsAndDoesNotWrite) {
    hospital.Make({});
    const auto report = LogOn(hospital, u"NURSE"_s, u"nurse"_s);
    EXPECT_FALSE(report->Execute(u"select * from PATIENT_DATA..tbhospitalInfo"_s).Eof());
    EXPECT_EQ(ErrorOf([&] { report->ExecuteNoResult(u"delete Clinical_Area..tbEarCareChargePrint"_s); }),
              3906);
}

} // namespace
