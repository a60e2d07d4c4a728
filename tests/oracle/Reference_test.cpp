#include "oracle/Reference.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Two numbers given as the units of their type, and what becomes of them: a value or an error.
struct CalculationCase {
    std::string name;
    char sign;
    NumberType leftType;
    Whole left;
    NumberType rightType;
    Whole right;
    QString result;
};

class Calculation : public testing::TestWithParam<CalculationCase> {};

struct ConversionCase {
    std::string name;
    NumberType from;
    Whole units;
    NumberType to;
    QString result;
};

class NumberConversion : public testing::TestWithParam<ConversionCase> {};

QString Shown(const Outcome& outcome, const NumberType& type) {
    if (outcome.isUnsure)
        return u"unsure"_s;
    if (!outcome.errors.empty())
        return u"error %1"_s.arg(*outcome.errors.begin());
    return Reference::Text(outcome.number, type);
}

NumberType DecimalOf(int precision, int scale) {
    return NumberType::Decimal(precision, scale);
}

} // namespace

TEST_P(Calculation, FollowsTheRules) {
    const CalculationCase& c = GetParam();
    const NumberType type = Reference::ResultType(c.sign, c.leftType, c.rightType);
    EXPECT_EQ(Shown(Reference::Calculate(c.sign, Outcome::Of(c.left), c.leftType, Outcome::Of(c.right),
                                         c.rightType),
                    type),
              c.result);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, Calculation,
    testing::Values(
        CalculationCase{"WholeQuotientIsCut", '/', NumberType::Int(), -7, NumberType::Int(), 2, u"-3"_s},
        CalculationCase{"IntOverflow", '+', NumberType::Int(), 2147483647, NumberType::Int(), 1,
                        u"error 8115"_s},
        CalculationCase{"BigIntIsWider", '+', NumberType::BigInt(), 2147483647, NumberType::Int(), 1,
                        u"2147483648"_s},
        CalculationCase{"DivisionByZero", '%', NumberType::Int(), 1, NumberType::Int(), 0, u"error 8134"_s},
        CalculationCase{"LiteralsHaveSixDecimals", '/', DecimalOf(2, 1), 20, NumberType::Int(1), 3,
                        u"0.666666"_s},
        CalculationCase{"AnIntHasTwelve", '/', DecimalOf(2, 1), 20, NumberType::Int(), 3,
                        u"0.666666666666"_s},
        CalculationCase{"QuotientOfDecimals", '/', DecimalOf(5, 2), 1000, DecimalOf(5, 2), 300,
                        u"3.33333333"_s},
        CalculationCase{"ProductOfDecimals", '*', DecimalOf(5, 2), 125, DecimalOf(3, 1), -15, u"-1.875"_s},
        CalculationCase{"SumOfDecimals", '+', DecimalOf(5, 2), 125, DecimalOf(3, 1), 15, u"2.75"_s},
        CalculationCase{"RemainderOfDecimals", '%', DecimalOf(5, 2), -575, DecimalOf(3, 1), 15, u"-1.25"_s},
        CalculationCase{"RemainderKeepsItsDecimals", '%', DecimalOf(38, 3), 12500, DecimalOf(18, 4), 120000,
                        u"0.5000"_s},
        CalculationCase{"MoneyIsCut", '/', NumberType::Money(), 1000000, NumberType::Int(), 339, u"0.2949"_s},
        CalculationCase{"MoneyAndDecimalAreDecimal", '*', NumberType::Money(), 10000, DecimalOf(3, 2), 112,
                        u"1.120000"_s},
        CalculationCase{"MoneyOverflow", '*', NumberType::Money(), Whole::PowerOfTen(18), NumberType::Int(),
                        10, u"error 8115"_s},
        CalculationCase{"ReducedProductThatIsExact", '*', DecimalOf(20, 5), 100000, DecimalOf(20, 5), 200000,
                        u"2.0000000"_s},
        CalculationCase{"ReducedProductThatIsNot", '*', DecimalOf(20, 5), 1, DecimalOf(20, 5), 1,
                        u"unsure"_s}),
    CaseName());

TEST_P(NumberConversion, FollowsTheRules) {
    const ConversionCase& c = GetParam();
    EXPECT_EQ(Shown(Reference::Convert(Outcome::Of(c.units), c.from, c.to), c.to), c.result);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, NumberConversion,
    testing::Values(
        ConversionCase{"DecimalToIntIsCut", DecimalOf(3, 2), -275, NumberType::Int(), u"-2"_s},
        ConversionCase{"MoneyToIntIsRounded", NumberType::Money(), -27500, NumberType::Int(), u"-3"_s},
        ConversionCase{"DecimalToDecimalIsRounded", DecimalOf(4, 3), 2675, DecimalOf(3, 2), u"2.68"_s},
        ConversionCase{"DecimalTooLarge", DecimalOf(4, 0), 1000, DecimalOf(5, 2), u"error 8115"_s},
        ConversionCase{"AnythingToBit", DecimalOf(2, 1), 5, NumberType::Bit(), u"1"_s},
        ConversionCase{"ToFloat", DecimalOf(2, 1), 5, NumberType::Float(), u"0.5"_s}),
    CaseName());

TEST(CommonType, HasRoomForBoth) {
    const NumberType type = Reference::CommonType(DecimalOf(5, 3), NumberType::Int());
    EXPECT_EQ(type.precision, 13);
    EXPECT_EQ(type.scale, 3);
    EXPECT_EQ(Reference::CommonType(NumberType::Money(), NumberType::BigInt()).kind, NumberType::Kind::Money);
}

TEST(FloatConversion, TellsOverflowAndDoubt) {
    const NumberType real = NumberType::Float();
    EXPECT_EQ(Shown(Reference::Convert(Outcome::OfReal(3e9), real, NumberType::Int()), NumberType::Int()),
              u"error 232"_s);
    EXPECT_EQ(Shown(Reference::Convert(Outcome::OfReal(-2.75), real, NumberType::Int()), NumberType::Int()),
              u"-2"_s);
    EXPECT_EQ(Shown(Reference::Convert(Outcome::OfReal(0.126), real, DecimalOf(5, 2)), DecimalOf(5, 2)),
              u"0.13"_s);
    EXPECT_EQ(Shown(Reference::Convert(Outcome::OfReal(0.125), real, DecimalOf(5, 2)), DecimalOf(5, 2)),
              u"unsure"_s);
}
