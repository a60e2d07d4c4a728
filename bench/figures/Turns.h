#pragma once

#include "Figure.h"

#include <chrono>
#include <functional>
#include <vector>

/// What two roads to the same end took, turn by turn, in milliseconds.
struct Turns {
    std::vector<double> ours;
    std::vector<double> bare;

    /// Ours as a multiple of the bare one's time. Each turn has a ratio of its own, so that a mood of the
    /// machine which lasts for a while falls on both.
    Figure Ratio() const;
};

/// When enough turns were measured: the ratio is certain to `within` of itself; but never less than `fewest`,
/// and never more than `most` or for longer than `longest`.
struct TurnLimits {
    size_t fewest = 15;
    size_t most = 401;
    double within = 0.02;
    std::chrono::seconds longest{20};
};

/// Runs a road once and tells the milliseconds of what is compared.
using TimedRun = std::function<double()>;

/// Runs both in turns until the ratio holds; who goes first changes with every turn.
Turns InTurns(const TimedRun& ours, const TimedRun& bare, const TurnLimits& limits = {});

/// What that takes, in milliseconds.
double Milliseconds(const std::function<void()>& run);
