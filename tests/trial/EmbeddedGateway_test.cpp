#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/process/ChildProcess.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"
#include "text/Clock.h"
#include "text/RunTimeError.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

const QString kCounter = u"select ChargeSlip from Clinical_Area..tbSlip"_s;
const QString kCharges = u"select count(*) from Clinical_Area..tbCharge"_s;
const QString kAdd = u"Clinical_Area..spAddCharge '1002','1','2.50','11/21/2026'"_s;

class EmbeddedGatewayTest : public testing::Test {
  protected:
    EmbeddedGateway& Gateway() { return hospital.Gateway(); }
    int Number(CommandGateway& gateway, const QString& command) {
        return RowTexts(gateway, command)[0].toInt();
    }

    SmallHospital hospital;
};

/// The lowest user of the machine, who may read what everybody may. Root would be stopped by no file's
/// rights.
bool BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    return geteuid() != 0 || setuid(kNobody) == 0;
}

} // namespace

TEST_F(EmbeddedGatewayTest, TellsWhatItIsConnectedTo) {
    EXPECT_TRUE(Gateway().Connected());
}

TEST_F(EmbeddedGatewayTest, ItsConnectionStringStaysAsOpened) {
    const QString opened = u"Provider=TarvenEmbedded;Data Source="_s + hospital.Path();
    EXPECT_EQ(EmbeddedGateway(hospital.Path()).ConnectionString(), opened);
    EXPECT_EQ(Gateway().ConnectionString(), opened);
    Gateway().SetDefaultDatabase(u"BILLING"_s);
    EXPECT_EQ(Gateway().ConnectionString(), opened);
}

TEST_F(EmbeddedGatewayTest, AnUnknownDefaultDatabaseIsError911AndChangesNothing) {
    Gateway().SetDefaultDatabase(u"Clinical_Area"_s);
    for (const QString& name : {u"REPORTS"_s, u"Clinical_Areas"_s, u"Clinical"_s}) {
        const RaisedError failure = FailureOf([&] { Gateway().SetDefaultDatabase(name); });
        EXPECT_EQ(failure.number, 911);
        EXPECT_EQ(failure.text, u"Database '"_s + name +
                                    u"' does not exist. Make sure that the name is entered correctly."_s);
        EXPECT_EQ(failure.state, u"08004"_s);
    }
    EXPECT_EQ(Gateway().DefaultDatabase(), u"Clinical_Area"_s);
    EXPECT_EQ(RowTexts(Gateway(), u"select * from tbSlip"_s), QStringList{u"100"_s});
}

TEST_F(EmbeddedGatewayTest, NamesWithoutADatabaseMeanTheDefaultOne) {
    EXPECT_EQ(FailureOf(Gateway(), u"select * from tbSlip"_s).number, 208);
    Gateway().SetDefaultDatabase(u"clinical_area"_s);
    EXPECT_EQ(RowTexts(Gateway(), u"select * from tbSlip"_s), QStringList{u"100"_s});
    EXPECT_EQ(RowTexts(Gateway(), u"select * from dbo.tbSlip"_s), QStringList{u"100"_s});
    EXPECT_EQ(RowTexts(Gateway(), u"spGetPatient 'NUNO'"_s).size(), 1);
    Gateway().SetDefaultDatabase(u"BILLING"_s);
    EXPECT_EQ(RowTexts(Gateway(), u"select count(*) from tbCharge"_s), QStringList{u"0"_s});
}

TEST_F(EmbeddedGatewayTest, NothingButASemicolonIsACommandWithoutResult) {
    for (const QString& command : {u""_s, u"  ;; "_s, u"-- nothing"_s})
        EXPECT_EQ(Gateway().Execute(command).State(), RowSet::Status::Closed);
    EXPECT_EQ(RowTexts(Gateway(), kCounter + u" ; -- and no more"_s), QStringList{u"100"_s});
}

TEST_F(EmbeddedGatewayTest, ATextThatIsMoreThanOneStatementIsRefusedWhole) {
    const QString search = u"Clinical_Area..spGetPatient '"_s;
    const QString save = u"Clinical_Area..spAddCharge '1001','1','1','1/1/2026','"_s;
    const QStringList typed = {u"x'; delete Clinical_Area..tbSlip --"_s,
                               u"x' delete Clinical_Area..tbSlip --"_s,
                               u"x';delete Clinical_Area..tbSlip;select '"_s,
                               u"x'\ndelete Clinical_Area..tbSlip\n--"_s,
                               u"x' /* */ delete Clinical_Area..tbSlip /* "_s,
                               u"x'; Clinical_Area..spAddCharge '1','1','1','1"_s,
                               u"x'; exec('delete Clinical_Area..tbSlip"_s,
                               u"x'; select '"_s,
                               u"x' union all select '1"_s,
                               u"x' or '1'='1"_s};
    const QStringList content = ContentOf(Gateway());
    for (const QString& text : typed) {
        for (const QString& command :
             {search + text + u'\'', save + text + u'\'',
              u"select * from Clinical_Area..tbSlip where 'x' = '"_s + text + u"'--"_s}) {
            const bool stillOneStatement =
                command.startsWith(u"select"_s) && !text.contains(u"delete"_s) && !text.contains(u';');
            const RaisedError failure = FailureOf(Gateway(), command);
            if (!stillOneStatement) {
                EXPECT_TRUE(failure.number == 102 || failure.number == 105 || failure.number == 113)
                    << failure.number << ' ' << command.toStdString();
            }
            EXPECT_EQ(ContentOf(Gateway()), content) << command.toStdString();
        }
    }
}

TEST_F(EmbeddedGatewayTest, WhatIsNoPlainStatementIsRefused) {
    for (const QString& command :
         {u"create table Clinical_Area..t (a int)"_s, u"drop table Clinical_Area..tbSlip"_s,
          u"truncate table Clinical_Area..tbSlip"_s, u"use BILLING"_s, u"declare @a int"_s,
          u"begin transaction"_s, u"if 1 = 1 delete Clinical_Area..tbSlip"_s,
          u"with x as (select 1 as a) select * from x"_s, u"'text'"_s, u"1"_s, u"@x = 1"_s, u"(select 1)"_s,
          u"set nocount on"_s}) {
        const RaisedError failure = FailureOf(Gateway(), command);
        EXPECT_TRUE(failure.number == 102 || failure.number == 156)
            << failure.number << ' ' << command.toStdString();
    }
    EXPECT_EQ(FailureOf(Gateway(), u"PRAGMA user_version"_s).number, 2812)
        << "a bare word is a procedure's name";
    EXPECT_EQ(FailureOf(Gateway(), u"select * from tarven_procedure"_s).number, 208);
    EXPECT_EQ(FailureOf(Gateway(), u"select * from sqlite_master"_s).number, 208);
}

TEST_F(EmbeddedGatewayTest, TheClockIsThePrograms) {
    const DateTime moment = *DateTime::FromFields({2026, 11, 21, 23, 59, 59, 997});
    const auto clock = FixedClock(DateTime::FromMilliseconds(moment.Milliseconds() + 1));
    EXPECT_EQ(Gateway().Execute(u"select getdate() as d"_s).Fields(u"d"), Value(moment));
}

TEST_F(EmbeddedGatewayTest, AllStatementsOfOneCommandBearOneTime) {
    int asked = 0;
    const auto clock = ClockSeam().Replace([&asked] { return DateTime::FromMilliseconds(++asked); });
    Gateway().ExecuteNoResult(kAdd);
    EXPECT_EQ(asked, 1);
}

TEST_F(EmbeddedGatewayTest, ACommandSentAgainSeesWhatHasChanged) {
    EXPECT_EQ(Number(Gateway(), kCounter), 100);
    Gateway().ExecuteNoResult(kAdd);
    EXPECT_EQ(Number(Gateway(), kCounter), 101);
    Gateway().ExecuteNoResult(kAdd);
    EXPECT_EQ(Number(Gateway(), kCounter), 102);
}

TEST_F(EmbeddedGatewayTest, ACallOfTwoHundredArgumentsPasses) {
    QStringList parameters;
    QStringList arguments;
    QStringList columns;
    for (int i = 0; i < 203; ++i) {
        parameters << u"@P%1 varchar(50)"_s.arg(i);
        columns << u"@P%1 as C%1"_s.arg(i);
        arguments << (i % 2 == 0 ? QString() : QString::number(i));
    }
    auto scripts = SmallHospitalScripts();
    scripts.push_back({u"procedures/long.sql"_s, u"USE Clinical_Area;\nGO\nCREATE PROCEDURE dbo.spLong "_s +
                                                     parameters.join(u", "_s) + u" AS BEGIN SELECT "_s +
                                                     columns.join(u", "_s) + u"; END"_s});
    const auto gateway = HospitalFile::Open(hospital.Path(), scripts);
    const QString call = u"Clinical_Area..spLong '"_s + arguments.join(u"','"_s) + u'\'';
    EXPECT_EQ(RowTexts(*gateway, call), QStringList{arguments.join(u'|')});
}

TEST_F(EmbeddedGatewayTest, AReadingCommandWorksWhileAnotherConnectionWrites) {
    const auto other = hospital.Connect();
    other->Engine().Database().Run(u"BEGIN IMMEDIATE"_s);
    EXPECT_EQ(Number(Gateway(), kCounter), 100);
}

TEST_F(EmbeddedGatewayTest, AWriterThatWaitsTooLongIsError1222AndChangesNothing) {
    const auto other = hospital.Connect();
    other->Engine().Database().Run(u"BEGIN IMMEDIATE"_s);
    Gateway().SetCommandTimeout(1);
    const RaisedError failure = FailureOf(Gateway(), kAdd);
    EXPECT_EQ(failure.number, 1222);
    EXPECT_EQ(failure.text, u"Lock request time out period exceeded."_s);
    other->Engine().Database().Run(u"ROLLBACK"_s);
    EXPECT_EQ(Number(Gateway(), kCharges), 2);
    Gateway().ExecuteNoResult(kAdd);
    EXPECT_EQ(Number(Gateway(), kCharges), 3);
}

namespace {

/// A command that would count for years.
QString Endless() {
    const QString ten =
        u"(select 1 as n union all select 2 union all select 3 union all select 4 union all select 5 "
        "union all select 6 union all select 7 union all select 8 union all select 9 union all select "
        "10) as "_s;
    QString endless = u"select count(*) from "_s + ten + u't';
    for (int i = 0; i < 11; ++i)
        endless += u" inner join "_s + ten + u"t%1 on 1 = 1"_s.arg(i);
    return endless;
}

} // namespace

TEST_F(EmbeddedGatewayTest, ACommandThatTakesTooLongIsGivenUp) {
    Gateway().SetCommandTimeout(1);
    EXPECT_EQ(FailureOf(Gateway(), Endless()).text, u"Query timeout expired"_s);
    EXPECT_EQ(Number(Gateway(), kCounter), 100);
}

TEST_F(EmbeddedGatewayTest, ACommandThatTakesTooLongInsideOfItsFunctionsIsGivenUp) {
    // A hundred comparisons, each of sixteen million steps; SQLite itself has next to nothing to do.
    const QString slow =
        u"case when replicate('a', 8000) like concat('%', replicate('a', 4000), 'b') then 1 end"_s;
    const QStringList columns(100, slow);
    Gateway().SetCommandTimeout(1);
    EXPECT_EQ(FailureOf(Gateway(), u"select "_s + columns.join(u", "_s)).text, u"Query timeout expired"_s);
    EXPECT_EQ(Number(Gateway(), kCounter), 100);
}

TEST_F(EmbeddedGatewayTest, WhateverFailsInACommandLeavesItAsARunTimeError) {
    const auto failureBy = [this](const std::function<void()>& fail) {
        const auto clock = ClockSeam().Replace([&fail]() -> DateTime {
            fail();
            return {};
        });
        return FailureOf(Gateway(), kAdd).number;
    };
    EXPECT_EQ(failureBy([] { throw std::bad_variant_access(); }), 8624);
    EXPECT_EQ(failureBy([] { throw std::bad_alloc(); }), 701);
    EXPECT_EQ(failureBy([] { throw 7; }), 8624);
    EXPECT_EQ(Number(Gateway(), kCharges), 2) << "it was undone, and the connection goes on";
}

TEST_F(EmbeddedGatewayTest, RowsThatTakeTooMuchMemoryAreError701) {
    const QString rows = u"select a.HospNum from Clinical_Area..tbPatient as a inner join "
                         "Clinical_Area..tbPatient as b on 1 = 1"_s;
    Gateway().Engine().Database().SetMostOfAnswer(qint64(36 * sizeof(Value)));
    EXPECT_EQ(RowTexts(Gateway(), rows).size(), 36);
    Gateway().Engine().Database().SetMostOfAnswer(qint64(35 * sizeof(Value)));
    EXPECT_EQ(FailureOf(Gateway(), rows).number, 701);
    EXPECT_EQ(RowTexts(Gateway(), kCounter), QStringList{u"100"_s});
}

TEST_F(EmbeddedGatewayTest, SqliteHasABoundOfMemoryAndPassingItIsError701) {
    constexpr sqlite3_int64 kLittle = 200'000;
    const sqlite3_int64 bound = sqlite3_hard_heap_limit64(-1);
    EXPECT_EQ(bound, sqlite3_int64(1) << 30);
    const QString wide = u"select "_s + QStringList(1500, u"upper('x')"_s).join(u", "_s);
    EXPECT_EQ(FailureOf(Gateway(), wide).number, 0);
    sqlite3_hard_heap_limit64(sqlite3_memory_used() + kLittle);
    const int number = FailureOf(Gateway(), wide + u", 1"_s).number;
    sqlite3_hard_heap_limit64(bound);
    EXPECT_EQ(number, 701);
    EXPECT_EQ(FailureOf(Gateway(), wide + u", 1"_s).number, 0);
}

TEST_F(EmbeddedGatewayTest, AReportsConnectionKeepsAQuarterOfADesksInMemory) {
    const auto kept = [](EmbeddedGateway& gateway) {
        return std::get<qint64>(*gateway.Engine().Database().RunForValue(u"PRAGMA cache_size"_s));
    };
    EmbeddedGateway report(hospital.Path(), EmbeddedGateway::Access::Reading);
    // In kilobytes, which SQLite tells from pages by the sign.
    EXPECT_LT(kept(report), 0);
    EXPECT_EQ(4 * kept(report), kept(Gateway()));
}

TEST_F(EmbeddedGatewayTest, ACommandOfMoreThanAMillionCharactersIsRefused) {
    const QString most = kCounter + u" --"_s;
    const QString filled = most + QString((1 << 20) - most.size(), u'x');
    EXPECT_EQ(Number(Gateway(), filled), 100);
    EXPECT_EQ(FailureOf(Gateway(), filled + u'x').number, 8623);
}

TEST_F(EmbeddedGatewayTest, AListOfManyTextsIsSearched) {
    QStringList numbers;
    for (int i = 0; i < 40'000; ++i)
        numbers << u"'%1'"_s.arg(i);
    EXPECT_EQ(RowTexts(Gateway(), u"select HospNum from Clinical_Area..tbPatient where HospNum in ("_s +
                                      numbers.join(u',') + u") order by HospNum"_s)
                  .size(),
              6);
}

TEST_F(EmbeddedGatewayTest, ManyRowsHoldEachItsOwnValuesAlthoughTheyRepeat) {
    // 6 x 6 x 6 rows; the values of the six stand as they are read alone, where none is looked up.
    const QString columns =
        u"select a.HospNum, a.LastName, a.FirstName, a.BirthDate, a.Active, c.Amount, c.Units "_s
        "from Clinical_Area..tbPatient as a left join (select 1 as n, 1250.50 as Amount, "
        "2.5 as Units) as c on c.n = a.Active "_s;
    const auto alone = Gateway().Execute(columns + u"order by a.HospNum"_s).Data();
    const auto many = Gateway()
                          .Execute(columns + u"inner join Clinical_Area..tbPatient as x on 1 = 1 inner join "
                                             "Clinical_Area..tbPatient as y on 1 = 1 order by x.HospNum, "
                                             "y.HospNum, a.HospNum"_s)
                          .Data();
    ASSERT_EQ(many->RowCount(), 216U);
    for (size_t row = 0; row < many->RowCount(); ++row) {
        for (size_t column = 0; column < many->columns.size(); ++column)
            EXPECT_EQ(many->Cell(row, column), alone->Cell(row % 6, column)) << row << ' ' << column;
    }
}

TEST_F(EmbeddedGatewayTest, ACommandIsGivenUpFromAnotherThreadHoweverLongItMayTake) {
    Gateway().SetCommandTimeout(0);
    std::jthread canceller([this] { Gateway().Cancel(); });
    const RaisedError failure = FailureOf(Gateway(), Endless());
    EXPECT_EQ(failure.number, -2147217842);
    EXPECT_EQ(failure.text, u"Operation was canceled."_s);
}

TEST_F(EmbeddedGatewayTest, ACommandThatWaitsForALockIsGivenUpHoweverLongItMayWait) {
    const auto other = hospital.Connect();
    other->Engine().Database().Run(u"BEGIN IMMEDIATE"_s);
    Gateway().SetCommandTimeout(0);
    // The command has begun and asks for the lock when the connection is given up.
    sqlite3_trace_v2(
        Gateway().Engine().Database().Handle(), SQLITE_TRACE_STMT,
        [](unsigned, void* gateway, void*, void*) {
            static_cast<EmbeddedGateway*>(gateway)->Cancel();
            return 0;
        },
        &Gateway());
    const RaisedError failure = FailureOf(Gateway(), kAdd);
    EXPECT_EQ(failure.number, -2147217842);
    EXPECT_EQ(failure.text, u"Operation was canceled."_s);
    other->Engine().Database().Run(u"ROLLBACK"_s);
    EXPECT_EQ(Number(*other, kCharges), 2);
}

TEST_F(EmbeddedGatewayTest, AConnectionThatWasGivenUpRunsNothingMore) {
    Gateway().Cancel();
    EXPECT_EQ(FailureOf(Gateway(), kAdd).number, -2147217842);
    const auto other = hospital.Connect();
    EXPECT_EQ(Number(*other, kCharges), 2) << "nothing was written, and other connections go on";
}

TEST_F(EmbeddedGatewayTest, AFullDiskIsError1105AndChangesNothing) {
    SqliteDatabase& database = Gateway().Engine().Database();
    const auto pages = std::get<qint64>(*database.RunForValue(u"PRAGMA page_count"_s));
    database.RunForValue(u"PRAGMA max_page_count = "_s + QString::number(pages));
    const QString rows = u"select count(*) from Clinical_Area..tbPrint"_s;
    constexpr int kRowsEach = 6 * 6 * 6;
    const QString insert =
        u"insert into Clinical_Area..tbPrint ([Slip #]) select 'x' from Clinical_Area..tbPatient as a "
        "inner join Clinical_Area..tbPatient as b on 1 = 1 inner join Clinical_Area..tbPatient as c "
        "on 1 = 1"_s;
    RaisedError failure;
    int done = 0;
    for (; done < 1000 && failure.number == 0; ++done)
        failure = FailureOf(Gateway(), insert);
    EXPECT_EQ(failure.number, 1105) << failure.text.toStdString();
    EXPECT_EQ(Number(Gateway(), rows), (done - 1) * kRowsEach);
    database.RunForValue(u"PRAGMA max_page_count = 1000000"_s);
    Gateway().ExecuteNoResult(kAdd);
    EXPECT_EQ(Number(Gateway(), kCharges), 3);
}

TEST_F(EmbeddedGatewayTest, AReadOnlyFileCanBeReadAndNotWritten) {
    const QString path = hospital.Path();
    QFile::setPermissions(
        QFileInfo(path).absolutePath(),
        QFile::Permissions::fromInt(0x7777)); // so that it is the file that stops the writer
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    for (const QString& suffix : {u"-wal"_s, u"-shm"_s})
        QFile::setPermissions(path + suffix, QFile::Permissions::fromInt(0x6666));
    const int code = RunInChild([&path] {
        if (!BecomeNobody())
            return 1;
        EmbeddedGateway gateway(path);
        if (RowTexts(gateway, kCounter) != QStringList{u"100"_s})
            return 2;
        return FailureOf(gateway, kAdd).number == 3906 ? 0 : 3;
    });
    EXPECT_EQ(code, 0);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(Number(Gateway(), kCharges), 2);
}

TEST_F(EmbeddedGatewayTest, ADamagedFileIsError824) {
    const QString path = hospital.Path();
    QFile copy(path + u".damaged"_s);
    ASSERT_TRUE(QFile::copy(path, copy.fileName()));
    ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
    constexpr qint64 kPage = 4096;
    for (qint64 at = 10 * kPage; at < copy.size(); at += kPage) {
        copy.seek(at);
        copy.write(QByteArray(200, '\x5a'));
    }
    copy.close();
    EmbeddedGateway gateway(copy.fileName());
    EXPECT_EQ(FailureOf([&] {
                  RowTexts(gateway, u"select * from Clinical_Area..tbPatient"_s);
                  RowTexts(gateway, u"select * from Clinical_Area..tbCharge"_s);
                  RowTexts(gateway, kCounter);
              }).number,
              824);
}

TEST_F(EmbeddedGatewayTest, AWriterKilledInsideACommandLeavesTheAnsweredOnes) {
    constexpr int kAnswered = 5;
    const int code = RunInChild([this] {
        EmbeddedGateway gateway(hospital.Path());
        int commands = 0;
        // The clock is read when the command already holds the write lock.
        const auto clock = ClockSeam().Replace([&commands] {
            if (++commands > kAnswered)
                KillThisProcess();
            return DateTime();
        });
        for (int i = 0; i < 2 * kAnswered; ++i)
            gateway.ExecuteNoResult(kAdd);
        return 0;
    });
    EXPECT_EQ(code, -SIGKILL);
    EXPECT_EQ(Number(Gateway(), kCharges), 2 + kAnswered);
    EXPECT_EQ(Number(Gateway(), kCounter), 100 + kAnswered);
    Gateway().ExecuteNoResult(kAdd);
    EXPECT_EQ(Number(Gateway(), kCharges), 3 + kAnswered);
}

TEST_F(EmbeddedGatewayTest, AWriterKilledAtAnyMomentLeavesWholeCommands) {
    int reports[2];
    ASSERT_EQ(pipe(reports), 0);
    const pid_t child = fork();
    if (child == 0) {
        try {
            EmbeddedGateway gateway(hospital.Path());
            while (true) {
                gateway.ExecuteNoResult(kAdd);
                const char answered = 'x';
                if (write(reports[1], &answered, 1) != 1)
                    _exit(1);
            }
        } catch (...) {
            _exit(2);
        }
    }
    close(reports[1]);
    char byte = 0;
    int answered = 0;
    while (answered < 20 && read(reports[0], &byte, 1) == 1)
        ++answered;
    kill(child, SIGKILL);
    while (read(reports[0], &byte, 1) == 1)
        ++answered;
    close(reports[0]);
    const int written = Number(Gateway(), kCharges) - 2;
    EXPECT_EQ(Number(Gateway(), kCounter) - 100, written) << "half a command stands";
    EXPECT_GE(written, answered);
    EXPECT_LE(written, answered + 1);
}

TEST(EmbeddedGatewayOpen, AFileThatIsNotThereIsError53AndIsNotMade) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"none.db"_s);
    EXPECT_EQ(FailureOf([&] { EmbeddedGateway{path}; }).number, RunTime::kFileNotFound);
    EXPECT_FALSE(QFile::exists(path));
}

// A procedure that refuses what it is asked for, and the user in whose name it works.

namespace {

const QString kOwnName =
    u"USE Clinical_Area;\nGO\nCREATE PROCEDURE dbo.spOwnName @UserID varchar(10) AS\nBEGIN\n"
    "    SET NOCOUNT ON; SET XACT_ABORT ON;\n"
    "    BEGIN TRANSACTION;\n"
    "    UPDATE Clinical_Area..tbSlip SET ChargeSlip = ChargeSlip + 1;\n"
    "    IF @UserID <> SUSER_SNAME() THROW 50001, 'That is another''s name.', 1;\n"
    "    INSERT INTO PASSWORD..tbSmallUser (EmployeeID) SELECT LEFT(SUSER_SNAME(), 10);\n"
    "    SELECT SUSER_SNAME() AS Acting;\n"
    "    COMMIT TRANSACTION;\n"
    "END\nGO\n"_s;

std::unique_ptr<EmbeddedGateway> WithOwnName(const SmallHospital& hospital) {
    auto scripts = SmallHospitalScripts();
    scripts.push_back({u"procedures/Clinical_Area/spOwnName.sql"_s, kOwnName});
    return HospitalFile::Open(hospital.Path(), scripts);
}

} // namespace

TEST_F(EmbeddedGatewayTest, ARefusalEndsTheCommandWithItsNumberAndTextAndUndoesWhatStoodBefore) {
    const auto gateway = WithOwnName(hospital);
    gateway->SetSessionUser(u"CLERK"_s);
    const QStringList before = ContentOf(*gateway);
    const RaisedError failure = FailureOf(*gateway, u"Clinical_Area..spOwnName 'ADMIN'"_s);
    EXPECT_EQ(failure.number, 50001);
    EXPECT_EQ(failure.text, u"That is another's name."_s);
    EXPECT_EQ(failure.state, u"42000"_s);
    EXPECT_EQ(ContentOf(*gateway), before);
}

TEST_F(EmbeddedGatewayTest, ARefusalThatDoesNotHoldIsPassedOver) {
    const auto gateway = WithOwnName(hospital);
    gateway->SetSessionUser(u"CLERK"_s);
    EXPECT_EQ(RowTexts(*gateway, u"Clinical_Area..spOwnName 'clerk '"_s), QStringList{u"CLERK"_s})
        << "letter case and blanks at the end make no other name";
    EXPECT_EQ(Number(*gateway, kCounter), 101);
    EXPECT_EQ(RowTexts(*gateway, u"select EmployeeID from PASSWORD..tbSmallUser order by 1"_s),
              (QStringList{u"CLERK"_s, u"NURSE"_s}));
}

TEST_F(EmbeddedGatewayTest, AProcedureChoosesBetweenItsQueries) {
    auto scripts = SmallHospitalScripts();
    scripts.push_back(
        {u"procedures/Clinical_Area/spChoice.sql"_s,
         u"USE Clinical_Area;\nGO\nCREATE PROCEDURE dbo.spChoice @Kind varchar(1) AS\nBEGIN\n"
         "    SET NOCOUNT ON;\n"
         "    IF @Kind = 'U' SELECT EmployeeID FROM PASSWORD..tbSmallUser ORDER BY EmployeeID;\n"
         "    ELSE IF EXISTS (SELECT 1 FROM PASSWORD..tbSmallUser WHERE LEFT(EmployeeID, 1) = @Kind)\n"
         "        SELECT CONCAT('begins with ', @Kind) AS Told;\n"
         "    ELSE SELECT 'nobody' AS Told;\n"
         "END\nGO\n"_s});
    const auto gateway = HospitalFile::Open(hospital.Path(), scripts);
    EXPECT_EQ(RowTexts(*gateway, u"Clinical_Area..spChoice 'U'"_s), QStringList{u"NURSE"_s});
    EXPECT_EQ(RowTexts(*gateway, u"Clinical_Area..spChoice 'N'"_s), QStringList{u"begins with N"_s});
    EXPECT_EQ(RowTexts(*gateway, u"Clinical_Area..spChoice 'X'"_s), QStringList{u"nobody"_s});
    EXPECT_EQ(RowTexts(*gateway, u"Clinical_Area..spChoice NULL"_s), QStringList{u"nobody"_s});
}

TEST_F(EmbeddedGatewayTest, TheSessionsUserIsTheConnectionsOwn) {
    const auto gateway = WithOwnName(hospital);
    EXPECT_EQ(RowTexts(*gateway, u"select suser_sname() as u"_s), QStringList{QString()}) << "nobody yet";
    gateway->SetSessionUser(u"CLERK"_s);
    EXPECT_EQ(RowTexts(*gateway, u"select suser_sname() as u"_s), QStringList{u"CLERK"_s});
    EXPECT_EQ(RowTexts(Gateway(), u"select suser_sname() as u"_s), QStringList{QString()});
}
