#pragma once

#include "trial/sqlite/SqliteDatabase.h"

struct sqlite3_stmt;

/// One prepared statement.
class SqliteStatement {
  public:
    /// `kept` tells SQLite that the statement will be used many times.
    SqliteStatement(SqliteDatabase& database, const QString& sql, bool kept);

    /// Binds a value, which must outlive the run. Numbers beyond the statement's parameters are passed over.
    void Bind(int number, const Cell& value);
    /// Whether a row came.
    bool Step();
    sqlite3_stmt* Handle() const { return mHandle.get(); }

  private:
    friend class StatementRun;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    void Reset();

    SqliteDatabase& mDatabase;
    std::unique_ptr<sqlite3_stmt, Finalize> mHandle;
    int mParameterCount = 0;
};

/// One run of a statement: it is ended however the block around it ends, and the statement may be run again.
class StatementRun {
  public:
    explicit StatementRun(SqliteStatement& statement)
        : mStatement(statement) {}
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;
    ~StatementRun() { mStatement.Reset(); }

  private:
    SqliteStatement& mStatement;
};
