#include "trial/sqlite/Transaction.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

Transaction::Transaction(SqliteDatabase& database, Kind kind)
    : mDatabase(database) {
    mDatabase.Run(kind == Kind::Writing ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s);
}

Transaction::~Transaction() {
    // After a commit, and after the failures that make SQLite roll back by itself, there is nothing to undo.
    // A rollback that fails leaves the same state behind: the file as it was, once it is opened again.
    if (mDatabase.InTransaction())
        sqlite3_exec(mDatabase.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    mDatabase.Run(u"COMMIT"_s);
}
