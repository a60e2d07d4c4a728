#pragma once

#include <QByteArray>

#include <vector>

class SqliteDatabase;

/// The statements that a hospital's engine hands to SQLite while it lives, with their values put in: the bare
/// work that a command stands for.
class RecordedStatements {
  public:
    explicit RecordedStatements(SqliteDatabase& database);
    RecordedStatements(const RecordedStatements&) = delete;
    RecordedStatements& operator=(const RecordedStatements&) = delete;
    ~RecordedStatements();

    const std::vector<QByteArray>& Statements() const { return mStatements; }

  private:
    SqliteDatabase& mDatabase;
    std::vector<QByteArray> mStatements;
};

/// Runs statements through SQLite's C API alone.
void RunBare(SqliteDatabase& database, const std::vector<QByteArray>& statements);
