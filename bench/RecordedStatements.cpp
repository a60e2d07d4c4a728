#include "RecordedStatements.h"

#include "GiveUp.h"
#include "trial/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

int Record(unsigned, void* statements, void* statement, void* comment) {
    // A statement of a trigger comes as a comment; nothing else begins with "--".
    const auto* text = static_cast<const char*>(comment);
    if (text[0] == '-' && text[1] == '-')
        return 0;
    char* expanded = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
    static_cast<std::vector<QByteArray>*>(statements)->emplace_back(expanded);
    sqlite3_free(expanded);
    return 0;
}

} // namespace

RecordedStatements::RecordedStatements(SqliteDatabase& database)
    : mDatabase(database) {
    sqlite3_trace_v2(mDatabase.Handle(), SQLITE_TRACE_STMT, Record, &mStatements);
}

RecordedStatements::~RecordedStatements() {
    sqlite3_trace_v2(mDatabase.Handle(), 0, nullptr, nullptr);
}

void RunBare(SqliteDatabase& database, const std::vector<QByteArray>& statements) {
    for (const QByteArray& sql : statements) {
        sqlite3_stmt* statement = nullptr;
        int outcome =
            sqlite3_prepare_v2(database.Handle(), sql.constData(), int(sql.size()), &statement, nullptr);
        while (outcome == SQLITE_OK || outcome == SQLITE_ROW)
            outcome = sqlite3_step(statement);
        sqlite3_finalize(statement);
        if (outcome != SQLITE_DONE)
            GiveUp(u"%1\n%2"_s.arg(QString::fromUtf8(sqlite3_errmsg(database.Handle())),
                                   QString::fromUtf8(sql)));
    }
}
