#include "text/Seam.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace {

int Twice(int number) {
    return 2 * number;
}

TEST(Seam, CallsItsOwnFunctionWhereNothingStandsIn) {
    const Seam<int(int)> seam(Twice);
    EXPECT_EQ(seam(21), 42);
}

TEST(Seam, CallsTheReplacementThatWasMadeLastAndStillLives) {
    Seam<int(int)> seam(Twice);
    {
        const auto outer = seam.Replace([](int number) { return number + 1; });
        EXPECT_EQ(seam(21), 22);
        {
            const auto inner = seam.Replace([](int number) { return number - 1; });
            EXPECT_EQ(seam(21), 20);
        }
        EXPECT_EQ(seam(21), 22);
    }
    EXPECT_EQ(seam(21), 42);
}

TEST(Seam, ItsOwnFunctionCanStandInForAReplacement) {
    Seam<int(int)> seam(Twice);
    const auto outer = seam.Replace([](int) { return 0; });
    const auto own = seam.Replace(seam.Own());
    EXPECT_EQ(seam(21), 42);
}

TEST(Seam, ACallThatHasBegunEndsWithItsFunction) {
    Seam<int()> seam([] { return 0; });
    const auto one = seam.Replace([&seam, kept = std::make_shared<int>(7)] {
        const auto two = seam.Replace([] { return 2; });
        return seam() + *kept;
    });
    EXPECT_EQ(seam(), 9);
    EXPECT_EQ(seam(), 9);
}

TEST(Seam, IsCalledOnOneThreadWhileAnotherReplacesIt) {
    Seam<int()> seam([] { return 1; });
    std::atomic<bool> ended = false;
    std::atomic<bool> wrong = false;
    std::thread caller([&] {
        while (!ended)
            if (const int answer = seam(); answer != 1 && answer != 2)
                wrong = true;
    });
    for (int i = 0; i < 10000; ++i)
        const auto two = seam.Replace([two = 2] { return two; });
    ended = true;
    caller.join();
    EXPECT_FALSE(wrong);
}

} // namespace
