#include "trial/file/HospitalStore.h"

#include "tsql/ScriptParser.h"
#include "tsql/ServerError.h"

#include <QtEndian>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// "TVHO" in SQLite's field for the kind of file, which the file's header shows.
constexpr quint32 kHospitalId = 0x5456484F;
constexpr qsizetype kIdOffset = 68;
constexpr auto kFreshMark = "fresh"_L1;
constexpr auto kYes = "yes"_L1;

QString TextAt(SqliteStatement& row, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row.Handle(), column)),
                             sqlite3_column_bytes(row.Handle(), column));
}

TableDefinition ReadTable(const QString& database, const QString& text) {
    TokenCursor cursor(text);
    auto table = std::get<TableDefinition>(ScriptParser(cursor).ParseNext());
    table.name.database = database;
    return table;
}

} // namespace

void HospitalStore::Create() {
    mDatabase.Run(u"CREATE TABLE tarven_mark (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;"
                  "CREATE TABLE tarven_table (number INTEGER PRIMARY KEY, hospital_database TEXT NOT NULL, "
                  "text TEXT NOT NULL);"
                  "CREATE TABLE tarven_procedure (hospital_database TEXT NOT NULL, name TEXT NOT NULL, text "
                  "TEXT NOT NULL,"
                  " PRIMARY KEY (hospital_database, name));"
                  "PRAGMA application_id = "_s +
                  QString::number(kHospitalId));
}

void HospitalStore::Check() const {
    const QByteArray header = mDatabase.Header();
    if (!header.startsWith("SQLite format 3"))
        throw ServerError(Fault::NoHospital, {mDatabase.Path(), u"it is not a database file"_s});
    if (qFromBigEndian<quint32>(header.constData() + kIdOffset) != kHospitalId)
        throw ServerError(Fault::NoHospital, {mDatabase.Path(), u"it is the database of another program"_s});
}

void HospitalStore::RequireOwnLog() {
    // The header was read from the file itself; here SQLite answers, which looks into the log first.
    if (mDatabase.RunForValue(u"PRAGMA application_id"_s) != Cell(qint64(kHospitalId)))
        throw ServerError(
            Fault::CannotOpen,
            {mDatabase.Path(), u"the log beside it, %1-wal, is another database's"_s.arg(mDatabase.Path())});
}

SqliteStatement HospitalStore::Select(const QString& sql) {
    try {
        return SqliteStatement(mDatabase, sql, false);
    } catch (const RunTimeError& error) {
        if (error.Number() == static_cast<int>(Fault::CannotPrepare))
            throw ServerError(Fault::OtherVersion, {mDatabase.Path()});
        throw;
    }
}

Catalog HospitalStore::Load() {
    RequireOwnLog();
    Catalog catalog;
    SqliteStatement tables = Select(u"SELECT hospital_database, text FROM tarven_table ORDER BY number"_s);
    while (tables.Step()) {
        try {
            catalog.AddTable(ReadTable(TextAt(tables, 0), TextAt(tables, 1)));
        } catch (const RunTimeError&) {
            // Every version reads what it has written itself.
            throw ServerError(Fault::OtherVersion, {mDatabase.Path()});
        }
    }
    SqliteStatement procedures = Select(u"SELECT hospital_database, name, text FROM tarven_procedure"_s);
    while (procedures.Step())
        catalog.SetProcedure({TextAt(procedures, 0), TextAt(procedures, 1), TextAt(procedures, 2)});
    return catalog;
}

void HospitalStore::RunWith(const QString& sql, const std::vector<QString>& values) {
    SqliteStatement statement(mDatabase, sql, false);
    std::vector<Cell> cells;
    cells.reserve(values.size());
    for (const QString& value : values)
        cells.emplace_back(value.toUtf8());
    for (size_t i = 0; i < cells.size(); ++i)
        statement.Bind(static_cast<int>(i) + 1, cells[i]);
    statement.Step();
}

void HospitalStore::KeepTable(const QString& database, const QString& text) {
    RunWith(u"INSERT INTO tarven_table (hospital_database, text) VALUES (?1, ?2)"_s, {database, text});
}

void HospitalStore::KeepProcedure(const Procedure& procedure) {
    RunWith(u"INSERT OR REPLACE INTO tarven_procedure VALUES (?1, ?2, ?3)"_s,
            {procedure.database, procedure.name, procedure.text});
}

void HospitalStore::DropProcedures() {
    mDatabase.Run(u"DELETE FROM tarven_procedure"_s);
}

bool HospitalStore::IsFresh() {
    return Mark(kFreshMark) == kYes;
}

void HospitalStore::SetFresh(bool fresh) {
    SetMark(kFreshMark, fresh ? QString(kYes) : QString());
}

QString HospitalStore::Mark(const QString& name) {
    SqliteStatement statement = Select(u"SELECT value FROM tarven_mark WHERE name = ?1"_s);
    const Cell key = name.toUtf8();
    statement.Bind(1, key);
    return statement.Step() ? TextAt(statement, 0) : QString();
}

void HospitalStore::SetMark(const QString& name, const QString& value) {
    RunWith(u"INSERT OR REPLACE INTO tarven_mark VALUES (?1, ?2)"_s, {name, value});
}
