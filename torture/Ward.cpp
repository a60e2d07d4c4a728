#include "torture/Ward.h"

#include <algorithm>
#include <limits>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

Ward::Ward(const TortureSize& size, Clock::time_point end)
    : mSize(size)
    , mEnd(end)
    , mRandom(size.seed)
    , mHospital(mFolder.HospitalPath()) {}

Ward::Clerk Ward::AnyClerk() {
    const std::vector<Clerk> clerks = {
        {u"NURSE"_s, u"nurse"_s}, {u"CLERK"_s, u"clerk"_s}, {u"ADMIN"_s, u"admin"_s}};
    return clerks[size_t(Any(0, int(clerks.size()) - 1))];
}

void Ward::Report(const QString& what, const QStringList& problems) {
    for (const QString& problem : problems)
        mProblems << what + u": "_s + problem;
}

std::unique_ptr<ShiftProcess> Ward::Start(bool oneSlip) {
    const Clerk clerk = AnyClerk();
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

bool Ward::IsDue(const Desk& desk) {
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
    Open();
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
    Close();
    Look(u"behind kill %1"_s.arg(mTally.kills));
}

void Ward::Kill(int kills) {
    while (mTally.kills < kills && HasTime() && mProblems.isEmpty())
        Round(std::min(kKillsOfARound, kills - mTally.kills));
}

void Ward::WorkOnceMore() {
    Open();
    Desk desk = {.shift = Start(true), .begin = Clock::now(), .moment = {}};
    if (!desk.shift->Ends(kEndPatience))
        Report(u"the last start"_s, {u"it does not come to an end"_s});
    End(desk);
    Close();
    Look(u"at the end"_s);
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

Ward::Clock::time_point EndOf(const TortureSize& size, milliseconds shortOne) {
    return size.isShort ? Ward::Clock::now() + shortOne : Ward::Clock::time_point::max();
}

void KillOnOneFile(TortureTable& table, const TortureSize& size) {
    constexpr milliseconds kShort(6000);
    Ward ward(size, EndOf(size, kShort));
    ward.Kill(size.times);
    ward.WorkOnceMore();
    ward.TellIn(table, u"on one file"_s);
}
