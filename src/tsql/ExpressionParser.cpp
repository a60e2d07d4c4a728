#include "tsql/ExpressionParser.h"

#include "tsql/QueryParser.h"
#include "tsql/ServerError.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

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

/// How high a node stands, told by the parts that it takes in.
class Height {
  public:
    /// Gives the part back, or raises 191 where a node above it would be too high.
    ExpressionPtr Over(ExpressionPtr part) {
        mHeight = std::max(mHeight, part->height + 1);
        if (mHeight > kHighestTree)
            throw ServerError(Fault::TooDeep);
        return part;
    }
    operator int() const { return mHeight; }

  private:
    int mHeight = 1;
};

ExpressionPtr Made(Expression::Node node, int height = 1) {
    return std::make_unique<Expression>(Expression{std::move(node), height});
}

/// A node with a part on either side.
template <class Node> ExpressionPtr Joined(Node node, ExpressionPtr left, ExpressionPtr right) {
    Height height;
    node.left = height.Over(std::move(left));
    node.right = height.Over(std::move(right));
    return Made(std::move(node), height);
}

} // namespace

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
    while (mCursor.Accept(u"or")) {
        ExpressionPtr right = Condition(ParseAnd());
        left = Joined(OrNode(), Condition(std::move(left)), std::move(right));
    }
    return left;
}

ExpressionPtr ExpressionParser::ParseAnd() {
    ExpressionPtr left = ParseNot();
    while (mCursor.Accept(u"and")) {
        ExpressionPtr right = Condition(ParseNot());
        left = Joined(AndNode(), Condition(std::move(left)), std::move(right));
    }
    return left;
}

ExpressionPtr ExpressionParser::ParseNot() {
    bool negated = false;
    while (mCursor.Accept(u"not"))
        negated = !negated;
    ExpressionPtr inner = ParsePredicate();
    if (!negated)
        return inner;
    Height height;
    NotNode node{height.Over(Condition(std::move(inner)))};
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParsePredicate() {
    if (mCursor.Is(u"exists"))
        return ParseExists();
    ExpressionPtr left = ParseSum();
    if (IsComparison(mCursor.Current()))
        return ParseComparison(Value(std::move(left)));
    if (mCursor.Is(u"is"))
        return ParseIsNull(Value(std::move(left)));
    const bool negated = mCursor.Is(u"not") && !left->IsCondition();
    if (negated)
        mCursor.Advance();
    if (mCursor.Is(u"in"))
        return ParseIn(Value(std::move(left)), negated);
    if (mCursor.Accept(u"like"))
        return ParseLike(std::move(left), negated);
    if (mCursor.Accept(u"between"))
        return ParseBetween(std::move(left), negated);
    if (negated)
        mCursor.RaiseSyntax();
    return left;
}

ExpressionPtr ExpressionParser::ParseComparison(ExpressionPtr left) {
    ComparisonNode node;
    node.sign = StandardSign(mCursor.Current().written);
    mCursor.Advance();
    return Joined(std::move(node), std::move(left), ParseValue());
}

ExpressionPtr ExpressionParser::ParseIsNull(ExpressionPtr left) {
    mCursor.Expect(u"is");
    IsNullNode node;
    node.negated = mCursor.Accept(u"not");
    mCursor.Expect(u"null");
    Height height;
    node.value = height.Over(std::move(left));
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseIn(ExpressionPtr left, bool negated) {
    mCursor.Expect(u"in");
    Height height;
    left = height.Over(std::move(left));
    if (mCursor.IsOperator(u"(") && mCursor.Ahead(1).Is(u"select"))
        return Made(InQueryNode{std::move(left), ParseSubquery(), negated}, height);
    mCursor.ExpectOperator(u"(");
    InListNode node{std::move(left), {}, negated};
    do {
        node.list.push_back(height.Over(ParseValue()));
    } while (mCursor.AcceptOperator(u","));
    mCursor.ExpectOperator(u")");
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseLike(ExpressionPtr left, bool negated) {
    ExpressionPtr pattern = ParseValue();
    Height height;
    LikeNode node;
    node.text = height.Over(Value(std::move(left)));
    node.pattern = height.Over(std::move(pattern));
    node.negated = negated;
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseBetween(ExpressionPtr left, bool negated) {
    ExpressionPtr low = ParseValue();
    Height height;
    BetweenNode node;
    node.value = height.Over(Value(std::move(left)));
    node.low = height.Over(std::move(low));
    mCursor.Expect(u"and");
    node.high = height.Over(ParseValue());
    node.negated = negated;
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseSum() {
    ExpressionPtr left = ParseProduct();
    while (mCursor.IsOperator(u"+") || mCursor.IsOperator(u"-")) {
        const QChar sign = TakeSign();
        ExpressionPtr right = Value(ParseProduct());
        left = Joined(ArithmeticNode{sign, {}, {}}, Value(std::move(left)), std::move(right));
    }
    return left;
}

ExpressionPtr ExpressionParser::ParseProduct() {
    ExpressionPtr left = ParseSigned();
    while (mCursor.IsOperator(u"*") || mCursor.IsOperator(u"/") || mCursor.IsOperator(u"%")) {
        const QChar sign = TakeSign();
        ExpressionPtr right = Value(ParseSigned());
        left = Joined(ArithmeticNode{sign, {}, {}}, Value(std::move(left)), std::move(right));
    }
    return left;
}

QChar ExpressionParser::TakeSign() {
    const QChar sign = mCursor.Current().written.front();
    mCursor.Advance();
    return sign;
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
    Height height;
    NegationNode node{height.Over(std::move(inner))};
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParsePrimary() {
    const Token& token = mCursor.Current();
    switch (token.kind) {
    case TokenKind::Number:
        return Leaf(NumberNode{token.Content(), token.literal});
    case TokenKind::Text:
        return ParseText();
    case TokenKind::Parameter:
        return Leaf(ParameterNode{token.Content()});
    default:
        break;
    }
    if (token.IsOperator(u"("))
        return ParseParentheses();
    if (token.Is(u"null"))
        return Leaf(NullNode());
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

ExpressionPtr ExpressionParser::Leaf(Expression::Node node) {
    mCursor.Advance();
    return Made(std::move(node));
}

ExpressionPtr ExpressionParser::ParseText() {
    const Token& token = mCursor.Current();
    return Leaf(TextNode{token.Content(), token.national, token.literal});
}

ExpressionPtr ExpressionParser::ParseParentheses() {
    const TokenCursor::Level level(mCursor);
    if (mCursor.Ahead(1).Is(u"select"))
        return Made(SubqueryNode{ParseSubquery()});
    mCursor.ExpectOperator(u"(");
    ExpressionPtr inner = ParseOr();
    mCursor.ExpectOperator(u")");
    return inner;
}

std::unique_ptr<Query> ExpressionParser::ParseSubquery() {
    mCursor.ExpectOperator(u"(");
    auto query = std::make_unique<Query>(QueryParser(mCursor).ParseSubquery());
    mCursor.ExpectOperator(u")");
    return query;
}

ExpressionPtr ExpressionParser::ParseExists() {
    mCursor.Expect(u"exists");
    return Made(ExistsNode{ParseSubquery()});
}

ExpressionPtr ExpressionParser::ParseCase() {
    const TokenCursor::Level level(mCursor);
    mCursor.Expect(u"case");
    Height height;
    CaseNode node;
    if (!mCursor.Is(u"when"))
        node.operand = height.Over(ParseValue());
    do {
        CaseBranch branch;
        mCursor.Expect(u"when");
        branch.when = height.Over(node.operand ? ParseValue() : ParseCondition());
        mCursor.Expect(u"then");
        branch.then = height.Over(ParseValue());
        node.branches.push_back(std::move(branch));
    } while (mCursor.Is(u"when"));
    if (mCursor.Accept(u"else"))
        node.otherwise = height.Over(ParseValue());
    mCursor.Expect(u"end");
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseCast() {
    const TokenCursor::Level level(mCursor);
    mCursor.Expect(u"cast");
    mCursor.ExpectOperator(u"(");
    Height height;
    CastNode node;
    node.value = height.Over(ParseValue());
    mCursor.Expect(u"as");
    node.type = ParseType(kDefaultCastLength);
    mCursor.ExpectOperator(u")");
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseConvert() {
    const TokenCursor::Level level(mCursor);
    mCursor.Expect(u"convert");
    mCursor.ExpectOperator(u"(");
    Height height;
    CastNode node;
    node.type = ParseType(kDefaultCastLength);
    mCursor.ExpectOperator(u",");
    node.value = height.Over(ParseValue());
    if (mCursor.AcceptOperator(u","))
        node.style = mCursor.ExpectWholeNumber();
    mCursor.ExpectOperator(u")");
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseCall() {
    const TokenCursor::Level level(mCursor);
    Height height;
    CallNode node;
    node.name = mCursor.Current().written.toString().toUpper();
    mCursor.Advance();
    mCursor.ExpectOperator(u"(");
    if (node.name == "DATEADD"_L1 || node.name == "DATEDIFF"_L1) {
        node.datePart = mCursor.ExpectName();
        mCursor.ExpectOperator(u",");
    }
    if (mCursor.AcceptOperator(u"*")) {
        node.star = true;
    } else if (!mCursor.IsOperator(u")")) {
        node.distinct = mCursor.Accept(u"distinct");
        do {
            node.arguments.push_back(height.Over(ParseValue()));
        } while (mCursor.AcceptOperator(u","));
    }
    mCursor.ExpectOperator(u")");
    return Made(std::move(node), height);
}

ExpressionPtr ExpressionParser::ParseColumn() {
    ColumnNode node;
    node.path << mCursor.ExpectName();
    while (mCursor.AcceptOperator(u"."))
        node.path << (mCursor.IsOperator(u".") ? QString() : mCursor.ExpectName());
    return Made(std::move(node));
}

ExpressionPtr ExpressionParser::ParseLiteral() {
    const Token& token = mCursor.Current();
    const bool number = token.kind == TokenKind::Number || mCursor.Ahead(1).kind == TokenKind::Number;
    if (number && (token.kind == TokenKind::Number || mCursor.IsOperator(u"-") || mCursor.IsOperator(u"+")))
        return ParseSigned();
    if (token.Is(u"null"))
        return Leaf(NullNode());
    // The server takes a bare word in a call for a text.
    if (token.kind != TokenKind::Text && !mCursor.IsName())
        mCursor.RaiseSyntax();
    return ParseText();
}

int ExpressionParser::ExpectLength(const SqlType& type) {
    const int line = mCursor.Line();
    const int length = mCursor.ExpectWholeNumber();
    const QString written = QString::number(length);
    if (length == 0)
        throw ServerError(Fault::InvalidLength, {QString::number(line), written});
    if (length > SqlType::kMostText)
        throw ServerError(Fault::TextTooLong, {written, type.Name()});
    if (length > type.MostCharacters())
        throw ServerError(Fault::NationalTextTooLong, {written, type.Name()});
    return length;
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
        type->length = mCursor.Accept(u"max") ? SqlType::kUnbounded : ExpectLength(*type);
    } else {
        if (type->kind != SqlType::Kind::Decimal)
            mCursor.RaiseSyntax();
        const int precision = mCursor.ExpectWholeNumber();
        const int scale = mCursor.AcceptOperator(u",") ? mCursor.ExpectWholeNumber() : 0;
        if (scale > precision)
            throw ServerError(Fault::ScaleBeyondPrecision);
        type = SqlType::Decimal(precision, scale);
    }
    mCursor.ExpectOperator(u")");
    return *type;
}
