#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <optional>

/// The number rounded half away from zero to so many decimals, judged by its decimal digits: 2.675
/// becomes 2.68, although the nearest double lies below it. The result is the double nearest to the decimal
/// number, so equal decimals are equal doubles.
double RoundToScale(double value, int scale);

/// The number cut to so many decimals, judged by its decimal digits.
double TruncateToScale(double value, int scale);

/// The number in units of its last of so many decimals, rounded likewise; nothing for one that has more
/// digits than a double surely holds.
std::optional<qint64> NearUnits(double value, int scale);

/// Whether a text is digits with a sign, a point and, where `withExponent` is set, an exponent, each where it
/// may be. The C library would also take "inf", "nan" and hexadecimals.
bool IsPlainNumber(QByteArrayView text, bool withExponent);

/// The number that a text such as " -12.50 " names as a whole; nothing for any other text, the empty one
/// included. An exponent counts only where `withExponent` is set.
std::optional<double> ReadNumber(QByteArrayView text, bool withExponent);
