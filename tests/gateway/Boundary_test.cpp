#include "gateway/Boundary.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

struct FailureCase {
    std::string name;
    std::function<void()> work;
    int number;
    QString state;
};

class Boundary : public testing::TestWithParam<FailureCase> {};

} // namespace

TEST_P(Boundary, LeavesNothingButARunTimeErrorThrough) {
    const RaisedError failure = FailureOf([] { WithinBoundary(GetParam().work); });
    EXPECT_EQ(failure.number, GetParam().number);
    EXPECT_EQ(failure.state, GetParam().state);
    EXPECT_FALSE(failure.text.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Failures, Boundary,
    testing::Values(
        FailureCase{"ItsOwn", [] { throw RunTimeError(245, u"Conversion failed"_s, u"22018"_s); }, 245,
                    u"22018"_s},
        FailureCase{"NoMemory", [] { throw std::bad_alloc(); }, 701, u"HY000"_s},
        FailureCase{"MoreThanAnyMemory", [] { throw std::length_error("vector"); }, 701, u"HY000"_s},
        FailureCase{"AValueOfAnotherKind", [] { throw std::bad_variant_access(); }, 8624, u"HY000"_s},
        FailureCase{"NoExceptionAtAll", [] { throw 7; }, 8624, u"HY000"_s}),
    CaseName());

TEST(BoundaryTest, WhatTheWorkBringsIsHandedOn) {
    EXPECT_EQ(WithinBoundary([] { return 7; }), 7);
}
