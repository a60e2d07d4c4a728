#include "support/CaseName.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "text/Format.h"
#include "text/IsDate.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct ParseCase {
    const char* name;
    QString text;
    /// As "yyyy-mm-dd hh:nn:ss", empty for no date.
    QString expected;
};

class ParseDateTest : public testing::TestWithParam<ParseCase> {
  protected:
    const Seam<DateTime()>::Replacement clock =
        FixedClock(*DateTime::FromFields({2026, 11, 21, 10, 0, 0, 0}));
};

TEST_P(ParseDateTest, ReadsDatesByTheRunTimesRules) {
    const auto date = ParseDate(GetParam().text);
    EXPECT_EQ(date ? Format(*date, u"yyyy-mm-dd hh:nn:ss") : QString(), GetParam().expected);
    EXPECT_EQ(IsDate(GetParam().text), !GetParam().expected.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ParseDateTest,
    testing::Values(ParseCase{"MonthFirst", u"11/05/2026"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"Unpadded", u"1/5/2026"_s, u"2026-01-05 00:00:00"_s},
                    ParseCase{"DayFirstWhereItMustBe", u"21/11/2026"_s, u"2026-11-21 00:00:00"_s},
                    ParseCase{"TwoDigitYear", u"11/05/26"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"TwoDigitYearOfTheLastCentury", u"11/05/75"_s, u"1975-11-05 00:00:00"_s},
                    ParseCase{"Dashes", u"11-05-2026"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"Iso", u"2026-11-05"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"WithTime", u"11/05/2026 03:04:09 PM"_s, u"2026-11-05 15:04:09"_s},
                    ParseCase{"NoBlankBeforeAm", u"11/05/2026 12:30AM"_s, u"2026-11-05 00:30:00"_s},
                    ParseCase{"TwentyFourHours", u"2026-11-05 15:04"_s, u"2026-11-05 15:04:00"_s},
                    ParseCase{"MonthName", u"November 5, 2026"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"ShortMonthName", u"nov 5 2026"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"DayBeforeName", u"5-Nov-2026"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"DayBeforeNameWithTime", u"5 Nov 2026 8:15"_s, u"2026-11-05 08:15:00"_s},
                    ParseCase{"NoYear", u"11/05"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"NameWithoutYear", u"Nov 5"_s, u"2026-11-05 00:00:00"_s},
                    ParseCase{"TimeAlone", u"8:15 AM"_s, u"1899-12-30 08:15:00"_s},
                    ParseCase{"LeapDay", u"02/29/2024"_s, u"2024-02-29 00:00:00"_s},
                    ParseCase{"NoLeapDay", u"02/29/2026"_s, u""_s},
                    ParseCase{"NoSuchMonth", u"13/32/2026"_s, u""_s},
                    ParseCase{"MonthOfThreeDigits", u"2026-257-05"_s, u""_s},
                    ParseCase{"DayOfThreeDigits", u"11/277/2026"_s, u""_s},
                    ParseCase{"DayOfThreeDigitsBeforeName", u"261 Nov 2026"_s, u""_s},
                    ParseCase{"HourTooLarge", u"11/05/2026 13:00 PM"_s, u""_s},
                    ParseCase{"Empty", u""_s, u""_s}, ParseCase{"EmptyMask", u"__/__/____"_s, u""_s},
                    ParseCase{"Receipt", u"OR 10442"_s, u""_s}, ParseCase{"Revoked", u"REVOKED"_s, u""_s},
                    ParseCase{"Number", u"104233"_s, u""_s},
                    ParseCase{"TwoDates", u"11/05/2026 11/06/2026"_s, u""_s},
                    ParseCase{"Trailing", u"11/05/2026 x"_s, u""_s},
                    ParseCase{"MixedSeparators", u"11/05-2026"_s, u""_s}),
    CaseName());
