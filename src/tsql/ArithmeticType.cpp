#include "tsql/ArithmeticType.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostDigits = 38;
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
        const int scale = std::max(a.scale, b.scale);
        return FittedDecimal(whole + scale + 1, scale);
    }
    }
}

} // namespace

SqlType ArithmeticType(QChar sign, const SqlType& left, const SqlType& right) {
    if (left.IsNull() || right.IsNull())
        return left.IsNull() ? right : left;
    const SqlType& higher = left.kind >= right.kind ? left : right;
    if (higher.kind == SqlType::Kind::Decimal)
        return DecimalResult(sign, left, right);
    return higher.kind == SqlType::Kind::Bit ? SqlType::Int() : higher;
}

std::pair<Cell, SqlType> NumberLiteral(const QString& text) {
    if (text.contains(u'e', Qt::CaseInsensitive))
        return {text.toDouble(), SqlType::Float()};
    bool whole = false;
    const qint64 number = text.toLongLong(&whole);
    if (whole) {
        const bool fits = number <= std::numeric_limits<qint32>::max();
        SqlType type = fits ? SqlType::Int() : SqlType::BigInt();
        // Beside a decimal a literal counts with the digits that it has, not with those that an int may have.
        type.precision = static_cast<int>(QString::number(number).size());
        return {number, type};
    }
    const qsizetype point = text.indexOf(u'.');
    const int scale = point < 0 ? 0 : static_cast<int>(text.size() - point - 1);
    const int digits = static_cast<int>(text.size()) - (point < 0 ? 0 : 1);
    return {text.toDouble(), SqlType::Decimal(std::max(digits, 1), scale)};
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
