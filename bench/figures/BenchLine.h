#pragma once

#include "Figure.h"

#include <QString>

/// One line of the benchmarks' table. What is judged is either a ratio of ours to a bare limit that was
/// measured in the same run, or a figure with a limit of its own. Smaller is better in every line.
struct BenchLine {
    QString what;
    /// Of ours and of bare.
    QString unit;
    double ours = 0;
    /// 0 where the line has a limit of its own.
    double bare = 0;
    Figure judged;
    /// The largest judged figure that is still good, 0 for none.
    double promised = 0;

    bool HasBare() const { return bare != 0; }
    /// Whether the promise holds as far as can be told: too much is what lies beyond the noise.
    bool IsGood() const { return promised == 0 || judged.low <= promised; }
};
