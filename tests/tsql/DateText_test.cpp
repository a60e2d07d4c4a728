#include "support/CaseName.h"
#include "tsql/DateText.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

using Outcome = ServerDate::Outcome;

struct DateCase {
    std::string name;
    const char* text;
    DateTime::Fields fields;
};

class ReadDate : public testing::TestWithParam<DateCase> {};

struct RefusedCase {
    std::string name;
    const char* text;
    Outcome outcome;
};

class RefusedDate : public testing::TestWithParam<RefusedCase> {};

} // namespace

TEST_P(ReadDate, AsTheServerReadsIt) {
    const ServerDate date = ReadServerDate(GetParam().text);
    ASSERT_EQ(date.outcome, Outcome::Read);
    EXPECT_EQ(date.moment, DateTime::FromFields(GetParam().fields));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReadDate,
    testing::Values(DateCase{"Empty", "", {1900, 1, 1, 0, 0, 0, 0}},
                    DateCase{"Blank", "   ", {1900, 1, 1, 0, 0, 0, 0}},
                    DateCase{"MonthDayYear", "11/21/2026", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"WithoutLeadingZeros", " 1/2/2026 ", {2026, 1, 2, 0, 0, 0, 0}},
                    DateCase{"Dashes", "11-21-2026", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"Points", "11.21.2026", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"ShortYear", "11/21/49", {2049, 11, 21, 0, 0, 0, 0}},
                    DateCase{"ShortYearOfTheLastCentury", "11/21/50", {1950, 11, 21, 0, 0, 0, 0}},
                    DateCase{"YearFirst", "2026-11-21", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"Digits", "20261121", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"SixDigits", "261121", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"YearAlone", "2026", {2026, 1, 1, 0, 0, 0, 0}},
                    DateCase{"Afternoon", "11/21/2026 02:02:03 PM", {2026, 11, 21, 14, 2, 3, 0}},
                    DateCase{"Midnight", "11/21/2026 12:00:00 AM", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"Noon", "11/21/2026 12:30PM", {2026, 11, 21, 12, 30, 0, 0}},
                    DateCase{"HourAlone", "11/21/2026 2 PM", {2026, 11, 21, 14, 0, 0, 0}},
                    DateCase{"Milliseconds", "20261121 14:02:03.045", {2026, 11, 21, 14, 2, 3, 45}},
                    DateCase{"OneDecimalOfASecond", "2026-11-21 14:02:03.5", {2026, 11, 21, 14, 2, 3, 500}},
                    DateCase{"WithT", "2026-11-21T14:02:03", {2026, 11, 21, 14, 2, 3, 0}},
                    DateCase{"TimeAlone", "14:02", {1900, 1, 1, 14, 2, 0, 0}},
                    DateCase{"NamedMonth", "Nov 21 2026  2:02PM", {2026, 11, 21, 14, 2, 0, 0}},
                    DateCase{"NamedMonthWithComma", "november 21, 2026", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"NamedMonthBehindTheDay", "21 NOV 2026", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"NamedMonthWithDashes", "21-Nov-2026", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"NamedMonthBehindTheYear", "2026 Nov 21", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"NamedMonthAndYear", "Nov 2026", {2026, 11, 1, 0, 0, 0, 0}},
                    DateCase{"NamedMonthAndYearWithTime", "nov 2026 14:02", {2026, 11, 1, 14, 2, 0, 0}},
                    DateCase{"YearBeforeItsNamedMonth", "2026 November", {2026, 11, 1, 0, 0, 0, 0}},
                    DateCase{"YearDayAndNamedMonth", "2026 21 Nov", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"DayYearAndNamedMonth", "21 2026 Nov", {2026, 11, 21, 0, 0, 0, 0}},
                    DateCase{"YearAndHour", "2026 2 PM", {2026, 1, 1, 14, 0, 0, 0}},
                    DateCase{"FirstDay", "0001-01-01", {1, 1, 1, 0, 0, 0, 0}}),
    CaseName());

TEST_P(RefusedDate, WithItsReason) {
    EXPECT_EQ(ReadServerDate(GetParam().text).outcome, GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RefusedDate,
    testing::Values(RefusedCase{"Word", "soon", Outcome::NoDate},
                    RefusedCase{"TwoParts", "11/21", Outcome::NoDate},
                    RefusedCase{"Rest", "11/21/2026 x", Outcome::NoDate},
                    RefusedCase{"HalfATime", "11/21/2026 14:", Outcome::NoDate},
                    RefusedCase{"NamedMonthAndDay", "Nov 21", Outcome::NoDate},
                    RefusedCase{"NamedMonthAlone", "Nov", Outcome::NoDate},
                    RefusedCase{"NumberAlone", "5", Outcome::NoDate},
                    RefusedCase{"YearOfThreeDigits", "11/21/202", Outcome::NoDate},
                    RefusedCase{"MorningAfterTwelve", "14:02 AM", Outcome::NoDate},
                    RefusedCase{"DayFirst", "21/11/2026", Outcome::OutOfRange},
                    RefusedCase{"NoSuchDay", "02/30/2026", Outcome::OutOfRange},
                    RefusedCase{"MonthOfThreeDigits", "257/21/2026", Outcome::OutOfRange},
                    RefusedCase{"DayOfThreeDigits", "11/277/2026", Outcome::OutOfRange},
                    RefusedCase{"MonthFarOut", "524/21/2026", Outcome::OutOfRange},
                    RefusedCase{"NamedMonthDayOfThreeDigits", "Nov 277 2026", Outcome::OutOfRange},
                    RefusedCase{"NoSuchHour", "11/21/2026 24:00", Outcome::OutOfRange},
                    RefusedCase{"TooEarly", "12/31/0000", Outcome::OutOfRange}),
    CaseName());

TEST(StoredDateText, SortsAndComesBack) {
    const DateTime moment = *DateTime::FromFields({2026, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(StoredDateTime(moment), "2026-01-02 03:04:05.006");
    EXPECT_EQ(StoredDate(moment), "2026-01-02");
    EXPECT_EQ(FromStored("2026-01-02 03:04:05.006"), moment);
    EXPECT_EQ(FromStored("2026-01-02"), moment.DateOnly());
    EXPECT_EQ(FromStored("no date"), DateTime());
    EXPECT_EQ(FromStored(""), DateTime());
}

TEST(ServerSteps, EndInThreeDigits) {
    const DateTime day = *DateTime::FromFields({2026, 1, 2, 0, 0, 0, 0});
    const auto stepped = [&](int milliseconds) {
        const DateTime moment = DateTime::FromMilliseconds(day.Milliseconds() + milliseconds);
        return InServerSteps(moment).Milliseconds() - day.Milliseconds();
    };
    const std::vector<qint64> expected = {0, 0, 3, 3, 3, 7, 7, 7, 7, 10, 10, 10};
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
        EXPECT_EQ(stepped(i), expected[static_cast<size_t>(i)]) << i;
        EXPECT_EQ(stepped(123'000 + 20 + i), 123'020 + expected[static_cast<size_t>(i)]) << i;
    }
    EXPECT_EQ(stepped(24 * 60 * 60 * 1000 - 1), 24 * 60 * 60 * 1000);
    // Before the run-time's date 0 too.
    EXPECT_EQ(InServerSteps(*DateTime::FromFields({1800, 1, 2, 0, 0, 0, 5})),
              *DateTime::FromFields({1800, 1, 2, 0, 0, 0, 7}));
}

TEST(ServerDateTextOf, Styles) {
    const DateTime moment = *DateTime::FromFields({2026, 11, 1, 0, 5, 9, 45});
    EXPECT_EQ(ServerDateText(moment, 0), QByteArray("Nov  1 2026 12:05AM"));
    EXPECT_EQ(ServerDateText(moment, 100), QByteArray("Nov  1 2026 12:05AM"));
    EXPECT_EQ(ServerDateText(moment, 101), QByteArray("11/01/2026"));
    EXPECT_EQ(ServerDateText(moment, 120), QByteArray("2026-11-01 00:05:09"));
    EXPECT_EQ(ServerDateText(moment, 121), QByteArray("2026-11-01 00:05:09.045"));
    EXPECT_FALSE(ServerDateText(moment, 7));
}
