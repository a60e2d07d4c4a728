#include "patients/FakeCashTarget.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

TEST(CashTarget, WithoutAnAssessmentThereIsNoTarget) {
    RegisterCashTarget({});
    try {
        WaitingCashTarget();
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), RunTime::kObjectNotSet);
    }
}

TEST(CashTarget, AnswersTheAssessmentOfTheMomentAtEachAsking) {
    FakeCashTarget first;
    FakeCashTarget second;
    FakeCashTarget* now = &first;
    RegisterCashTarget([&]() -> CashTarget& { return *now; });
    EXPECT_EQ(&WaitingCashTarget(), &first);
    now = &second;
    EXPECT_EQ(&WaitingCashTarget(), &second);
    RegisterCashTarget({});
}
