#pragma once

#include "torture/Journal.h"
#include "torture/ShiftProcess.h"
#include "torture/Torture.h"
#include "torture/TortureTable.h"
#include "torture/WholeHospital.h"

#include <chrono>
#include <memory>
#include <random>

/// A hospital on one file that is worked in by workstations which come to bad ends. `Clock` is the machine's
/// steady one.
class Ward {
  public:
    using Clock = std::chrono::steady_clock;

    /// It goes on until it has what is asked of it or that moment comes.
    Ward(const TortureSize& size, Clock::time_point end);
    Ward(const Ward&) = delete;
    Ward& operator=(const Ward&) = delete;
    virtual ~Ward() = default;

    /// Workstations that are killed so many times; stops at the first thing that is wrong.
    void Kill(int kills);
    /// A last start, and a slip, and the clerk is satisfied.
    void WorkOnceMore();

    void TellIn(TortureTable& table, const QString& where) const;

  protected:
    struct Clerk {
        QString user;
        QString password;
    };

    /// What the workstations of a round need besides the file.
    virtual void Open() {}
    virtual void Close() {}
    virtual Clerk AnyClerk();

    /// A number at random, both ends included.
    int Any(int from, int to) { return std::uniform_int_distribution<int>(from, to)(mRandom); }
    const ProgramFolder& Folder() const { return mFolder; }
    /// A workstation with a shift at random, or with one slip.
    std::unique_ptr<ShiftProcess> Start(bool oneSlip);
    /// Compares the hospital with what all workstations were answered.
    void Look(const QString& when);
    void Report(const QString& what, const QStringList& problems);

  private:
    struct Tally {
        int starts = 0;
        int kills = 0;
        int inACommand = 0;
        int left = 0;
        int wrongPasswords = 0;
        int signedOn = 0;
        int told = 0;
    };

    struct Desk {
        std::unique_ptr<ShiftProcess> shift;
        Clock::time_point begin;
        std::chrono::milliseconds moment;
        qint64 size = 0;
    };

    bool HasTime() const { return Clock::now() < mEnd; }
    void Round(int kills);
    void Sit(Desk& desk);
    static bool IsDue(const Desk& desk);
    void End(Desk& desk);

    const TortureSize mSize;
    const Clock::time_point mEnd;
    std::mt19937 mRandom;
    ProgramFolder mFolder;
    WholeHospital mHospital;
    Tally mTally;
    QStringList mProblems;
};

/// For the end of a program that has met a failure, or has saved one slip, in milliseconds.
inline constexpr int kEndPatience = 60000;

/// The part of the torture that needs nothing but a file.
void KillOnOneFile(TortureTable& table, const TortureSize& size);

/// The moment at which a short torture is over; a long one has no such moment.
Ward::Clock::time_point EndOf(const TortureSize& size, std::chrono::milliseconds shortOne);
