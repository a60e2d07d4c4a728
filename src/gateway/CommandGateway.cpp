#include "gateway/CommandGateway.h"

#include "gateway/CommandTrace.h"
#include "gateway/SqlText.h"

RowSet CommandGateway::Execute(const QString& command) {
    // The run-time's plain execution gives a forward-only, read-only row set.
    return OpenRows(command, CursorType::ForwardOnly, LockType::ReadOnly, CursorLocation::Server);
}

void CommandGateway::ExecuteNoResult(const QString& command) {
    Send(command);
}

RowSet CommandGateway::Open(const QString& command, CursorType cursor, LockType lock,
                            CursorLocation location) {
    return OpenRows(command, cursor, lock, location);
}

RowSet CommandGateway::OpenRows(const QString& command, CursorType cursor, LockType lock,
                                CursorLocation location) {
    const Outcome outcome = Send(command);
    if (!outcome.rows)
        return {};
    RowSet rows(outcome.rows, location == CursorLocation::Client || cursor == CursorType::Static);
    if (lock == LockType::Optimistic) {
        if (const auto table = BaseTableOf(command))
            rows.mTarget = RowSet::Target{this, *table};
    }
    return rows;
}

CommandGateway::Outcome CommandGateway::Send(const QString& command) {
    CommandTrace* trace = CommandTrace::Current();
    return trace ? trace->Follow(command, [&] { return Run(command); }) : Run(command);
}
