#include "gateway/GatewayTexts.h"
#include "gateway/odbc/CommandCheck.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Refusal(const QString& command) {
    const Failure failure = FailureOf([&command] { CheckForDrivers(command); });
    EXPECT_TRUE(failure.number == 0 || failure.number == 102);
    return failure.text;
}

const QString kBrace = u"Incorrect syntax near '{'."_s;
const QString kQuestion = u"Incorrect syntax near '?'."_s;
const QString kBroken = u"Incorrect syntax near '\uFFFD'."_s;

} // namespace

TEST(CommandCheck, BracesAndQuestionMarksOutsideQuotesAreRefused) {
    EXPECT_EQ(Refusal(u"x {y}"_s), kBrace);
    EXPECT_EQ(Refusal(u"{"_s), kBrace);
    EXPECT_EQ(Refusal(u"x ?"_s), kQuestion);
    EXPECT_EQ(Refusal(u"x 'a' ? {"_s), kQuestion) << "the first one is told";
}

TEST(CommandCheck, QuotesBracketsAndCommentsKeepThem) {
    for (const QString& command : {u"x '{?'"_s, u"x \"{?\""_s, u"x [{?]"_s, u"x -- {?"_s, u"x /* {? */"_s,
                                   u"x 'it''s {?'"_s, u"x [a]]{?]"_s, u"x /* ' */ '{?'"_s, u"x --'\n'{?'"_s})
        EXPECT_EQ(Refusal(command), QString()) << command.toStdString();
}

TEST(CommandCheck, WhatNothingClosesReachesToTheEnd) {
    for (const QString& command : {u"x '{?"_s, u"x \"{?"_s, u"x [{?"_s, u"x /* {?"_s, u"x -- {?"_s})
        EXPECT_EQ(Refusal(command), QString()) << command.toStdString();
}

TEST(CommandCheck, ThePieceBehindAnEndIsOutsideAgain) {
    EXPECT_EQ(Refusal(u"x 'a'{"_s), kBrace);
    EXPECT_EQ(Refusal(u"x 'it''s'{"_s), kBrace);
    EXPECT_EQ(Refusal(u"x [a]{"_s), kBrace);
    EXPECT_EQ(Refusal(u"x --a\n{"_s), kBrace);
    EXPECT_EQ(Refusal(u"x /* a */{"_s), kBrace);
    EXPECT_EQ(Refusal(u"x /*/{*/{"_s), kBrace) << "a comment is longer than its two signs";
    EXPECT_EQ(Refusal(u"x /* /* */ {"_s), kBrace) << "drivers do not nest comments";
    EXPECT_EQ(Refusal(u"x - {"_s), kBrace);
    EXPECT_EQ(Refusal(u"x / {"_s), kBrace);
}

TEST(CommandCheck, CharactersThatDriversDropAreRefusedEverywhere) {
    const QChar high(char16_t(0xD83D));
    const QChar low(char16_t(0xDE00));
    for (const QString& text : {QString(QChar(u'\0')), QString(high), QString(low), QString(low) + high,
                                QString(high) + high + low})
        EXPECT_EQ(Refusal(u"x '"_s + text + u'\''), kBroken);
    EXPECT_EQ(Refusal(u"x '"_s + high + low + high + low + u'\''), QString());
}

TEST(CommandCheck, OrdinaryCommandsPass) {
    EXPECT_EQ(Refusal(QString()), QString());
    EXPECT_EQ(Refusal(u"Clinical_Area..spEarCare_GetPatient 'I','O'BRIEN'"_s), QString());
}
