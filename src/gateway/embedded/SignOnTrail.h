#pragma once

#include "gateway/embedded/SqliteDatabase.h"
#include "text/DateTime.h"

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

    /// Notes a try that is about to be made. It counts as failed until Succeeded is called, so that a process
    /// that is ended in between gains nothing. `user` is empty for a name that the hospital does not know: it
    /// is kept nowhere, since it may be a password that was keyed into the wrong box.
    void Begin(const QString& user);
    /// Notes that the try was good, and gives what had failed in the user's name since he last signed on.
    std::optional<FailedSignOns> Succeeded(const QString& user);

    /// How long one waits after so many failures in a row.
    static std::chrono::seconds WaitAfter(int failures);

  private:
    std::chrono::seconds WaitBy(const QString& column, const QString& value) const;
    std::optional<FailedSignOns> FailuresOf(const QString& user) const;

    SqliteDatabase& mDatabase;
    QString mWorkstation;
    /// The number of the try that was begun last.
    qint64 mTry = 0;
};
