#include "oracle/Reference.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Kind = NumberType::Kind;

constexpr int kDivideByZero = 8134;
constexpr int kRealOverflow = 232;
constexpr int kIncompatible = 402;
constexpr int kLeastScale = 6;

bool IsWholeKind(Kind kind) {
    return kind == Kind::Bit || kind == Kind::Int || kind == Kind::BigInt;
}

Whole LimitOf(Kind kind) {
    return kind == Kind::Int ? Whole(2147483648) : Whole::FromDigits("9223372036854775808");
}

bool Fits(const Whole& units, const NumberType& type) {
    if (type.kind == Kind::Bit)
        return true;
    if (type.kind == Kind::Decimal)
        return units.Magnitude() < Whole::PowerOfTen(type.precision);
    return units < LimitOf(type.kind) && units >= -LimitOf(type.kind);
}

Outcome Fitted(Whole units, const NumberType& type) {
    return Fits(units, type) ? Outcome::Of(std::move(units)) : Outcome::Error(kOverflow);
}

/// Units of one scale in units of another, what is lost cut off or rounded half away from zero.
Whole Rescaled(const Whole& units, int from, int to, bool isRounded) {
    if (to >= from)
        return units * Whole::PowerOfTen(to - from);
    const Whole divisor = Whole::PowerOfTen(from - to);
    Whole whole = units / divisor;
    if (isRounded && (units % divisor).Magnitude() * Whole(2) >= divisor)
        whole = whole + Whole(units.IsNegative() ? -1 : 1);
    return whole;
}

QString Digits(const Whole& units, int scale) {
    std::string digits = units.Magnitude().Digits();
    if (scale > 0) {
        if (digits.size() <= static_cast<size_t>(scale))
            digits.insert(0, static_cast<size_t>(scale) + 1 - digits.size(), '0');
        digits.insert(digits.size() - static_cast<size_t>(scale), ".");
    }
    return QString::fromStdString((units.IsNegative() ? "-" : "") + digits);
}

double RealOf(const Number& number, const NumberType& type) {
    return type.IsFloat() ? number.real : Digits(number.units, type.scale).toDouble();
}

Outcome RealToWhole(double real, const NumberType& to) {
    const double cut = std::trunc(real);
    // What the server says beyond a bigint depends on its age.
    if (std::fabs(cut) > 9e18)
        return to.kind == Kind::Int ? Outcome::Error(kRealOverflow) : Outcome::Unsure();
    const Whole units(static_cast<std::int64_t>(cut));
    return Fits(units, to) ? Outcome::Of(units) : Outcome::Error(kRealOverflow);
}

/// Only where the double leaves no doubt on the digits: not near a half, not where its own steps come near
/// one.
Outcome RealToFixed(double real, const NumberType& to) {
    constexpr double kSureDigits = 1e11;
    constexpr double kDoubt = 1e-3;
    const double scaled = std::fabs(real) * std::pow(10.0, to.scale);
    if (scaled > kSureDigits || std::fabs(scaled - std::floor(scaled) - 0.5) < kDoubt)
        return Outcome::Unsure();
    const Whole units(static_cast<std::int64_t>(std::floor(scaled + 0.5)));
    return Fitted(real < 0 ? -units : units, to);
}

Outcome FromReal(double real, const NumberType& to) {
    switch (to.kind) {
    case Kind::Float:
        return Outcome::OfReal(real);
    case Kind::Bit:
        return Outcome::Of(real != 0 ? 1 : 0);
    case Kind::Int:
    case Kind::BigInt:
        return RealToWhole(real, to);
    default:
        return RealToFixed(real, to);
    }
}

NumberType Capped(int precision, int scale) {
    return NumberType::Decimal(std::min(precision, kMostDigits), scale);
}

/// Where a product or a quotient has more than 38 digits, those before the point come first; of the others
/// six stay.
NumberType Reduced(int precision, int scale) {
    if (precision <= kMostDigits)
        return NumberType::Decimal(precision, scale);
    const int whole = precision - scale;
    return Capped(precision, std::max(kMostDigits - whole, std::min(scale, kLeastScale)));
}

struct Digit {
    int precision;
    int scale;
};

/// The digits that a result of decimals would have if there were no bound.
Digit Unbounded(char sign, const NumberType& a, const NumberType& b) {
    const int scale = std::max(a.scale, b.scale);
    switch (sign) {
    case '*':
        return {a.precision + b.precision + 1, a.scale + b.scale};
    case '/': {
        const int behind = std::max(kLeastScale, a.scale + b.precision + 1);
        return {a.precision - a.scale + b.scale + behind, behind};
    }
    case '%':
        return {std::min(a.precision - a.scale, b.precision - b.scale) + scale, scale};
    default:
        return {std::max(a.precision - a.scale, b.precision - b.scale) + scale + 1, scale};
    }
}

Kind HigherKind(const NumberType& a, const NumberType& b) {
    return std::max(a.kind, b.kind);
}

Outcome CalculateReal(char sign, double a, double b) {
    switch (sign) {
    case '+':
        return Outcome::OfReal(a + b);
    case '-':
        return Outcome::OfReal(a - b);
    case '*':
        return Outcome::OfReal(a * b);
    case '/':
        return b == 0 ? Outcome::Error(kDivideByZero) : Outcome::OfReal(a / b);
    default:
        return Outcome::Error(kIncompatible);
    }
}

Outcome Quotient(const Whole& a, const Whole& b, int shift, const NumberType& type, bool isReduced) {
    if (b.IsZero())
        return Outcome::Error(kDivideByZero);
    const Whole dividend = shift >= 0 ? a * Whole::PowerOfTen(shift) : a;
    const Whole divisor = shift >= 0 ? b : b * Whole::PowerOfTen(-shift);
    if (isReduced && !(dividend % divisor).IsZero())
        return Outcome::Unsure();
    return Fitted(dividend / divisor, type);
}

Outcome Remainder(const Whole& a, const Whole& b, const NumberType& type) {
    if (b.IsZero())
        return Outcome::Error(kDivideByZero);
    // What is left of the smallest number divided by -1 has no place on some servers.
    if (IsWholeKind(type.kind) && b == Whole(-1) && a == -LimitOf(type.kind))
        return Outcome::Unsure();
    return Fitted(a % b, type);
}

/// Both are whole numbers or money of the result's own type.
Outcome CalculateSame(char sign, const Whole& a, const Whole& b, const NumberType& type) {
    switch (sign) {
    case '+':
        return Fitted(a + b, type);
    case '-':
        return Fitted(a - b, type);
    case '*': {
        const Whole unit = Whole::PowerOfTen(type.scale);
        // Whether a product of money is rounded or cut is not told.
        return (a * b % unit).IsZero() ? Fitted(a * b / unit, type) : Outcome::Unsure();
    }
    case '/':
        return Quotient(a, b, type.scale, type, false);
    default:
        return Remainder(a, b, type);
    }
}

Outcome CalculateDecimal(char sign, const Whole& a, int aScale, const Whole& b, int bScale,
                         const NumberType& type, bool isReduced) {
    const int scale = std::max(aScale, bScale);
    const Whole left = Rescaled(a, aScale, scale, false);
    const Whole right = Rescaled(b, bScale, scale, false);
    if (sign == '/')
        return Quotient(a, b, type.scale - aScale + bScale, type, isReduced);
    if (sign == '%')
        return Remainder(left, right, type);
    const Whole exact = sign == '*' ? a * b : sign == '+' ? left + right : left - right;
    const int exactScale = sign == '*' ? aScale + bScale : scale;
    if (exactScale > type.scale && !(exact % Whole::PowerOfTen(exactScale - type.scale)).IsZero())
        return Outcome::Unsure();
    return Fitted(Rescaled(exact, exactScale, type.scale, false), type);
}

} // namespace

QString NumberType::Name() const {
    switch (kind) {
    case Kind::Bit:
        return u"bit"_s;
    case Kind::Int:
        return u"int"_s;
    case Kind::BigInt:
        return u"bigint"_s;
    case Kind::Money:
        return u"money"_s;
    case Kind::Decimal:
        return u"decimal(%1,%2)"_s.arg(precision).arg(scale);
    default:
        return u"float"_s;
    }
}

QString NumberType::AnswerName() const {
    return kind == Kind::Decimal ? u"decimal %1"_s.arg(scale) : Name();
}

Outcome Outcome::OfReal(double real) {
    if (!std::isfinite(real))
        return Error(kOverflow);
    // A zero has no sign that anybody would see.
    return {{false, {}, real == 0 ? 0 : real}, {}, false};
}

NumberType Reference::ResultType(char sign, const NumberType& left, const NumberType& right) {
    const Kind higher = HigherKind(left, right);
    if (higher == Kind::Float)
        return NumberType::Float();
    if (higher == Kind::Money)
        return NumberType::Money();
    if (higher == Kind::BigInt)
        return NumberType::BigInt();
    if (higher != Kind::Decimal)
        return NumberType::Int();
    const Digit digit = Unbounded(sign, left, right);
    if (sign == '*' || sign == '/')
        return Reduced(digit.precision, digit.scale);
    // The digit that a sum may carry over does not count; a remainder never has more digits than its sides.
    const int whole = digit.precision - digit.scale - (sign == '%' ? 0 : 1);
    return Capped(digit.precision, std::min(digit.scale, kMostDigits - whole));
}

bool Reference::IsReduced(char sign, const NumberType& left, const NumberType& right) {
    return HigherKind(left, right) == Kind::Decimal && Unbounded(sign, left, right).precision > kMostDigits;
}

NumberType Reference::CommonType(const NumberType& left, const NumberType& right) {
    const Kind higher = HigherKind(left, right);
    if (higher != Kind::Decimal)
        return left.kind == higher ? left : right;
    const int scale = std::max(left.scale, right.scale);
    return Capped(std::max(left.precision - left.scale, right.precision - right.scale) + scale, scale);
}

Outcome Reference::Convert(const Outcome& value, const NumberType& from, const NumberType& to) {
    if (!value.IsValue() || value.IsNull())
        return value;
    if (from.IsFloat())
        return FromReal(value.number.real, to);
    if (to.IsFloat())
        return Outcome::OfReal(RealOf(value.number, from));
    if (to.kind == Kind::Bit)
        return Outcome::Of(value.number.units.IsZero() ? 0 : 1);
    // Decimals lose what is behind their point where they become whole numbers; money is rounded.
    const bool isRounded = !(from.kind == Kind::Decimal && IsWholeKind(to.kind));
    return Fitted(Rescaled(value.number.units, from.scale, to.scale, isRounded), to);
}

Outcome Reference::Calculate(char sign, const Outcome& left, const NumberType& leftType, const Outcome& right,
                             const NumberType& rightType) {
    if (left.isUnsure || right.isUnsure)
        return Outcome::Unsure();
    if (!left.errors.empty() || !right.errors.empty()) {
        // Which half the server looks at first is its own affair, and Null may spare it the other one.
        if (left.IsNull() || right.IsNull())
            return Outcome::Unsure();
        Outcome both = left;
        both.errors.insert(right.errors.begin(), right.errors.end());
        return both;
    }
    const NumberType type = ResultType(sign, leftType, rightType);
    if (sign == '%' && type.IsFloat())
        return Outcome::Error(kIncompatible);
    if (left.IsNull() || right.IsNull()) {
        const bool dividesByZero =
            (sign == '/' || sign == '%') && !right.IsNull() && right.number.units.IsZero();
        const bool failsToMeet = type.kind != Kind::Decimal && (!Convert(left, leftType, type).IsValue() ||
                                                                !Convert(right, rightType, type).IsValue());
        return dividesByZero || failsToMeet ? Outcome::Unsure() : Outcome::Null();
    }
    if (type.IsFloat())
        return CalculateReal(sign, RealOf(left.number, leftType), RealOf(right.number, rightType));
    if (type.kind == Kind::Decimal)
        return CalculateDecimal(sign, left.number.units, leftType.scale, right.number.units, rightType.scale,
                                type, IsReduced(sign, leftType, rightType));
    const Outcome a = Convert(left, leftType, type);
    const Outcome b = Convert(right, rightType, type);
    if (!a.IsValue() || !b.IsValue())
        return a.IsValue() ? b : a;
    return CalculateSame(sign, a.number.units, b.number.units, type);
}

Outcome Reference::Negative(const Outcome& value, const NumberType& type) {
    if (!value.IsValue() || value.IsNull())
        return value;
    return type.IsFloat() ? Outcome::OfReal(-value.number.real) : Fitted(-value.number.units, type);
}

QString Reference::Text(const Number& number, const NumberType& type) {
    if (number.isNull)
        return u"NULL"_s;
    if (type.IsFloat())
        return QString::number(number.real, 'g', QLocale::FloatingPointShortest);
    return Digits(number.units, type.scale);
}
