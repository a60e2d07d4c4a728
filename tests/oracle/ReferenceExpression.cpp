#include "oracle/ReferenceExpression.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Pointer = ReferenceExpression::Pointer;

class LiteralExpression : public ReferenceExpression {
  public:
    LiteralExpression(QString text, NumberType type, Number number)
        : ReferenceExpression(type)
        , mText(std::move(text))
        , mNumber(std::move(number)) {}

    bool IsLiteral() const override { return true; }
    QString Text() const override { return mText; }
    Outcome Evaluate(const ReferenceRow&) const override { return {mNumber, {}, false}; }

  private:
    QString mText;
    Number mNumber;
};

class ColumnExpression : public ReferenceExpression {
  public:
    ColumnExpression(QString name, NumberType type, size_t number)
        : ReferenceExpression(type)
        , mName(std::move(name))
        , mNumber(number) {}

    QString Text() const override { return mName; }
    Outcome Evaluate(const ReferenceRow& row) const override { return {row[mNumber], {}, false}; }

  private:
    QString mName;
    size_t mNumber;
};

class BinaryExpression : public ReferenceExpression {
  public:
    BinaryExpression(char sign, Pointer left, Pointer right)
        : ReferenceExpression(Reference::ResultType(sign, left->Type(), right->Type()), {left, right})
        , mSign(sign) {}

    QString Text() const override {
        return u"(%1 %2 %3)"_s.arg(Part(0).Text(), QString(QLatin1Char(mSign)), Part(1).Text());
    }
    Outcome Evaluate(const ReferenceRow& row) const override {
        return Reference::Calculate(mSign, Part(0).Evaluate(row), Part(0).Type(), Part(1).Evaluate(row),
                                    Part(1).Type());
    }

  private:
    char mSign;
};

class MinusExpression : public ReferenceExpression {
  public:
    explicit MinusExpression(const Pointer& value)
        : ReferenceExpression(value->Type(), {value}) {}

    // The parentheses keep two of them from becoming a comment.
    QString Text() const override { return u"(-%1)"_s.arg(Part(0).Text()); }
    Outcome Evaluate(const ReferenceRow& row) const override {
        return Reference::Negative(Part(0).Evaluate(row), Type());
    }
};

class CastExpression : public ReferenceExpression {
  public:
    CastExpression(const Pointer& value, const NumberType& type)
        : ReferenceExpression(type, {value}) {}

    QString Text() const override { return u"CAST(%1 AS %2)"_s.arg(Part(0).Text(), Type().Name()); }
    Outcome Evaluate(const ReferenceRow& row) const override { return PartAs(0, Type(), row); }
};

/// How two values that are compared stand to each other; nothing but `outcome` where they do not.
struct Comparison {
    Outcome outcome;
    std::strong_ordering order = std::strong_ordering::equal;
};

Comparison Compare(const ReferenceExpression& left, const ReferenceExpression& right,
                   const ReferenceRow& row) {
    const NumberType type = Reference::CommonType(left.Type(), right.Type());
    const Outcome a = Reference::Convert(left.Evaluate(row), left.Type(), type);
    const Outcome b = Reference::Convert(right.Evaluate(row), right.Type(), type);
    // An error beside Null may be spared, or not.
    if (a.isUnsure || b.isUnsure || (!a.IsValue() && b.IsNull()) || (a.IsNull() && !b.IsValue()))
        return {Outcome::Unsure()};
    if (!a.IsValue() || !b.IsValue()) {
        Outcome both = a;
        both.errors.insert(b.errors.begin(), b.errors.end());
        return {both};
    }
    if (a.IsNull() || b.IsNull())
        return {Outcome::Null()};
    return {a, a.number.units <=> b.number.units};
}

class CaseExpression : public ReferenceExpression {
  public:
    CaseExpression(char sign, const Pointer& left, const Pointer& right, const Pointer& first,
                   const Pointer& second)
        : ReferenceExpression(Reference::CommonType(first->Type(), second->Type()),
                              {left, right, first, second})
        , mSign(sign) {}

    QString Text() const override {
        return u"CASE WHEN %1 %2 %3 THEN %4 ELSE %5 END"_s.arg(
            Part(0).Text(), QString(QLatin1Char(mSign)), Part(1).Text(), Part(2).Text(), Part(3).Text());
    }
    Outcome Evaluate(const ReferenceRow& row) const override {
        const Comparison comparison = Compare(Part(0), Part(1), row);
        if (!comparison.outcome.IsValue())
            return comparison.outcome;
        return PartAs(!comparison.outcome.IsNull() && Holds(comparison.order) ? 2 : 3, Type(), row);
    }

  private:
    bool Holds(std::strong_ordering order) const {
        return mSign == '=' ? order == 0 : mSign == '<' ? order < 0 : order > 0;
    }

    char mSign;
};

class CoalesceExpression : public ReferenceExpression {
  public:
    CoalesceExpression(const Pointer& first, const Pointer& second)
        : ReferenceExpression(Reference::CommonType(first->Type(), second->Type()), {first, second}) {}

    QString Text() const override { return u"COALESCE(%1, %2)"_s.arg(Part(0).Text(), Part(1).Text()); }
    Outcome Evaluate(const ReferenceRow& row) const override {
        const Outcome first = Part(0).Evaluate(row);
        return PartAs(first.IsNull() ? 1 : 0, Type(), row);
    }
};

class NullIfExpression : public ReferenceExpression {
  public:
    NullIfExpression(const Pointer& value, const Pointer& other)
        : ReferenceExpression(value->Type(), {value, other}) {}

    QString Text() const override { return u"NULLIF(%1, %2)"_s.arg(Part(0).Text(), Part(1).Text()); }
    Outcome Evaluate(const ReferenceRow& row) const override {
        const Comparison comparison = Compare(Part(0), Part(1), row);
        if (!comparison.outcome.IsValue())
            return comparison.outcome;
        const bool isEqual = !comparison.outcome.IsNull() && comparison.order == 0;
        return isEqual ? Outcome::Null() : Part(0).Evaluate(row);
    }
};

} // namespace

Outcome ReferenceExpression::PartAs(size_t number, const NumberType& type, const ReferenceRow& row) const {
    return Reference::Convert(Part(number).Evaluate(row), Part(number).Type(), type);
}

Pointer Expressions::Literal(const QString& text, const NumberType& type, const Number& number) {
    return std::make_shared<LiteralExpression>(text, type, number);
}

Pointer Expressions::Column(const QString& name, const NumberType& type, size_t number) {
    return std::make_shared<ColumnExpression>(name, type, number);
}

Pointer Expressions::Null(const NumberType& type) {
    return std::make_shared<LiteralExpression>(u"CAST(NULL AS %1)"_s.arg(type.Name()), type, Number{});
}

Pointer Expressions::Binary(char sign, Pointer left, Pointer right) {
    return std::make_shared<BinaryExpression>(sign, std::move(left), std::move(right));
}

Pointer Expressions::Minus(Pointer value) {
    return std::make_shared<MinusExpression>(value);
}

Pointer Expressions::Cast(Pointer value, const NumberType& type) {
    return std::make_shared<CastExpression>(value, type);
}

Pointer Expressions::Case(char sign, Pointer left, Pointer right, Pointer first, Pointer second) {
    return std::make_shared<CaseExpression>(sign, left, right, first, second);
}

Pointer Expressions::Coalesce(Pointer first, Pointer second) {
    return std::make_shared<CoalesceExpression>(first, second);
}

Pointer Expressions::NullIf(Pointer value, Pointer other) {
    return std::make_shared<NullIfExpression>(value, other);
}
