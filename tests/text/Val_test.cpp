#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "text/Val.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct ValCase {
    const char* name;
    QString text;
    double expected;
};

class ValTest : public testing::TestWithParam<ValCase> {};

TEST_P(ValTest, ReadsTheLongestNumericPrefix) {
    EXPECT_EQ(Val(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ValTest,
    testing::Values(ValCase{"Empty", u""_s, 0}, ValCase{"Letters", u"abc"_s, 0},
                    ValCase{"Plain", u"12.5"_s, 12.5}, ValCase{"Negative", u"-3"_s, -3},
                    ValCase{"Plus", u"+3"_s, 3}, ValCase{"BlanksSkipped", u" 1 2 . 5"_s, 12.5},
                    ValCase{"BlankBehindSign", u"- 7"_s, -7}, ValCase{"TabsAndLines", u"\t4\n2"_s, 42},
                    ValCase{"TwoPoints", u"1.2.3"_s, 1.2}, ValCase{"Trailing", u"10 pcs"_s, 10},
                    ValCase{"NoExponent", u"1E5"_s, 1}, ValCase{"NoHex", u"&H1F"_s, 0},
                    ValCase{"LeadingPoint", u".5"_s, 0.5}, ValCase{"LonePoint", u"."_s, 0},
                    ValCase{"LoneSign", u"-"_s, 0}, ValCase{"SecondSign", u"5-3"_s, 5},
                    ValCase{"Comma", u"1,250.00"_s, 1}),
    CaseName());
