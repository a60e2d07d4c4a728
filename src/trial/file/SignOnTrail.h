#pragma once

#include "text/DateTime.h"
#include "trial/sqlite/SqliteDatabase.h"

#include <QString>

#include <chrono>
#include <optional>

/// Sign-ons of one user that failed since he last signed on.
struct FailedSignOns {
    int count = 0;
    /// His last sign-on; for a user who never signed on, the first of those that failed.
    DateTime since;
    /// The latest of them, and the workstation at which it was.
    DateTime last;
    QString workstation;
};

/// The sign-ons to a hospital that checks passwords itself, kept in its file: who tried, at which
/// workstation, when, and what came of it. Who fails again and again has to wait, a minute at most, whatever
/// is started anew. What stands here is the file's own: no command text reaches it.
class SignOnTrail {
  public:
    /// The longest that anybody has to wait.
    static constexpr std::chrono::seconds kLongestWait{60};

    /// The trail as one workstation sees it. Where the file has none yet, it gets one.
    SignOnTrail(SqliteDatabase& database, QString workstation);

    /// How long that user has to wait before he tries here: by what failed in his name anywhere, and by what
    /// failed at this workstation in anybody's.
    std::chrono::seconds Wait(const QString& user) const;
    /// The same by what failed at this workstation alone.
    std::chrono::seconds WaitHere() const;

    /// Notes a try that is about to be made, unless it has to wait: then nothing is noted, and the time is
    /// given back. Looking and noting are one step, so that of many who try at one moment one is let through.
    /// `waited` says that the user has served his wait: what failed at other workstations holds him up no
    /// more.
    ///
    /// The try counts as failed until one of the next two is called, so that a process that is ended in
    /// between gains nothing. `user` is empty for a name that the hospital does not know: it is kept nowhere,
    /// since it may be a password that was keyed into the wrong box.
    std::chrono::seconds Begin(const QString& user, bool waited = false);
    /// Notes that the password of the try was right, though nobody has signed on by it: what had failed in
    /// the user's name has yet to be told.
    void PasswordWasRight();
    /// Notes that the user has signed on, and gives what had failed in his name since he did so last.
    std::optional<FailedSignOns> SignedOn(const QString& user);

    /// Takes the trail along into the hospital that comes in a file's place, so that nobody gets rid of his
    /// wait by that. A file without a trail gives nothing.
    static void CarryOver(SqliteDatabase& from, SqliteDatabase& to);

    /// How long one waits after so many failures in a row.
    static std::chrono::seconds WaitAfter(int failures);

  private:
    static void MakeTable(SqliteDatabase& database);
    void SetOutcome(int outcome);
    std::chrono::seconds WaitBy(const QString& column, const QString& value) const;
    std::optional<FailedSignOns> FailuresOf(const QString& user) const;

    SqliteDatabase& mDatabase;
    QString mWorkstation;
    /// The number of the try that was begun last.
    qint64 mTry = 0;
};
