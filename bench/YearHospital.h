#pragma once

#include <QString>

/// A year of a busy unit: the file of a hospital with twelve months of 1.5 million charge lines. It is kept
/// beside the benchmarks' program once it is made.
QString YearHospital();
