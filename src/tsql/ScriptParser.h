#pragma once

#include "tsql/CommandParser.h"
#include "tsql/SqlTree.h"
#include "tsql/TokenCursor.h"

#include <QString>
#include <QStringView>

#include <vector>

/// One part of a script between two lines "GO".
struct Batch {
    QStringView text;
    /// The line of the script on which it begins, from 1.
    int firstLine = 1;
};

/// The batches of a script. They look into the text. Blank ones are left out.
std::vector<Batch> SplitBatches(QStringView script);

/// Reads the statements of a hospital's scripts: USE, CREATE TABLE, CREATE INDEX, CREATE PROCEDURE and the
/// plain statements.
class ScriptParser {
  public:
    explicit ScriptParser(TokenCursor& cursor)
        : mCursor(cursor) {}

    bool AtEnd() const { return mCursor.AtEnd(); }
    /// The next statement of a batch with the semicolons behind it. A CREATE PROCEDURE reaches to the batch's
    /// end.
    ScriptStatement ParseNext();

  private:
    TableDefinition ParseTable();
    void ParseTableItem(TableDefinition& table);
    void ParseKey(TableDefinition& table);
    ColumnDefinition ParseColumn(TableDefinition& table);
    bool ParseColumnOption(ColumnDefinition& column, TableDefinition& table);
    IndexDefinition ParseIndex(bool unique);
    ProcedureDefinition ParseProcedure();
    ParameterDefinition ParseParameter();
    /// Adds the next step with the semicolons behind it to the body.
    void ParseStep(std::vector<Statement>& body);
    void ParseIf(std::vector<Statement>& body);
    /// A SELECT behind IF or ELSE. Gives back how many statements it has become.
    size_t ParseBranch(std::vector<Statement>& body);
    RefusalStatement ParseRefusal(ExpressionPtr condition);
    void EndStep();
    /// SET NOCOUNT ON and what frames a transaction: the engine does that for every command anyway.
    bool SkipFrame();
    void SkipSemicolons();

    TokenCursor& mCursor;
};
