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
    ExpressionPtr ParseIsNull(ExpressionPtr left);
    ExpressionPtr ParseIn(ExpressionPtr left);
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

    ExpressionPtr NewNode(Expression::Kind kind, const QString& text = {}) const;
    ExpressionPtr Leaf(Expression::Kind kind);
    void Append(Expression& parent, ExpressionPtr child) const;
    ExpressionPtr Join(Expression::Kind kind, const QString& text, ExpressionPtr left,
                       ExpressionPtr right) const;
    /// Gives the value back, or raises the syntax error for a condition.
    ExpressionPtr Value(ExpressionPtr expression) const;
    ExpressionPtr Condition(ExpressionPtr expression) const;

    TokenCursor& mCursor;
};
