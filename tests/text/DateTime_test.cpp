#include "text/DateTime.h"

#include <gtest/gtest.h>

namespace {

DateTime MomentOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DateTime::FromFields({year, month, day, hour, minute, second, 0}).value();
}

} // namespace

TEST(DateTime, StartsAtTheRunTimesDateZero) {
    EXPECT_EQ(DateTime(), MomentOf(1899, 12, 30));
    EXPECT_EQ(DateTime().Milliseconds(), 0);
}

TEST(DateTime, KeepsItsFieldsOnBothSidesOfDateZero) {
    for (const DateTime::Fields fields :
         {DateTime::Fields{2026, 11, 21, 23, 59, 58, 7}, DateTime::Fields{1875, 2, 28, 1, 2, 3, 4},
          DateTime::Fields{2000, 2, 29, 0, 0, 0, 0}}) {
        const DateTime::Fields back = DateTime::FromFields(fields)->ToFields();
        EXPECT_EQ(
            std::tie(back.year, back.month, back.day, back.hour, back.minute, back.second, back.millisecond),
            std::tie(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second,
                     fields.millisecond));
    }
}

TEST(DateTime, RefusesMomentsThatDoNotExist) {
    for (const DateTime::Fields fields :
         {DateTime::Fields{2026, 2, 29}, DateTime::Fields{2026, 13, 1}, DateTime::Fields{2026, 0, 1},
          DateTime::Fields{2026, 1, 0}, DateTime::Fields{2026, 1, 1, 24}, DateTime::Fields{0, 1, 1},
          DateTime::Fields{10000, 1, 1}, DateTime::Fields{2026, 1, 1, 0, 60}, DateTime::Fields{2026, -1, 1},
          DateTime::Fields{2026, 257, 1}, DateTime::Fields{2026, 1, 277}, DateTime::Fields{2026, 512 + 12, 1},
          DateTime::Fields{2026, 1, 512 + 31}, DateTime::Fields{2026, 1, -255},
          DateTime::Fields{65536 + 2026, 1, 1}})
        EXPECT_FALSE(DateTime::FromFields(fields)) << fields.year << "-" << fields.month << "-" << fields.day;
}

TEST(DateTime, DateOnlyCutsTheTimeAlsoBeforeDateZero) {
    EXPECT_EQ(MomentOf(2026, 11, 21, 15, 4).DateOnly(), MomentOf(2026, 11, 21));
    EXPECT_EQ(MomentOf(1899, 12, 29, 15, 4).DateOnly(), MomentOf(1899, 12, 29));
}
