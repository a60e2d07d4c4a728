#include "text/TextOrder.h"

#include <gtest/gtest.h>

TEST(CompareText, IgnoresLetterCase) {
    EXPECT_EQ(CompareText(u"Peña", u"PEÑA"), 0);
}

TEST(CompareText, PutsEnyeBetweenNAndO) {
    EXPECT_GT(CompareText(u"PEÑA", u"PENZA"), 0);
    EXPECT_LT(CompareText(u"PEÑA", u"PEOA"), 0);
}

TEST(CompareText, TellsAccentsApart) {
    EXPECT_NE(CompareText(u"PENA", u"PEÑA"), 0);
}

TEST(CompareText, IgnoresBlanksAtTheEnd) {
    EXPECT_EQ(CompareText(u"CRUZ", u"CRUZ  "), 0);
    EXPECT_NE(CompareText(u" CRUZ", u"CRUZ"), 0);
}

TEST(CompareText, PutsTheShorterOfTwoBeginningsFirst) {
    EXPECT_LT(CompareText(u"CRU", u"CRUZ"), 0);
    EXPECT_GT(CompareText(u"CRUZ", u"CRU"), 0);
}

TEST(CompareText, PutsMarksBeforeDigitsAndDigitsBeforeLetters) {
    const QStringView order[] = {u" ", u"!", u"-", u"_", u"~", u"0", u"9", u"a", u"Z"};
    for (size_t i = 1; i < std::size(order); ++i)
        EXPECT_LT(CompareText(order[i - 1], order[i]), 0) << i;
    EXPECT_LT(CompareText(u"A-1", u"A0"), 0);
    EXPECT_LT(CompareText(u"A1", u"AA"), 0);
}
