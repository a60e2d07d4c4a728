#include "support/FixedClock.h"
#include "text/Clock.h"

#include <gtest/gtest.h>

TEST(Clock, CanBeReplacedAndGivenBack) {
    const DateTime fixed = *DateTime::FromFields({2001, 2, 3, 4, 5, 6, 0});
    {
        const auto clock = FixedClock(fixed);
        EXPECT_EQ(Now(), fixed);
        EXPECT_EQ(Today(), *DateTime::FromFields({2001, 2, 3}));
    }
    EXPECT_GT(Now(), *DateTime::FromFields({2020, 1, 1}));
}
