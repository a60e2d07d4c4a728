#include "support/PrintQt.h"
#include "text/ToText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ToText, OfABoolean) {
    EXPECT_EQ(ToText(true), u"True"_s);
    EXPECT_EQ(ToText(false), u"False"_s);
}

TEST(ToText, OfADoubleHasFifteenDigitsAndNoTrailingZeros) {
    EXPECT_EQ(ToText(0.1), u"0.1"_s);
    EXPECT_EQ(ToText(0.1 + 0.2), u"0.3"_s);
    EXPECT_EQ(ToText(1250.0), u"1250"_s);
    EXPECT_EQ(ToText(-2.5), u"-2.5"_s);
    EXPECT_EQ(ToText(1.0 / 3), u"0.333333333333333"_s);
}

TEST(ToText, OfADoubleTurnsToAnExponentOnlyWhereItMust) {
    EXPECT_EQ(ToText(0.00001), u"0.00001"_s);
    EXPECT_EQ(ToText(-0.000012), u"-0.000012"_s);
    EXPECT_EQ(ToText(1e-16), u"1E-16"_s);
    EXPECT_EQ(ToText(123456789012345.0), u"123456789012345"_s);
    EXPECT_EQ(ToText(1e16), u"1E+16"_s);
}

TEST(ToText, OfADateLeavesOutWhatIsZero) {
    EXPECT_EQ(ToText(*DateTime::FromFields({2026, 3, 7})), u"3/7/2026"_s);
    EXPECT_EQ(ToText(*DateTime::FromFields({2026, 3, 7, 15, 4, 9, 0})), u"3/7/2026 3:04:09 PM"_s);
    EXPECT_EQ(ToText(*DateTime::FromFields({1899, 12, 30, 8, 0, 0, 0})), u"8:00:00 AM"_s);
    EXPECT_EQ(ToText(DateTime()), u"12:00:00 AM"_s);
}

TEST(ToText, OfADecimalDropsTheZerosBehindIt) {
    EXPECT_EQ(DecimalToText(u"1250.5000"), u"1250.5"_s);
    EXPECT_EQ(DecimalToText(u"100.0000"), u"100"_s);
    EXPECT_EQ(DecimalToText(u"100"), u"100"_s);
    EXPECT_EQ(DecimalToText(u"0.0000"), u"0"_s);
}
