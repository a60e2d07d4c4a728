#pragma once

#include "trial/file/HospitalStore.h"
#include "trial/KeptCommand.h"
#include "trial/PreparedCommand.h"
#include "trial/sqlite/SqliteDatabase.h"
#include "trial/StoredProcedure.h"
#include "tsql/Catalog.h"
#include "tsql/SqlTree.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <unordered_map>

/// A hospital's file at work: it reads command texts as the server would and runs them.
class HospitalEngine {
  public:
    /// Opens a hospital's file, or makes an empty one. Raises 5171 for a file that is no hospital, 5120 for
    /// one beside which another database's log lies, and 948 for one that this version cannot read.
    HospitalEngine(const QString& path, SqliteDatabase::Mode mode);

    /// Runs one command text. A text that is more than one statement is refused whole.
    CommandResult Run(const QString& command);
    /// How SQLite goes about a command: the lines of its EXPLAIN QUERY PLAN, step by step.
    QStringList QueryPlan(const QString& command);

    /// The database of names without one. Raises 911 for one that is not there.
    void SetDefaultDatabase(const QString& name);
    SqliteDatabase& Database() { return mDatabase; }
    HospitalStore& Store() { return mStore; }

    /// The steps of a script. A definition is made in the given database and kept in the file by its text.
    void Define(TableDefinition table, const QString& database, const QString& text);
    void Define(const IndexDefinition& index, const QString& database);
    void Define(const Procedure& procedure);
    void RunStatement(const Statement& statement, const QString& database);

  private:
    StoredProcedure& Find(const ObjectName& name);
    /// Before a command writes: looks that the file is still the hospital's, and keeps that the hospital is
    /// no longer as it was made.
    void BeginWork(bool writes);
    /// Reads a text; null for an empty one. Raises the server's errors for what is wrong in it.
    std::unique_ptr<KeptCommand> Read(const CommandShape& shape);
    std::unique_ptr<PreparedCommand> Prepare(const Statement& statement, const QString& database, bool kept);

    SqliteDatabase mDatabase;
    HospitalStore mStore;
    Catalog mCatalog;
    QString mDefaultDatabase;
    bool mFresh = false;
    std::unordered_map<const Procedure*, std::unique_ptr<StoredProcedure>> mProcedures;
    /// Commands by the shape of their texts, since a screen sends the same ones with other literals.
    KeptCommands mKept;
};
