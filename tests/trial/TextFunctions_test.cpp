#include "trial/sqlite/TextFunctions.h"

#include <gtest/gtest.h>
#include <limits>

TEST(TextFunctions, PatternsWithManyPercentSignsEnd) {
    const QByteArray text(2000, 'a');
    EXPECT_FALSE(MatchesPattern(text, RepeatedText("a%", 50) + "b"));
    EXPECT_TRUE(MatchesPattern(text, RepeatedText("a%", 50)));
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
    EXPECT_EQ(LastCharacters("abc", -1), "");
}

TEST(TextFunctions, RepeatedTextEndsAtTheServersLimit) {
    EXPECT_EQ(RepeatedText("ab", 1000000).size(), 8000);
    EXPECT_EQ(RepeatedText("", 5), "");
}

TEST(TextFunctions, APieceMayBeAskedForThatReachesBeyondAllNumbers) {
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    constexpr qint64 kLeast = std::numeric_limits<qint64>::min();
    EXPECT_EQ(MiddleCharacters("abc", 2, kMost), "bc");
    EXPECT_EQ(MiddleCharacters("abc", kMost, kMost), "");
    EXPECT_EQ(MiddleCharacters("abc", kLeast, kLeast), "");
    EXPECT_EQ(MiddleCharacters("abc", kLeast, 1), "");
}
