#pragma once

#include <QStringView>

/// The number that a text begins with, as the run-time reads it: an optional sign, digits, at most one point;
/// blanks, tabs and line ends are skipped wherever they stand. Neither exponents nor hexadecimal notation
/// count, so "1E5" is 1 and "&H1F" is 0. A text that begins with no number gives 0.
double Val(QStringView text);
