#include "tsql/SqlType.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

SqlType SqlType::Decimal(int precision, int scale) {
    const int kept = std::clamp(precision, 1, 38);
    return {Kind::Decimal, 0, kept, std::clamp(scale, 0, kept)};
}

std::optional<SqlType> SqlType::Named(QStringView name) {
    static const QHash<QString, SqlType> kTypes = {
        {u"int"_s, Int()},
        {u"bigint"_s, BigInt()},
        {u"bit"_s, Bit()},
        {u"float"_s, Float()},
        {u"money"_s, Money()},
        {u"decimal"_s, Decimal(18, 0)},
        {u"datetime"_s, DateTime()},
        {u"date"_s, Date()},
        {u"varchar"_s, {Kind::VarChar, 1, 0, 0}},
        {u"nvarchar"_s, {Kind::NVarChar, 1, 0, 0}},
        {u"char"_s, {Kind::Char, 1, 0, 0}},
    };
    const auto found = kTypes.constFind(name.toString().toLower());
    if (found == kTypes.constEnd())
        return std::nullopt;
    return *found;
}

QString SqlType::Name() const {
    switch (kind) {
    case Kind::Null:
        return u"NULL"_s;
    case Kind::Char:
        return u"char"_s;
    case Kind::VarChar:
        return u"varchar"_s;
    case Kind::NVarChar:
        return u"nvarchar"_s;
    case Kind::Bit:
        return u"bit"_s;
    case Kind::Int:
        return u"int"_s;
    case Kind::BigInt:
        return u"bigint"_s;
    case Kind::Money:
        return u"money"_s;
    case Kind::Decimal:
        return u"numeric"_s;
    case Kind::Float:
        return u"float"_s;
    case Kind::Date:
        return u"date"_s;
    case Kind::DateTime:
        return u"datetime"_s;
    }
    return {};
}

qint64 SqlType::Encode() const {
    return qint64(kind) + (qint64(length + 1) << 8) + (qint64(precision) << 32) + (qint64(scale) << 40);
}

SqlType SqlType::Decode(qint64 code) {
    return {static_cast<Kind>(code & 0xFF), static_cast<int>((code >> 8) & 0xFFFFFF) - 1,
            static_cast<int>((code >> 32) & 0xFF), static_cast<int>((code >> 40) & 0xFF)};
}

QString CollationName() {
    return u"SQL_Latin1_General_CP1_CI_AS"_s;
}

SqlType AnyWhole(const SqlType& type) {
    return type.kind == SqlType::Kind::Bit   ? SqlType::Bit()
           : type.kind == SqlType::Kind::Int ? SqlType::Int()
                                             : SqlType::BigInt();
}

SqlType CommonType(const SqlType& a, const SqlType& b) {
    if (a.IsText() && b.IsText()) {
        SqlType wider = std::max(a.kind, b.kind) == a.kind ? a : b;
        // A char that meets another text is no longer padded to its own length.
        if (wider.kind == SqlType::Kind::Char)
            wider.kind = SqlType::Kind::VarChar;
        const bool unbounded = a.length == SqlType::kUnbounded || b.length == SqlType::kUnbounded;
        wider.length = unbounded ? SqlType::kUnbounded : std::max(a.length, b.length);
        return wider;
    }
    const SqlType& higher = a.kind >= b.kind ? a : b;
    const SqlType& lower = a.kind >= b.kind ? b : a;
    if (higher.IsWhole())
        return AnyWhole(higher);
    if (higher.kind != SqlType::Kind::Decimal || !lower.IsNumber())
        return higher;
    const int scale = std::max(a.scale, b.scale);
    return SqlType::Decimal(std::max(a.precision - a.scale, b.precision - b.scale) + scale, scale);
}
