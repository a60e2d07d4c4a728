#include "fuzz/Fuzz.h"
#include "fuzz/ReadAll.h"
#include "support/FixedClock.h"
#include "support/smallhospital/SmallHospital.h"
#include "trial/HospitalEngine.h"

#include <QElapsedTimer>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

// Command texts through the whole embedded engine, a line of the input each, on one connection.

namespace {

constexpr int kTimeout = 1;
/// How long a command may take in all, in milliseconds: a machine at work may keep a process waiting.
constexpr qint64 kLongest = 6000;
constexpr qint64 kMostOfAnswer = 64 << 20;
constexpr qsizetype kMostCommands = 8;

/// The small hospital, and what it held before the first command.
class Hospital {
  public:
    Hospital()
        : mClock(FixedClock(*DateTime::FromFields({2026, 11, 21, 14, 2, 3, 456}))) {
        mHospital.Gateway().SetCommandTimeout(kTimeout);
        mHospital.Gateway().SetSessionUser(u"NURSE"_s);
        Database().SetMostOfAnswer(kMostOfAnswer);
        // Nobody's work is lost where the machine stops.
        Database().Run(u"PRAGMA synchronous = OFF"_s);
        // The first command that writes has the file remember it.
        mHospital.Gateway().ExecuteNoResult(u"delete Clinical_Area..tbPrint"_s);
        sqlite3_open(":memory:", &mBefore);
        Copy(mBefore, Database().Handle());
        mChanges = Changes();
    }

    void Run(const QString& command) {
        QElapsedTimer taken;
        taken.start();
        Allowing([&] { ReadAll(mHospital.Gateway().Execute(command)); });
        Require(taken.elapsed() < kLongest, "a command ends when its time is over");
        Require(!Database().InTransaction(), "a command leaves no transaction open");
    }

    /// Brings everything back that the commands have changed.
    void Restore() {
        if (Changes() == mChanges)
            return;
        Copy(Database().Handle(), mBefore);
        mChanges = Changes();
    }

  private:
    SqliteDatabase& Database() { return mHospital.Gateway().Engine().Database(); }
    qint64 Changes() { return sqlite3_total_changes64(Database().Handle()); }

    static void Copy(sqlite3* to, sqlite3* from) {
        sqlite3_backup* copy = sqlite3_backup_init(to, "main", from, "main");
        Require(copy && sqlite3_backup_step(copy, -1) == SQLITE_DONE, "the hospital can be copied");
        sqlite3_backup_finish(copy);
    }

    const Seam<DateTime()>::Replacement mClock;
    SmallHospital mHospital;
    sqlite3* mBefore = nullptr;
    qint64 mChanges = 0;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Hospital hospital;
    const QStringList commands = QString::fromUtf8(BytesOf(data, size)).split(u'\n');
    for (const QString& command : commands.first(qMin(commands.size(), kMostCommands)))
        hospital.Run(command);
    hospital.Restore();
    return 0;
}
