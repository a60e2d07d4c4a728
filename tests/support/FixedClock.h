#pragma once

#include "text/Clock.h"

/// The clock stands at that moment for as long as the replacement lives.
inline Seam<DateTime()>::Replacement FixedClock(const DateTime& moment) {
    return ClockSeam().Replace([moment] { return moment; });
}
