#include "trial/PreparedCommand.h"

#include "text/Clock.h"
#include "trial/MemoryBound.h"
#include "trial/sqlite/SqlFunctions.h"
#include "trial/sqlite/Transaction.h"
#include "trial/translate/RowMove.h"
#include "tsql/DateText.h"
#include "tsql/ServerError.h"
#include "tsql/Units.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cstring>
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

bool IsDuplicate(const RunTimeError& error) {
    return error.Number() == static_cast<int>(Fault::DuplicateKey) ||
           error.Number() == static_cast<int>(Fault::DuplicateIndexKey);
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

/// The bytes that a value of the row is made of: those of a text, or of a number as it is stored.
QByteArrayView StoredBytes(sqlite3_stmt* row, int column, int stored, std::array<char, 8>& number) {
    const auto copied = [&number](auto value) {
        std::memcpy(number.data(), &value, number.size());
        return QByteArrayView(number);
    };
    switch (stored) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return copied(sqlite3_column_int64(row, column));
    case SQLITE_FLOAT:
        return copied(sqlite3_column_double(row, column));
    default:
        return ColumnText(row, column);
    }
}

/// Where the values of one column were read lately, by the bytes that they were made of. Names, codes and
/// prices come again and again: rows that share them take less room and are read faster.
class RepeatedValues {
  public:
    /// Adds the column's cell of the row that is being read.
    void Add(RowData& rows, sqlite3_stmt* row, int column, const SqlType& type, MemoryBound& memory) {
        const int stored = sqlite3_column_type(row, column);
        std::array<char, 8> number;
        const QByteArrayView bytes = StoredBytes(row, column, stored, number);
        if (Looks()) {
            Known& known = mKnown[qHash(bytes) % mKnown.size()];
            if (known.stored == stored && known.bytes == bytes) {
                ++mFound;
                rows.AddAsIn(std::exchange(known.row, rows.RowCount()));
                return;
            }
            known = {stored, bytes.toByteArray(), rows.RowCount()};
            HaveMore();
        }
        rows.Add(ColumnValue(row, column, type));
        memory.Take(bytes.size() * qint64(sizeof(QChar)));
    }

  private:
    static constexpr size_t kSlots = 256;
    static constexpr size_t kMostSlots = kSlots << 7;
    static constexpr int kMisses = 4;
    static constexpr int kTrial = 1024;
    static constexpr int kWorthwhile = kTrial / 8;
    static constexpr int kRest = 16 * kTrial;

    struct Known {
        int stored = 0;
        QByteArray bytes;
        size_t row = 0;
    };

    /// Whether the next cell is worth looking for. Numbers of patients hardly come twice: where a trial has
    /// found few, the column rests before the next one.
    bool Looks() {
        if (mRest > 0) {
            --mRest;
            return false;
        }
        if (++mLooked == kTrial) {
            mRest = mFound < kWorthwhile ? kRest : 0;
            mLooked = mFound = 0;
        }
        return true;
    }

    /// A column with many values, such as the patients of a year, is given more slots.
    void HaveMore() {
        if (++mMisses < kMisses * mKnown.size() || mKnown.size() == kMostSlots)
            return;
        mKnown = std::vector<Known>(mKnown.size() * 2);
        mMisses = 0;
    }

    std::vector<Known> mKnown = std::vector<Known>(kSlots);
    size_t mMisses = 0;
    int mLooked = 0;
    int mFound = 0;
    int mRest = 0;
};

/// The tables of a statement by their aliases, of which SQLite's plans speak.
class TableNames {
  public:
    explicit TableNames(const QString& sql) {
        static const QRegularExpression source(u"\"([^\"]+)\" AS (t\\d+)\\b"_s);
        for (auto found = source.globalMatch(sql); found.hasNext();) {
            const auto match = found.next();
            mNames.insert(match.captured(2), match.captured(1));
        }
    }

    /// A line of a plan with the table's name before its alias.
    QString Told(const QString& line) const {
        static const QRegularExpression step(u"^(SCAN|SEARCH) (t\\d+)\\b"_s);
        const auto match = step.match(line);
        const QString name = mNames.value(match.captured(2));
        if (name.isEmpty())
            return line;
        return match.captured(1) + u' ' + name + u" AS "_s + line.sliced(match.capturedStart(2));
    }

  private:
    QHash<QString, QString> mNames;
};

/// Fewer rows are not worth the looking up.
constexpr size_t kManyRows = 100;

} // namespace

PreparedCommand::PreparedCommand(SqliteDatabase& database, std::vector<Translation> steps, bool kept)
    : mDatabase(database) {
    mSteps.reserve(steps.size());
    for (Translation& step : steps) {
        mWrites |= step.writes;
        mTellsTime |= step.clock > 0;
        SqliteStatement statement(database, step.sql, kept);
        mSteps.push_back({std::move(step), std::move(statement)});
    }
}

bool PreparedCommand::CanBeKept() const {
    return std::all_of(mSteps.begin(), mSteps.end(),
                       [](const Step& step) { return step.translation.rows.empty(); });
}

std::set<int> PreparedCommand::BoundLiterals() const {
    std::set<int> bound;
    for (const Step& step : mSteps) {
        for (const KnownValue& constant : step.translation.constants)
            bound.insert(constant.LiteralNumber());
    }
    return bound;
}

void PreparedCommand::TakeLiterals(const std::vector<Literal>& literals) {
    for (Step& step : mSteps) {
        for (KnownValue& constant : step.translation.constants)
            constant.Take(literals);
    }
}

CommandResult PreparedCommand::Run(const std::vector<Cell>& values) {
    if (!mWrites && mSteps.size() == 1)
        return RunSteps(values);
    Transaction transaction(mDatabase, mWrites ? Transaction::Kind::Writing : Transaction::Kind::Reading);
    CommandResult result = RunSteps(values);
    transaction.Commit();
    return result;
}

CommandResult PreparedCommand::RunSteps(const std::vector<Cell>& values) {
    // One moment for the whole command, so that all that it writes bears the same time.
    const Cell now = mTellsTime ? StoredDateTime(InServerSteps(Now())) : Cell();
    CommandResult result;
    for (size_t i = 0; i < mSteps.size(); ++i)
        i += RunStep(mSteps[i], values, now, result);
    return result;
}

size_t PreparedCommand::RunStep(Step& step, const std::vector<Cell>& values, const Cell& now,
                                CommandResult& result) {
    if (step.translation.writes) {
        WriteRows(step, values, now, result);
        return 0;
    }
    const StatementRun run(step.statement);
    Bind(step.statement, step.translation, values, now, step.translation.constants);
    if (step.translation.refusal) {
        if (step.statement.Step())
            throw RunTimeError(*step.translation.refusal);
        return 0;
    }
    if (step.translation.passedOver > 0)
        return step.statement.Step() ? 0 : step.translation.passedOver;
    if (!result.rows) {
        result.rows = ReadRows(step);
        return 0;
    }
    // Later sets go unseen, but their errors count.
    while (step.statement.Step()) {
    }
    return 0;
}

void PreparedCommand::WriteRows(Step& step, const std::vector<Cell>& values, const Cell& now,
                                CommandResult& result) {
    result.rowsAffected = 0;
    const auto write = [&](const std::vector<KnownValue>& constants) {
        const StatementRun run(step.statement);
        Bind(step.statement, step.translation, values, now, constants);
        step.statement.Step();
        result.rowsAffected += mDatabase.Changes();
    };
    if (step.translation.update) {
        try {
            return write(step.translation.constants);
        } catch (const RunTimeError& error) {
            if (!IsDuplicate(error))
                throw;
        }
        result.rowsAffected = MoveRows(step.translation, values, now);
        return;
    }
    if (step.translation.rows.empty())
        return write(step.translation.constants);
    for (const auto& row : step.translation.rows)
        write(row);
}

qint64 PreparedCommand::MoveRows(const Translation& update, const std::vector<Cell>& values,
                                 const Cell& now) {
    const RowMove move = MoveOf(*update.update);
    SqliteStatement select(mDatabase, move.select, false);
    Bind(select, update, values, now, update.constants);
    MemoryBound memory(mDatabase.MostOfAnswer());
    std::vector<std::vector<Cell>> rows;
    while (select.Step()) {
        auto& row = rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(select.Handle()); ++i) {
            row.push_back(ReadCell(sqlite3_column_value(select.Handle(), i)));
            const auto* text = std::get_if<QByteArray>(&row.back());
            memory.Take(qint64(sizeof(Cell)) + (text ? text->size() : 0));
        }
    }
    SqliteStatement erase(mDatabase, move.erase, false);
    for (const auto& row : rows) {
        mDatabase.CountStep();
        const StatementRun run(erase);
        erase.Bind(1, row.front());
        erase.Step();
    }
    SqliteStatement insert(mDatabase, move.insert, false);
    for (const auto& row : rows) {
        mDatabase.CountStep();
        const StatementRun run(insert);
        for (size_t i = 0; i < row.size(); ++i)
            insert.Bind(static_cast<int>(i) + 1, row[i]);
        insert.Step();
    }
    return static_cast<qint64>(rows.size());
}

void PreparedCommand::Bind(SqliteStatement& statement, const Translation& translation,
                           const std::vector<Cell>& values, const Cell& now,
                           const std::vector<KnownValue>& constants) {
    int number = 0;
    for (const Cell& value : values)
        statement.Bind(++number, value);
    if (translation.clock > 0)
        statement.Bind(translation.clock, now);
    number = translation.firstConstant;
    for (const KnownValue& constant : constants)
        statement.Bind(number++, constant.Value());
}

std::shared_ptr<const RowData> PreparedCommand::ReadRows(Step& step) const {
    const std::vector<ResultColumn>& columns = step.translation.columns;
    auto data = std::make_shared<RowData>();
    for (const ResultColumn& column : columns)
        data->columns.push_back(column.name);
    sqlite3_stmt* row = step.statement.Handle();
    std::vector<RepeatedValues> repeated;
    MemoryBound memory(mDatabase.MostOfAnswer());
    const auto cellsOfRow = static_cast<qint64>(columns.size()) * static_cast<qint64>(sizeof(Value));
    for (size_t read = 0; step.statement.Step(); ++read) {
        if (read == kManyRows)
            repeated.resize(columns.size());
        memory.Take(cellsOfRow);
        for (size_t i = 0; i < columns.size(); ++i) {
            const int column = static_cast<int>(i);
            if (repeated.empty())
                data->Add(ColumnValue(row, column, columns[i].type));
            else
                repeated[i].Add(*data, row, column, columns[i].type, memory);
        }
    }
    return data;
}

QStringList PreparedCommand::QueryPlan() const {
    constexpr int kDetailColumn = 3;
    QStringList lines;
    for (const Step& step : mSteps) {
        const TableNames tables(step.translation.sql);
        SqliteStatement plan(mDatabase, u"EXPLAIN QUERY PLAN "_s + step.translation.sql, false);
        while (plan.Step())
            lines << tables.Told(QString::fromUtf8(ColumnText(plan.Handle(), kDetailColumn)));
    }
    return lines;
}
