#include "support/PrintQt.h"
#include "support/process/ChildProcess.h"
#include "support/process/FileLocks.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"
#include "text/RunTimeError.h"
#include "trial/file/HospitalPlace.h"
#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSysInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class HospitalFileTest : public testing::Test {
  protected:
    QString Path() const { return folder.filePath(u"hospital.db"_s); }
    void Create() { HospitalFile::Create(Path(), scripts); }
    std::unique_ptr<EmbeddedGateway> Open() { return HospitalFile::Open(Path(), scripts); }
    RaisedError OpenFailure() {
        return FailureOf([this] { Open(); });
    }
    QStringList Files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
    QByteArray Content() const {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QByteArray Log() const {
        QFile log(Path() + u"-wal"_s);
        return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
    }
    void Write(const QByteArray& content) const {
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void MakeForeignDatabase(const char* sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(Path().toUtf8().constData(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }
    static mode_t ModeOf(const QString& path) {
        struct stat found = {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &found), 0);
        return found.st_mode & 0777U;
    }
    /// Leaves the file behind with its log.
    void WriteAndBeKilled() {
        const int code = RunInChild([this] {
            const auto gateway = Open();
            gateway->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = ChargeSlip + 1"_s);
            KillThisProcess();
            return 0;
        });
        ASSERT_EQ(code, -SIGKILL);
    }
    /// The pages behind the first ones, which tell what tables there are, are filled with nonsense.
    static void Damage(const QString& path) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        constexpr qint64 kKept = 40 * 1024;
        ASSERT_GT(file.size(), kKept + 8192);
        file.seek(kKept);
        file.write(QByteArray(8192, 'x'));
    }
    Script& Named(const QString& name) {
        return *std::find_if(scripts.begin(), scripts.end(), [&](const Script& s) { return s.name == name; });
    }

    QTemporaryDir folder;
    std::vector<Script> scripts = SmallHospitalScripts();
};

const QString kGetPatientName = u"procedures/Clinical_Area/spGetPatient.sql"_s;

} // namespace

TEST_F(HospitalFileTest, CreateLeavesTheOneFile) {
    Create();
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    EXPECT_EQ(RowTexts(*Open(), u"Clinical_Area..spGetPatient 'NUNO'"_s), QStringList{u"1004|NUNO, CARL"_s});
}

TEST_F(HospitalFileTest, CreateTellsHowFarItIs) {
    QStringList told;
    HospitalFile::Create(Path(), scripts, [&](int done, int total, const QString& what) {
        EXPECT_EQ(total, static_cast<int>(scripts.size()));
        told << QString::number(done) + u' ' + what;
    });
    EXPECT_EQ(told.first(), u"0 schema/10-all.sql"_s);
    EXPECT_EQ(told.last(), QString::number(scripts.size()) + u' ');
    EXPECT_EQ(told.size(), static_cast<qsizetype>(scripts.size()) + 1);
}

TEST_F(HospitalFileTest, AnsweredCommandsReachTheDisk) {
    Create();
    const auto gateway = Open();
    constexpr qint64 kFull = 2;
    EXPECT_EQ(gateway->Engine().Database().RunForValue(u"PRAGMA journal_mode"_s), Cell(QByteArray("wal")));
    EXPECT_EQ(gateway->Engine().Database().RunForValue(u"PRAGMA synchronous"_s), Cell(kFull));
}

TEST_F(HospitalFileTest, CreateRefusesAFileThatIsThere) {
    Write("precious");
    EXPECT_EQ(FailureOf([this] { Create(); }).number, RunTime::kPathFileAccess);
    EXPECT_EQ(Content(), "precious");
}

TEST_F(HospitalFileTest, CreateInAFolderThatIsNotThereIsAnError) {
    const QString path = folder.filePath(u"none/hospital.db"_s);
    EXPECT_EQ(FailureOf([&] { HospitalFile::Create(path, scripts); }).number, 5120);
}

TEST_F(HospitalFileTest, AFailingScriptLeavesNothing) {
    scripts.push_back({u"demo/20-bad.sql"_s, u"USE BILLING;\nGO\n\nDELETE FROM BILLING..tbNothing;\n"_s});
    const RaisedError failure = FailureOf([this] { Create(); });
    EXPECT_EQ(failure.number, 208);
    EXPECT_EQ(failure.text, u"demo/20-bad.sql, line 4: Invalid object name 'BILLING..tbNothing'."_s);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(HospitalFileTest, ACreationKilledHalfWayLeavesNothingToOpenAndTheNextOneWorks) {
    const int code = RunInChild([this] {
        HospitalFile::Create(Path(), scripts, [](int done, int total, const QString&) {
            if (done == total - 1)
                KillThisProcess();
        });
        return 0;
    });
    EXPECT_EQ(code, -SIGKILL);
    EXPECT_FALSE(QFile::exists(Path()));
    Create();
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    EXPECT_EQ(RowTexts(*Open(), u"select count(*) from Clinical_Area..tbPatient"_s), QStringList{u"6"_s});
}

TEST_F(HospitalFileTest, ACreationKilledBeforeTheLastStepLeavesNothingToOpen) {
    const int code = RunInChild([this] {
        HospitalFile::Create(Path(), scripts, [](int done, int total, const QString&) {
            if (done == total)
                KillThisProcess();
        });
        return 0;
    });
    EXPECT_EQ(code, -SIGKILL);
    EXPECT_FALSE(QFile::exists(Path()));
}

TEST_F(HospitalFileTest, TheJournalOfADeletedHospitalIsNotPlayedIntoTheNewOne) {
    Create();
    QFile::remove(Path());
    for (const QString& suffix : {u"-wal"_s, u"-shm"_s}) {
        QFile left(Path() + suffix);
        ASSERT_TRUE(left.open(QIODevice::WriteOnly));
        left.write("left over");
    }
    Create();
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
}

TEST_F(HospitalFileTest, TwoWhoMakeOneHospitalGetOneHospital) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            Create();
            _exit(0);
        } catch (const RunTimeError& error) {
            _exit(error.Number() == RunTime::kPathFileAccess ? 0 : 1);
        }
    }
    const int mine = FailureOf([this] { Create(); }).number;
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(mine == 0 || mine == RunTime::kPathFileAccess) << mine;
    EXPECT_EQ(RowTexts(*Open(), u"select count(*) from Clinical_Area..tbPatient"_s), QStringList{u"6"_s});
}

TEST_F(HospitalFileTest, WhoWaitsForAnotherProcessIsToldSoAgainAndAgain) {
    QLockFile other(Path() + u".lock"_s);
    ASSERT_TRUE(other.tryLock());
    int waits = 0;
    HospitalFile::Create(Path(), scripts, [&](int, int total, const QString& what) {
        if (total > 0)
            return;
        EXPECT_EQ(what, u"Another workstation is making the hospital."_s);
        if (++waits == 3)
            other.unlock();
    });
    EXPECT_EQ(waits, 3);
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
}

TEST_F(HospitalFileTest, WhoWaitsTakesTheHospitalThatTheOtherProcessHasMade) {
    QLockFile other(Path() + u".lock"_s);
    ASSERT_TRUE(other.tryLock());
    HospitalFile::Create(Path(), scripts, [&](int, int total, const QString&) {
        EXPECT_EQ(total, 0) << "nothing is made a second time";
        Write("made by the other one");
        other.unlock();
    });
    EXPECT_EQ(Content(), "made by the other one");
}

TEST_F(HospitalFileTest, ReplaceLeavesTheOneNewFile) {
    Create();
    Open()->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    HospitalFile::Replace(Path(), scripts);
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"100"_s});
}

TEST_F(HospitalFileTest, ReplaceMakesAFileThatIsNotThere) {
    HospitalFile::Replace(Path(), scripts);
    EXPECT_EQ(OpenFailure().number, 0);
}

TEST_F(HospitalFileTest, ReplaceTakesThePlaceOfAFileThatIsNoDatabase) {
    for (const QByteArray& content : {QByteArray(), QByteArray("a letter"), QByteArray(5000, 'x')}) {
        Write(content);
        HospitalFile::Replace(Path(), scripts);
        EXPECT_EQ(OpenFailure().number, 0);
        EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    }
}

TEST_F(HospitalFileTest, AHospitalThatSomebodyHasOpenIsNotReplaced) {
    Create();
    // The clerk works in another process than the one that wants to make the hospital anew.
    const auto clerk = Open();
    const int code = RunInChild([this] {
        const RaisedError failure = FailureOf(
            [this] { HospitalFile::Replace(Path(), scripts, [](int, int, const QString&) { _exit(1); }); });
        const QString expected =
            u"Cannot replace the hospital's file '"_s + Path() + u"' because it is currently in use."_s;
        return failure.number == 3702 && failure.text == expected ? 0 : 2;
    });
    EXPECT_EQ(code, 0) << "1: something was made before that was known; 2: another failure, or none";
    clerk->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    EXPECT_EQ(RowTexts(*clerk, u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"555"_s});
}

TEST_F(HospitalFileTest, AHospitalThatIsOpenedWhileItsSuccessorIsMadeStays) {
    Create();
    std::unique_ptr<EmbeddedGateway> clerk;
    const RaisedError failure = FailureOf([&] {
        HospitalFile::Replace(Path(), scripts, [&](int done, int total, const QString&) {
            if (done == total)
                clerk = Open();
        });
    });
    EXPECT_EQ(failure.number, 3702);
    clerk->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    clerk.reset();
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"555"_s});
}

TEST_F(HospitalFileTest, AReplacementKilledAtAnyStepLeavesTheOldHospital) {
    Create();
    Open()->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    for (const int fromTheEnd : {3, 1, 0}) {
        const int code = RunInChild([this, fromTheEnd] {
            HospitalFile::Replace(Path(), scripts, [fromTheEnd](int done, int total, const QString&) {
                if (done == total - fromTheEnd)
                    KillThisProcess();
            });
            return 0;
        });
        EXPECT_EQ(code, -SIGKILL);
        EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s),
                  QStringList{u"555"_s});
    }
}

TEST_F(HospitalFileTest, AFailingScriptLeavesTheOldHospital) {
    Create();
    Open()->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    auto faulty = scripts;
    faulty.push_back({u"demo/20-bad.sql"_s, u"USE BILLING;\nGO\nDELETE FROM BILLING..tbNothing;\n"_s});
    EXPECT_EQ(FailureOf([&] { HospitalFile::Replace(Path(), faulty); }).number, 208);
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"555"_s});
}

TEST_F(HospitalFileTest, OpenBringsTheModeOfJournalBackThatAStoppedReplacementHasLeft) {
    Create();
    SqliteDatabase(Path(), SqliteDatabase::Mode::Existing).RunForValue(u"PRAGMA journal_mode = DELETE"_s);
    EXPECT_EQ(Open()->Engine().Database().RunForValue(u"PRAGMA journal_mode"_s), Cell(QByteArray("wal")));
}

TEST_F(HospitalFileTest, NewerProceduresReplaceThoseOfTheFileAndKeepItsData) {
    Create();
    Open()->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    Named(kGetPatientName).text.replace(u"', '"_s, u"' / '"_s);
    EXPECT_EQ(RowTexts(*Open(), u"Clinical_Area..spGetPatient 'NUNO'"_s), QStringList{u"1004|NUNO / CARL"_s});
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"555"_s});
    EmbeddedGateway plain(Path());
    EXPECT_EQ(RowTexts(plain, u"Clinical_Area..spGetPatient 'NUNO'"_s), QStringList{u"1004|NUNO / CARL"_s})
        << "the file keeps them by itself";
}

TEST_F(HospitalFileTest, AProcedureThatTheScriptsHaveNoMoreIsGone) {
    Create();
    std::erase_if(scripts, [](const Script& script) { return script.name == kGetPatientName; });
    EXPECT_EQ(FailureOf(*Open(), u"Clinical_Area..spGetPatient 'NUNO'"_s).number, 2812);
}

TEST_F(HospitalFileTest, AFaultyNewProcedureLeavesTheOldOnes) {
    Create();
    Named(kGetPatientName).text.replace(u"LastName,"_s, u"Nothing,"_s);
    const RaisedError failure = OpenFailure();
    EXPECT_EQ(failure.number, 207);
    EXPECT_TRUE(failure.text.startsWith(kGetPatientName + u", line 3: "_s)) << failure.text.toStdString();
    EmbeddedGateway plain(Path());
    EXPECT_EQ(RowTexts(plain, u"Clinical_Area..spGetPatient 'NUNO'"_s), QStringList{u"1004|NUNO, CARL"_s});
}

TEST_F(HospitalFileTest, OtherTablesAreAnotherVersion) {
    Create();
    const QByteArray before = Content();
    Named(u"schema/10-all.sql"_s).text.replace(u"ChargeSlip int"_s, u"ChargeSlip bigint"_s);
    const RaisedError failure = OpenFailure();
    EXPECT_EQ(failure.number, 948);
    EXPECT_TRUE(failure.text.contains(u"made by another version"_s)) << failure.text.toStdString();
    EXPECT_EQ(Content(), before);
}

TEST_F(HospitalFileTest, OtherCommentsAndBlanksInTheTablesAreNoOtherVersion) {
    Create();
    Named(u"schema/10-all.sql"_s).text.prepend(u"-- a remark\n\n"_s);
    EXPECT_EQ(OpenFailure().number, 0);
}

TEST_F(HospitalFileTest, OtherDataAreNoOtherVersion) {
    Create();
    Named(u"demo/10-data.sql"_s).text.replace(u"JUAN"_s, u"JOSE"_s);
    EXPECT_EQ(OpenFailure().number, 0);
}

TEST_F(HospitalFileTest, AFileThatIsNoDatabaseIsRefusedAndKept) {
    for (const QByteArray& content : {QByteArray(), QByteArray("a letter"), QByteArray(5000, 'x')}) {
        Write(content);
        EXPECT_EQ(OpenFailure().number, 5171);
        EXPECT_EQ(Content(), content);
        EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
    }
}

TEST_F(HospitalFileTest, TheDatabaseOfAnotherProgramIsRefusedAndKept) {
    MakeForeignDatabase(
        "PRAGMA journal_mode = WAL; CREATE TABLE stamps (name); INSERT INTO stamps VALUES ('penny')");
    const QByteArray before = Content();
    const RaisedError failure = OpenFailure();
    EXPECT_EQ(failure.number, 5171);
    EXPECT_TRUE(failure.text.contains(u"another program"_s)) << failure.text.toStdString();
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
}

TEST_F(HospitalFileTest, AFileThatIsNotThereIsNotFoundAndNotMade) {
    EXPECT_EQ(OpenFailure().number, RunTime::kFileNotFound);
    EXPECT_EQ(Files(), QStringList());
}

// What stands between two workstations is a lock that the system keeps for the process, not for the handle:
// any other handle on the file that the process closes takes it along.

TEST_F(HospitalFileTest, FurtherConnectionsOfAProcessLeaveItsHoldOnTheFile) {
    Create();
    const auto session = Open();
    ASSERT_TRUE(IsHeldOpen(Path()));
    EmbeddedGateway(Path()).ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 5"_s);
    EXPECT_TRUE(IsHeldOpen(Path())) << "a connection of full access";
    EmbeddedGateway(Path(), EmbeddedGateway::Access::Reading)
        .Execute(u"select * from Clinical_Area..tbSlip"_s);
    EXPECT_TRUE(IsHeldOpen(Path())) << "a report's connection";
    Open();
    EXPECT_TRUE(IsHeldOpen(Path())) << "another sign-on";
    Named(kGetPatientName).text.replace(u"', '"_s, u"' / '"_s);
    Open();
    EXPECT_TRUE(IsHeldOpen(Path())) << "procedures brought up to date";
    EXPECT_EQ(FailureOf([this] { HospitalFile::Create(Path(), scripts); }).number, RunTime::kPathFileAccess);
    EXPECT_EQ(FailureOf([this] { HospitalFile::Replace(Path(), scripts); }).number, 3702);
    EXPECT_TRUE(IsHeldOpen(Path())) << "a making that was refused";
    Named(u"schema/10-all.sql"_s).text.replace(u"ChargeSlip int"_s, u"ChargeSlip bigint"_s);
    EXPECT_EQ(OpenFailure().number, 948);
    EXPECT_TRUE(IsHeldOpen(Path())) << "a version that was refused";
}

TEST_F(HospitalFileTest, AForeignFileIsLookedAtWithoutTouchingTheHoldOfAnother) {
    Create();
    const auto session = Open();
    const QString linked = folder.filePath(u"linked.db"_s);
    ASSERT_TRUE(QFile::link(Path(), linked));
    EXPECT_EQ(FailureOf([&] { EmbeddedGateway{linked}; }).number, 0);
    EXPECT_TRUE(IsHeldOpen(Path()));
}

TEST_F(HospitalFileTest, NobodyHoldsAFileThatIsClosed) {
    Create();
    Open();
    EXPECT_FALSE(IsHeldOpen(Path()));
}

TEST_F(HospitalFileTest, AReportsConnectionWritesNothing) {
    Create();
    const auto session = Open();
    const QStringList before = ContentOf(*session);
    EmbeddedGateway report(Path(), EmbeddedGateway::Access::Reading);
    for (const QString& command :
         {u"update Clinical_Area..tbCharge set Amount = 0"_s, u"delete Clinical_Area..tbCharge"_s,
          u"insert into Clinical_Area..tbSlip (ChargeSlip) values (7)"_s,
          u"Clinical_Area..spAddCharge '1002','1','2.50','11/21/2026'"_s})
        EXPECT_EQ(FailureOf(report, command).number, 3906) << command.toStdString();
    EXPECT_EQ(ContentOf(*session), before);
    EXPECT_EQ(RowTexts(report, u"Clinical_Area..spGetPatient 'NUNO'"_s), QStringList{u"1004|NUNO, CARL"_s});
}

TEST_F(HospitalFileTest, FilesAreTheirOwnersWhateverTheProcessLetsOthersDo) {
    const mode_t before = ::umask(0);
    Create();
    const auto gateway = Open();
    gateway->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 5"_s);
    ::umask(before);
    EXPECT_EQ(Files().size(), 3) << "the file, its log and its index";
    for (const QString& name : Files()) {
        struct stat found = {};
        ASSERT_EQ(::stat(QFile::encodeName(folder.filePath(name)).constData(), &found), 0);
        EXPECT_EQ(found.st_mode & 0777U, 0600U) << name.toStdString();
    }
}

TEST_F(HospitalFileTest, AFileFoundWiderIsNarrowedWhenItIsOpened) {
    Create();
    ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), 0666), 0);
    Open();
    struct stat found = {};
    ASSERT_EQ(::stat(QFile::encodeName(Path()).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
}

TEST_F(HospitalFileTest, APipeInItsPlaceIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(Path()).constData(), 0644), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), 0644), 0);
    EXPECT_EQ(OpenFailure().number, 5171);
    EXPECT_EQ(FailureOf([this] { HospitalFile::Replace(Path(), scripts); }).number, 5171);
    EXPECT_EQ(ModeOf(Path()), 0644U) << "it is not ours";
}

TEST_F(HospitalFileTest, AFolderInItsPlaceIsRefusedAndKeepsItsRights) {
    ASSERT_TRUE(QDir().mkdir(Path()));
    ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), 0755), 0);
    EXPECT_EQ(OpenFailure().number, 5171);
    EXPECT_EQ(ModeOf(Path()), 0755U);
}

/// A hospital that lies elsewhere, with a link to it in the folder.
class LinkedHospital : public HospitalFileTest {
  protected:
    LinkedHospital() {
        HospitalFile::Create(Real(), scripts);
        QFile::link(Real(), Path());
    }

    QString Real() const { return elsewhere.filePath(u"real.db"_s); }
    static QString Log(const QString& path) { return path + u"-wal"_s; }

    QTemporaryDir elsewhere;
};

TEST_F(LinkedHospital, IsNarrowedWithItsLogWhereItLies) {
    const auto gateway = Open();
    gateway->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 5"_s);
    for (const QString& path : {Real(), Log(Real())})
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0666), 0);
    Open();
    EXPECT_EQ(ModeOf(Real()), 0600U);
    EXPECT_EQ(ModeOf(Log(Real())), 0600U);
}

TEST_F(LinkedHospital, IsAskedForItsDiskWhereItLies) {
    const auto fileSystem = FileSystemSeam().Replace([this](const QString& path) {
        return QByteArray(path.startsWith(elsewhere.path()) ? "nfs4" : "ext4");
    });
    EXPECT_EQ(OpenFailure().number, 5120);
}

TEST_F(LinkedHospital, IsCheckedWhenItsLastUserDidNotCloseIt) {
    WriteAndBeKilled();
    ASSERT_GT(QFileInfo(Log(Real())).size(), 0);
    Damage(Real());
    EXPECT_EQ(OpenFailure().number, 824);
}

TEST_F(LinkedHospital, IsMadeAnewInItsPlace) {
    Open()->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 5"_s);
    HospitalFile::Replace(Path(), scripts);
    EXPECT_EQ(QFileInfo(Path()).symLinkTarget(), Real()) << "the link stands";
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"100"_s});
}

TEST_F(HospitalFileTest, OnANetworkDriveNothingIsMadeAndNothingOpened) {
    Create();
    const auto fileSystem = FileSystemSeam().Replace([](const QString&) { return QByteArray("cifs"); });
    EXPECT_EQ(OpenFailure().number, 5120);
    EXPECT_EQ(FailureOf([this] { HospitalFile::Replace(Path(), scripts); }).number, 5120);
    QFile::remove(Path());
    EXPECT_EQ(FailureOf([this] { HospitalFile::Create(Path(), scripts); }).number, 5120);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(HospitalFileTest, InTheHomeFolderItselfNothingIsMadeAndNothingOpened) {
    Create();
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(folder.path()));
    EXPECT_EQ(OpenFailure().number, 5120);
    EXPECT_EQ(FailureOf([this] { HospitalFile::Replace(Path(), scripts); }).number, 5120);
    QFile::remove(Path());
    EXPECT_EQ(FailureOf([this] { HospitalFile::Create(Path(), scripts); }).number, 5120);
    qputenv("HOME", home);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(HospitalFileTest, TheLockOfAMachineOfAnotherNameIsNotWaitedForLong) {
    QFile left(Path() + u".lock"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.write("4711\ntarven-hemodialysis\nOLD-DESK\n\n\n");
    left.close();
    int waits = 0;
    const RaisedError failure = FailureOf(
        [&] { HospitalFile::Create(Path(), scripts, [&waits](int, int, const QString&) { ++waits; }); });
    EXPECT_EQ(failure.number, 5120);
    EXPECT_TRUE(failure.text.contains(u"OLD-DESK"_s)) << failure.text.toStdString();
    EXPECT_TRUE(failure.text.contains(Path() + u".lock"_s)) << failure.text.toStdString();
    EXPECT_GT(waits, 1) << "a machine that is still at it would soon be done";
    EXPECT_LT(waits, 200);
}

TEST_F(HospitalFileTest, AFileThatNobodyClosedIsCheckedAndRefusedWhenItIsDamaged) {
    Create();
    WriteAndBeKilled();
    EXPECT_EQ(OpenFailure().number, 0) << "a process that was killed does no harm";
    WriteAndBeKilled();
    Damage(Path());
    const RaisedError failure = OpenFailure();
    EXPECT_EQ(failure.number, 824);
    EXPECT_TRUE(failure.text.contains(u"is damaged"_s)) << failure.text.toStdString();
}

TEST_F(HospitalFileTest, IsFreshUntilSomebodyWritesInIt) {
    Create();
    const auto gateway = Open();
    HospitalStore& store = gateway->Engine().Store();
    EXPECT_TRUE(store.IsFresh());
    RowTexts(*gateway, u"Clinical_Area..spGetPatient 'NUNO'"_s);
    EXPECT_TRUE(store.IsFresh()) << "reading changes nothing";
    gateway->ExecuteNoResult(u"Clinical_Area..spAddCharge '1002','1','2.50','11/21/2026'"_s);
    EXPECT_FALSE(store.IsFresh());
    HospitalFile::Replace(folder.filePath(u"other.db"_s), scripts);
    const auto other = HospitalFile::Open(folder.filePath(u"other.db"_s), scripts);
    EXPECT_TRUE(other->Engine().Store().IsFresh());
    other->ExecuteNoResult(u"delete Clinical_Area..tbPrint"_s);
    EXPECT_FALSE(other->Engine().Store().IsFresh());
}

TEST_F(HospitalFileTest, NothingIsWrittenIntoAFileThatWasRemovedOrReplaced) {
    Create();
    const QString aside = folder.filePath(u"aside.db"_s);
    const auto gateway = Open();
    const auto write = [&gateway] {
        gateway->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = ChargeSlip + 1"_s);
    };
    write();
    const auto refused = [this, &write] {
        const RaisedError error = FailureOf(write);
        EXPECT_EQ(error.text,
                  u"Unable to open the hospital's file '%1': it was removed or replaced while the "
                  "program was at work."_s.arg(Path()));
    };
    ASSERT_TRUE(QFile::rename(Path(), aside));
    refused();
    ASSERT_TRUE(QFile::copy(aside, Path()));
    refused();
    ASSERT_TRUE(QFile::remove(Path()) && QFile::rename(aside, Path()));
    write();
}

TEST_F(HospitalFileTest, AFileThatDoesNotTellIsNotFresh) {
    Create();
    const auto gateway = Open();
    gateway->Engine().Database().Run(u"DELETE FROM tarven_mark WHERE name = 'fresh'"_s);
    EXPECT_FALSE(gateway->Engine().Store().IsFresh());
}

// A file that is refused stays as it is, with what lies beside it.

TEST_F(HospitalFileTest, AFileWhoseLastByteIsMissingIsDamaged) {
    Create();
    Write(Content().chopped(1));
    const QByteArray before = Content();
    EXPECT_EQ(OpenFailure().number, 824);
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
}

TEST_F(HospitalFileTest, ALastPageThatIsHalfWrittenDoesNoHarmWhileTheLogHasIt) {
    Create();
    WriteAndBeKilled();
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(QByteArray(100, 'x'));
    file.close();
    EXPECT_EQ(OpenFailure().number, 0);
}

TEST_F(HospitalFileTest, ADamagedFileIsNotGivenTheLogThatLiesBesideIt) {
    Create();
    WriteAndBeKilled();
    Damage(Path());
    const QByteArray before = Content();
    const QByteArray log = Log();
    EXPECT_EQ(OpenFailure().number, 824);
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(Log(), log);
}

TEST_F(HospitalFileTest, AnotherDatabasesLogIsRefusedAndNotPlayedIntoTheFile) {
    Create();
    const QString foreign = folder.filePath(u"stamps.db"_s);
    for (const QString& pageSize : {u"1024"_s, u"4096"_s}) {
        ASSERT_EQ(RunInChild([&] {
                      SqliteDatabase stamps(foreign, SqliteDatabase::Mode::New);
                      stamps.RunForValue(u"PRAGMA page_size = "_s + pageSize);
                      stamps.RunForValue(u"PRAGMA journal_mode = WAL"_s);
                      stamps.Run(u"CREATE TABLE stamps (name TEXT); INSERT INTO stamps VALUES ('penny')"_s);
                      KillThisProcess();
                      return 0;
                  }),
                  -SIGKILL);
        ASSERT_TRUE(QFile::rename(foreign + u"-wal"_s, Path() + u"-wal"_s));
        const QByteArray before = Content();
        const QByteArray log = Log();
        for (int i = 0; i < 2; ++i) {
            const RaisedError failure = OpenFailure();
            EXPECT_EQ(failure.number, 5120);
            EXPECT_TRUE(failure.text.contains(Path() + u"-wal, is another database's"_s))
                << failure.text.toStdString();
        }
        EXPECT_EQ(Content(), before);
        EXPECT_EQ(Log(), log);
        for (const QString& left : {foreign, foreign + u"-shm"_s, Path() + u"-wal"_s, Path() + u"-shm"_s})
            QFile::remove(left);
        EXPECT_EQ(OpenFailure().number, 0) << "without that log";
    }
}

TEST_F(HospitalFileTest, ALogThatIsMissingIsToldAndNotPassedOver) {
    Create();
    WriteAndBeKilled();
    ASSERT_TRUE(QFile::remove(Path() + u"-wal"_s));
    const QByteArray before = Content();
    EXPECT_EQ(FailureOf([this] { EmbeddedGateway(Path(), EmbeddedGateway::Access::Reading); }).number, 5120);
    EXPECT_EQ(OpenFailure().number, 5120);
    EXPECT_EQ(Content(), before);
    ASSERT_TRUE(QFile::remove(Path() + u"-shm"_s));
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"100"_s});
}

TEST_F(HospitalFileTest, WhatThisVersionCannotReadIsAnotherVersion) {
    for (const QString& change :
         {u"UPDATE tarven_table SET text = replace(text, ' int', ' hierarchy')"_s,
          u"ALTER TABLE tarven_table RENAME TO tarven_structure"_s,
          u"ALTER TABLE tarven_procedure RENAME COLUMN text TO body"_s, u"DROP TABLE tarven_mark"_s}) {
        Create();
        SqliteDatabase(Path(), SqliteDatabase::Mode::Existing).Run(change);
        const QByteArray before = Content();
        const RaisedError failure = OpenFailure();
        EXPECT_EQ(failure.number, 948) << change.toStdString();
        EXPECT_TRUE(failure.text.contains(Path())) << failure.text.toStdString();
        EXPECT_EQ(Content(), before);
        QFile::remove(Path());
    }
}

TEST_F(HospitalFileTest, TheDatabaseOfAnotherProgramKeepsItsRights) {
    MakeForeignDatabase("CREATE TABLE stamps (name)");
    ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), 0644), 0);
    EXPECT_EQ(OpenFailure().number, 5171);
    EXPECT_EQ(ModeOf(Path()), 0644U);
}

TEST_F(HospitalFileTest, AFileThatCannotBeWrittenToIsRefusedInWords) {
    constexpr int kPassed = 0;
    Create();
    ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), 0444), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
    EXPECT_EQ(RunInChild([this] {
                  // The administrator is stopped by no rights.
                  constexpr uid_t kNobody = 65534;
                  if (::geteuid() == 0 && ::setuid(kNobody) != 0)
                      return 1;
                  return OpenFailure().number == 3906 ? kPassed : 2;
              }),
              kPassed);
}
