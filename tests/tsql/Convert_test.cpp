#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "tsql/Convert.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kExpression = ConversionPlace::Expression;
constexpr auto kColumn = ConversionPlace::Column;
constexpr auto kParameter = ConversionPlace::Parameter;

Cell Text(const char* text) {
    return QByteArray(text);
}

Cell FromText(const char* text, const SqlType& to, ConversionPlace place = kExpression) {
    return Convert(Text(text), SqlType::Text(), to, place);
}

int FailureNumber(const Cell& value, const SqlType& from, const SqlType& to,
                  ConversionPlace place = kExpression) {
    return FailureOf([&] { Convert(value, from, to, place); }).number;
}

} // namespace

TEST(ConvertText, ToNumbers) {
    EXPECT_EQ(FromText("-12", SqlType::Int()), Cell(qint64(-12)));
    EXPECT_EQ(FromText("+7", SqlType::BigInt()), Cell(qint64(7)));
    EXPECT_EQ(FromText("2", SqlType::Bit()), Cell(qint64(1)));
    EXPECT_EQ(FromText("$1,234.56789", SqlType::Money()), Cell(qint64(12345679)));
    EXPECT_EQ(FromText("-$5", SqlType::Money()), Cell(qint64(-50000)));
    for (const char* text : {"-", "+", ".", ",", "$", "-$"})
        EXPECT_EQ(FromText(text, SqlType::Money()), Cell(qint64(0))) << text;
    EXPECT_EQ(FromText("922337203685477.5807", SqlType::Money()), Cell(qint64(9223372036854775807)));
    EXPECT_EQ(FromText("1.5e3", SqlType::Float()), Cell(1500.0));
    EXPECT_EQ(FromText("9.995", SqlType::Decimal(9, 2)), Cell(qint64(1000)));
}

TEST(ConvertText, EmptyIsZeroForAllNumbersButDecimals) {
    for (const SqlType& type : {SqlType::Int(), SqlType::BigInt(), SqlType::Bit()})
        EXPECT_EQ(FromText("  ", type), Cell(qint64(0)));
    EXPECT_EQ(FromText("", SqlType::Money()), Cell(qint64(0)));
    EXPECT_EQ(FromText("", SqlType::Float()), Cell(0.0));
    EXPECT_EQ(FailureNumber(Text(""), SqlType::Text(), SqlType::Decimal(9, 2)), 8114);
}

TEST(ConvertText, RubbishHasTheErrorOfItsPlace) {
    struct Rubbish {
        SqlType type;
        int number;
    };
    for (const Rubbish& rubbish :
         {Rubbish{SqlType::Int(), 245}, Rubbish{SqlType::Bit(), 245}, Rubbish{SqlType::Money(), 235},
          Rubbish{SqlType::Float(), 8114}, Rubbish{SqlType::Decimal(9, 2), 8114},
          Rubbish{SqlType::DateTime(), 241}}) {
        for (const char* text : {"x", "1x", "--1", "--", "1 2"}) {
            EXPECT_EQ(FailureNumber(Text(text), SqlType::Text(), rubbish.type), rubbish.number) << text;
            EXPECT_EQ(FailureNumber(Text(text), SqlType::Text(), rubbish.type, kParameter), 8114) << text;
        }
    }
}

TEST(ConvertText, TooLargeNumbers) {
    EXPECT_EQ(FailureNumber(Text("2147483648"), SqlType::Text(), SqlType::Int()), 248);
    EXPECT_EQ(FromText("-2147483648", SqlType::Int()), Cell(qint64(-2147483648LL)));
    EXPECT_EQ(FailureNumber(Text("99999999999999999999"), SqlType::Text(), SqlType::BigInt()), 8115);
    EXPECT_EQ(FailureNumber(Text("1e300"), SqlType::Text(), SqlType::Money()), 235);
    EXPECT_EQ(FailureNumber(Text("99999999999999999"), SqlType::Text(), SqlType::Money()), 8115);
}

TEST(ConvertText, TooLongTextsAreCutOrRefused) {
    const SqlType three = SqlType::Text(3);
    EXPECT_EQ(FromText("añcd", three, kExpression), Text("añc"));
    EXPECT_EQ(FromText("añcd", three, kParameter), Text("añc"));
    EXPECT_EQ(FailureNumber(Text("añcd"), SqlType::Text(), three, kColumn), 8152);
    EXPECT_EQ(FromText("ab    ", three, kColumn), Text("ab "));
}

TEST(ConvertNumber, ToTexts) {
    const SqlType text = SqlType::Text(20);
    EXPECT_EQ(Convert(qint64(-7), SqlType::Int(), text, kExpression), Text("-7"));
    EXPECT_EQ(Convert(qint64(125000), SqlType::Money(), text, kExpression), Text("12.50"));
    EXPECT_EQ(Convert(qint64(12500), SqlType::Decimal(9, 3), text, kExpression), Text("12.500"));
    EXPECT_EQ(Convert(1.0 / 3, SqlType::Float(), text, kExpression), Text("0.333333"));
    EXPECT_EQ(Convert(qint64(123), SqlType::Int(), SqlType::Text(2), kExpression), Text("*"));
    EXPECT_EQ(Convert(qint64(123), SqlType::Int(), SqlType{SqlType::Kind::Char, 2, 0, 0}, kColumn),
              Text("* "));
    EXPECT_EQ(FailureNumber(qint64(123), SqlType::BigInt(), SqlType::Text(2)), 8115);
}

TEST(ConvertDate, BetweenItsTypes) {
    EXPECT_EQ(Convert(Text("2026-11-21 14:02:03.000"), SqlType::DateTime(), SqlType::Date(), kExpression),
              Text("2026-11-21"));
    EXPECT_EQ(Convert(Text("2026-11-21"), SqlType::Date(), SqlType::DateTime(), kExpression),
              Text("2026-11-21 00:00:00.000"));
    EXPECT_EQ(Convert(Text("2026-11-21"), SqlType::Date(), SqlType::Text(30), kExpression, 100),
              Text("Nov 21 2026"));
    EXPECT_EQ(Convert(Text("2026-11-21"), SqlType::Date(), SqlType::Text(30), kExpression, 101),
              Text("11/21/2026"));
    EXPECT_EQ(Convert(Text("2026-11-21"), SqlType::Date(), SqlType::Text(30), kExpression, 120),
              Text("2026-11-21"));
}

TEST(ConvertDate, CutInAnExpressionAndRefusedByAColumn) {
    const Cell day = Text("2026-11-21");
    EXPECT_EQ(Convert(day, SqlType::Date(), SqlType::Text(4), kExpression), Text("2026"));
    EXPECT_EQ(FailureNumber(day, SqlType::Date(), SqlType::Text(4), kColumn), 8152);
}

TEST(ConvertDate, ToNumbers) {
    const Cell noon = Text("1900-01-03 12:00:00.000");
    EXPECT_EQ(Convert(noon, SqlType::DateTime(), SqlType::Int(), kExpression), Cell(qint64(3)));
    EXPECT_EQ(Convert(noon, SqlType::DateTime(), SqlType::Float(), kExpression), Cell(2.5));
    EXPECT_EQ(Convert(noon, SqlType::DateTime(), SqlType::Money(), kExpression), Cell(qint64(25000)));
    EXPECT_EQ(Convert(noon, SqlType::DateTime(), SqlType::Bit(), kExpression), Cell(qint64(1)));
}

TEST(ConvertNull, StaysNull) {
    for (const SqlType& type : {SqlType::Int(), SqlType::Money(), SqlType::DateTime(), SqlType::Text(1)})
        EXPECT_EQ(Convert(Cell(), SqlType::Text(), type, kColumn), Cell());
}

TEST(SameFormOf, ValuesThatNeedNoConversion) {
    EXPECT_TRUE(SameForm(SqlType::Text(10), SqlType::Text(20)));
    EXPECT_FALSE(SameForm(SqlType::Text(20), SqlType::Text(10)));
    EXPECT_FALSE(SameForm(SqlType::Text(), SqlType::Text(10)));
    EXPECT_TRUE(SameForm(SqlType::Text(10), SqlType::Text()));
    EXPECT_FALSE(SameForm(SqlType::Text(4), SqlType{SqlType::Kind::Char, 4, 0, 0}));
    EXPECT_TRUE(SameForm(SqlType::Int(), SqlType::BigInt()));
    EXPECT_FALSE(SameForm(SqlType::BigInt(), SqlType::Int()));
    EXPECT_FALSE(SameForm(SqlType::Int(), SqlType::Bit()));
    EXPECT_TRUE(SameForm(SqlType::Decimal(9, 2), SqlType::Decimal(10, 2)));
    EXPECT_FALSE(SameForm(SqlType::Decimal(9, 2), SqlType::Decimal(9, 3)));
    EXPECT_FALSE(SameForm(SqlType::Decimal(18, 2), SqlType::Decimal(19, 2)));
    EXPECT_FALSE(SameForm(SqlType::Decimal(9, 2), SqlType::Decimal(8, 2)));
    EXPECT_FALSE(SameForm(SqlType::Money(), SqlType::Decimal(19, 4)));
    EXPECT_FALSE(SameForm(SqlType::Int(), SqlType::Float()));
    EXPECT_FALSE(SameForm(SqlType::BigInt(), SqlType::Decimal(19, 0)));
    EXPECT_TRUE(SameForm(SqlType::Int(), SqlType::Decimal(10, 0)));
    EXPECT_FALSE(SameForm(SqlType::DateTime(), SqlType::Text(30)));
    EXPECT_FALSE(SameForm(SqlType::Date(), SqlType::DateTime()));
}
