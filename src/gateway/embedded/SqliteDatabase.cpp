#include "gateway/embedded/SqliteDatabase.h"

#include "gateway/embedded/ServerError.h"
#include "gateway/embedded/SqlFunctions.h"

#include <limits>
#include <sqlite3.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// How many of SQLite's steps pass between two looks at the clock.
constexpr int kStepsPerLook = 20000;
// Until the gateway says how long it will wait.
constexpr int kFirstTimeout = 30;

/// SQLite's texts name columns as "table.column, table.column"; the tables of the hospital have dots in
/// theirs.
QStringList ConstraintColumns(const QString& detail) {
    QStringList columns;
    for (const QString& name : detail.section(u": "_s, 1).split(u", "_s))
        columns << name.section(u'.', -1);
    return columns;
}

QString ConstraintTable(const QString& detail) {
    return detail.section(u": "_s, 1).section(u", "_s, 0, 0).section(u'.', 0, -2);
}

} // namespace

SqliteDatabase::SqliteDatabase(const QString& path, Mode mode)
    : mPath(path) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (mode == Mode::New ? SQLITE_OPEN_CREATE : 0);
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &handle, flags, nullptr);
    mHandle.reset(handle);
    if (code != SQLITE_OK)
        throw ServerError(Fault::CannotOpen, {path, QString::fromUtf8(sqlite3_errstr(code))});
    // A name in double quotes that means no column must never pass for a text.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    SetTimeout(kFirstTimeout);
    AddSqlFunctions(*this);
}

void SqliteDatabase::Close::operator()(sqlite3* handle) const {
    sqlite3_close_v2(handle);
}

void SqliteDatabase::Run(const QString& sql) {
    const int code = sqlite3_exec(mHandle.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        Raise(code);
}

std::optional<Cell> SqliteDatabase::RunForValue(const QString& sql) {
    SqliteStatement statement(*this, sql, false);
    if (!statement.Step())
        return std::nullopt;
    return ReadCell(sqlite3_column_value(statement.Handle(), 0));
}

void SqliteDatabase::SetTimeout(int seconds) {
    constexpr int kMillisecondsPerSecond = 1000;
    const int most = std::numeric_limits<int>::max() / kMillisecondsPerSecond;
    mTimeout = std::chrono::seconds(seconds);
    mDeadline = std::chrono::steady_clock::time_point::max();
    sqlite3_busy_timeout(mHandle.get(), seconds > 0 ? std::min(seconds, most) * kMillisecondsPerSecond
                                                    : std::numeric_limits<int>::max());
    sqlite3_progress_handler(mHandle.get(), kStepsPerLook, &SqliteDatabase::OnProgress, this);
}

void SqliteDatabase::BeginCommand() {
    if (mCancelled)
        throw ServerError(Fault::Cancelled);
    const bool forEver = mTimeout == mTimeout.zero();
    mDeadline =
        forEver ? std::chrono::steady_clock::time_point::max() : std::chrono::steady_clock::now() + mTimeout;
}

int SqliteDatabase::OnProgress(void* self) {
    const auto* database = static_cast<const SqliteDatabase*>(self);
    return database->mCancelled || std::chrono::steady_clock::now() > database->mDeadline ? 1 : 0;
}

bool SqliteDatabase::InTransaction() const {
    return sqlite3_get_autocommit(mHandle.get()) == 0;
}

qint64 SqliteDatabase::Changes() const {
    return sqlite3_changes64(mHandle.get());
}

void SqliteDatabase::Raise(int code) {
    if (auto error = std::exchange(mFunctionError, std::nullopt))
        throw RunTimeError(*error);
    const QString detail = QString::fromUtf8(sqlite3_errmsg(mHandle.get()));
    switch (code & 0xFF) {
    case SQLITE_FULL:
        throw ServerError(Fault::DiskFull, {mPath});
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw ServerError(Fault::LockTimeout);
    case SQLITE_IOERR:
        throw ServerError(Fault::InputOutput, {mPath, detail});
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        throw ServerError(Fault::Damaged, {mPath, detail});
    case SQLITE_READONLY:
        throw ServerError(Fault::ReadOnly, {mPath});
    case SQLITE_CANTOPEN:
        throw ServerError(Fault::CannotOpen, {mPath, detail});
    case SQLITE_INTERRUPT:
        throw ServerError(mCancelled ? Fault::Cancelled : Fault::QueryTimeout);
    case SQLITE_CONSTRAINT:
        RaiseConstraint(code, detail);
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    default:
        if (detail.contains("stack overflow"_L1) || detail.contains("too large"_L1))
            throw ServerError(Fault::TooDeep);
        throw ServerError(Fault::CannotPrepare, {detail});
    }
}

void SqliteDatabase::RaiseConstraint(int code, const QString& detail) const {
    const QString table = ConstraintTable(detail);
    const QString columns = ConstraintColumns(detail).join(u", "_s);
    if (code == SQLITE_CONSTRAINT_NOTNULL)
        throw ServerError(Fault::NullNotAllowed, {columns, table});
    throw ServerError(Fault::DuplicateKey, {table, columns});
}

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
    // Reset first: it frees the locks, and a rollback may follow.
    try {
        mDatabase.Raise(code);
    } catch (...) {
        Reset();
        throw;
    }
}

void SqliteStatement::Reset() {
    // The code is the failure of the run before, which was raised already.
    sqlite3_reset(mHandle.get());
    sqlite3_clear_bindings(mHandle.get());
}
