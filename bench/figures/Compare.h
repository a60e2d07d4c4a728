#pragma once

#include "BenchLine.h"

#include <vector>

/// What became of a line from one run to another.
enum class Verdict {
    /// Within the noise: the bounds of both overlap.
    Same,
    Better,
    Worse,
    /// One of them was measured once, so its noise is not known.
    Unjudged
};

/// A line that two runs have, with what was judged in each.
struct Difference {
    QString what;
    Figure before;
    Figure after;
    Verdict verdict = Verdict::Same;
};

/// The lines that are in both, by their text, in the order of the later run.
std::vector<Difference> Differences(const std::vector<BenchLine>& before,
                                    const std::vector<BenchLine>& after);

/// Prints a line for each difference and one for what only one run has. True where nothing is worse.
bool PrintDifferences(const std::vector<BenchLine>& before, const std::vector<BenchLine>& after);
