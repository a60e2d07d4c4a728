#pragma once

#include "charges/ChargeColumns.h"

/// One of the two charge screens, for tests of what both do alike.
struct Twin {
    const char* name;
    const ChargeGridDifferences* differences;
};

inline constexpr Twin kTwins[] = {{"PostCharges", &kPostChargesDifferences},
                                  {"Assessment", &kAssessmentDifferences}};
