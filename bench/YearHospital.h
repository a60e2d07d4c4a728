#pragma once

#include <QString>

/// A year of a busy unit: the file of a hospital with twelve months of 1.5 million charge lines. It is made
/// once and kept beside the benchmarks' program, under a name that changes with the hospital's tables and
/// with the generator; that takes some minutes.
QString YearHospital();
