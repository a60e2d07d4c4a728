#include "charges/commands.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"
#include "torture/ShiftProcess.h"
#include "torture/Torture.h"
#include "torture/TortureTable.h"
#include "torture/WholeHospital.h"

#include <QDir>

#include <array>
#include <chrono>
#include <random>
#include <set>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kDesks = 4;
/// So many kills, then everybody is killed at once and the hospital is looked at.
constexpr int kKillsOfARound = 20;
// A kill comes at a moment of the shift, in milliseconds, or as soon as the journal has so many bytes, which
// is in the middle of a command or next to one.
constexpr int kFirstMoment = 300;
constexpr int kLastMoment = 6000;
constexpr int kFirstSize = 600;
constexpr int kLastSize = 12000;
/// Somebody whose journal does not grow so far is killed then.
constexpr milliseconds kLongestShift(40000);
constexpr milliseconds kLook(1);
/// For the end of a program that has met a failure, or has saved one slip.
constexpr int kEndPatience = 60000;

struct Tally {
    int starts = 0;
    int kills = 0;
    int inACommand = 0;
    int left = 0;
    int wrongPasswords = 0;
    int signedOn = 0;
    int told = 0;
};

struct Clerk {
    QString user;
    QString password;
};

const std::vector<Clerk> kClerks = {
    {u"NURSE"_s, u"nurse"_s}, {u"CLERK"_s, u"clerk"_s}, {u"ADMIN"_s, u"admin"_s}};

/// A hospital that is worked in by workstations which come to bad ends.
class Ward {
  public:
    Ward(const TortureSize& size, Clock::time_point end)
        : mSize(size)
        , mEnd(end)
        , mRandom(size.seed)
        , mHospital(mFolder.HospitalPath()) {}

    /// From now on the hospital is reached over the wire, each round through a server of its own.
    void PutBehindAServer() { mBehindAServer = true; }
    void Kill(int kills);
    /// A slip is saved, and the server is cut in the middle of its batch of that number, behind that part of
    /// the answer; `runs` tells whether it has run the batch.
    void Cut(int batch, bool runs, int percent);
    /// A last start, and a slip, and the clerk is satisfied.
    void WorkOnceMore();

    void TellIn(TortureTable& table, const QString& where) const;
    bool HasTime() const { return Clock::now() < mEnd; }
    const std::set<QString>& Failures() const { return mFailures; }

  private:
    struct Desk {
        std::unique_ptr<ShiftProcess> shift;
        Clock::time_point begin;
        milliseconds moment;
        qint64 size = 0;
    };

    int Any(int from, int to) { return std::uniform_int_distribution<int>(from, to)(mRandom); }
    void Round(int kills);
    void Sit(Desk& desk);
    bool IsDue(const Desk& desk) const;
    void End(Desk& desk);
    std::unique_ptr<ShiftProcess> Start(bool oneSlip);
    void StartServer(const TdsResponder::NewSession& sessions);
    void Look(const QString& when);
    void Report(const QString& what, const QStringList& problems);

    const TortureSize mSize;
    const Clock::time_point mEnd;
    std::mt19937 mRandom;
    ProgramFolder mFolder;
    WholeHospital mHospital;
    bool mBehindAServer = false;
    std::unique_ptr<TdsResponder> mServer;
    Tally mTally;
    QStringList mProblems;
    std::set<QString> mFailures;
};

void Ward::Report(const QString& what, const QStringList& problems) {
    for (const QString& problem : problems)
        mProblems << what + u": "_s + problem;
}

void Ward::StartServer(const TdsResponder::NewSession& sessions) {
    mServer = std::make_unique<TdsResponder>(sessions);
    mServer->Admit(kClerks.front().user, kClerks.front().password);
    const QString name = TestDataSources::Instance().Add(mServer->Port(), u"Hospital"_s);
    QDir().mkpath(mFolder.File(u"TARVEN"_s));
    mFolder.Write(u"TARVEN/Hemodialysis.ini"_s, u"[General]\nDataSource=%1\n"_s.arg(name).toUtf8());
}

std::unique_ptr<ShiftProcess> Ward::Start(bool oneSlip) {
    const Clerk& clerk = mBehindAServer ? kClerks.front() : kClerks[size_t(Any(0, int(kClerks.size()) - 1))];
    const QString name = u"shift-%1"_s.arg(++mTally.starts, 4, 10, QChar(u'0'));
    return std::make_unique<ShiftProcess>(mFolder, name,
                                          ShiftPlan{.seed = mSize.seed * 10000 + unsigned(mTally.starts),
                                                    .user = clerk.user,
                                                    .password = clerk.password,
                                                    .oneSlip = oneSlip});
}

void Ward::Sit(Desk& desk) {
    const bool byMoment = Any(0, 1) == 0;
    desk.moment = byMoment ? milliseconds(Any(kFirstMoment, kLastMoment)) : kLongestShift;
    desk.size = byMoment ? std::numeric_limits<qint64>::max() : Any(kFirstSize, kLastSize);
    desk.begin = Clock::now();
    desk.shift = Start(false);
}

bool Ward::IsDue(const Desk& desk) const {
    return Clock::now() - desk.begin >= desk.moment || desk.shift->JournalSize() >= desk.size;
}

/// Takes a shift that has ended, or is killed now, into the tally.
void Ward::End(Desk& desk) {
    desk.shift->Kill();
    const ReadJournal journal = desk.shift->Journal();
    Report(journal.name, desk.shift->ProblemsOfEnd());
    mTally.kills += desk.shift->WasKilled() ? 1 : 0;
    mTally.inACommand += desk.shift->WasKilled() && journal.EndsInACommand() ? 1 : 0;
    mTally.left += journal.marks.contains(Mark::kLeaving) ? 1 : 0;
    mTally.wrongPasswords += journal.marks.contains(Mark::kWrongPassword) ? 1 : 0;
    mTally.signedOn += journal.marks.contains(Mark::kSignedOn) ? 1 : 0;
    const QString told = journal.Mark(Mark::kTold);
    mTally.told += told.isEmpty() ? 0 : 1;
    if (!told.isEmpty() && !told.contains(u"failed sign-on"_s))
        Report(journal.name, {u"the start has told: "_s + told});
    if (const QString refused = journal.Mark(Mark::kRefused); !refused.isEmpty())
        Report(journal.name, {u"the start was refused: "_s + refused});
    desk.shift.reset();
}

void Ward::Look(const QString& when) {
    Report(when, mHospital.Problems(JournalsIn(ShiftProcess::JournalFolder(mFolder))));
}

void Ward::Round(int kills) {
    if (mBehindAServer)
        StartServer(EngineSessions(mFolder.HospitalPath()));
    std::vector<Desk> desks(size_t(mSize.desks == 0 ? kDesks : mSize.desks));
    const int enough = mTally.kills + kills;
    while (mTally.kills < enough && HasTime()) {
        for (Desk& desk : desks) {
            if (!desk.shift)
                Sit(desk);
            else if (desk.shift->HasEnded() || IsDue(desk)) {
                End(desk);
                if (!mHospital.FileIsSound())
                    Report(u"behind kill %1"_s.arg(mTally.kills), {u"the file is damaged"_s});
            }
        }
        std::this_thread::sleep_for(kLook);
    }
    for (Desk& desk : desks) {
        if (desk.shift)
            End(desk);
    }
    mServer.reset();
    Look(u"behind kill %1"_s.arg(mTally.kills));
}

void Ward::Kill(int kills) {
    while (mTally.kills < kills && HasTime() && mProblems.isEmpty())
        Round(std::min(kKillsOfARound, kills - mTally.kills));
}

void Ward::WorkOnceMore() {
    if (mBehindAServer)
        StartServer(EngineSessions(mFolder.HospitalPath()));
    Desk desk = {.shift = Start(true), .begin = Clock::now(), .moment = {}};
    if (!desk.shift->Ends(kEndPatience))
        Report(u"the last start"_s, {u"it does not come to an end"_s});
    End(desk);
    mServer.reset();
    Look(u"at the end"_s);
}

void Ward::Cut(int batch, bool runs, int percent) {
    const QString where = u"cut at batch %1, %2"_s.arg(batch).arg(
        !runs ? u"not run"_s : u"run, %1 % of the answer sent"_s.arg(percent));
    StartServer([batch, runs, percent, hospital = EngineSessions(mFolder.HospitalPath())](
                    const TdsLogin& login) -> TdsResponder::Handler {
        return [batch, runs, percent, answered = hospital(login), number = -1](const QString& text,
                                                                               TdsAnswer& answer) mutable {
            if (number >= 0 || text == ChargeSlipCounterCommand())
                ++number;
            if (number == batch && !runs)
                answer.Cut();
            answered(text, answer);
            if (number == batch)
                answer.CutInside(percent);
        };
    });
    const auto shift = Start(true);
    if (!shift->Ends(kEndPatience))
        Report(where, {u"the program does not notice it"_s});
    shift->Kill();
    const QString failure = shift->Journal().Mark(Mark::kFailure);
    if (failure.isEmpty())
        Report(where, {u"the program has told no failure"_s});
    mFailures.insert(failure);
    mServer.reset();
    Look(where);
}

void Ward::TellIn(TortureTable& table, const QString& where) const {
    const WorkDone work = WorkIn(JournalsIn(ShiftProcess::JournalFolder(mFolder)));
    table.Add(where + u": programs started"_s, mTally.starts);
    table.Add(where + u": of them signed on"_s, mTally.signedOn);
    table.Add(where + u": told of failed sign-ons, and of nothing else"_s, mTally.told);
    table.Add(where + u": with a wrong password first"_s, mTally.wrongPasswords);
    table.Add(where + u": left by the menu"_s, mTally.left);
    table.Add(where + u": killed"_s, mTally.kills);
    table.Add(where + u": of them in the middle of a command"_s, mTally.inACommand);
    table.Add(where + u": commands answered"_s, work.answered);
    table.Add(where + u": charges posted"_s, work.charges);
    table.Add(where + u": assessments' lines written"_s, work.assessments);
    table.Add(where + u": cancellations"_s, work.cancellations);
    table.Add(where + u": lines revoked"_s, work.revokes);
    table.Add(where + u": walk-ins registered"_s, work.registrations);
    table.Add(where + u": numbers taken"_s, work.numbers);
    table.Add(where + u": saves lost to another desk's number"_s, work.lostRaces);
    table.AddProblems(where, mProblems);
}

/// What a cut leaves of a batch.
struct CutPlace {
    bool runs;
    int percent;
};
constexpr std::array kCutPlaces = {CutPlace{false, 0}, CutPlace{true, 0}, CutPlace{true, 50}};
/// Of a slip of three lines: the counter read and written, the print table emptied, two for each line.
constexpr int kBatchesOfASlip = 9;

/// Where a test has time for few, those in the middle of which the most is at stake.
bool IsOfTheShortOnes(int batch, const CutPlace& place) {
    constexpr int kBumpOfTheCounter = 1;
    constexpr int kFirstLine = 3;
    return (batch == kBumpOfTheCounter || batch == kFirstLine) && place.runs && place.percent == 0;
}

void CutEverywhere(TortureTable& table, const TortureSize& size) {
    Ward ward(size, Clock::time_point::max());
    ward.PutBehindAServer();
    int cuts = 0;
    for (int batch = 0; batch < kBatchesOfASlip; ++batch) {
        for (const CutPlace& place : kCutPlaces) {
            if (size.isShort && !IsOfTheShortOnes(batch, place))
                continue;
            ward.Cut(batch, place.runs, place.percent);
            ++cuts;
        }
    }
    ward.WorkOnceMore();
    table.Add(u"server cut in the middle of a save"_s, cuts);
    ward.TellIn(table, u"server cut"_s);
    for (const QString& failure : ward.Failures())
        table.Add(u"what the clerk then sees"_s, failure);
}

} // namespace

void TortureByKills(TortureTable& table, const TortureSize& size) {
    constexpr milliseconds kShortOnFile(6000);
    constexpr milliseconds kShortOnTheWire(3500);
    constexpr int kWirePart = 5;
    const auto end = [&size](milliseconds time) {
        return size.isShort ? Clock::now() + time : Clock::time_point::max();
    };
    Ward onFile(size, end(kShortOnFile));
    onFile.Kill(size.times);
    onFile.WorkOnceMore();
    onFile.TellIn(table, u"on one file"_s);
    Ward onTheWire(size, end(kShortOnTheWire));
    onTheWire.PutBehindAServer();
    onTheWire.Kill(size.times / kWirePart);
    onTheWire.WorkOnceMore();
    onTheWire.TellIn(table, u"over the wire"_s);
    CutEverywhere(table, size);
}
