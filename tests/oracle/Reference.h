#pragma once

#include "oracle/Whole.h"

#include <QString>

#include <set>

/// The digits that a decimal can have, and the server's number for a result that has more.
constexpr int kMostDigits = 38;
constexpr int kOverflow = 8115;

/// A number's type in the server's language, as the reference knows it.
struct NumberType {
    /// In the server's order of precedence: where two meet, the later one wins.
    enum class Kind { Bit, Int, BigInt, Money, Decimal, Float };

    Kind kind = Kind::Int;
    /// The digits in all, and those behind the point, that the type counts with beside a decimal.
    int precision = 10;
    int scale = 0;

    static NumberType Bit() { return {Kind::Bit, 1, 0}; }
    /// A whole number that is written down counts with the digits that it has.
    static NumberType Int(int precision = 10) { return {Kind::Int, precision, 0}; }
    static NumberType BigInt() { return {Kind::BigInt, 19, 0}; }
    static NumberType Money() { return {Kind::Money, 19, 4}; }
    static NumberType Decimal(int precision, int scale) { return {Kind::Decimal, precision, scale}; }
    static NumberType Float() { return {Kind::Float, 0, 0}; }

    bool IsFloat() const { return kind == Kind::Float; }
    /// As a CAST writes it.
    QString Name() const;
    /// As an answer of the oracle names it.
    QString AnswerName() const;
};

/// A number of some type, or Null: a whole count of units of its last decimal, or a float.
struct Number {
    bool isNull = true;
    Whole units;
    double real = 0;
};

/// What becomes of an expression: a number, or one of these errors. `isUnsure` says that the server's rules
/// do not tell; nobody is asked such a thing then.
struct Outcome {
    Number number;
    std::set<int> errors;
    bool isUnsure = false;

    static Outcome Unsure() { return {{}, {}, true}; }
    static Outcome Error(int number) { return {{}, {number}, false}; }
    static Outcome Null() { return {}; }
    static Outcome Of(Whole units) { return {{false, std::move(units), 0}, {}, false}; }
    /// 8115 for what is no number of a float's.
    static Outcome OfReal(double real);

    bool IsValue() const { return errors.empty() && !isUnsure; }
    bool IsNull() const { return IsValue() && number.isNull; }
};

/// The server's published rules for numbers: the types of results, conversions, the four operations and
/// remainders.
namespace Reference {

/// The type of `left sign right`; sign is one of + - * / %.
NumberType ResultType(char sign, const NumberType& left, const NumberType& right);
/// The type in which two values meet in a CASE, a COALESCE, a UNION or a comparison.
NumberType CommonType(const NumberType& left, const NumberType& right);
/// Whether the digits of a result had to be brought down to 38; what becomes of the others is not told.
bool IsReduced(char sign, const NumberType& left, const NumberType& right);

Outcome Convert(const Outcome& value, const NumberType& from, const NumberType& to);
Outcome Calculate(char sign, const Outcome& left, const NumberType& leftType, const Outcome& right,
                  const NumberType& rightType);
Outcome Negative(const Outcome& value, const NumberType& type);

/// The value as an answer of the oracle writes it.
QString Text(const Number& number, const NumberType& type);

} // namespace Reference
