#include "text/DateDiff.h"

#include <gtest/gtest.h>

namespace {

DateTime At(int year, int month, int day, int hour = 0, int minute = 0) {
    return DateTime::FromFields({year, month, day, hour, minute, 0, 0}).value();
}

} // namespace

TEST(DateDiff, CountsMidnightsCrossed) {
    EXPECT_EQ(DateDiff(DateInterval::Day, At(2026, 11, 20, 23, 59), At(2026, 11, 21, 0, 1)), 1);
    EXPECT_EQ(DateDiff(DateInterval::Day, At(2026, 11, 21, 0, 1), At(2026, 11, 21, 23, 59)), 0);
    EXPECT_EQ(DateDiff(DateInterval::Day, At(2026, 11, 21), At(2026, 11, 1)), -20);
}

TEST(DateDiff, CountsTurnsOfTheYear) {
    EXPECT_EQ(DateDiff(DateInterval::Year, At(2025, 12, 31), At(2026, 1, 1)), 1);
    EXPECT_EQ(DateDiff(DateInterval::Year, At(2026, 1, 1), At(2026, 12, 31)), 0);
}
