#include "gateway/ChildProcess.h"
#include "gateway/embedded/HospitalEngine.h"
#include "gateway/embedded/HospitalFile.h"
#include "gateway/GatewayTexts.h"
#include "gateway/SmallHospital.h"
#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class HospitalFileTest : public testing::Test {
  protected:
    QString Path() const { return folder.filePath(u"hospital.db"_s); }
    void Create() { HospitalFile::Create(Path(), scripts); }
    std::unique_ptr<EmbeddedGateway> Open() { return HospitalFile::Open(Path(), scripts); }
    Failure OpenFailure() {
        return FailureOf([this] { Open(); });
    }
    QStringList Files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
    QByteArray Content() const {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    const Failure failure = FailureOf([this] { Create(); });
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
    const auto clerk = Open();
    const Failure failure = FailureOf([this] {
        HospitalFile::Replace(Path(), scripts, [](int, int, const QString&) {
            ADD_FAILURE() << "nothing is made before that is known";
        });
    });
    EXPECT_EQ(failure.number, 3702);
    EXPECT_EQ(failure.text,
              u"Cannot replace the hospital's file '"_s + Path() + u"' because it is currently in use."_s);
    clerk->ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 555"_s);
    EXPECT_EQ(RowTexts(*Open(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"555"_s});
}

TEST_F(HospitalFileTest, AHospitalThatIsOpenedWhileItsSuccessorIsMadeStays) {
    Create();
    std::unique_ptr<EmbeddedGateway> clerk;
    const Failure failure = FailureOf([&] {
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
    const Failure failure = OpenFailure();
    EXPECT_EQ(failure.number, 207);
    EXPECT_TRUE(failure.text.startsWith(kGetPatientName + u", line 3: "_s)) << failure.text.toStdString();
    EmbeddedGateway plain(Path());
    EXPECT_EQ(RowTexts(plain, u"Clinical_Area..spGetPatient 'NUNO'"_s), QStringList{u"1004|NUNO, CARL"_s});
}

TEST_F(HospitalFileTest, OtherTablesAreAnotherVersion) {
    Create();
    const QByteArray before = Content();
    Named(u"schema/10-all.sql"_s).text.replace(u"ChargeSlip int"_s, u"ChargeSlip bigint"_s);
    const Failure failure = OpenFailure();
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
    const Failure failure = OpenFailure();
    EXPECT_EQ(failure.number, 5171);
    EXPECT_TRUE(failure.text.contains(u"another program"_s)) << failure.text.toStdString();
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(Files(), QStringList{u"hospital.db"_s});
}

TEST_F(HospitalFileTest, AFileThatIsNotThereIsNotFoundAndNotMade) {
    EXPECT_EQ(OpenFailure().number, RunTime::kFileNotFound);
    EXPECT_EQ(Files(), QStringList());
}
