#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "text/IsNumeric.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct NumericCase {
    const char* name;
    QString text;
    bool expected;
};

class IsNumericTest : public testing::TestWithParam<NumericCase> {};

TEST_P(IsNumericTest, TakesWholeDecimalNumbersOnly) {
    EXPECT_EQ(IsNumeric(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IsNumericTest,
    testing::Values(
        NumericCase{"Empty", u""_s, false}, NumericCase{"Blank", u"  "_s, false},
        NumericCase{"AdmissionNumber", u"104233"_s, true}, NumericCase{"VisitNumber", u"104233B"_s, false},
        NumericCase{"BlanksAround", u" 12 "_s, true}, NumericCase{"BlankInside", u"1 2"_s, false},
        NumericCase{"Point", u"12.50"_s, true}, NumericCase{"TwoPoints", u"1.2.3"_s, false},
        NumericCase{"LonePoint", u"."_s, false}, NumericCase{"SignBefore", u"-5"_s, true},
        NumericCase{"SignBehind", u"5-"_s, true}, NumericCase{"TwoSigns", u"-5-"_s, false},
        NumericCase{"LoneSign", u"-"_s, false}, NumericCase{"Thousands", u"1,250.00"_s, true},
        NumericCase{"CommaFirst", u",5"_s, false}, NumericCase{"CommaBehindPoint", u"1.5,0"_s, false},
        NumericCase{"Dollar", u"$5.00"_s, true}, NumericCase{"Peso", u"₱ 5"_s, true},
        NumericCase{"SignAndCurrency", u"-$5"_s, true}, NumericCase{"CurrencyAndSign", u"$-5"_s, true},
        NumericCase{"Parentheses", u"(5)"_s, true}, NumericCase{"Exponent", u"1E5"_s, false},
        NumericCase{"Hex", u"&H1F"_s, false}),
    CaseName());
