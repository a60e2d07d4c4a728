#include "tsql/QueryParser.h"

#include "tsql/ExpressionParser.h"
#include "tsql/ServerError.h"

using namespace Qt::StringLiterals;

Query QueryParser::ParseQuery() {
    Query query;
    do {
        query.cores.push_back(ParseCore());
        if (!mCursor.Accept(u"union"))
            break;
        mCursor.Expect(u"all");
    } while (true);
    if (!mCursor.Accept(u"order"))
        return query;
    mCursor.Expect(u"by");
    do {
        OrderItem item;
        item.value = ExpressionParser(mCursor).ParseValue();
        item.descending = mCursor.Accept(u"desc");
        if (!item.descending)
            mCursor.Accept(u"asc");
        query.orderBy.push_back(std::move(item));
    } while (mCursor.AcceptOperator(u","));
    return query;
}

Query QueryParser::ParseSubquery() {
    const TokenCursor::Level level(mCursor);
    Query query = ParseQuery();
    if (!query.orderBy.empty() && !query.cores.back().top)
        throw ServerError(Fault::OrderByInSubquery);
    return query;
}

SelectCore QueryParser::ParseCore() {
    SelectCore core;
    mCursor.Expect(u"select");
    core.distinct = mCursor.Accept(u"distinct");
    if (!core.distinct)
        mCursor.Accept(u"all");
    if (mCursor.Accept(u"top")) {
        const bool inParentheses = mCursor.AcceptOperator(u"(");
        if (!inParentheses && mCursor.Current().kind != TokenKind::Number)
            mCursor.RaiseSyntax();
        core.top =
            inParentheses ? ExpressionParser(mCursor).ParseValue() : ExpressionParser(mCursor).ParseLiteral();
        if (inParentheses)
            mCursor.ExpectOperator(u")");
    }
    do {
        core.items.push_back(ParseItem());
    } while (mCursor.AcceptOperator(u","));
    if (mCursor.Accept(u"from"))
        ParseSources(core);
    if (mCursor.Accept(u"where"))
        core.where = ExpressionParser(mCursor).ParseCondition();
    ParseGrouping(core);
    return core;
}

bool QueryParser::BeginsStar() const {
    size_t ahead = 0;
    while (mCursor.Ahead(ahead + 1).IsOperator(u".")) {
        ahead += 2;
        if (mCursor.Ahead(ahead).IsOperator(u"."))
            ++ahead;
    }
    return mCursor.Ahead(ahead).IsOperator(u"*");
}

SelectItem QueryParser::ParseItem() {
    if (BeginsStar())
        return ParseStar();
    SelectedValue item;
    item.value = ExpressionParser(mCursor).ParseValue();
    item.alias = ParseAlias();
    return item;
}

SelectedStar QueryParser::ParseStar() {
    SelectedStar star;
    while (!mCursor.AcceptOperator(u"*")) {
        star.path << mCursor.ExpectName();
        mCursor.ExpectOperator(u".");
        if (mCursor.AcceptOperator(u"."))
            star.path << QString();
    }
    return star;
}

QString QueryParser::ParseAlias() {
    if (mCursor.Accept(u"as")) {
        // A result column may bear a name in single quotes.
        if (mCursor.Current().kind == TokenKind::Text) {
            QString alias = mCursor.Current().Content();
            mCursor.Advance();
            return alias;
        }
        return mCursor.ExpectName();
    }
    return mCursor.IsName() ? mCursor.ExpectName() : QString();
}

void QueryParser::ParseSources(SelectCore& core) {
    core.sources.push_back(ParseSource());
    while (true) {
        const bool left = mCursor.Accept(u"left");
        if (left)
            mCursor.Accept(u"outer");
        const bool inner = !left && mCursor.Accept(u"inner");
        if (!left && !inner && !mCursor.Is(u"join"))
            return;
        mCursor.Expect(u"join");
        TableSource source = ParseSource();
        mCursor.Expect(u"on");
        source.join = Join{left, ExpressionParser(mCursor).ParseCondition()};
        core.sources.push_back(std::move(source));
    }
}

TableSource QueryParser::ParseSource() {
    TableSource source;
    if (mCursor.AcceptOperator(u"(")) {
        source.rows = std::make_unique<Query>(ParseSubquery());
        mCursor.ExpectOperator(u")");
        source.alias = ParseAlias();
        if (source.alias.isEmpty())
            mCursor.RaiseSyntax();
        return source;
    }
    source.rows = mCursor.ExpectObjectName();
    source.alias = ParseAlias();
    return source;
}

void QueryParser::ParseGrouping(SelectCore& core) {
    if (mCursor.Accept(u"group")) {
        mCursor.Expect(u"by");
        do {
            core.groupBy.push_back(ExpressionParser(mCursor).ParseValue());
        } while (mCursor.AcceptOperator(u","));
    }
    if (mCursor.Accept(u"having"))
        core.having = ExpressionParser(mCursor).ParseCondition();
}
