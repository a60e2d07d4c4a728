#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "text/Format.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

struct NumberCase {
    const char* name;
    double number;
    QString pattern;
    QString expected;
};

class FormatNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(FormatNumber, RoundsHalfAwayFromZeroOnTheDecimalText) {
    EXPECT_EQ(Format(GetParam().number, GetParam().pattern), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, FormatNumber,
    testing::Values(
        NumberCase{"Zero", 0, u"0.00"_s, u"0.00"_s}, NumberCase{"Whole", 1250, u"0.00"_s, u"1250.00"_s},
        NumberCase{"HalfUp", 0.125, u"0.00"_s, u"0.13"_s},
        NumberCase{"HalfBelowInBinary", 2.675, u"0.00"_s, u"2.68"_s},
        NumberCase{"OneAndHalfCent", 1.005, u"0.00"_s, u"1.01"_s},
        NumberCase{"Product", 2.5 * 10.005, u"0.00"_s, u"25.01"_s},
        NumberCase{"NegativeHalf", -0.125, u"0.00"_s, u"-0.13"_s},
        NumberCase{"NegativeToZero", -0.001, u"0.00"_s, u"0.00"_s},
        NumberCase{"Carry", 9.995, u"0.00"_s, u"10.00"_s},
        NumberCase{"CarryAll", 0.999, u"0.00"_s, u"1.00"_s}, NumberCase{"Small", 0.004, u"0.00"_s, u"0.00"_s},
        NumberCase{"SmallHalf", 0.005, u"0.00"_s, u"0.01"_s}, NumberCase{"Integer", 1042, u"0"_s, u"1042"_s},
        NumberCase{"IntegerHalf", 2.5, u"0"_s, u"3"_s},
        NumberCase{"LargeAmount", 98765432109.87, u"0.00"_s, u"98765432109.87"_s},
        NumberCase{"BeyondFifteenDigits", 1e17, u"0"_s, u"100000000000000000"_s},
        NumberCase{"LeadingZeros", 7, u"000"_s, u"007"_s},
        NumberCase{"Thousands", 1234567.5, u"#,##0.00"_s, u"1,234,567.50"_s},
        NumberCase{"ThousandsSmall", 999, u"#,##0.00"_s, u"999.00"_s},
        NumberCase{"ThousandsNegative", -1000, u"#,##0.00"_s, u"-1,000.00"_s}),
    CaseName());

TEST(FormatNumberBeyondTheRange, IsAnOverflow) {
    using Limits = std::numeric_limits<double>;
    for (const double number : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        try {
            Format(number, u"0.00");
            ADD_FAILURE() << number << " was formatted";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), RunTime::kOverflow);
        }
    }
}

struct DateCase {
    const char* name;
    DateTime::Fields moment;
    QString pattern;
    QString expected;
};

class FormatDate : public testing::TestWithParam<DateCase> {};

TEST_P(FormatDate, FollowsThePattern) {
    EXPECT_EQ(Format(*DateTime::FromFields(GetParam().moment), GetParam().pattern), GetParam().expected);
}

constexpr DateTime::Fields kAfternoon{2026, 3, 7, 15, 4, 9, 0};
constexpr DateTime::Fields kMidnight{2026, 11, 21, 0, 30, 5, 0};
constexpr DateTime::Fields kNoon{2026, 11, 21, 12, 0, 0, 0};

INSTANTIATE_TEST_SUITE_P(
    Patterns, FormatDate,
    testing::Values(
        DateCase{"Date", kAfternoon, u"mm/dd/yyyy"_s, u"03/07/2026"_s},
        DateCase{"UpperCaseIsTheSame", kAfternoon, u"MM/DD/YYYY hh:mm:ss AM/PM"_s,
                 u"03/07/2026 03:04:09 PM"_s},
        DateCase{"MinutesOnlyBehindHours", kAfternoon, u"mm hh:mm mm"_s, u"03 15:04 03"_s},
        DateCase{"TwelveHourClockOnlyWithAmPm", kAfternoon, u"hh:mm:ss"_s, u"15:04:09"_s},
        DateCase{"TwelveAtMidnight", kMidnight, u"hh:mm:ss AM/PM"_s, u"12:30:05 AM"_s},
        DateCase{"TwelveAtNoon", kNoon, u"hh:mmAM/PM"_s, u"12:00PM"_s},
        DateCase{"NoBlankBeforeAm", kMidnight, u"mm/dd/yyyy hh:mmAM/PM"_s, u"11/21/2026 12:30AM"_s},
        DateCase{"SingleLetters", kAfternoon, u"m/d/yyyy h:mm:ss AM/PM"_s, u"3/7/2026 3:04:09 PM"_s},
        DateCase{"Names", kAfternoon, u"dddd, mmmm d, yyyy"_s, u"Saturday, March 7, 2026"_s},
        DateCase{"OtherLettersKeepTheirCase", kAfternoon, u"YYYY-MM-DDThh:NN GMT"_s,
                 u"2026-03-07T15:04 G3T"_s},
        DateCase{"ShortNames", kAfternoon, u"ddd mmm dd yy"_s, u"Sat Mar 07 26"_s}),
    CaseName());
