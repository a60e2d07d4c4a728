#include "support/CaseName.h"
#include "tsql/Decimals.h"

#include <gtest/gtest.h>

namespace {

struct RoundCase {
    std::string name;
    double value;
    int scale;
    double rounded;
    double cut;
};

class Rounding : public testing::TestWithParam<RoundCase> {};

} // namespace

TEST_P(Rounding, IsThatOfTheDecimalDigits) {
    EXPECT_EQ(RoundToScale(GetParam().value, GetParam().scale), GetParam().rounded);
    EXPECT_EQ(TruncateToScale(GetParam().value, GetParam().scale), GetParam().cut);
}

INSTANTIATE_TEST_SUITE_P(
    Values, Rounding,
    testing::Values(RoundCase{"HalfBelowInBinary", 2.675, 2, 2.68, 2.67},
                    RoundCase{"HalfBelowInBinaryToo", 1.005, 2, 1.01, 1.0}, RoundCase{"Half", 0.5, 0, 1, 0},
                    RoundCase{"NegativeHalf", -0.5, 0, -1, 0},
                    RoundCase{"NegativeDecimal", -2.675, 2, -2.68, -2.67},
                    RoundCase{"BelowHalf", 2.674999, 2, 2.67, 2.67},
                    RoundCase{"NothingToRound", 0.1, 4, 0.1, 0.1},
                    RoundCase{"SumOfDoubles", 0.1 + 0.2, 4, 0.3, 0.3},
                    RoundCase{"CutKeepsWhatIsThere", 1.15, 2, 1.15, 1.15},
                    RoundCase{"CutKeepsManyDigits", 1234567890.12345, 5, 1234567890.12345, 1234567890.12345},
                    RoundCase{"LeftOfThePoint", 1250, -2, 1300, 1200},
                    RoundCase{"NegativeLeftOfThePoint", -1250, -2, -1300, -1200},
                    RoundCase{"BeyondAllDigits", 1e18, 4, 1e18, 1e18}),
    CaseName());

TEST(DecimalsTest, EveryAmountKeepsItsDigits) {
    quint64 state = 1;
    for (int i = 0; i < 200000; ++i) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        const auto units = static_cast<qint64>(state >> 18);
        if (units > 999'999'999'999'999)
            continue;
        const double amount = double(units) / 10000;
        ASSERT_EQ(RoundToScale(amount, 4), amount) << units;
        ASSERT_EQ(TruncateToScale(amount, 4), amount) << units;
        ASSERT_EQ(NearUnits(amount, 4), units);
        // The same digits with a 5 behind the last place are rounded away from zero.
        if (units < 10'000'000'000'000) {
            const double half = double(units * 10 + 5) / 100000;
            ASSERT_EQ(RoundToScale(half, 4), double(units + 1) / 10000) << units;
        }
    }
}

TEST(DecimalsTest, ReadsWholeNumbersOnly) {
    EXPECT_EQ(ReadNumber(" -12.50 ", false), -12.5);
    EXPECT_EQ(ReadNumber("+.5", false), 0.5);
    EXPECT_EQ(ReadNumber("5.", false), 5.0);
    EXPECT_EQ(ReadNumber("1e3", true), 1000.0);
    for (const char* text : {"", " ", ".", "-", "1e3", "1 2", "12x", "0x10", "inf", "nan", "--1"})
        EXPECT_FALSE(ReadNumber(text, false)) << text;
    for (const char* text : {"1e", "1e+", "e5", "1e5.0"})
        EXPECT_FALSE(ReadNumber(text, true)) << text;
}
