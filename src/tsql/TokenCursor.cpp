#include "tsql/TokenCursor.h"

#include "tsql/ServerError.h"
#include "tsql/SqlKeywords.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

TokenCursor::TokenCursor(QStringView text)
    : TokenCursor(LexSql(text)) {}

TokenCursor::TokenCursor(std::vector<Token> pieces)
    : mTokens(std::move(pieces)) {}

const Token& TokenCursor::Ahead(size_t count) const {
    return mTokens[std::min(mAt + count, mTokens.size() - 1)];
}

void TokenCursor::Advance() {
    if (!AtEnd())
        ++mAt;
}

bool TokenCursor::Accept(QStringView keyword) {
    if (!Is(keyword))
        return false;
    Advance();
    return true;
}

bool TokenCursor::AcceptOperator(QStringView sign) {
    if (!IsOperator(sign))
        return false;
    Advance();
    return true;
}

void TokenCursor::Expect(QStringView keyword) {
    if (!Accept(keyword))
        RaiseSyntax();
}

void TokenCursor::ExpectOperator(QStringView sign) {
    if (!AcceptOperator(sign))
        RaiseSyntax();
}

bool TokenCursor::IsName() const {
    const Token& token = Current();
    return token.kind == TokenKind::Name || (token.kind == TokenKind::Word && !IsSqlKeyword(token.written));
}

QString TokenCursor::ExpectName() {
    if (!IsName())
        RaiseSyntax();
    QString name = Current().Content();
    Advance();
    return name;
}

ObjectName TokenCursor::ExpectObjectName() {
    ObjectName name;
    QStringList parts = {ExpectName()};
    name.written = parts.last();
    while (AcceptOperator(u".")) {
        const bool ownerLeftOut = parts.size() == 1 && IsOperator(u".");
        parts << (ownerLeftOut ? QString() : ExpectName());
        name.written += u'.' + parts.last();
    }
    if (parts.size() > 3)
        RaiseSyntax();
    name.object = parts.takeLast();
    name.owner = parts.isEmpty() ? QString() : parts.takeLast();
    name.database = parts.isEmpty() ? QString() : parts.takeLast();
    return name;
}

TokenCursor::Level::Level(TokenCursor& cursor)
    : mCursor(cursor) {
    if (cursor.mNesting >= kDeepest)
        throw ServerError(Fault::TooDeep);
    ++cursor.mNesting;
}

int TokenCursor::ExpectWholeNumber() {
    bool ok = false;
    const int number = Current().kind == TokenKind::Number ? Current().written.toInt(&ok) : 0;
    if (!ok)
        RaiseSyntax();
    Advance();
    return number;
}

QString TokenCursor::ExpectText() {
    if (Current().kind != TokenKind::Text)
        RaiseSyntax();
    QString text = Current().Content();
    Advance();
    return text;
}

void TokenCursor::RaiseSyntax() const {
    const Token& token = Current();
    if (token.kind == TokenKind::UnclosedQuote)
        throw ServerError(Fault::UnclosedQuote, {token.Content()});
    if (token.kind == TokenKind::UnclosedComment)
        throw ServerError(Fault::UnclosedComment);
    // At the end the server names the last piece that it read.
    const Token& near = token.kind == TokenKind::End && mAt > 0 ? mTokens[mAt - 1] : token;
    if (near.kind == TokenKind::Word && IsSqlKeyword(near.written))
        throw ServerError(Fault::IncorrectSyntaxNearKeyword, {near.written.toString()});
    throw ServerError(Fault::IncorrectSyntax, {near.Content()});
}
