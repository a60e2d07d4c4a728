#include "patients/FakeFinderTarget.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FinderTargetTest : public testing::Test {
  protected:
    ~FinderTargetTest() override {
        RegisterFinderTarget(u"Somebody"_s, {});
        RegisterFinderTarget(u"Exact"_s, {});
    }
};

TEST_F(FinderTargetTest, ModeThatNobodyRegisteredHasNoTarget) {
    EXPECT_EQ(FinderTargetOf(u"Nobody"_s), nullptr);
}

TEST_F(FinderTargetTest, RegisteredModeAnswersItsScreenAtEachAsking) {
    FakeFinderTarget first(u"Post"_s);
    FakeFinderTarget second(u"Post"_s);
    FakeFinderTarget* now = &first;
    RegisterFinderTarget(u"Somebody"_s, [&]() -> FinderTarget& { return *now; });
    EXPECT_EQ(FinderTargetOf(u"Somebody"_s), &first);
    now = &second;
    EXPECT_EQ(FinderTargetOf(u"Somebody"_s), &second);
}

TEST_F(FinderTargetTest, ModesAreToldApartToTheLetter) {
    RegisterFinderTarget(u"Exact"_s, []() -> FinderTarget& { throw RunTime::Error(RunTime::kObjectNotSet); });
    EXPECT_EQ(FinderTargetOf(u"exact"_s), nullptr);
    EXPECT_EQ(FinderTargetOf(u"Exact "_s), nullptr);
}

TEST_F(FinderTargetTest, ModeThatWasStruckOutHasNoTarget) {
    FakeFinderTarget target(u"Post"_s);
    RegisterFinderTarget(u"Somebody"_s, [&]() -> FinderTarget& { return target; });
    RegisterFinderTarget(u"Somebody"_s, {});
    EXPECT_EQ(FinderTargetOf(u"Somebody"_s), nullptr);
}

} // namespace
