#include "trial/sqlite/SqliteStatement.h"

#include <sqlite3.h>

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(SqliteDatabase& database, const QString& sql, bool kept)
    : mDatabase(database) {
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* handle = nullptr;
    const unsigned flags = kept ? SQLITE_PREPARE_PERSISTENT : 0;
    const int code = sqlite3_prepare_v3(database.Handle(), text.constData(),
                                        static_cast<int>(text.size()) + 1, flags, &handle, nullptr);
    if (code != SQLITE_OK)
        database.Raise(code);
    mHandle.reset(handle);
    mParameterCount = sqlite3_bind_parameter_count(handle);
}

void SqliteStatement::Bind(int number, const Cell& value) {
    if (number > mParameterCount)
        return;
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<qint64>(&value))
        code = sqlite3_bind_int64(mHandle.get(), number, *whole);
    else if (const auto* real = std::get_if<double>(&value))
        code = sqlite3_bind_double(mHandle.get(), number, *real);
    else if (const auto* text = std::get_if<QByteArray>(&value))
        code = sqlite3_bind_text64(mHandle.get(), number, text->constData(),
                                   static_cast<sqlite3_uint64>(text->size()), nullptr, SQLITE_UTF8);
    else
        code = sqlite3_bind_null(mHandle.get(), number);
    if (code != SQLITE_OK)
        mDatabase.Raise(code);
}

bool SqliteStatement::Step() {
    const int code = sqlite3_step(mHandle.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    // A run that failed frees its locks, since a rollback may follow.
    const StatementRun failed(*this);
    mDatabase.Raise(code);
}

void SqliteStatement::Reset() {
    // The code is the failure of the run before, which was raised already.
    sqlite3_reset(mHandle.get());
    sqlite3_clear_bindings(mHandle.get());
}
