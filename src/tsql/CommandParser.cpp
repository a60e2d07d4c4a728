#include "tsql/CommandParser.h"

#include "tsql/ExpressionParser.h"
#include "tsql/QueryParser.h"
#include "tsql/ServerError.h"

using namespace Qt::StringLiterals;

namespace {

// The server's own limit for the rows of one VALUES.
constexpr size_t kMostRows = 1000;

} // namespace

bool CommandParser::BeginsStatement() const {
    return mCursor.Is(u"select") || mCursor.Is(u"insert") || mCursor.Is(u"update") || mCursor.Is(u"delete");
}

Command CommandParser::ParseCommand() {
    Command command;
    if (BeginsStatement())
        command = ParseStatement();
    else if (!mCursor.AtEnd() && !mCursor.IsOperator(u";"))
        command = ParseCall();
    while (mCursor.AcceptOperator(u";")) {
    }
    if (mCursor.AtEnd())
        return command;
    if (mCursor.Current().kind == TokenKind::UnclosedQuote ||
        mCursor.Current().kind == TokenKind::UnclosedComment)
        mCursor.RaiseSyntax();
    // The server would run a second statement. Here no text means more than one step, whatever was typed into
    // it.
    throw ServerError(Fault::IncorrectSyntax, {mCursor.Current().Content()});
}

ProcedureCall CommandParser::ParseCall() {
    if (!mCursor.Accept(u"exec"))
        mCursor.Accept(u"execute");
    ProcedureCall call;
    call.procedure = mCursor.ExpectObjectName();
    if (mCursor.AtEnd() || mCursor.IsOperator(u";"))
        return call;
    do {
        CallArgument argument;
        if (mCursor.Current().kind == TokenKind::Parameter) {
            argument.name = mCursor.Current().written.toString();
            mCursor.Advance();
            mCursor.ExpectOperator(u"=");
        } else if (!call.arguments.empty() && !call.arguments.back().name.isEmpty()) {
            throw ServerError(Fault::PositionalAfterNamed, {QString::number(call.arguments.size() + 1)});
        }
        argument.value = ExpressionParser(mCursor).ParseLiteral();
        call.arguments.push_back(std::move(argument));
    } while (mCursor.AcceptOperator(u","));
    return call;
}

Statement CommandParser::ParseStatement() {
    if (mCursor.Is(u"select"))
        return SelectStatement{QueryParser(mCursor).ParseQuery()};
    if (mCursor.Is(u"insert"))
        return ParseInsert();
    if (mCursor.Is(u"update"))
        return ParseUpdate();
    return ParseDelete();
}

InsertStatement CommandParser::ParseInsert() {
    InsertStatement insert;
    mCursor.Expect(u"insert");
    mCursor.Accept(u"into");
    insert.table = mCursor.ExpectObjectName();
    if (mCursor.AcceptOperator(u"(")) {
        do {
            insert.columns << mCursor.ExpectName();
        } while (mCursor.AcceptOperator(u","));
        mCursor.ExpectOperator(u")");
    }
    if (mCursor.Is(u"select")) {
        insert.source = QueryParser(mCursor).ParseQuery();
        return insert;
    }
    mCursor.Expect(u"values");
    insert.source = ParseRows();
    return insert;
}

ValueRows CommandParser::ParseRows() {
    ValueRows rows;
    do {
        rows.push_back(ParseRow());
    } while (mCursor.AcceptOperator(u","));
    if (rows.size() > kMostRows)
        throw ServerError(Fault::TooManyRows);
    return rows;
}

std::vector<ExpressionPtr> CommandParser::ParseRow() {
    std::vector<ExpressionPtr> row;
    mCursor.ExpectOperator(u"(");
    do {
        row.push_back(ExpressionParser(mCursor).ParseValue());
    } while (mCursor.AcceptOperator(u","));
    mCursor.ExpectOperator(u")");
    return row;
}

UpdateStatement CommandParser::ParseUpdate() {
    UpdateStatement update;
    mCursor.Expect(u"update");
    update.table = mCursor.ExpectObjectName();
    mCursor.Expect(u"set");
    do {
        Assignment assignment;
        assignment.column = mCursor.ExpectName();
        mCursor.ExpectOperator(u"=");
        assignment.value = ExpressionParser(mCursor).ParseValue();
        update.assignments.push_back(std::move(assignment));
    } while (mCursor.AcceptOperator(u","));
    update.where = ParseWhere();
    return update;
}

DeleteStatement CommandParser::ParseDelete() {
    DeleteStatement erase;
    mCursor.Expect(u"delete");
    mCursor.Accept(u"from");
    erase.table = mCursor.ExpectObjectName();
    erase.where = ParseWhere();
    return erase;
}

ExpressionPtr CommandParser::ParseWhere() {
    return mCursor.Accept(u"where") ? ExpressionParser(mCursor).ParseCondition() : nullptr;
}
