#pragma once

#include <QString>

/// The file of a hospital with so many patients, each with one visit on file, and a year of three charge
/// lines to two patients: 1.5 million of them at a million patients. It is kept beside the benchmarks'
/// program once it is made.
QString ScaleHospital(int patients);
