#pragma once

#include "gateway/embedded/Catalog.h"
#include "gateway/embedded/SqliteDatabase.h"

#include <QString>

/// What a hospital's file tells about itself: the scripts of its tables and procedures, so that the file is
/// whole by itself, and the marks of the scripts that it was made from.
class HospitalStore {
  public:
    explicit HospitalStore(SqliteDatabase& database)
        : mDatabase(database) {}

    /// Makes an empty file a hospital's.
    void Create();
    /// Whether the file's first bytes are those of a hospital; raises 53 and 5171 where they are not. Reads
    /// only.
    static void Check(const QString& path);

    /// Everything that was kept, as a catalog.
    Catalog Load();

    /// Keeps a CREATE TABLE text of that database.
    void KeepTable(const QString& database, const QString& text);
    /// Keeps a procedure, in place of one of that name.
    void KeepProcedure(const Procedure& procedure);
    /// Forgets all procedures.
    void DropProcedures();

    /// A mark's value; empty for one that was never set.
    QString Mark(const QString& name);
    /// Sets a mark, in place of the value that it had.
    void SetMark(const QString& name, const QString& value);

  private:
    void RunWith(const QString& sql, const std::vector<QString>& values);

    SqliteDatabase& mDatabase;
};
