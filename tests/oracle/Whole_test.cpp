#include "oracle/Whole.h"

#include <gtest/gtest.h>
#include <limits>

TEST(Whole, KeepsItsDigits) {
    for (const char* digits :
         {"0", "7", "-7", "1000000000", "-999999999999999999", "123000000000000000000000000045"})
        EXPECT_EQ(Whole::FromDigits(digits).Digits(), digits);
    EXPECT_EQ(Whole(std::numeric_limits<std::int64_t>::min()).Digits(), "-9223372036854775808");
    EXPECT_EQ(Whole::FromDigits("-0").Digits(), "0");
    EXPECT_EQ(Whole::PowerOfTen(20).DigitCount(), 21);
}

TEST(Whole, AddsAndSubtractsAcrossZero) {
    EXPECT_EQ((Whole(999999999) + Whole(1)).Digits(), "1000000000");
    EXPECT_EQ((Whole(5) - Whole(8)).Digits(), "-3");
    EXPECT_EQ((Whole(-5) - Whole(-8)).Digits(), "3");
    EXPECT_EQ((Whole::PowerOfTen(27) - Whole(1)).Digits(), "999999999999999999999999999");
    EXPECT_TRUE((Whole(4) - Whole(4)).IsZero());
}

TEST(Whole, MultipliesToAnyLength) {
    EXPECT_EQ((Whole::FromDigits("123456789012345678") * Whole::FromDigits("-987654321098765432")).Digits(),
              "-121932631137021794322511812221002896");
}

TEST(Whole, DividesTowardsZero) {
    EXPECT_EQ((Whole(-7) / Whole(2)).Digits(), "-3");
    EXPECT_EQ((Whole(-7) % Whole(2)).Digits(), "-1");
    EXPECT_EQ((Whole(7) % Whole(-2)).Digits(), "1");
    const Whole dividend = Whole::FromDigits("98765432109876543210987654321098765432");
    const Whole divisor = Whole::FromDigits("1234567890123456789");
    EXPECT_EQ((dividend / divisor * divisor + dividend % divisor).Digits(), dividend.Digits());
    EXPECT_LT(dividend % divisor, divisor);
    EXPECT_EQ((dividend / Whole::PowerOfTen(30)).Digits(), "98765432");
}

TEST(Whole, IsOrdered) {
    EXPECT_LT(Whole(-2), Whole(-1));
    EXPECT_LT(Whole(-1), Whole(0));
    EXPECT_LT(Whole::PowerOfTen(9), Whole::PowerOfTen(18));
}
