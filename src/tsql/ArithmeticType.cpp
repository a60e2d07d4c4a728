#include "tsql/ArithmeticType.h"

#include "tsql/ServerError.h"
#include "tsql/Units.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastScale = 6;

SqlType FittedDecimal(int precision, int scale) {
    if (precision <= kMostDigits)
        return SqlType::Decimal(precision, scale);
    // Digits before the point come first; of those behind it six are kept as long as they may.
    const int left = scale - (precision - kMostDigits);
    return SqlType::Decimal(kMostDigits, std::max(left, std::min(scale, kLeastScale)));
}

SqlType DecimalResult(QChar sign, const SqlType& a, const SqlType& b) {
    const int whole = std::max(a.precision - a.scale, b.precision - b.scale);
    switch (sign.unicode()) {
    case u'*':
        return FittedDecimal(a.precision + b.precision + 1, a.scale + b.scale);
    case u'/': {
        const int scale = std::max(kLeastScale, a.scale + b.precision + 1);
        return FittedDecimal(a.precision - a.scale + b.scale + scale, scale);
    }
    case u'%': {
        const int scale = std::max(a.scale, b.scale);
        return FittedDecimal(std::min(a.precision - a.scale, b.precision - b.scale) + scale, scale);
    }
    default: {
        // Here the digits before the point keep their places, and those behind it have the rest.
        const int scale = std::max(a.scale, b.scale);
        const int precision = std::min(whole + scale + 1, kMostDigits);
        return SqlType::Decimal(precision, std::min(scale, kMostDigits - whole));
    }
    }
}

} // namespace

SqlType ArithmeticType(QChar sign, const SqlType& left, const SqlType& right) {
    const SqlType& higher = left.kind >= right.kind ? left : right;
    const bool withNull = left.IsNull() || right.IsNull();
    if (higher.kind == SqlType::Kind::Decimal && !withNull)
        return DecimalResult(sign, left, right);
    if (higher.kind == SqlType::Kind::Bit)
        return SqlType::Int();
    return higher.IsWhole() ? AnyWhole(higher) : higher;
}

SqlType SumType(const SqlType& type) {
    return type.kind == SqlType::Kind::Money ? type : SqlType::Decimal(kMostDigits, type.scale);
}

SqlType AverageType(const SqlType& type) {
    return type.kind == SqlType::Kind::Money
               ? type
               : SqlType::Decimal(kMostDigits, std::max(type.scale, kLeastScale));
}

std::pair<Cell, SqlType> NumberLiteral(const QString& text) {
    if (text.contains(u'e', Qt::CaseInsensitive)) {
        bool fits = false;
        const double number = text.toDouble(&fits);
        if (!fits)
            throw ServerError(Fault::FloatOutOfRange, {text});
        return {number, SqlType::Float()};
    }
    const qsizetype point = text.indexOf(u'.');
    const int scale = point < 0 ? 0 : static_cast<int>(text.size() - point - 1);
    // A literal counts with the digits that it has, not with those that its type may have.
    qsizetype zeros = 0;
    while (zeros < text.size() && text[zeros] == u'0')
        ++zeros;
    const int whole = static_cast<int>((point < 0 ? text.size() : point) - zeros);
    const int digits = std::max(whole + scale, 1);
    const auto units = digits > kMostDigits ? std::nullopt : ReadFixed(text.toLatin1(), scale).units;
    if (!units)
        throw ServerError(Fault::NumberTooLong, {text});
    if (point < 0 && *units <= std::numeric_limits<qint32>::max()) {
        SqlType type = SqlType::Int();
        type.precision = digits;
        return {static_cast<qint64>(*units), type};
    }
    const SqlType type = SqlType::Decimal(digits, scale);
    return {UnitsCell(*units, type).value_or(Cell()), type};
}

QString OperatorName(QChar sign) {
    switch (sign.unicode()) {
    case u'+':
        return u"add"_s;
    case u'-':
        return u"subtract"_s;
    case u'*':
        return u"multiply"_s;
    case u'/':
        return u"divide"_s;
    default:
        return u"modulo"_s;
    }
}
