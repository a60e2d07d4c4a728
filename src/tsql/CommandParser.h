#pragma once

#include "tsql/SqlTree.h"
#include "tsql/TokenCursor.h"

/// Reads what a workstation may send: a procedure call or one plain statement.
class CommandParser {
  public:
    explicit CommandParser(TokenCursor& cursor)
        : mCursor(cursor) {}

    /// The whole text as one command. Anything behind its end is error 102, so that one text never runs two
    /// statements.
    Command ParseCommand();
    /// One SELECT, INSERT, UPDATE or DELETE, up to its end.
    Statement ParseStatement();
    /// Whether one of those four begins here.
    bool BeginsStatement() const;

  private:
    ProcedureCall ParseCall();
    InsertStatement ParseInsert();
    ValueRows ParseRows();
    std::vector<ExpressionPtr> ParseRow();
    UpdateStatement ParseUpdate();
    DeleteStatement ParseDelete();
    ExpressionPtr ParseWhere();

    TokenCursor& mCursor;
};
