#include "patients/FakeFinderTarget.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FinderTargetTest : public testing::Test {
  protected:
    ~FinderTargetTest() override { ForgetFinderTargets(); }
};

TEST_F(FinderTargetTest, ModeThatNobodyRegisteredHasNoTarget) {
    EXPECT_FALSE(HasFinderTarget(u"Nobody"_s));
    try {
        FinderTargetOf(u"Nobody"_s);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), RunTime::kObjectNotSet);
    }
}

TEST_F(FinderTargetTest, RegisteredModeAnswersItsScreenAtEachAsking) {
    FakeFinderTarget first;
    FakeFinderTarget second;
    FakeFinderTarget* now = &first;
    RegisterFinderTarget(u"Somebody"_s, [&]() -> FinderTarget& { return *now; });
    EXPECT_TRUE(HasFinderTarget(u"Somebody"_s));
    EXPECT_EQ(&FinderTargetOf(u"Somebody"_s), &first);
    now = &second;
    EXPECT_EQ(&FinderTargetOf(u"Somebody"_s), &second);
}

TEST_F(FinderTargetTest, ModesAreToldApartToTheLetter) {
    RegisterFinderTarget(u"Exact"_s, []() -> FinderTarget& { throw RunTime::Error(RunTime::kObjectNotSet); });
    EXPECT_FALSE(HasFinderTarget(u"exact"_s));
    EXPECT_FALSE(HasFinderTarget(u"Exact "_s));
}

TEST_F(FinderTargetTest, ForgottenModeHasNoTarget) {
    FakeFinderTarget target;
    RegisterFinderTarget(u"Somebody"_s, [&]() -> FinderTarget& { return target; });
    ForgetFinderTargets();
    EXPECT_FALSE(HasFinderTarget(u"Somebody"_s));
}

} // namespace
