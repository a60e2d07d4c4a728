#include "trial/sqlite/Collation.h"
#include "trial/sqlite/TextFunctions.h"

#include <QByteArray>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

TEST(Collation, OrderOfNames) {
    const std::vector<QByteArray> ordered = {
        "",      " A",  "'A",        "-A",       "1",     "10",   "2",     "A",   "AB", "DE",
        "DE LA", "DEA", "DELA CRUZ", "DELACRUZ", "NUNEZ", "NUNO", "NUÑEZ", "NUO", "Z",  "ZZZ"};
    for (size_t i = 0; i < ordered.size(); ++i) {
        for (size_t k = 0; k < ordered.size(); ++k) {
            const int expected = i < k ? -1 : i > k ? 1 : 0;
            EXPECT_EQ(CompareTexts(ordered[i], ordered[k]), expected)
                << ordered[i].constData() << " against " << ordered[k].constData();
        }
    }
}

TEST(Collation, LetterCaseAndBlanksAtTheEndDoNotCount) {
    EXPECT_EQ(CompareTexts("Dela Cruz", "DELA CRUZ  "), 0);
    EXPECT_EQ(CompareTexts("peña", "PEÑA"), 0);
    EXPECT_EQ(CompareTexts("PEña", "PEÑA"), 0) << "the two letters share their first byte alone";
    EXPECT_EQ(CompareTexts("DELA CRña", "DELA CRÑa"), 0) << "that byte is the eighth";
    EXPECT_EQ(CompareTexts("", "   "), 0);
    EXPECT_NE(CompareTexts("DELA CRUZ", "DELACRUZ"), 0);
    EXPECT_NE(CompareTexts(" A", "A"), 0);
}

TEST(Collation, LongTextsDifferWhereverTheyDiffer) {
    const QByteArray name = "DE LOS SANTOS-BUENAVENTURA, MA. TERESA";
    for (qsizetype at = 0; at < name.size(); ++at) {
        QByteArray other = name;
        other[at] = '~';
        EXPECT_LT(CompareTexts(other, name) * (name[at] < 'A' ? -1 : 1), 0) << other.constData();
        EXPECT_NE(CompareTexts(name.first(at), name), 0) << at;
    }
}

TEST(Collation, WhatIsBelowABlankComesBeforeTheEndOfAText) {
    EXPECT_LT(CompareTexts("A\t", "A"), 0);
}

TEST(Collation, AccentedLettersAreLettersOfTheirOwn) {
    for (const char* letter : {"á", "à", "ä", "â", "ã", "å"}) {
        EXPECT_GT(CompareTexts(letter, "a"), 0) << letter;
        EXPECT_LT(CompareTexts(letter, "b"), 0) << letter;
    }
    EXPECT_NE(CompareTexts("á", "à"), 0);
}

TEST(Collation, OtherSignsStayApart) {
    const std::vector<QByteArray> signs = {"’", "“", "€", "ž", "я", "ж", "漢", "字",
                                           "😀", "😁", "ß", "æ", "ø", "₱", "·"};
    for (size_t i = 0; i < signs.size(); ++i) {
        for (size_t k = 0; k < i; ++k)
            EXPECT_NE(CompareTexts(signs[i], signs[k]), 0)
                << signs[i].constData() << ' ' << signs[k].constData();
    }
    EXPECT_EQ(CompareTexts("Ж", "ж"), 0);
}

TEST(Collation, EveryPrefixLiesBetweenItselfAndItsLastName) {
    for (const QByteArray prefix : {"DE", "NUÑ", "O'", "DELA "}) {
        const QByteArray last = prefix + QByteArray(30, 'Z');
        for (const QByteArray tail : {"", "A", " CRUZ", "ÑEZ", "zz", "'"}) {
            EXPECT_GE(CompareTexts(prefix + tail, prefix), 0);
            EXPECT_LE(CompareTexts(prefix + tail, last), 0);
        }
    }
}

TEST(Collation, BrokenTextsEndTheComparison) {
    EXPECT_EQ(CompareTexts("\xC3", "\xC3"), 0);
    EXPECT_NE(CompareTexts("\xF0\x9F", "a"), 0);
}
