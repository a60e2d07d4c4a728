#pragma once

#include "text/RunTimeError.h"
#include "tsql/Convert.h"

#include <QString>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <optional>

class SqliteStatement;
struct sqlite3;
struct sqlite3_file;

/// One open SQLite file. Every failure is raised with the server's number for it. Used from one thread, but
/// for Cancel.
class SqliteDatabase {
  public:
    enum class Mode {
        Existing,
        /// An existing file that nothing can be written to through this connection.
        Reading,
        New,
    };

    /// Opens or makes the file; raises 5120 where that cannot be done. Nothing is looked at in the file, and
    /// nothing in it or beside it is touched, before the first statement runs.
    SqliteDatabase(const QString& path, Mode mode);
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;
    ~SqliteDatabase();

    /// Runs one or more statements of SQLite's own language, such as PRAGMA.
    void Run(const QString& sql);
    /// Runs one statement that is needed again and again, such as BEGIN; it stays prepared.
    void RunOften(const QString& sql);
    /// The first column of the first row; nothing for a statement without rows.
    std::optional<Cell> RunForValue(const QString& sql);

    /// The time of one command, from its beginning to its end: waiting for locks and running share the
    /// timeout. Raises a failure when the file was given up.
    class Command {
      public:
        explicit Command(SqliteDatabase& database);
        Command(const Command&) = delete;
        Command& operator=(const Command&) = delete;
        ~Command();

      private:
        SqliteDatabase& mDatabase;
    };

    const QString& Path() const { return mPath; }
    /// The first bytes of the file, those that tell what kind of file it is; a shorter file is filled up with
    /// zeros. They are read through SQLite's own handle: any other one that is opened on the file and closed
    /// takes SQLite's locks on it along, all those of the process.
    QByteArray Header() const;
    /// Raises 5120 where the file does not lie in its place any more: it was removed, or another one lies
    /// there. SQLite would go on writing into a file that nobody finds again.
    void RequireInPlace() const;
    /// Makes sure that the file has reached the disk. For a file that was written without waiting for that.
    void Flush();

    /// Copies everything, as it is at one moment, in the place of what the other file holds. Others may go on
    /// writing to this one meanwhile; the copy has nothing of that. Raises what reading or writing fails
    /// with.
    void CopyInto(SqliteDatabase& copy);

    /// Whether the last connection that closes plays the log into the file, as it does from the beginning on.
    /// Until it is known that the log is this file's, it must not: the file would be destroyed.
    void SetPlaysLog(bool plays);

    /// The user in whose name the connection works, as SUSER_SNAME() gives him; empty for nobody.
    const QByteArray& SessionUser() const { return mSessionUser; }
    void SetSessionUser(const QString& user) { mSessionUser = user.toUtf8(); }

    /// Seconds that a command may take, its wait for locks included, and that a lock is waited for outside of
    /// commands; 0 waits for ever.
    void SetTimeout(int seconds);
    /// Gives the file up: the command that is running fails at its next look at the clock, also where it
    /// waits for a lock, and every later one at its beginning. From any thread.
    void Cancel() { mCancelled = true; }

    /// What the rows of one answer may take of memory, in bytes.
    qint64 MostOfAnswer() const { return mMostOfAnswer; }
    void SetMostOfAnswer(qint64 bytes) { mMostOfAnswer = bytes; }

    /// Whether a transaction is open.
    bool InTransaction() const;
    /// For work of the engine's own that SQLite does not see: counts one step of it, and looks at the clock
    /// once in a thousand. Raises a failure where the command was given up or has run too long.
    void CountStep();

    /// Rows touched by the last writing statement.
    qint64 Changes() const;
    sqlite3* Handle() const { return mHandle.get(); }

    /// Where the engine's own functions leave the error that made a statement fail.
    std::optional<RunTimeError>& FunctionError() { return mFunctionError; }
    /// Raises what a call into SQLite failed with.
    [[noreturn]] void Raise(int code);

  private:
    struct Close {
        void operator()(sqlite3* handle) const;
    };

    using Clock = std::chrono::steady_clock;

    bool IsOver() const { return mCancelled || Clock::now() > mDeadline; }

    sqlite3_file& File() const;
    Clock::time_point EndOfWait() const;
    static int OnProgress(void* self);
    static int OnBusy(void* self, int looks);
    [[noreturn]] void RaiseConstraint(int code, const QString& detail);
    [[noreturn]] void RaiseDuplicate(const QString& detail);
    /// What the operating system has to say about the last failure.
    QString SystemReason() const;

    QString mPath;
    QByteArray mSessionUser;
    std::unique_ptr<sqlite3, Close> mHandle;
    /// They go before the handle does, which is closed with its last statement.
    std::map<QString, std::unique_ptr<SqliteStatement>> mOften;
    std::optional<RunTimeError> mFunctionError;
    std::chrono::seconds mTimeout{};
    /// When the running command is given up, and when the wait for a lock is.
    Clock::time_point mDeadline = Clock::time_point::max();
    Clock::time_point mLockDeadline = Clock::time_point::max();
    std::atomic<bool> mCancelled = false;
    unsigned mSteps = 0;
    qint64 mMostOfAnswer = qint64(1) << 30;
};
