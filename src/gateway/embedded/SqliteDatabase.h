#pragma once

#include "gateway/embedded/Convert.h"
#include "text/RunTimeError.h"

#include <QString>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

/// One open SQLite file. Every failure is raised with the server's number for it. Used from one thread, but
/// for Cancel.
class SqliteDatabase {
  public:
    enum class Mode { Existing, New };

    /// Opens or makes the file; raises 5120 where that cannot be done.
    SqliteDatabase(const QString& path, Mode mode);
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;
    ~SqliteDatabase() = default;

    /// Runs one or more statements of SQLite's own language, such as PRAGMA.
    void Run(const QString& sql);
    /// The first column of the first row; nothing for a statement without rows.
    std::optional<Cell> RunForValue(const QString& sql);

    /// Seconds that a lock is waited for and a command may take; 0 waits for ever.
    void SetTimeout(int seconds);
    /// From now on the time of one command is counted. Raises a failure when the file was given up.
    void BeginCommand();
    /// Gives the file up: the command that is running fails at its next look at the clock, and every later
    /// one at its beginning. From any thread.
    void Cancel() { mCancelled = true; }

    /// Whether a transaction is open.
    bool InTransaction() const;
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

    static int OnProgress(void* self);
    [[noreturn]] void RaiseConstraint(int code, const QString& detail) const;

    QString mPath;
    std::unique_ptr<sqlite3, Close> mHandle;
    std::optional<RunTimeError> mFunctionError;
    std::chrono::steady_clock::duration mTimeout{};
    std::chrono::steady_clock::time_point mDeadline = std::chrono::steady_clock::time_point::max();
    std::atomic<bool> mCancelled = false;
};

/// One prepared statement.
class SqliteStatement {
  public:
    /// `kept` tells SQLite that the statement will be used many times.
    SqliteStatement(SqliteDatabase& database, const QString& sql, bool kept);

    /// Binds a value, which must outlive the run. Numbers beyond the statement's parameters are passed over.
    void Bind(int number, const Cell& value);
    /// Whether a row came.
    bool Step();
    /// Ends the run; the statement may be run again.
    void Reset();
    sqlite3_stmt* Handle() const { return mHandle.get(); }

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    SqliteDatabase& mDatabase;
    std::unique_ptr<sqlite3_stmt, Finalize> mHandle;
    int mParameterCount = 0;
};
