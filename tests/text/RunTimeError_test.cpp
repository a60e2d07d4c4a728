#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(RunTimeErrorTest, CarriesNumberTextAndState) {
    const RunTimeError error(2812, u"Could not find stored procedure 'x'."_s, u"42000"_s);
    EXPECT_EQ(error.Number(), 2812);
    EXPECT_EQ(error.Description(), u"Could not find stored procedure 'x'."_s);
    EXPECT_EQ(error.State(), u"42000"_s);
    EXPECT_STREQ(error.what(), "Could not find stored procedure 'x'.");
}

TEST(RunTimeErrorTest, EveryNumberOfTheRunTimeHasItsText) {
    for (const int number : {RunTime::kSubscriptOutOfRange, RunTime::kTypeMismatch, RunTime::kFileNotFound,
                             RunTime::kPathFileAccess, RunTime::kObjectNotSet, RunTime::kInvalidUseOfNull,
                             RunTime::kCannotCreateObject, RunTime::kNoCurrentRecord, RunTime::kNotUpdatable,
                             RunTime::kItemNotFound, RunTime::kObjectClosed, RunTime::kRowChanged}) {
        EXPECT_FALSE(RunTime::TextOf(number).isEmpty()) << number;
        EXPECT_EQ(RunTime::Error(number).Number(), number);
        EXPECT_EQ(RunTime::Error(number).Description(), RunTime::TextOf(number));
    }
}

TEST(RunTimeErrorTest, KnownTexts) {
    EXPECT_EQ(RunTime::TextOf(RunTime::kTypeMismatch), u"Type mismatch"_s);
    EXPECT_EQ(RunTime::TextOf(RunTime::kInvalidUseOfNull), u"Invalid use of Null"_s);
    EXPECT_EQ(
        RunTime::TextOf(RunTime::kNoCurrentRecord),
        u"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
        "current record."_s);
}

TEST(RunTimeErrorTest, UnknownNumberHasNoText) {
    EXPECT_TRUE(RunTime::TextOf(4711).isEmpty());
}
