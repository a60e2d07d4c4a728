#include "tsql/ExpressionParser.h"

#include "tsql/QueryParser.h"
#include "tsql/ServerError.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using Kind = Expression::Kind;

// What is higher could overflow the stack of whoever walks through it.
constexpr int kHighestTree = 300;
constexpr int kDefaultCastLength = 30;

bool IsComparison(const Token& token) {
    static constexpr std::array<QStringView, 9> kSigns = {u"=", u"<>", u"!=", u"<", u"<=",
                                                          u">", u">=", u"!<", u"!>"};
    return std::any_of(kSigns.begin(), kSigns.end(),
                       [&](QStringView sign) { return token.IsOperator(sign); });
}

QString StandardSign(QStringView sign) {
    if (sign == u"!=")
        return u"<>"_s;
    if (sign == u"!<")
        return u">="_s;
    return sign == u"!>" ? u"<="_s : sign.toString();
}

/// The functions whose names the server reserves.
bool IsReservedFunction(const Token& token) {
    return token.Is(u"coalesce") || token.Is(u"nullif") || token.Is(u"left") || token.Is(u"right");
}

} // namespace

ExpressionPtr ExpressionParser::NewNode(Kind kind, const QString& text) const {
    auto node = std::make_unique<Expression>();
    node->kind = kind;
    node->text = text;
    return node;
}

ExpressionPtr ExpressionParser::Leaf(Kind kind) {
    auto node = NewNode(kind, mCursor.Current().Content());
    node->national = mCursor.Current().national;
    mCursor.Advance();
    return node;
}

void ExpressionParser::Append(Expression& parent, ExpressionPtr child) const {
    parent.depth = std::max(parent.depth, child->depth + 1);
    if (parent.depth > kHighestTree)
        throw ServerError(Fault::TooDeep);
    parent.arguments.push_back(std::move(child));
}

ExpressionPtr ExpressionParser::Join(Kind kind, const QString& text, ExpressionPtr left,
                                     ExpressionPtr right) const {
    auto node = NewNode(kind, text);
    Append(*node, std::move(left));
    Append(*node, std::move(right));
    return node;
}

ExpressionPtr ExpressionParser::Value(ExpressionPtr expression) const {
    if (expression->IsCondition())
        mCursor.RaiseSyntax();
    return expression;
}

ExpressionPtr ExpressionParser::Condition(ExpressionPtr expression) const {
    if (!expression->IsCondition())
        mCursor.RaiseSyntax();
    return expression;
}

ExpressionPtr ExpressionParser::ParseValue() {
    return Value(ParseSum());
}

ExpressionPtr ExpressionParser::ParseCondition() {
    return Condition(ParseOr());
}

ExpressionPtr ExpressionParser::ParseOr() {
    ExpressionPtr left = ParseAnd();
    while (mCursor.Accept(u"or"))
        left = Join(Kind::Or, {}, Condition(std::move(left)), Condition(ParseAnd()));
    return left;
}

ExpressionPtr ExpressionParser::ParseAnd() {
    ExpressionPtr left = ParseNot();
    while (mCursor.Accept(u"and"))
        left = Join(Kind::And, {}, Condition(std::move(left)), Condition(ParseNot()));
    return left;
}

ExpressionPtr ExpressionParser::ParseNot() {
    bool negated = false;
    while (mCursor.Accept(u"not"))
        negated = !negated;
    ExpressionPtr inner = ParsePredicate();
    if (!negated)
        return inner;
    auto node = NewNode(Kind::Not);
    Append(*node, Condition(std::move(inner)));
    return node;
}

ExpressionPtr ExpressionParser::ParsePredicate() {
    if (mCursor.Is(u"exists"))
        return ParseExists();
    ExpressionPtr left = ParseSum();
    if (IsComparison(mCursor.Current())) {
        left = Value(std::move(left));
        const QString sign = StandardSign(mCursor.Current().written);
        mCursor.Advance();
        return Join(Kind::Comparison, sign, std::move(left), ParseValue());
    }
    if (mCursor.Is(u"is"))
        return ParseIsNull(Value(std::move(left)));
    const bool negated = mCursor.Is(u"not") && !left->IsCondition();
    if (negated)
        mCursor.Advance();
    ExpressionPtr node;
    if (mCursor.Is(u"in")) {
        node = ParseIn(Value(std::move(left)));
    } else if (mCursor.Accept(u"like")) {
        node = Join(Kind::Like, {}, Value(std::move(left)), ParseValue());
    } else if (mCursor.Accept(u"between")) {
        node = Join(Kind::Between, {}, Value(std::move(left)), ParseValue());
        mCursor.Expect(u"and");
        Append(*node, ParseValue());
    } else {
        if (negated)
            mCursor.RaiseSyntax();
        return left;
    }
    node->negated = negated;
    return node;
}

ExpressionPtr ExpressionParser::ParseIsNull(ExpressionPtr left) {
    mCursor.Expect(u"is");
    auto node = NewNode(Kind::IsNull);
    node->negated = mCursor.Accept(u"not");
    mCursor.Expect(u"null");
    Append(*node, std::move(left));
    return node;
}

ExpressionPtr ExpressionParser::ParseIn(ExpressionPtr left) {
    mCursor.Expect(u"in");
    auto node = NewNode(Kind::In);
    Append(*node, std::move(left));
    mCursor.ExpectOperator(u"(");
    if (mCursor.Is(u"select")) {
        node->query = std::make_unique<Query>(QueryParser(mCursor).ParseSubquery());
    } else {
        do {
            Append(*node, ParseValue());
        } while (mCursor.AcceptOperator(u","));
    }
    mCursor.ExpectOperator(u")");
    return node;
}

ExpressionPtr ExpressionParser::ParseSum() {
    ExpressionPtr left = ParseProduct();
    while (mCursor.IsOperator(u"+") || mCursor.IsOperator(u"-")) {
        const QString sign = mCursor.Current().written.toString();
        mCursor.Advance();
        left = Join(Kind::Arithmetic, sign, Value(std::move(left)), Value(ParseProduct()));
    }
    return left;
}

ExpressionPtr ExpressionParser::ParseProduct() {
    ExpressionPtr left = ParseSigned();
    while (mCursor.IsOperator(u"*") || mCursor.IsOperator(u"/") || mCursor.IsOperator(u"%")) {
        const QString sign = mCursor.Current().written.toString();
        mCursor.Advance();
        left = Join(Kind::Arithmetic, sign, Value(std::move(left)), Value(ParseSigned()));
    }
    return left;
}

ExpressionPtr ExpressionParser::ParseSigned() {
    bool negative = false;
    bool sign = false;
    while (mCursor.IsOperator(u"-") || mCursor.IsOperator(u"+")) {
        negative ^= mCursor.IsOperator(u"-");
        sign = true;
        mCursor.Advance();
    }
    ExpressionPtr inner = ParsePrimary();
    if (!sign)
        return inner;
    inner = Value(std::move(inner));
    if (!negative)
        return inner;
    auto node = NewNode(Kind::Negate);
    Append(*node, std::move(inner));
    return node;
}

ExpressionPtr ExpressionParser::ParsePrimary() {
    const Token& token = mCursor.Current();
    switch (token.kind) {
    case TokenKind::Number:
        return Leaf(Kind::Number);
    case TokenKind::Text:
        return Leaf(Kind::Text);
    case TokenKind::Parameter:
        return Leaf(Kind::Parameter);
    default:
        break;
    }
    if (token.IsOperator(u"("))
        return ParseParentheses();
    if (token.Is(u"null"))
        return Leaf(Kind::Null);
    if (token.Is(u"case"))
        return ParseCase();
    if (token.Is(u"convert"))
        return ParseConvert();
    const bool called = mCursor.Ahead(1).IsOperator(u"(");
    if (called && token.Is(u"cast"))
        return ParseCast();
    if (called && token.kind == TokenKind::Word && (mCursor.IsName() || IsReservedFunction(token)))
        return ParseCall();
    return ParseColumn();
}

ExpressionPtr ExpressionParser::ParseParentheses() {
    mCursor.Enter();
    mCursor.ExpectOperator(u"(");
    ExpressionPtr inner;
    if (mCursor.Is(u"select")) {
        inner = NewNode(Kind::Subquery);
        inner->query = std::make_unique<Query>(QueryParser(mCursor).ParseSubquery());
    } else {
        inner = ParseOr();
    }
    mCursor.ExpectOperator(u")");
    mCursor.Leave();
    return inner;
}

ExpressionPtr ExpressionParser::ParseExists() {
    mCursor.Expect(u"exists");
    auto node = NewNode(Kind::Exists);
    mCursor.ExpectOperator(u"(");
    node->query = std::make_unique<Query>(QueryParser(mCursor).ParseSubquery());
    mCursor.ExpectOperator(u")");
    return node;
}

ExpressionPtr ExpressionParser::ParseCase() {
    mCursor.Enter();
    mCursor.Expect(u"case");
    auto node = NewNode(Kind::Case);
    if (!mCursor.Is(u"when")) {
        node->hasOperand = true;
        Append(*node, ParseValue());
    }
    do {
        mCursor.Expect(u"when");
        Append(*node, node->hasOperand ? ParseValue() : ParseCondition());
        mCursor.Expect(u"then");
        Append(*node, ParseValue());
    } while (mCursor.Is(u"when"));
    if (mCursor.Accept(u"else")) {
        node->hasElse = true;
        Append(*node, ParseValue());
    }
    mCursor.Expect(u"end");
    mCursor.Leave();
    return node;
}

ExpressionPtr ExpressionParser::ParseCast() {
    mCursor.Enter();
    mCursor.Expect(u"cast");
    mCursor.ExpectOperator(u"(");
    auto node = NewNode(Kind::Cast);
    Append(*node, ParseValue());
    mCursor.Expect(u"as");
    node->type = ParseType(kDefaultCastLength);
    mCursor.ExpectOperator(u")");
    mCursor.Leave();
    return node;
}

ExpressionPtr ExpressionParser::ParseConvert() {
    mCursor.Enter();
    mCursor.Expect(u"convert");
    mCursor.ExpectOperator(u"(");
    auto node = NewNode(Kind::Cast);
    node->type = ParseType(kDefaultCastLength);
    mCursor.ExpectOperator(u",");
    Append(*node, ParseValue());
    if (mCursor.AcceptOperator(u","))
        node->style = mCursor.ExpectWholeNumber();
    mCursor.ExpectOperator(u")");
    mCursor.Leave();
    return node;
}

ExpressionPtr ExpressionParser::ParseCall() {
    mCursor.Enter();
    auto node = NewNode(Kind::Call, mCursor.Current().written.toString().toUpper());
    mCursor.Advance();
    mCursor.ExpectOperator(u"(");
    if (node->text == "DATEADD"_L1 || node->text == "DATEDIFF"_L1) {
        node->path << mCursor.ExpectName();
        mCursor.ExpectOperator(u",");
    }
    if (mCursor.AcceptOperator(u"*")) {
        node->star = true;
    } else if (!mCursor.IsOperator(u")")) {
        node->distinct = mCursor.Accept(u"distinct");
        do {
            Append(*node, ParseValue());
        } while (mCursor.AcceptOperator(u","));
    }
    mCursor.ExpectOperator(u")");
    mCursor.Leave();
    return node;
}

ExpressionPtr ExpressionParser::ParseColumn() {
    auto node = NewNode(Kind::Column);
    node->path << mCursor.ExpectName();
    while (mCursor.AcceptOperator(u"."))
        node->path << (mCursor.IsOperator(u".") ? QString() : mCursor.ExpectName());
    return node;
}

ExpressionPtr ExpressionParser::ParseLiteral() {
    const Token& token = mCursor.Current();
    const bool number = token.kind == TokenKind::Number || mCursor.Ahead(1).kind == TokenKind::Number;
    if (number && (token.kind == TokenKind::Number || mCursor.IsOperator(u"-") || mCursor.IsOperator(u"+")))
        return ParseSigned();
    if (token.Is(u"null"))
        return Leaf(Kind::Null);
    // The server takes a bare word in a call for a text.
    if (token.kind != TokenKind::Text && !mCursor.IsName())
        mCursor.RaiseSyntax();
    return Leaf(Kind::Text);
}

SqlType ExpressionParser::ParseType(int defaultLength) {
    const QString name = mCursor.ExpectName();
    auto type = SqlType::Named(name);
    if (!type)
        throw ServerError(Fault::UnknownType, {name});
    if (type->IsText())
        type->length = defaultLength;
    if (!mCursor.AcceptOperator(u"("))
        return *type;
    if (type->IsText()) {
        type->length = mCursor.Accept(u"max") ? SqlType::kUnbounded : mCursor.ExpectWholeNumber();
    } else {
        if (type->kind != SqlType::Kind::Decimal)
            mCursor.RaiseSyntax();
        const int precision = mCursor.ExpectWholeNumber();
        type = SqlType::Decimal(precision, mCursor.AcceptOperator(u",") ? mCursor.ExpectWholeNumber() : 0);
    }
    mCursor.ExpectOperator(u")");
    return *type;
}
