#include "hospital/HospitalScripts.h"
#include "suite/SignOn.h"
#include "suite/TrialHospital.h"
#include "support/CaseName.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/process/ChildProcess.h"
#include "support/process/FileLocks.h"
#include "text/Clock.h"
#include "trial/HospitalFile.h"
#include "trial/sqlite/SqliteDatabase.h"
#include "tsql/ServerError.h"

#include <QFile>
#include <QMap>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

// Several desks work on one hospital file, each shift a process of its own: they sign on, assess, look at
// reports, and end normally, or by a kill; others fail to sign on meanwhile. What a command has answered
// stands, no number comes twice, the file is whole, and nobody makes it anew under those who work.

namespace {

constexpr int kShifts = 3;
constexpr int kAssessmentsOfAShift = 4;
constexpr int kLines = 2;

struct Crowd {
    std::string name;
    int desks;
};

class SeveralDesks : public testing::TestWithParam<Crowd> {
  protected:
    SeveralDesks() { hospital.Make({}); }

    QString Folder() const { return home.filePath(u"data"_s); }
    QString JournalPath(int desk) const { return home.filePath(u"answered-%1"_s.arg(desk)); }

    /// The number and the code of every line that was answered, as "number code".
    QStringList Answered(int desk) const {
        QFile journal(JournalPath(desk));
        EXPECT_TRUE(journal.open(QIODevice::ReadOnly)) << desk;
        return QString::fromLatin1(journal.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir home;
    TrialHospital hospital{Folder()};
};

std::unique_ptr<SignedOnUser> SignOn(DataSource& hospital, const QString& password = u"nurse"_s) {
    SignOnOutcome outcome = TrySignOn(hospital, u"NURSE"_s, password, {u"HC"_s});
    while (outcome.wait.count() > 0) {
        std::this_thread::sleep_for(outcome.wait);
        outcome = TrySignOn(hospital, u"NURSE"_s, password, {.deptCode = u"HC"_s, .waited = true});
    }
    return std::move(outcome.user);
}

/// The next assessment number, as the workstation takes it; empty where another desk was faster.
QString TakeNumber(CommandGateway& connection) {
    RowSet counter = connection.Open(u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s,
                                     CursorType::Dynamic, LockType::Optimistic);
    const qint64 number = counter.Fields(u"AssessmentNum").ToText().toLongLong();
    counter.SetField(u"AssessmentNum", Value(number + 1));
    try {
        counter.Update();
    } catch (const RunTimeError& error) {
        if (error.Number() != RunTime::kRowChanged)
            throw;
        return {};
    }
    return QString::number(number);
}

void Assess(CommandGateway& connection, const QString& number, QFile& journal) {
    for (int line = 1; line <= kLines; ++line) {
        connection.ExecuteNoResult(u"Clinical_Area..spEarCare_Assessment '%1','SANTOS, "
                                   u"ANA','HC00%2','HC','1','100.00','HC','NURSE','','','',"
                                   "''"_s.arg(number)
                                       .arg(line));
        journal.write(u"%1 HC00%2\n"_s.arg(number).arg(line).toLatin1());
        journal.flush();
    }
}

/// One shift at a desk, up to its end by itself.
void WorkShift(const QString& folder, const QString& journalPath) {
    TrialHospital hospital(folder);
    const auto user = SignOn(hospital);
    QFile journal(journalPath);
    if (!journal.open(QIODevice::WriteOnly | QIODevice::Append))
        _exit(2);
    for (int done = 0; done < kAssessmentsOfAShift;) {
        const QString number = TakeNumber(*user->connection);
        if (number.isEmpty())
            continue;
        Assess(*user->connection, number, journal);
        LogOn(hospital, u"NURSE"_s, u"nurse"_s)->Execute(u"REPORTS..spReports_ChargeSlip"_s);
        ++done;
    }
}

/// The shifts of one desk. The process of the second one is killed at its end instead of leaving. Before each
/// a sign-on fails in a process of its own, at one desk alone: where many fail they would have to wait.
int WorkAtDesk(int desk, const QString& folder, const QString& journalPath) {
    for (int shift = 0; shift < kShifts; ++shift) {
        const int wrong = desk > 0 ? 0 : RunInChild([&folder] {
            TrialHospital hospital(folder);
            return SignOn(hospital, u"wrong"_s) ? 1 : 0;
        });
        const bool killed = shift == 1;
        const int worked = RunInChild([&] {
            WorkShift(folder, journalPath);
            if (killed)
                KillThisProcess();
            return 0;
        });
        if (wrong != 0 || worked != (killed ? -SIGKILL : 0))
            return 1;
    }
    return 0;
}

/// Whether every page, row and index of the file agrees with the others.
bool IsWhole(const QString& path) {
    SqliteDatabase database(path, SqliteDatabase::Mode::Existing);
    return database.RunForValue(u"PRAGMA integrity_check"_s) == Cell(QByteArray("ok"));
}

} // namespace

TEST_P(SeveralDesks, WhatWasAnsweredStandsAndNoNumberComesTwice) {
    const QString path = hospital.Path();
    const qint64 first = SignOn(hospital)
                             ->connection->Execute(u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s)
                             .Fields(u"AssessmentNum")
                             .ToText()
                             .toLongLong();
    std::vector<pid_t> desks;
    for (int desk = 0; desk < GetParam().desks; ++desk) {
        const pid_t child = fork();
        if (child == 0)
            _exit(WorkAtDesk(desk, Folder(), JournalPath(desk)));
        desks.push_back(child);
    }
    for (const pid_t desk : desks) {
        int status = 0;
        waitpid(desk, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_TRUE(IsWhole(path));
    const auto user = SignOn(hospital);
    ASSERT_NE(user, nullptr);
    QMap<QString, int> owners;
    QStringList answered;
    for (int desk = 0; desk < GetParam().desks; ++desk) {
        for (const QString& line : Answered(desk)) {
            answered << line;
            const QString number = line.section(u' ', 0, 0);
            EXPECT_EQ(owners.value(number, desk), desk) << "two desks under number " << number.toStdString();
            owners.insert(number, desk);
        }
    }
    const int assessments = GetParam().desks * kShifts * kAssessmentsOfAShift;
    EXPECT_EQ(owners.size(), assessments);
    QStringList kept;
    RowSet rows = user->connection->Execute(
        u"SELECT RefNum, ItemID FROM BILLING..tbCashAssessment WHERE Name = 'SANTOS, ANA' ORDER BY AssessNum"_s);
    for (; !rows.Eof(); rows.MoveNext())
        kept << rows.Fields(u"RefNum").ToText() + u' ' + rows.Fields(u"ItemID").ToText();
    answered.sort();
    kept.sort();
    EXPECT_EQ(kept, answered);
    EXPECT_EQ(user->connection->Execute(u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s)
                  .Fields(u"AssessmentNum")
                  .ToText()
                  .toLongLong(),
              first + assessments);
}

INSTANTIATE_TEST_SUITE_P(Crowds, SeveralDesks, testing::Values(Crowd{"Two", 2}, Crowd{"Four", 4}),
                         CaseName());

namespace {

/// A desk that stays open in a process of its own until it is let go.
class OpenDesk {
  public:
    explicit OpenDesk(const QString& folder) {
        EXPECT_EQ(::pipe(mReady), 0);
        EXPECT_EQ(::pipe(mEnd), 0);
        mProcess = fork();
        if (mProcess == 0)
            _exit(Stay(folder));
        char ready = 0;
        EXPECT_EQ(::read(mReady[0], &ready, 1), 1);
    }
    OpenDesk(const OpenDesk&) = delete;
    OpenDesk& operator=(const OpenDesk&) = delete;

    /// Ends the process normally and gives its exit code.
    int Leave() {
        EXPECT_EQ(::write(mEnd[1], "x", 1), 1);
        int status = 0;
        waitpid(mProcess, &status, 0);
        mProcess = 0;
        return WEXITSTATUS(status);
    }
    ~OpenDesk() {
        if (mProcess != 0) {
            ::kill(mProcess, SIGKILL);
            waitpid(mProcess, nullptr, 0);
        }
        for (const int end : {mReady[0], mReady[1], mEnd[0], mEnd[1]})
            ::close(end);
    }

  private:
    /// Signs on, prints a slip, waits, and then works on: 0 when its last command was answered.
    int Stay(const QString& folder) {
        TrialHospital hospital(folder);
        const auto user = SignOn(hospital);
        LogOn(hospital, u"NURSE"_s, u"nurse"_s)->Execute(u"REPORTS..spReports_ChargeSlip"_s);
        char end = 0;
        if (::write(mReady[1], "x", 1) != 1 || ::read(mEnd[0], &end, 1) != 1)
            return 1;
        user->connection->ExecuteNoResult(
            u"Clinical_Area..spEarCare_DumpChargeSlip 'HC001','LAST LINE','1','1.00','HC'"_s);
        return 0;
    }

    int mReady[2] = {};
    int mEnd[2] = {};
    pid_t mProcess = 0;
};

int TryToMakeAnew(const QString& path) {
    return RunInChild([&path] {
        try {
            HospitalFile::Replace(path, HospitalScripts());
        } catch (const RunTimeError& error) {
            return error.Number() == static_cast<int>(Fault::InUse) ? 1 : 2;
        }
        return 0;
    });
}

} // namespace

using OneOpenDesk = SeveralDesks;

TEST_F(OneOpenDesk, NobodyMakesTheHospitalAnewUnderADeskThatHasPrinted) {
    constexpr int kInUse = 1;
    OpenDesk desk(Folder());
    EXPECT_TRUE(IsHeldOpen(hospital.Path()));
    EXPECT_EQ(TryToMakeAnew(hospital.Path()), kInUse);
    EXPECT_EQ(RunInChild([this] { return SignOn(hospital, u"wrong"_s) ? 1 : 0; }), 0);
    EXPECT_TRUE(IsHeldOpen(hospital.Path())) << "another's wrong password";
    EXPECT_EQ(RunInChild([this] {
                  WorkShift(Folder(), JournalPath(0));
                  return 0;
              }),
              0);
    EXPECT_TRUE(IsHeldOpen(hospital.Path())) << "another's shift";
    EXPECT_EQ(TryToMakeAnew(hospital.Path()), kInUse);
    EXPECT_EQ(desk.Leave(), 0);
    EXPECT_FALSE(
        SignOn(hospital)
            ->connection
            ->Execute(u"SELECT PrintID FROM Clinical_Area..tbEarCareChargePrint WHERE Description = 'LAST "
                      "LINE'"_s)
            .Eof())
        << "the desk's last line";
    EXPECT_EQ(TryToMakeAnew(hospital.Path()), 0) << "once everybody has left";
}

using ManyTries = SeveralDesks;

TEST_F(ManyTries, OfTwentyAtOneMomentOneIsLookedAt) {
    constexpr int kTries = 20;
    for (int i = 0; i < 3; ++i)
        TrySignOn(hospital, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
    // The wait that the three have brought is over, here and in the processes that are started from here.
    const auto clock = FixedClock(Now().AddDays(1));
    int gate[2] = {};
    ASSERT_EQ(::pipe(gate), 0);
    std::vector<pid_t> tries;
    for (int i = 0; i < kTries; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            ::close(gate[1]);
            char opened = 0;
            // It ends when the parent closes the gate's other end, for all at once.
            const bool atOnce = ::read(gate[0], &opened, 1) == 0;
            TrialHospital here(Folder());
            const SignOnOutcome outcome = TrySignOn(here, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
            _exit(atOnce && outcome.wait.count() > 0 ? 0 : 1);
        }
        tries.push_back(child);
    }
    ::close(gate[0]);
    ::close(gate[1]);
    int lookedAt = 0;
    for (const pid_t one : tries) {
        int status = 0;
        waitpid(one, &status, 0);
        lookedAt += status == 0 ? 0 : 1;
    }
    EXPECT_EQ(lookedAt, 1);
}
