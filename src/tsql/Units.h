#pragma once

#include "tsql/Convert.h"
#include "tsql/SqlType.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// Money and decimals as whole numbers: so many units of their last decimal. 38 digits fit, and a few more,
/// so that nothing is lost on the way to a result.
__extension__ using Units = __int128;

/// The digits that a decimal may have at most.
constexpr int kMostDigits = 38;

/// The units of a value of that type, which is a whole number, money or a decimal.
Units ReadUnits(const Cell& value, const SqlType& type);
/// The units as a value of that type, which is money or a decimal; nothing where the type cannot hold them.
std::optional<Cell> UnitsCell(Units units, const SqlType& type);

/// The same number with another count of decimals, rounded half away from zero; nothing beyond 38 digits.
std::optional<Units> Rescaled(Units units, int from, int to);
/// The same number without the decimals behind the first so many.
Units CutBehind(Units units, int scale, int kept);

/// The product, its last `dropped` digits rounded half away from zero; nothing beyond 38 digits.
std::optional<Units> Product(Units a, Units b, int dropped);
/// The quotient with `shift` digits more than a whole one has, cut behind them; nothing beyond 38 digits. The
/// divisor is not 0.
std::optional<Units> Quotient(Units dividend, Units divisor, int shift);
/// What is left of a division without decimals, with the dividend's sign. Each number is shifted to the left
/// by so many digits. The divisor is not 0.
Units Remainder(Units dividend, int dividendShift, Units divisor, int divisorShift);

/// The number with exactly so many decimals: 125000 with scale 4 is "12.5000".
QByteArray UnitsText(Units units, int scale);

/// What a text says that shall be a number with so many decimals.
struct FixedText {
    bool isNumber = false;
    /// Rounded half away from zero; nothing beyond 38 digits.
    std::optional<Units> units;
};
/// Reads a text such as " -12.50 ", without exponent.
FixedText ReadFixed(QByteArrayView text, int scale);

/// The double that is nearest.
double UnitsToDouble(Units units, int scale);
/// The number rounded to so many decimals, judged by its decimal digits; nothing beyond 38 digits.
std::optional<Units> DoubleToUnits(double value, int scale);
