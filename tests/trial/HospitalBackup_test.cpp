#include "support/PrintQt.h"
#include "support/process/ChildProcess.h"
#include "support/process/FileLocks.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"
#include "text/RunTimeError.h"
#include "trial/file/SignOnTrail.h"
#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class HospitalBackupTest : public testing::Test {
  protected:
    HospitalBackupTest() { HospitalFile::Create(path, scripts); }

    void BackUp() { HospitalFile::BackUp(path, copy, scripts); }
    void Restore() { HospitalFile::Restore(path, copy, scripts); }
    std::unique_ptr<EmbeddedGateway> Open() { return HospitalFile::Open(path, scripts); }
    static qint64 Slip(EmbeddedGateway& gateway) {
        return gateway.Execute(u"select ChargeSlip from Clinical_Area..tbSlip"_s).Fields(0).ToInteger();
    }
    static void SetSlip(EmbeddedGateway& gateway, int number) {
        gateway.ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = %1"_s.arg(number));
    }
    QStringList FilesThere() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
    static QByteArray ContentAt(const QString& file) {
        QFile opened(file);
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
        return opened.readAll();
    }
    static void Overwrite(const QString& file, const QByteArray& content) {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        opened.write(content);
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"hospital.db"_s);
    const QString copy = folder.filePath(u"copy.db"_s);
    std::vector<Script> scripts = SmallHospitalScripts();
};

/// Counts in two tables, one after the other, until it is killed: another desk at work.
class BusyDesk {
  public:
    BusyDesk(const QString& path, const std::vector<Script>& scripts)
        : mProcess(::fork()) {
        if (mProcess == 0)
            Work(path, scripts);
    }
    BusyDesk(const BusyDesk&) = delete;
    BusyDesk& operator=(const BusyDesk&) = delete;
    ~BusyDesk() {
        ::kill(mProcess, SIGKILL);
        ::waitpid(mProcess, nullptr, 0);
    }

  private:
    [[noreturn]] static void Work(const QString& path, const std::vector<Script>& scripts) {
        const auto gateway = HospitalFile::Open(path, scripts);
        for (int i = 1;; ++i) {
            gateway->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = %1"_s.arg(i));
            gateway->ExecuteNoResult(u"insert into Clinical_Area..tbPrint ([Slip #]) values ('%1')"_s.arg(i));
        }
    }

    pid_t mProcess;
};

} // namespace

TEST_F(HospitalBackupTest, ACopyIsOneFileOfItsOwnersWithAllThatTheHospitalHas) {
    const auto clerk = Open();
    SetSlip(*clerk, 555);
    const QStringList content = ContentOf(*clerk);
    BackUp();
    struct stat found = {};
    ASSERT_EQ(::stat(QFile::encodeName(copy).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
    EXPECT_EQ(FilesThere().filter(u"copy.db"_s), QStringList{u"copy.db"_s});
    EXPECT_EQ(ContentOf(*HospitalFile::Open(copy, scripts)), content);
}

TEST_F(HospitalBackupTest, CopiesMadeWhileAnotherDeskWritesAreEachOfOneMoment) {
    const auto witness = Open();
    SetSlip(*witness, 0);
    witness->ExecuteNoResult(u"delete from Clinical_Area..tbPrint"_s);
    const BusyDesk desk(path, scripts);
    while (Slip(*witness) == 0)
        ::usleep(1000);
    qint64 last = 0;
    for (int i = 0; i < 20; ++i) {
        BackUp();
        const auto saved = HospitalFile::Open(copy, scripts);
        const qint64 slip = Slip(*saved);
        const qint64 lines =
            saved->Execute(u"select count(*) from Clinical_Area..tbPrint"_s).Fields(0).ToInteger();
        EXPECT_TRUE(slip == lines || slip == lines + 1) << slip << ' ' << lines;
        EXPECT_GE(slip, last);
        last = slip;
        QFile::remove(copy);
    }
    EXPECT_GT(Slip(*witness), last) << "the desk was held up for good";
}

TEST_F(HospitalBackupTest, TheHospitalStaysHeldByWhoWorksInIt) {
    const auto clerk = Open();
    BackUp();
    EXPECT_TRUE(IsHeldOpen(path));
    EXPECT_FALSE(IsHeldOpen(copy));
}

TEST_F(HospitalBackupTest, AFileThatStandsIsNotWrittenOver) {
    Overwrite(copy, "precious");
    EXPECT_EQ(FailureOf([this] { BackUp(); }).number, RunTime::kPathFileAccess);
    EXPECT_EQ(ContentAt(copy), "precious");
}

TEST_F(HospitalBackupTest, NeitherIsOneThatTheMakingOfACopyWouldTakeForItsOwn) {
    const QString beside = copy + u".new"_s;
    Overwrite(beside, "precious");
    const RaisedError failure = FailureOf([this] { BackUp(); });
    EXPECT_EQ(failure.number, RunTime::kPathFileAccess);
    EXPECT_TRUE(failure.text.contains(beside + u" (it stands already"_s)) << failure.text.toStdString();
    EXPECT_EQ(ContentAt(beside), "precious");
}

TEST_F(HospitalBackupTest, ALinkToADiskThatIsAwayIsNoPlaceForACopy) {
    ASSERT_TRUE(QFile::link(folder.filePath(u"away"_s), copy));
    EXPECT_EQ(FailureOf([this] { BackUp(); }).number, RunTime::kPathFileAccess);
    EXPECT_TRUE(QFileInfo(copy).isSymLink());
}

TEST_F(HospitalBackupTest, ACopyThatWasStoppedHalfWayIsNotInTheWayOfTheNext) {
    Overwrite(copy + u".new"_s, "half a copy");
    // As of a process that is gone.
    Overwrite(copy + u".lock"_s, "99999999\nprogram\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    BackUp();
    EXPECT_EQ(FilesThere().filter(u"copy.db"_s), QStringList{u"copy.db"_s});
}

TEST_F(HospitalBackupTest, AFolderThatIsMissingIsNamed) {
    const RaisedError failure =
        FailureOf([this] { HospitalFile::BackUp(path, folder.filePath(u"none/copy.db"_s), scripts); });
    EXPECT_TRUE(failure.text.contains(u"there is no folder"_s)) << failure.text.toStdString();
}

TEST_F(HospitalBackupTest, WhatIsNoHospitalOrNotThereIsNotCopied) {
    QFile::remove(path);
    EXPECT_EQ(FailureOf([this] { BackUp(); }).number, RunTime::kFileNotFound);
    Overwrite(path, QByteArray(4096, 'x'));
    EXPECT_EQ(FailureOf([this] { BackUp(); }).number, 5171);
    EXPECT_EQ(FilesThere(), QStringList{u"hospital.db"_s});
}

TEST_F(HospitalBackupTest, ADamagedHospitalIsNotTakenForACopy) {
    QByteArray content = ContentAt(path);
    constexpr qsizetype kBegin = 40 * 1024;
    ASSERT_GT(content.size(), kBegin + 8192);
    Overwrite(path, content.replace(kBegin, 8192, QByteArray(8192, 'x')));
    const RaisedError failure = FailureOf([this] { BackUp(); });
    EXPECT_EQ(failure.number, 824);
    EXPECT_TRUE(failure.text.contains(path)) << failure.text.toStdString();
    EXPECT_EQ(FilesThere().filter(u"copy.db"_s), QStringList());
}

TEST_F(HospitalBackupTest, AHospitalOfAnotherVersionIsNeitherCopiedNorPutBack) {
    BackUp();
    for (Script& script : scripts)
        script.text.replace(u"ChargeSlip int"_s, u"ChargeSlip bigint"_s);
    EXPECT_EQ(FailureOf([this] { HospitalFile::BackUp(path, copy + u"2"_s, scripts); }).number, 948);
    EXPECT_EQ(FailureOf([this] { Restore(); }).number, 948);
}

TEST_F(HospitalBackupTest, ACopyThatIsPutBackBringsItsMomentAndStaysAsItIs) {
    SetSlip(*Open(), 555);
    BackUp();
    const QByteArray saved = ContentAt(copy);
    SetSlip(*Open(), 777);
    Restore();
    EXPECT_EQ(Slip(*Open()), 555);
    EXPECT_EQ(ContentAt(copy), saved);
    EXPECT_EQ(FilesThere(), (QStringList{u"copy.db"_s, u"hospital.db"_s}));
}

TEST_F(HospitalBackupTest, ACopyIsPutWhereNoHospitalStands) {
    SetSlip(*Open(), 555);
    BackUp();
    QFile::remove(path);
    Restore();
    EXPECT_EQ(Slip(*Open()), 555);
}

TEST_F(HospitalBackupTest, ACopyIsPutInThePlaceOfADamagedHospital) {
    SetSlip(*Open(), 555);
    BackUp();
    Overwrite(path, QByteArray(4096, 'x'));
    Restore();
    EXPECT_EQ(Slip(*Open()), 555);
}

TEST_F(HospitalBackupTest, TheLogOfAKilledDeskIsNotPlayedIntoTheCopyThatTookThePlace) {
    SetSlip(*Open(), 555);
    BackUp();
    const int code = RunInChild([this] {
        const auto clerk = Open();
        SetSlip(*clerk, 777);
        KillThisProcess();
        return 0;
    });
    ASSERT_EQ(code, -SIGKILL);
    Restore();
    EXPECT_EQ(Slip(*Open()), 555);
}

TEST_F(HospitalBackupTest, AHospitalThatAnotherDeskHasOpenIsNotReplaced) {
    BackUp();
    const auto clerk = Open();
    SetSlip(*clerk, 777);
    const int code = RunInChild([this] { return FailureOf([this] { Restore(); }).number == 3702 ? 0 : 1; });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(FailureOf([this] { Restore(); }).number, 3702);
    EXPECT_TRUE(IsHeldOpen(path));
    SetSlip(*clerk, 778);
    EXPECT_EQ(Slip(*Open()), 778);
}

TEST_F(HospitalBackupTest, ACopyThatIsCutOrSpoiltIsNotPutBack) {
    BackUp();
    SetSlip(*Open(), 777);
    const QByteArray saved = ContentAt(copy);
    Overwrite(copy, saved.chopped(1000));
    EXPECT_EQ(FailureOf([this] { Restore(); }).number, 824);
    Overwrite(copy, QByteArray(saved).replace(40 * 1024, 8192, QByteArray(8192, 'x')));
    EXPECT_EQ(FailureOf([this] { Restore(); }).number, 824);
    EXPECT_EQ(Slip(*Open()), 777);
    EXPECT_EQ(FilesThere(), (QStringList{u"copy.db"_s, u"hospital.db"_s}));
}

TEST_F(HospitalBackupTest, NobodyGetsRidOfHisWaitByACopy) {
    BackUp();
    {
        const auto clerk = Open();
        SignOnTrail trail(clerk->Engine().Database(), u"WARD"_s);
        for (int i = 0; i < 5; ++i)
            trail.Begin(u"NURSE"_s, true);
    }
    Restore();
    const auto clerk = Open();
    EXPECT_GT(SignOnTrail(clerk->Engine().Database(), u"WARD"_s).Wait(u"NURSE"_s).count(), 0);
}
