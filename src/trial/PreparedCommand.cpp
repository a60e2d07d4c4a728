#include "trial/PreparedCommand.h"

#include "text/Clock.h"
#include "trial/sqlite/Transaction.h"
#include "tsql/DateText.h"
#include "tsql/Units.h"

#include <array>
#include <sqlite3.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QByteArrayView ColumnText(sqlite3_stmt* row, int column) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return {bytes, sqlite3_column_bytes(row, column)};
}

Units ColumnUnits(sqlite3_stmt* row, int column, const SqlType& type) {
    return ReadUnits(type.IsWide() ? Cell(ColumnText(row, column).toByteArray())
                                   : Cell(qint64(sqlite3_column_int64(row, column))),
                     type);
}

Value ColumnValue(sqlite3_stmt* row, int column, const SqlType& type) {
    if (sqlite3_column_type(row, column) == SQLITE_NULL)
        return {};
    switch (type.kind) {
    case SqlType::Kind::Bit:
        return sqlite3_column_int64(row, column) != 0;
    case SqlType::Kind::Int:
    case SqlType::Kind::BigInt:
        return static_cast<qint64>(sqlite3_column_int64(row, column));
    case SqlType::Kind::Money:
    case SqlType::Kind::Decimal:
        return Decimal{QString::fromLatin1(UnitsText(ColumnUnits(row, column, type), type.scale))};
    case SqlType::Kind::Float:
        return sqlite3_column_double(row, column);
    case SqlType::Kind::Date:
    case SqlType::Kind::DateTime:
        return FromStored(ColumnText(row, column));
    default:
        return QString::fromUtf8(ColumnText(row, column));
    }
}

/// The values of one column that were read lately, by the bytes that they were made of. Names, codes and
/// prices come again and again: rows that share them take less room and are read faster.
class RepeatedValues {
  public:
    Value Read(sqlite3_stmt* row, int column, const SqlType& type) {
        const int stored = sqlite3_column_type(row, column);
        const bool units = stored == SQLITE_INTEGER && type.IsFixed();
        if (stored == SQLITE_NULL || (stored != SQLITE_TEXT && !units))
            return ColumnValue(row, column, type);
        const qint64 number = units ? sqlite3_column_int64(row, column) : 0;
        const QByteArrayView bytes =
            units ? QByteArrayView(reinterpret_cast<const char*>(&number), qsizetype(sizeof number))
                  : ColumnText(row, column);
        Known& known = mKnown[qHash(bytes) % kSlots];
        if (known.value.IsNull() || known.stored != stored || known.bytes != bytes)
            known = {stored, bytes.toByteArray(), ColumnValue(row, column, type)};
        return known.value;
    }

  private:
    static constexpr size_t kSlots = 256;
    struct Known {
        int stored = 0;
        QByteArray bytes;
        Value value;
    };
    std::array<Known, kSlots> mKnown;
};

/// Fewer rows are not worth the looking up.
constexpr size_t kManyRows = 100;

} // namespace

PreparedCommand::PreparedCommand(SqliteDatabase& database, std::vector<Translation> steps, bool kept)
    : mDatabase(database) {
    mSteps.reserve(steps.size());
    for (Translation& step : steps) {
        mWrites |= step.writes;
        SqliteStatement statement(database, step.sql, kept);
        mSteps.push_back({std::move(step), std::move(statement)});
    }
}

bool PreparedCommand::CanBeKept() const {
    for (const Step& step : mSteps) {
        if (!step.translation.rows.empty())
            return false;
    }
    return true;
}

CommandResult PreparedCommand::Run(const std::vector<Cell>& values) {
    const SqliteDatabase::Command timed(mDatabase);
    if (!mWrites && mSteps.size() == 1)
        return RunSteps(values);
    Transaction transaction(mDatabase, mWrites ? Transaction::Kind::Writing : Transaction::Kind::Reading);
    CommandResult result = RunSteps(values);
    transaction.Commit();
    return result;
}

CommandResult PreparedCommand::RunSteps(const std::vector<Cell>& values) {
    // One moment for the whole command, so that all that it writes bears the same time.
    const Cell now = StoredDateTime(Now());
    CommandResult result;
    for (Step& step : mSteps)
        RunStep(step, values, now, result);
    return result;
}

void PreparedCommand::RunStep(Step& step, const std::vector<Cell>& values, const Cell& now,
                              CommandResult& result) {
    if (step.translation.writes)
        return WriteRows(step, values, now, result);
    const StatementRun run(step.statement);
    Bind(step, values, now);
    if (step.translation.refusal) {
        if (step.statement.Step())
            throw RunTimeError(*step.translation.refusal);
        return;
    }
    if (!result.rows) {
        result.rows = ReadRows(step);
        return;
    }
    // Later sets go unseen, but their errors count.
    while (step.statement.Step()) {
    }
}

void PreparedCommand::WriteRows(Step& step, const std::vector<Cell>& values, const Cell& now,
                                CommandResult& result) {
    result.rowsAffected = 0;
    const auto write = [&](const std::vector<Cell>& row) {
        const StatementRun run(step.statement);
        Bind(step, row, now);
        step.statement.Step();
        result.rowsAffected += mDatabase.Changes();
    };
    if (step.translation.rows.empty())
        return write(values);
    for (const auto& row : step.translation.rows)
        write(row);
}

void PreparedCommand::Bind(Step& step, const std::vector<Cell>& values, const Cell& now) {
    int number = 0;
    for (const Cell& value : values)
        step.statement.Bind(++number, value);
    if (step.translation.clock > 0)
        step.statement.Bind(step.translation.clock, now);
    number = step.translation.firstConstant;
    for (const Cell& constant : step.translation.constants)
        step.statement.Bind(number++, constant);
}

std::shared_ptr<const RowData> PreparedCommand::ReadRows(Step& step) {
    const std::vector<ResultColumn>& columns = step.translation.columns;
    auto data = std::make_shared<RowData>();
    for (const ResultColumn& column : columns)
        data->columns.push_back(column.name);
    sqlite3_stmt* row = step.statement.Handle();
    std::vector<RepeatedValues> repeated;
    for (size_t read = 0; step.statement.Step(); ++read) {
        if (read == kManyRows)
            repeated.resize(columns.size());
        for (size_t i = 0; i < columns.size(); ++i) {
            const int column = static_cast<int>(i);
            data->cells.push_back(repeated.empty() ? ColumnValue(row, column, columns[i].type)
                                                   : repeated[i].Read(row, column, columns[i].type));
        }
    }
    return data;
}

QStringList PreparedCommand::QueryPlan() const {
    constexpr int kDetailColumn = 3;
    QStringList lines;
    for (const Step& step : mSteps) {
        SqliteStatement plan(mDatabase, u"EXPLAIN QUERY PLAN "_s + step.translation.sql, false);
        while (plan.Step())
            lines << QString::fromUtf8(ColumnText(plan.Handle(), kDetailColumn));
    }
    return lines;
}
