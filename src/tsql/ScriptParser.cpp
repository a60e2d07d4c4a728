#include "tsql/ScriptParser.h"

#include "tsql/ExpressionParser.h"
#include "tsql/ServerError.h"
#include "tsql/SqlType.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kDefaultTextLength = 1;
// Numbers below belong to the server.
constexpr int kFirstOwnError = 50000;

} // namespace

std::vector<Batch> SplitBatches(QStringView script) {
    std::vector<Batch> batches;
    qsizetype begin = 0;
    int line = 1;
    int firstLine = 1;
    const auto close = [&](qsizetype end) {
        const QStringView text = script.mid(begin, end - begin);
        if (!text.trimmed().isEmpty())
            batches.push_back({text, firstLine});
    };
    for (qsizetype at = 0; at < script.size(); ++line) {
        const qsizetype found = script.indexOf(u'\n', at);
        const qsizetype lineEnd = found < 0 ? script.size() : found + 1;
        if (script.mid(at, lineEnd - at).trimmed().compare(u"GO", Qt::CaseInsensitive) == 0) {
            close(at);
            begin = lineEnd;
            firstLine = line + 1;
        }
        at = lineEnd;
    }
    close(script.size());
    return batches;
}

void ScriptParser::SkipSemicolons() {
    while (mCursor.AcceptOperator(u";")) {
    }
}

ScriptStatement ScriptParser::ParseNext() {
    ScriptStatement statement;
    if (mCursor.Accept(u"use")) {
        statement = UseDatabase{mCursor.ExpectName()};
    } else if (mCursor.Accept(u"create")) {
        const bool unique = mCursor.Accept(u"unique");
        if (unique || mCursor.Is(u"index"))
            statement = ParseIndex(unique);
        else if (mCursor.Accept(u"table"))
            statement = ParseTable();
        else
            statement = ParseProcedure();
    } else {
        CommandParser parser(mCursor);
        if (!parser.BeginsStatement())
            mCursor.RaiseSyntax();
        statement = parser.ParseStatement();
    }
    SkipSemicolons();
    return statement;
}

TableDefinition ScriptParser::ParseTable() {
    TableDefinition table;
    table.name = mCursor.ExpectObjectName();
    mCursor.ExpectOperator(u"(");
    do {
        ParseTableItem(table);
    } while (mCursor.AcceptOperator(u","));
    mCursor.ExpectOperator(u")");
    return table;
}

void ScriptParser::ParseTableItem(TableDefinition& table) {
    if (mCursor.Accept(u"constraint"))
        mCursor.ExpectName();
    if (mCursor.Is(u"primary") || mCursor.Is(u"unique"))
        ParseKey(table);
    else
        table.columns.push_back(ParseColumn(table));
}

void ScriptParser::ParseKey(TableDefinition& table) {
    KeyDefinition key;
    key.primary = mCursor.Accept(u"primary");
    mCursor.Expect(key.primary ? u"key" : u"unique");
    mCursor.ExpectOperator(u"(");
    do {
        key.columns << mCursor.ExpectName();
        mCursor.Accept(u"asc");
    } while (mCursor.AcceptOperator(u","));
    mCursor.ExpectOperator(u")");
    table.keys.push_back(key);
}

ColumnDefinition ScriptParser::ParseColumn(TableDefinition& table) {
    ColumnDefinition column;
    column.name = mCursor.ExpectName();
    column.type = ExpressionParser(mCursor).ParseType(kDefaultTextLength);
    while (ParseColumnOption(column, table)) {
    }
    return column;
}

bool ScriptParser::ParseColumnOption(ColumnDefinition& column, TableDefinition& table) {
    if (mCursor.Accept(u"null"))
        return true;
    if (mCursor.Accept(u"not")) {
        mCursor.Expect(u"null");
        column.nullable = false;
    } else if (mCursor.Accept(u"collate")) {
        const QString collation = mCursor.ExpectName();
        if (collation.compare(CollationName(), Qt::CaseInsensitive) != 0)
            throw ServerError(Fault::UnknownCollation, {collation});
    } else if (mCursor.Accept(u"constraint")) {
        mCursor.ExpectName();
    } else if (mCursor.Accept(u"default")) {
        column.defaultValue = ExpressionParser(mCursor).ParseValue();
    } else if (mCursor.Accept(u"identity")) {
        column.identity = true;
        if (mCursor.AcceptOperator(u"(")) {
            const bool fromOne = mCursor.ExpectWholeNumber() == 1;
            mCursor.ExpectOperator(u",");
            if (!fromOne || mCursor.ExpectWholeNumber() != 1)
                mCursor.RaiseSyntax();
            mCursor.ExpectOperator(u")");
        }
    } else if (mCursor.Is(u"primary") || mCursor.Is(u"unique")) {
        const bool primary = mCursor.Accept(u"primary");
        mCursor.Expect(primary ? u"key" : u"unique");
        table.keys.push_back({primary, {column.name}});
    } else {
        return false;
    }
    return true;
}

IndexDefinition ScriptParser::ParseIndex(bool unique) {
    IndexDefinition index;
    index.unique = unique;
    mCursor.Expect(u"index");
    index.name = mCursor.ExpectName();
    mCursor.Expect(u"on");
    index.table = mCursor.ExpectObjectName();
    mCursor.ExpectOperator(u"(");
    do {
        IndexedColumn column{mCursor.ExpectName(), false};
        column.descending = mCursor.Accept(u"desc");
        if (!column.descending)
            mCursor.Accept(u"asc");
        index.columns.push_back(column);
    } while (mCursor.AcceptOperator(u","));
    mCursor.ExpectOperator(u")");
    return index;
}

ProcedureDefinition ScriptParser::ParseProcedure() {
    ProcedureDefinition procedure;
    if (!mCursor.Accept(u"proc"))
        mCursor.Expect(u"procedure");
    procedure.name = mCursor.ExpectObjectName();
    const bool inParentheses = mCursor.AcceptOperator(u"(");
    if (mCursor.Current().kind == TokenKind::Parameter) {
        do {
            procedure.parameters.push_back(ParseParameter());
        } while (mCursor.AcceptOperator(u","));
    }
    if (inParentheses)
        mCursor.ExpectOperator(u")");
    mCursor.Expect(u"as");
    mCursor.Expect(u"begin");
    while (!mCursor.Is(u"end")) {
        if (SkipFrame())
            EndStep();
        else
            ParseStep(procedure.body);
    }
    mCursor.Expect(u"end");
    SkipSemicolons();
    if (!mCursor.AtEnd())
        mCursor.RaiseSyntax();
    return procedure;
}

void ScriptParser::EndStep() {
    mCursor.ExpectOperator(u";");
    SkipSemicolons();
}

void ScriptParser::ParseStep(std::vector<Statement>& body) {
    if (mCursor.Accept(u"if"))
        return ParseIf(body);
    CommandParser parser(mCursor);
    if (!parser.BeginsStatement())
        mCursor.RaiseSyntax();
    body.push_back(parser.ParseStatement());
    EndStep();
}

void ScriptParser::ParseIf(std::vector<Statement>& body) {
    ExpressionPtr condition = ExpressionParser(mCursor).ParseCondition();
    if (mCursor.Accept(u"throw")) {
        body.push_back(ParseRefusal(std::move(condition)));
        return EndStep();
    }
    const size_t branch = body.size();
    body.push_back(BranchStatement{std::move(condition), 0});
    size_t passedOver = ParseBranch(body);
    if (mCursor.Accept(u"else")) {
        const size_t otherwise = body.size();
        body.push_back(BranchStatement{nullptr, 0});
        const size_t rest = ParseBranch(body);
        std::get<BranchStatement>(body[otherwise]).passedOver = rest;
        // The branch that ran passes over the other one; the other one begins behind that.
        ++passedOver;
    }
    std::get<BranchStatement>(body[branch]).passedOver = passedOver;
}

size_t ScriptParser::ParseBranch(std::vector<Statement>& body) {
    const size_t before = body.size();
    if (!mCursor.Is(u"select") && !mCursor.Is(u"if"))
        mCursor.RaiseSyntax();
    ParseStep(body);
    return body.size() - before;
}

RefusalStatement ScriptParser::ParseRefusal(ExpressionPtr condition) {
    RefusalStatement refusal;
    refusal.condition = std::move(condition);
    if (mCursor.Current().written.toInt() < kFirstOwnError)
        mCursor.RaiseSyntax();
    refusal.number = mCursor.ExpectWholeNumber();
    mCursor.ExpectOperator(u",");
    refusal.text = mCursor.ExpectText();
    mCursor.ExpectOperator(u",");
    mCursor.ExpectWholeNumber();
    return refusal;
}

ParameterDefinition ScriptParser::ParseParameter() {
    if (mCursor.Current().kind != TokenKind::Parameter)
        mCursor.RaiseSyntax();
    ParameterDefinition parameter;
    parameter.name = mCursor.Current().written.toString();
    mCursor.Advance();
    mCursor.Accept(u"as");
    parameter.type = ExpressionParser(mCursor).ParseType(kDefaultTextLength);
    if (mCursor.AcceptOperator(u"="))
        parameter.defaultValue = ExpressionParser(mCursor).ParseLiteral();
    return parameter;
}

bool ScriptParser::SkipFrame() {
    if (mCursor.Accept(u"set")) {
        if (!mCursor.Accept(u"nocount"))
            mCursor.Expect(u"xact_abort");
        mCursor.Expect(u"on");
        return true;
    }
    if (!mCursor.Accept(u"begin") && !mCursor.Accept(u"commit"))
        return false;
    if (!mCursor.Accept(u"tran"))
        mCursor.Expect(u"transaction");
    return true;
}
