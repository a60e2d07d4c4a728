#pragma once

#include "gateway/RowSet.h"
#include "trial/sqlite/SqliteStatement.h"
#include "trial/translate/Translation.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <set>
#include <vector>

/// What one command brought: the first result set, null where there was none, and the rows that its last
/// writing statement touched.
struct CommandResult {
    std::shared_ptr<const RowData> rows;
    qint64 rowsAffected = 0;
};

/// A statement or the body of a procedure, ready to run.
class PreparedCommand {
  public:
    /// `kept` is set for commands that will be run many times.
    PreparedCommand(SqliteDatabase& database, std::vector<Translation> steps, bool kept);

    /// Runs all steps as one: a command that writes holds the write lock from its beginning and is undone
    /// whole when a step fails; a command that only reads takes no write lock. The values are those of the
    /// declared parameters, in their types.
    CommandResult Run(const std::vector<Cell>& values);
    bool Writes() const { return mWrites; }
    /// Whether the command can be run again without being translated again.
    bool CanBeKept() const;
    /// The literals of the command's text that are bound when it runs. All others are part of what SQLite
    /// has prepared.
    std::set<int> BoundLiterals() const;
    /// From now on it runs with another text's literals. Raises the server's conversion errors.
    void TakeLiterals(const std::vector<Literal>& literals);
    /// How SQLite goes about each step: its own lines.
    QStringList QueryPlan() const;

  private:
    struct Step {
        Translation translation;
        SqliteStatement statement;
    };

    CommandResult RunSteps(const std::vector<Cell>& values);
    /// Gives back how many of the steps behind it are passed over.
    size_t RunStep(Step& step, const std::vector<Cell>& values, const Cell& now, CommandResult& result);
    void WriteRows(Step& step, const std::vector<Cell>& values, const Cell& now, CommandResult& result);
    /// Does an UPDATE in two passes; gives the number of its rows back.
    qint64 MoveRows(const Translation& update, const std::vector<Cell>& values, const Cell& now);
    static void Bind(SqliteStatement& statement, const Translation& translation,
                     const std::vector<Cell>& values, const Cell& now,
                     const std::vector<KnownValue>& constants);
    std::shared_ptr<const RowData> ReadRows(Step& step) const;

    SqliteDatabase& mDatabase;
    std::vector<Step> mSteps;
    bool mWrites = false;
    bool mTellsTime = false;
};
