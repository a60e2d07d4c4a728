#include "trial/translate/KnownValue.h"

#include "tsql/Units.h"

namespace {

Cell Negative(const Cell& value, const SqlType& type) {
    if (type.IsWide())
        return *UnitsCell(-ReadUnits(value, type), type);
    if (const auto* whole = std::get_if<qint64>(&value))
        return -*whole;
    const auto* real = std::get_if<double>(&value);
    return real ? Cell(-*real) : value;
}

} // namespace

KnownValue KnownValue::Negated(const SqlType& type) const {
    KnownValue result = *this;
    result.mValue = Negative(*mValue, type);
    result.mNegated = !mNegated;
    return result;
}

KnownValue KnownValue::Converted(const SqlType& from, const SqlType& to, ConversionPlace place,
                                 int style) const {
    KnownValue result = *this;
    result.mValue = Convert(*mValue, from, to, place, style);
    if (mLiteral >= 0)
        result.mConversions.push_back({from, to, place, style});
    return result;
}

void KnownValue::Take(const std::vector<Literal>& literals) {
    if (mLiteral < 0)
        return;
    const Literal& literal = literals[static_cast<size_t>(mLiteral)];
    mValue = mNegated ? Negative(literal.value, literal.type) : literal.value;
    for (const Conversion& step : mConversions)
        mValue = Convert(*mValue, step.from, step.to, step.place, step.style);
}
