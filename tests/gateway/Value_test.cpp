#include "gateway/Value.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "text/RunTimeError.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

DateTime Day(int year, int month, int day) {
    return *DateTime::FromFields({year, month, day, 0, 0, 0, 0});
}

struct ReadCase {
    std::string name;
    Value value;
    QString text;
    double number;
    qint64 whole;
};

class ValueRead : public testing::TestWithParam<ReadCase> {};

} // namespace

TEST_P(ValueRead, AsTextAndNumber) {
    EXPECT_EQ(GetParam().value.ToText(), GetParam().text);
    EXPECT_EQ(GetParam().value.TextOrEmpty(), GetParam().text);
    EXPECT_DOUBLE_EQ(GetParam().value.ToDouble(), GetParam().number);
    EXPECT_EQ(GetParam().value.ToInteger(), GetParam().whole);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ValueRead,
    testing::Values(ReadCase{"True", Value(true), u"True"_s, -1, -1},
                    ReadCase{"False", Value(false), u"False"_s, 0, 0},
                    ReadCase{"Integer", Value(42), u"42"_s, 42, 42},
                    ReadCase{"Decimal", Value(Decimal{u"1250.5000"_s}), u"1250.5"_s, 1250.5, 1250},
                    ReadCase{"HalfGoesToEven", Value(3.5), u"3.5"_s, 3.5, 4},
                    ReadCase{"HalfGoesDownToEven", Value(2.5), u"2.5"_s, 2.5, 2},
                    ReadCase{"NumericText", Value(u"1,250.50"_s), u"1,250.50"_s, 1250.5, 1250},
                    ReadCase{"NegativeText", Value(u"(5)"_s), u"(5)"_s, -5, -5},
                    ReadCase{"Date", Value(Day(1900, 1, 1)), u"1/1/1900"_s, 2, 2}),
    CaseName());

TEST(ValueNull, GuardedReadIsEmptyAndEveryOtherReadRaises94) {
    const Value null;
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(null.TextOrEmpty(), QString());
    EXPECT_EQ(FailureOf([&] { null.ToText(); }).number, RunTime::kInvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { null.ToDouble(); }).number, RunTime::kInvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { null.ToInteger(); }).number, RunTime::kInvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { null.ToBoolean(); }).number, RunTime::kInvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { null.ToDate(); }).number, RunTime::kInvalidUseOfNull);
}

TEST(ValueNull, IsNotTheEmptyText) {
    EXPECT_FALSE(Value(QString()).IsNull());
    EXPECT_NE(Value(QString()), Value());
}

TEST(ValueText, ThatIsNoNumberRaises13) {
    for (const QString& text : {u""_s, u"abc"_s, u"10231B"_s, u"1 2"_s}) {
        EXPECT_EQ(FailureOf([&] { Value(text).ToDouble(); }).number, RunTime::kTypeMismatch)
            << text.toStdString();
        EXPECT_EQ(FailureOf([&] { Value(text).ToBoolean(); }).number, RunTime::kTypeMismatch)
            << text.toStdString();
    }
}

TEST(ValueBoolean, WordsAndNumbers) {
    EXPECT_TRUE(Value(u"TRUE"_s).ToBoolean());
    EXPECT_FALSE(Value(u"false"_s).ToBoolean());
    EXPECT_TRUE(Value(u"2"_s).ToBoolean());
    EXPECT_FALSE(Value(0).ToBoolean());
    EXPECT_TRUE(Value(Decimal{u"0.1000"_s}).ToBoolean());
}

TEST(ValueDate, FromDateTextAndNumber) {
    EXPECT_EQ(Value(Day(2026, 11, 21)).ToDate(), Day(2026, 11, 21));
    EXPECT_EQ(Value(u"11/21/2026"_s).ToDate(), Day(2026, 11, 21));
    EXPECT_EQ(Value(2).ToDate(), Day(1900, 1, 1));
    EXPECT_EQ(FailureOf([&] { Value(u"no date"_s).ToDate(); }).number, RunTime::kTypeMismatch);
}

TEST(ValueNumber, BeyondTheWholeNumbersOrTheCalendarRaises6) {
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double number : {9.3e18, -9.3e18, 0x1p63, infinite, std::nan("")}) {
        EXPECT_EQ(FailureOf([&] { Value(number).ToInteger(); }).number, RunTime::kOverflow) << number;
        EXPECT_EQ(FailureOf([&] { Value(number).ToDate(); }).number, RunTime::kOverflow) << number;
    }
    for (const double days : {2958466.0, -657435.0})
        EXPECT_EQ(FailureOf([&] { Value(days).ToDate(); }).number, RunTime::kOverflow) << days;
    EXPECT_EQ(FailureOf([] { Value(Decimal{u"99999999999999999999"_s}).ToInteger(); }).number,
              RunTime::kOverflow);
    EXPECT_EQ(Value(-0x1p63).ToInteger(), std::numeric_limits<qint64>::min());
    EXPECT_EQ(Value(2958465.5).ToDate(), *DateTime::FromFields({9999, 12, 31, 12, 0, 0, 0}));
    EXPECT_EQ(Value(-657434).ToDate(), Day(100, 1, 1));
}
