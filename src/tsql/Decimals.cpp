#include "tsql/Decimals.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::array<double, 16> kPowers = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
// Beyond this a double holds no further decimal digit that could be rounded.
constexpr double kFullPrecision = 1e15;
// What the double nearest to a decimal number, multiplied once, may lack: a few units in its last place.
constexpr double kNudge = 0x1p-51;
constexpr double kLargestNudge = 0.25;

double Power(int scale) {
    return kPowers[static_cast<size_t>(scale)];
}

bool HasDigitsBehind(double value, int scale) {
    return scale >= 0 && scale < 16 && std::fabs(value) * Power(scale) < kFullPrecision;
}

double RoundLeftOfPoint(double value, int places) {
    const double power = places < 16 ? Power(places) : std::pow(10.0, places);
    return std::copysign(std::floor(std::fabs(value) / power + 0.5) * power, value);
}

double WholeUnits(double value, int scale, double offset) {
    const double units = std::fabs(value) * Power(scale);
    const double nudge = std::min(units * kNudge, kLargestNudge);
    return std::floor(units + nudge + offset);
}

} // namespace

double RoundToScale(double value, int scale) {
    if (scale < 0)
        return RoundLeftOfPoint(value, -scale);
    if (!HasDigitsBehind(value, scale))
        return value;
    const double rounded = WholeUnits(value, scale, 0.5) / Power(scale);
    return value < 0 && rounded != 0 ? -rounded : rounded;
}

double TruncateToScale(double value, int scale) {
    if (scale < 0)
        return std::trunc(value / Power(-scale)) * Power(-scale);
    if (!HasDigitsBehind(value, scale))
        return value;
    const double cut = WholeUnits(value, scale, 0.0) / Power(scale);
    return value < 0 && cut != 0 ? -cut : cut;
}

std::optional<qint64> NearUnits(double value, int scale) {
    if (!HasDigitsBehind(value, scale))
        return std::nullopt;
    const auto units = static_cast<qint64>(WholeUnits(value, scale, 0.5));
    return value < 0 ? -units : units;
}

bool IsPlainNumber(QByteArrayView text, bool withExponent) {
    qsizetype i = 0;
    const auto digits = [&] {
        const qsizetype begin = i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i;
        return i - begin;
    };
    const auto sign = [&] { i += i < text.size() && (text[i] == '+' || text[i] == '-') ? 1 : 0; };
    sign();
    qsizetype found = digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        found += digits();
    }
    if (found > 0 && withExponent && i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        sign();
        if (digits() == 0)
            return false;
    }
    return found > 0 && i == text.size();
}

std::optional<double> ReadNumber(QByteArrayView text, bool withExponent) {
    const QByteArray plain = text.trimmed().toByteArray();
    if (!IsPlainNumber(plain, withExponent))
        return std::nullopt;
    bool ok = false;
    const double number = plain.toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}
