#include "trial/sqlite/SqliteDatabase.h"

#include "gateway/Boundary.h"
#include "trial/sqlite/FileSchema.h"
#include "trial/sqlite/SqlFunctions.h"
#include "trial/sqlite/SqliteStatement.h"
#include "tsql/ServerError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sqlite3.h>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// How many of SQLite's steps pass between two looks at the clock.
constexpr int kStepsPerLook = 20000;
// In seconds, until the gateway says how long it will wait.
constexpr int kFirstTimeout = 30;
// Between two looks at a lock that another desk holds: short ones first.
constexpr std::chrono::microseconds kShortPause(300);
constexpr int kShortPauses = 400;
constexpr std::chrono::milliseconds kLongPause(25);
// SQLite's own limit for the tables of one FROM, those of its derived tables included.
constexpr int kMostTables = 64;
// Steps of the engine's own functions that pass between two looks at the clock.
constexpr unsigned kOwnStepsPerLook = 1000;
// What all connections of the process may take of memory together, the answers of commands aside. In bytes.
constexpr sqlite3_int64 kMostMemory = sqlite3_int64(1) << 30;
// A translated text is longer than the command, since every value bears its conversions. In bytes.
constexpr int kLongestSql = 64 << 20;
// Of one value and of one row, in bytes.
constexpr int kLongestValue = 16 << 20;

/// SQLite's texts name columns as "table.column, table.column"; the tables of the hospital have dots in
/// theirs.
QStringList ConstraintColumns(const QString& detail) {
    QStringList columns;
    for (const QString& name : detail.section(u": "_s, 1).split(u", "_s))
        columns << name.section(u'.', -1);
    return columns;
}

/// An index of its own, not one of a constraint: named in SQLite's text where it is made of expressions, else
/// known by its table and columns.
constexpr const char* kIndexOfFailure =
    "SELECT i.name, m.name FROM sqlite_master AS m, pragma_index_list(m.name) AS i WHERE m.type = 'table' AND "
    "i.origin = 'c' AND i.\"unique\" AND (i.name = ?3 OR (m.name = ?1 AND (SELECT group_concat(c.name, ', ') FROM "
    "pragma_index_info(i.name) AS c) = ?2))";

QString ConstraintTable(const QString& detail) {
    return detail.section(u": "_s, 1).section(u", "_s, 0, 0).section(u'.', 0, -2);
}

} // namespace

SqliteDatabase::SqliteDatabase(const QString& path, Mode mode)
    : mPath(path) {
    const int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (mode == Mode::Reading ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) |
                      (mode == Mode::New ? SQLITE_OPEN_CREATE : 0);
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &handle, flags, nullptr);
    mHandle.reset(handle);
    if (code != SQLITE_OK)
        throw ServerError(Fault::CannotOpen, {path, SystemReason()});
    // A name in double quotes that means no column must never pass for a text.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_hard_heap_limit64(kMostMemory);
    sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, kLongestSql);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
    SetTimeout(kFirstTimeout);
    sqlite3_busy_handler(handle, &SqliteDatabase::OnBusy, this);
    sqlite3_progress_handler(handle, kStepsPerLook, &SqliteDatabase::OnProgress, this);
    AddSqlFunctions(*this);
    // An index that SQLite makes for one join is filtered by a hash of the texts' bytes: texts that are equal
    // to the collation but differ in letter case or in blanks at the end would not meet.
    Run(u"PRAGMA automatic_index = OFF"_s);
}

SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::Close::operator()(sqlite3* handle) const {
    sqlite3_close_v2(handle);
}

sqlite3_file& SqliteDatabase::File() const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(mHandle.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return *file;
}

QByteArray SqliteDatabase::Header() const {
    constexpr int kHeaderSize = 100;
    QByteArray header(kHeaderSize, '\0');
    sqlite3_file& file = File();
    const int code = file.pMethods->xRead(&file, header.data(), kHeaderSize, 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
        throw ServerError(Fault::CannotOpen, {mPath, SystemReason()});
    return header;
}

void SqliteDatabase::RequireInPlace() const {
    int moved = 0;
    sqlite3_file_control(mHandle.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved != 0)
        throw ServerError(Fault::CannotOpen,
                          {mPath, u"it was removed or replaced while the program was at work"_s});
}

void SqliteDatabase::Flush() {
    sqlite3_file& file = File();
    const int code = file.pMethods->xSync(&file, SQLITE_SYNC_FULL);
    if (code != SQLITE_OK)
        throw ServerError(Fault::InputOutput, {mPath, SystemReason()});
}

void SqliteDatabase::CopyInto(SqliteDatabase& copy) {
    // In one step, which sees one moment; between two steps a writer would make it begin anew.
    constexpr int kAllPages = -1;
    sqlite3_backup* backup = sqlite3_backup_init(copy.Handle(), "main", Handle(), "main");
    if (!backup)
        copy.Raise(sqlite3_errcode(copy.Handle()));
    sqlite3_backup_step(backup, kAllPages);
    const int code = sqlite3_backup_finish(backup);
    // What is read is this file's, what is written the other one's.
    if ((code & 0xFF) == SQLITE_CORRUPT)
        Raise(code);
    if (code != SQLITE_OK)
        copy.Raise(code);
}

void SqliteDatabase::SetPlaysLog(bool plays) {
    sqlite3_db_config(mHandle.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, plays ? 0 : 1, nullptr);
}

void SqliteDatabase::Run(const QString& sql) {
    const int code = sqlite3_exec(mHandle.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        Raise(code);
}

void SqliteDatabase::RunOften(const QString& sql) {
    auto& statement = mOften[sql];
    if (!statement)
        statement = std::make_unique<SqliteStatement>(*this, sql, true);
    const StatementRun run(*statement);
    statement->Step();
}

std::optional<Cell> SqliteDatabase::RunForValue(const QString& sql) {
    SqliteStatement statement(*this, sql, false);
    if (!statement.Step())
        return std::nullopt;
    return ReadCell(sqlite3_column_value(statement.Handle(), 0));
}

void SqliteDatabase::SetTimeout(int seconds) {
    mTimeout = std::chrono::seconds(seconds);
}

SqliteDatabase::Clock::time_point SqliteDatabase::EndOfWait() const {
    return mTimeout > mTimeout.zero() ? Clock::now() + mTimeout : Clock::time_point::max();
}

SqliteDatabase::Command::Command(SqliteDatabase& database)
    : mDatabase(database) {
    if (database.mCancelled)
        throw ServerError(Fault::Cancelled);
    database.mDeadline = database.EndOfWait();
}

SqliteDatabase::Command::~Command() {
    mDatabase.mDeadline = Clock::time_point::max();
}

int SqliteDatabase::OnProgress(void* self) {
    const auto* database = static_cast<const SqliteDatabase*>(self);
    return database->IsOver() ? 1 : 0;
}

void SqliteDatabase::CountStep() {
    if (++mSteps % kOwnStepsPerLook == 0 && IsOver())
        throw ServerError(mCancelled ? Fault::Cancelled : Fault::QueryTimeout);
}

int SqliteDatabase::OnBusy(void* self, int looks) {
    auto* database = static_cast<SqliteDatabase*>(self);
    if (looks == 0)
        database->mLockDeadline = std::min(database->mDeadline, database->EndOfWait());
    if (database->mCancelled || Clock::now() >= database->mLockDeadline)
        return 0;
    // A desk that posts line by line leaves the lock free for less than a millisecond between two of them.
    // Who looks more seldom misses that many times over, and meanwhile somebody takes the number that he has
    // just read. A long lock needs no more than a few looks in a second.
    if (looks < kShortPauses)
        std::this_thread::sleep_for(kShortPause);
    else
        std::this_thread::sleep_for(kLongPause);
    return 1;
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
        throw ServerError(mCancelled ? Fault::Cancelled : Fault::LockTimeout);
    case SQLITE_IOERR:
        // The index of the log is no page, and has no word of its own for it.
        if (sqlite3_system_errno(mHandle.get()) == ENOSPC)
            throw ServerError(Fault::DiskFull, {mPath});
        throw ServerError(Fault::InputOutput, {mPath, SystemReason()});
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        throw ServerError(Fault::Damaged, {mPath});
    case SQLITE_READONLY:
        throw ServerError(Fault::ReadOnly, {mPath});
    case SQLITE_CANTOPEN:
        throw ServerError(Fault::CannotOpen, {mPath, SystemReason()});
    case SQLITE_INTERRUPT:
        throw ServerError(mCancelled ? Fault::Cancelled : Fault::QueryTimeout);
    case SQLITE_CONSTRAINT:
        RaiseConstraint(code, detail);
    case SQLITE_NOMEM:
        throw OutOfMemory();
    case SQLITE_TOOBIG:
        throw ServerError(Fault::TooComplex);
    default:
        // SQLite's own functions reckon with whole numbers too.
        if (detail == "integer overflow"_L1)
            throw ServerError(Fault::Overflow, {SqlType::BigInt().Name()});
        if (detail.contains("stack overflow"_L1) || detail.contains("too large"_L1))
            throw ServerError(Fault::TooDeep);
        if (detail.contains("in a join"_L1) || detail.contains("FROM clause terms"_L1))
            throw ServerError(Fault::TooManyTables, {QString::number(kMostTables)});
        if (detail.startsWith("too many"_L1))
            throw ServerError(Fault::TooComplex);
        // What is left has no words of its own: SQLite's are not the server's.
        throw ServerError(Fault::CannotPrepare);
    }
}

QString SqliteDatabase::SystemReason() const {
    const int reason = sqlite3_system_errno(mHandle.get());
    return reason != 0 ? QString::fromLocal8Bit(std::strerror(reason)) : u"no reason is given"_s;
}

void SqliteDatabase::RaiseConstraint(int code, const QString& detail) {
    if (code == SQLITE_CONSTRAINT_NOTNULL)
        throw ServerError(Fault::NullNotAllowed,
                          {ConstraintColumns(detail).join(u", "_s), ConstraintTable(detail)});
    RaiseDuplicate(detail);
}

void SqliteDatabase::RaiseDuplicate(const QString& detail) {
    const QString columns = ConstraintColumns(detail).join(u", "_s);
    const std::array<Cell, 3> wanted = {ConstraintTable(detail).toUtf8(), columns.toUtf8(),
                                        detail.section(u'\'', 1, -2).toUtf8()};
    SqliteStatement index(*this, QString::fromLatin1(kIndexOfFailure), false);
    for (size_t i = 0; i < wanted.size(); ++i)
        index.Bind(static_cast<int>(i) + 1, wanted[i]);
    if (!index.Step())
        throw ServerError(Fault::DuplicateKey, {ConstraintTable(detail), columns});
    const auto text = [&](int column) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(index.Handle(), column)));
    };
    const QString table = text(1);
    throw ServerError(Fault::DuplicateIndexKey, {table, IndexName(text(0), table)});
}
