#pragma once

#include "oracle/Reference.h"

#include <memory>
#include <vector>

/// One row of the table that the expressions look at: its numbers, in the order of the table's columns.
using ReferenceRow = std::vector<Number>;

/// An expression in the server's language, and what the reference makes of it.
class ReferenceExpression {
  public:
    using Pointer = std::shared_ptr<const ReferenceExpression>;

    ReferenceExpression(NumberType type, std::vector<Pointer> parts = {})
        : mType(type)
        , mParts(std::move(parts)) {}
    virtual ~ReferenceExpression() = default;

    const NumberType& Type() const { return mType; }
    /// What it is made of, so that a failing one can be brought down to the part that fails.
    const std::vector<Pointer>& Parts() const { return mParts; }
    /// Whether it is a whole number that is written down, whose digits count beside a decimal.
    virtual bool IsLiteral() const { return false; }

    virtual QString Text() const = 0;
    virtual Outcome Evaluate(const ReferenceRow& row) const = 0;

  protected:
    const ReferenceExpression& Part(size_t number) const { return *mParts[number]; }
    Outcome PartAs(size_t number, const NumberType& type, const ReferenceRow& row) const;

  private:
    NumberType mType;
    std::vector<Pointer> mParts;
};

/// Makers of expressions. Each has the type that the server gives it.
namespace Expressions {

using Pointer = ReferenceExpression::Pointer;

/// A number as it is written down: "7", "-12.50", "1.5e0".
Pointer Literal(const QString& text, const NumberType& type, const Number& number);
Pointer Column(const QString& name, const NumberType& type, size_t number);
Pointer Null(const NumberType& type);
/// sign is one of + - * / %.
Pointer Binary(char sign, Pointer left, Pointer right);
Pointer Minus(Pointer value);
Pointer Cast(Pointer value, const NumberType& type);
/// CASE WHEN left sign right THEN first ELSE second END; sign is one of = < >. Nothing is compared as floats.
Pointer Case(char sign, Pointer left, Pointer right, Pointer first, Pointer second);
Pointer Coalesce(Pointer first, Pointer second);
/// NULLIF(value, other), neither of them a float.
Pointer NullIf(Pointer value, Pointer other);

} // namespace Expressions
