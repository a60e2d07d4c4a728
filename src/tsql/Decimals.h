#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// The number rounded half away from zero to so many decimals, judged by its decimal digits: 2.675
/// becomes 2.68, although the nearest double lies below it. The result is the double nearest to the decimal
/// number, so equal decimals are equal doubles.
double RoundToScale(double value, int scale);

/// The number cut to so many decimals, judged by its decimal digits.
double TruncateToScale(double value, int scale);

/// The number with exactly so many decimals: 12.5 with scale 4 is "12.5000".
QByteArray DecimalText(double value, int scale);

/// The number that a text such as " -12.50 " names as a whole; nothing for any other text, the empty one
/// included. An exponent counts only where `withExponent` is set.
std::optional<double> ReadNumber(QByteArrayView text, bool withExponent);
