#pragma once

#include "tsql/SqlTree.h"
#include "tsql/TokenCursor.h"

/// Reads expressions and conditions of the server's language.
class ExpressionParser {
  public:
    explicit ExpressionParser(TokenCursor& cursor)
        : mCursor(cursor) {}

    /// An expression that has a value. A condition in its place is a syntax error, as on the server.
    ExpressionPtr ParseValue();
    /// A condition, for WHERE, ON, HAVING and CASE. A value in its place is a syntax error.
    ExpressionPtr ParseCondition();
    /// A number, text or NULL, with a sign in front of a number. What a procedure call may pass.
    ExpressionPtr ParseLiteral();
    /// A type's name with its size. A text without one gets the default length.
    SqlType ParseType(int defaultLength);

  private:
    ExpressionPtr ParseOr();
    ExpressionPtr ParseAnd();
    ExpressionPtr ParseNot();
    ExpressionPtr ParsePredicate();
    ExpressionPtr ParseComparison(ExpressionPtr left);
    ExpressionPtr ParseIsNull(ExpressionPtr left);
    ExpressionPtr ParseIn(ExpressionPtr left, bool negated);
    ExpressionPtr ParseLike(ExpressionPtr left, bool negated);
    ExpressionPtr ParseBetween(ExpressionPtr left, bool negated);
    ExpressionPtr ParseSum();
    ExpressionPtr ParseProduct();
    ExpressionPtr ParseSigned();
    ExpressionPtr ParsePrimary();
    ExpressionPtr ParseParentheses();
    ExpressionPtr ParseExists();
    ExpressionPtr ParseCase();
    ExpressionPtr ParseCast();
    ExpressionPtr ParseConvert();
    ExpressionPtr ParseCall();
    ExpressionPtr ParseColumn();

    /// The length of a text's type.
    int ExpectLength(const SqlType& type);
    ExpressionPtr ParseText();
    /// The node of the piece that stands here, which is taken.
    ExpressionPtr Leaf(Expression::Node node);
    /// The sign of the arithmetic that stands here.
    QChar TakeSign();
    std::unique_ptr<Query> ParseSubquery();

    /// Gives the value back, or raises the syntax error for a condition.
    ExpressionPtr Value(ExpressionPtr expression) const;
    ExpressionPtr Condition(ExpressionPtr expression) const;

    TokenCursor& mCursor;
};
