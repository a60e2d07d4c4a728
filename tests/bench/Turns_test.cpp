#include "bench/figures/Turns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace {

/// A road that takes what the machine's mood makes of it.
struct Machine {
    std::string order;
    int turns = 0;

    TimedRun Road(char name, double milliseconds) {
        return [this, name, milliseconds] {
            order += name;
            return milliseconds * (++turns / 40 % 2 ? 5 : 1);
        };
    }
};

} // namespace

TEST(Turns, HaveTheRatioOfTheRoadsWhateverTheMachinesMood) {
    Machine machine;
    const Turns turns = InTurns(machine.Road('o', 3), machine.Road('b', 2), {.fewest = 100});
    EXPECT_NEAR(turns.Ratio().value, 1.5, 1e-9);
}

TEST(Turns, ChangeWhoGoesFirst) {
    Machine machine;
    InTurns(machine.Road('o', 1), machine.Road('b', 1), {.fewest = 4});
    EXPECT_EQ(machine.order, "obboobbo");
}

TEST(Turns, EndWhenTheRatioHolds) {
    const auto steady = [] { return 1.0; };
    EXPECT_EQ(InTurns(steady, steady, {.fewest = 5}).ours.size(), 5U);
}

TEST(Turns, GoOnWhileTheRatioDoesNotHold) {
    int turn = 0;
    const auto wild = [&turn] { return ++turn % 2 ? 1.0 : 3.0; };
    const Turns turns = InTurns(wild, [] { return 1.0; }, {.fewest = 5, .most = 41});
    EXPECT_EQ(turns.ours.size(), 41U);
    EXPECT_EQ(turns.bare.size(), 41U);
}

TEST(Turns, EndWhenTheirTimeIsOver) {
    int turn = 0;
    const auto wild = [&turn] { return ++turn % 2 ? 1.0 : 3.0; };
    EXPECT_EQ(
        InTurns(wild, [] { return 1.0; }, {.fewest = 7, .longest = std::chrono::seconds(0)}).ours.size(), 7U);
}
