#include "trial/HospitalBuilder.h"

#include "tsql/ScriptParser.h"
#include "tsql/ServerError.h"

using namespace Qt::StringLiterals;

void HospitalBuilder::Run(const Script& script) {
    mDatabase.clear();
    for (const Batch& batch : SplitBatches(script.text))
        RunBatch(script, batch.text, batch.firstLine);
}

void HospitalBuilder::RunBatch(const Script& script, QStringView text, int firstLine) {
    TokenCursor cursor(text);
    ScriptParser parser(cursor);
    int line = cursor.Line();
    try {
        while (!parser.AtEnd()) {
            const qsizetype begin = cursor.Position();
            line = 0;
            const int statementLine = cursor.Line();
            const ScriptStatement statement = parser.ParseNext();
            line = statementLine;
            RunStatement(statement, text.mid(begin, cursor.Position() - begin).toString());
        }
    } catch (const RunTimeError& error) {
        // That the disk is full is no fault of the script's.
        if (error.Number() == static_cast<int>(Fault::DiskFull))
            throw;
        // A text that cannot be read fails where the reading stopped, any other where its statement begins.
        const int failed = firstLine - 1 + (line > 0 ? line : cursor.Line());
        throw RunTimeError(error.Number(),
                           script.name + u", line "_s + QString::number(failed) + u": "_s +
                               error.Description(),
                           error.State());
    }
}

void HospitalBuilder::RunStatement(const ScriptStatement& statement, const QString& text) {
    if (const auto* use = std::get_if<UseDatabase>(&statement))
        mDatabase = use->database;
    else if (const auto* table = std::get_if<TableDefinition>(&statement))
        mEngine.Define(*table, mDatabase, text);
    else if (const auto* index = std::get_if<IndexDefinition>(&statement))
        mEngine.Define(*index, mDatabase);
    else if (const auto* procedure = std::get_if<ProcedureDefinition>(&statement))
        mEngine.Define(Procedure{mDatabase, procedure->name.object, text});
    else
        mEngine.RunStatement(std::get<Statement>(statement), mDatabase);
}
