#pragma once

#include "trial/sqlite/SqliteDatabase.h"
#include "trial/sqlite/SqliteStatement.h"
#include "tsql/Catalog.h"

#include <QString>

/// What a hospital's file tells about itself: the scripts of its tables and procedures, so that the file is
/// whole by itself, and the marks of the scripts that it was made from.
class HospitalStore {
  public:
    explicit HospitalStore(SqliteDatabase& database)
        : mDatabase(database) {}

    /// Makes an empty file a hospital's.
    void Create();
    /// Raises 5171 for a file that is no hospital's, by its first bytes alone; nothing has touched it then.
    void Check() const;

    /// Everything that was kept, as a catalog. Raises 5120 where the log beside the file is another
    /// database's, and 948 for what this version cannot read.
    Catalog Load();

    /// Keeps a CREATE TABLE text of that database.
    void KeepTable(const QString& database, const QString& text);
    /// Keeps a procedure, in place of one of that name.
    void KeepProcedure(const Procedure& procedure);
    /// Forgets all procedures.
    void DropProcedures();

    /// Whether nobody has written anything since the hospital was made. A file of which that was never kept
    /// is taken for one that somebody has worked with.
    bool IsFresh();
    void SetFresh(bool fresh);

    /// A mark's value; empty for one that was never set.
    QString Mark(const QString& name);
    /// Sets a mark, in place of the value that it had.
    void SetMark(const QString& name, const QString& value);

  private:
    void RequireOwnLog();
    /// A statement that reads one of the file's own tables. Raises 948 where the table is not as it should
    /// be.
    SqliteStatement Select(const QString& sql);
    void RunWith(const QString& sql, const std::vector<QString>& values);

    SqliteDatabase& mDatabase;
};
