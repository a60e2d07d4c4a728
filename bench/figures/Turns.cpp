#include "Turns.h"

Figure Turns::Ratio() const {
    std::vector<double> ratios;
    ratios.reserve(ours.size());
    for (size_t turn = 0; turn < ours.size(); ++turn)
        ratios.push_back(ours[turn] / bare[turn]);
    return MiddleOf(std::move(ratios));
}

Turns InTurns(const TimedRun& ours, const TimedRun& bare, const TurnLimits& limits) {
    const auto start = std::chrono::steady_clock::now();
    Turns turns;
    const auto isEnough = [&] {
        const size_t count = turns.ours.size();
        return count >= limits.fewest &&
               (count >= limits.most || std::chrono::steady_clock::now() - start >= limits.longest ||
                turns.Ratio().Doubt() <= limits.within);
    };
    while (!isEnough()) {
        const bool oursFirst = turns.ours.size() % 2 == 0;
        if (oursFirst)
            turns.ours.push_back(ours());
        turns.bare.push_back(bare());
        if (!oursFirst)
            turns.ours.push_back(ours());
    }
    return turns;
}

double Milliseconds(const std::function<void()>& run) {
    const auto start = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}
