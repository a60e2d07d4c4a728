#include "support/ScriptedGateway.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

std::shared_ptr<const RowData> Rows(std::vector<QString> columns, std::vector<std::vector<Value>> rows) {
    auto data = std::make_shared<RowData>();
    data->columns = std::move(columns);
    for (auto& row : rows) {
        EXPECT_EQ(row.size(), data->columns.size()) << "a scripted row has too few or too many cells";
        for (Value& cell : row)
            data->Add(std::move(cell));
    }
    return data;
}

ScriptedGateway::~ScriptedGateway() {
    for (const Step& step : mSteps)
        ADD_FAILURE() << "not sent: " << step.command.toStdString();
}

void ScriptedGateway::Expect(const QString& command, std::shared_ptr<const RowData> rows,
                             qint64 rowsAffected) {
    mSteps.push_back({command, {std::move(rows), rowsAffected}, {}});
}

void ScriptedGateway::ExpectFailure(const QString& command, const RunTimeError& error) {
    mSteps.push_back({command, {}, error});
}

RowSet ScriptedGateway::Open(const QString& command, CursorType cursor, LockType lock,
                             CursorLocation location) {
    mOpenings.push_back({command, cursor, lock, location});
    return CommandGateway::Open(command, cursor, lock, location);
}

CommandGateway::Outcome ScriptedGateway::Run(const QString& command) {
    if (mSteps.empty() || mSteps.front().command != command) {
        ADD_FAILURE() << "sent:     " << command.toStdString() << "\nexpected: "
                      << (mSteps.empty() ? "nothing" : mSteps.front().command.toStdString());
        throw RunTimeError(0, u"unexpected command"_s);
    }
    const Step step = mSteps.front();
    mSteps.pop_front();
    if (step.failure)
        throw *step.failure;
    return step.outcome;
}
