#pragma once

#include <vector>

/// A figure that was measured several times: the middle one, and the two between which the true middle lies
/// in 95 of 100 measurements. Measured once, all three are the same.
struct Figure {
    double value = 0;
    double low = 0;
    double high = 0;

    /// How far the bounds lie from each other, half of it, as a part of the value.
    double Doubt() const { return (high - low) / 2 / value; }
    bool WasMeasuredOnce() const { return low == high; }
};

/// The middle of some figures with its bounds: the order statistics n/2 -+ 0.98 sqrt(n), by the normal
/// approximation of the sign test. At least one figure is needed; of less than six the bounds are the
/// smallest and the largest.
Figure MiddleOf(std::vector<double> figures);
