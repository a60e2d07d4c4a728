#include "trial/sqlite/Transaction.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QString BeginText(Transaction::Kind kind) {
    switch (kind) {
    case Transaction::Kind::Reading:
        return u"BEGIN"_s;
    case Transaction::Kind::Writing:
        return u"BEGIN IMMEDIATE"_s;
    case Transaction::Kind::Exclusive:
        return u"BEGIN EXCLUSIVE"_s;
    }
    return {};
}

} // namespace

Transaction::Transaction(SqliteDatabase& database, Kind kind)
    : mDatabase(database) {
    mDatabase.RunOften(BeginText(kind));
}

Transaction::~Transaction() {
    // After a commit, and after the failures that make SQLite roll back by itself, there is nothing to undo.
    // A rollback that fails leaves the same state behind: the file as it was, once it is opened again.
    if (mDatabase.InTransaction())
        sqlite3_exec(mDatabase.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    mDatabase.RunOften(u"COMMIT"_s);
}
