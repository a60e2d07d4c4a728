#pragma once

#include "gateway/CommandGateway.h"
#include "text/RunTimeError.h"

#include <deque>
#include <memory>
#include <optional>
#include <vector>

/// Rows for a scripted answer: the column names, then the cells row by row.
std::shared_ptr<const RowData> Rows(std::vector<QString> columns, std::vector<std::vector<Value>> rows = {});

/// A gateway that expects exact command texts in exact order and answers with scripted rows. A text that is
/// not the expected one fails the test and raises; expectations that are left over fail it at the end.
class ScriptedGateway : public CommandGateway {
  public:
    /// How a command was opened; nothing for one that was executed.
    struct Opening {
        QString command;
        CursorType cursor;
        LockType lock;
        CursorLocation location;
    };

    ScriptedGateway() = default;
    ~ScriptedGateway() override;

    /// The next command. Without rows it is one for effect; `rowsAffected` counts for an updatable row set.
    void Expect(const QString& command, std::shared_ptr<const RowData> rows = nullptr,
                qint64 rowsAffected = 1);
    void ExpectFailure(const QString& command, const RunTimeError& error);
    bool IsDone() const { return mSteps.empty(); }

    const std::vector<Opening>& Openings() const { return mOpenings; }

    QString ServerVersion() const override { return QStringLiteral("the tests' own 1.0"); }
    bool Connected() const override { return mConnected; }
    void SetConnected(bool connected) { mConnected = connected; }
    QString ConnectionString() const override { return QStringLiteral("scripted"); }
    RowSet Open(const QString& command, CursorType cursor, LockType lock, CursorLocation location) override;

  protected:
    Outcome Run(const QString& command) override;

  private:
    struct Step {
        QString command;
        Outcome outcome;
        std::optional<RunTimeError> failure;
    };

    std::deque<Step> mSteps;
    std::vector<Opening> mOpenings;
    bool mConnected = true;
};
