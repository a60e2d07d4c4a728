#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "trial/sqlite/TextFunctions.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

TEST(TextFunctions, PatternsWithManyPercentSignsEnd) {
    const QByteArray text(2000, 'a');
    EXPECT_FALSE(MatchesPattern(text, QByteArray("a%").repeated(50) + "b"));
    EXPECT_TRUE(MatchesPattern(text, QByteArray("a%").repeated(50)));
    EXPECT_TRUE(MatchesPattern("", "%%%"));
    EXPECT_FALSE(MatchesPattern("", "_"));
    EXPECT_TRUE(MatchesPattern("", ""));
}

TEST(TextFunctions, PatternTriesEveryPlaceForAPercentSign) {
    EXPECT_TRUE(MatchesPattern("abcabd", "%ab_"));
    EXPECT_TRUE(MatchesPattern("mississippi", "%iss%pi"));
    EXPECT_FALSE(MatchesPattern("mississippi", "%isx%pi"));
}

TEST(TextFunctions, SetsOfAPattern) {
    EXPECT_TRUE(MatchesPattern("%", "[%]"));
    EXPECT_FALSE(MatchesPattern("x", "[%]"));
    EXPECT_TRUE(MatchesPattern("-", "[a-]"));
    EXPECT_TRUE(MatchesPattern("]", "[]]"));
    EXPECT_TRUE(MatchesPattern("Ñ", "[n-o]"));
    EXPECT_TRUE(MatchesPattern("d", "[^a-c]"));
    EXPECT_FALSE(MatchesPattern("B", "[^a-c]"));
    EXPECT_FALSE(MatchesPattern("b", "[abc")) << "a set that nothing closes has nothing in it";
    EXPECT_FALSE(MatchesPattern("d", "[^abc"));
}

TEST(TextFunctions, CharactersAreCountedAndNotBytes) {
    EXPECT_EQ(LengthWithoutTail("ñÑ😀 "), 3);
    EXPECT_EQ(LastCharacters("aÑ😀", 2), "Ñ😀");
    EXPECT_EQ(MiddleCharacters("aÑ😀b", 2, 2), "Ñ😀");
    EXPECT_EQ(MiddleCharacters("abc", -1, 3), "a");
}

TEST(TextFunctions, TextsThatAreMadeEndAtTheirLimit) {
    EXPECT_EQ(RepeatedText("abc", 1000000, 8000).size(), 8000);
    EXPECT_TRUE(RepeatedText("abc", 1000000, 8000).endsWith("cab"));
    EXPECT_EQ(RepeatedText("ñ", std::numeric_limits<qint64>::max(), 3), "ñññ");
    EXPECT_EQ(RepeatedText("ab", 2, 8000), "abab");
    EXPECT_EQ(RepeatedText("", 5, 8000), "");
    EXPECT_EQ(ReplacedText("axxa", "x", "ñññ", 5), "aññññ");
    EXPECT_EQ(ReplacedText("abc", "", "x", 2), "ab");
}

TEST(TextFunctions, WhatMayTakeLongAsksBetweenItsSteps) {
    struct GivenUp {};
    int left = 100;
    const WorkStep step = [&left] {
        if (--left == 0)
            throw GivenUp();
    };
    const QByteArray text(1000, 'a');
    EXPECT_THROW(MatchesPattern(text, "%b", false, step), GivenUp);
    left = 100;
    EXPECT_THROW(ReplacedText(text, "b", "c", 8000, step), GivenUp);
}

TEST(TextFunctions, LessThanNoCharacterIsTheServersError) {
    EXPECT_EQ(LeftCharacters("abc", 0), "");
    const RaisedError left = FailureOf([] { LeftCharacters("abc", -1); });
    EXPECT_EQ(left.number, 536);
    EXPECT_EQ(left.text, u"Invalid length parameter passed to the left function."_s);
    EXPECT_EQ(FailureOf([] { LastCharacters("abc", -1); }).text,
              u"Invalid length parameter passed to the right function."_s);
    const RaisedError middle = FailureOf([] { MiddleCharacters("abc", 1, -1); });
    EXPECT_EQ(middle.number, 537);
    EXPECT_EQ(middle.text, u"Invalid length parameter passed to the LEFT or SUBSTRING function."_s);
}

TEST(TextFunctions, APieceMayBeAskedForThatReachesBeyondAllNumbers) {
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    constexpr qint64 kLeast = std::numeric_limits<qint64>::min();
    EXPECT_EQ(MiddleCharacters("abc", 2, kMost), "bc");
    EXPECT_EQ(MiddleCharacters("abc", kMost, kMost), "");
    EXPECT_EQ(MiddleCharacters("abc", kLeast, kMost), "");
    EXPECT_EQ(MiddleCharacters("abc", kLeast, 1), "");
}
