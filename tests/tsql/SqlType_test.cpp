#include "support/PrintQt.h"
#include "tsql/ArithmeticType.h"
#include "tsql/SqlType.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SqlTypeTest, IsFoundByItsName) {
    EXPECT_EQ(SqlType::Named(u"MONEY"), SqlType::Money());
    EXPECT_EQ(SqlType::Named(u"datetime"), SqlType::DateTime());
    EXPECT_FALSE(SqlType::Named(u"number"));
    EXPECT_FALSE(SqlType::Named(u""));
}

TEST(SqlTypeTest, EncodingComesBack) {
    for (const SqlType& type :
         {SqlType::Text(), SqlType::Text(8000), SqlType::Int(), SqlType::Money(), SqlType::Decimal(38, 20),
          SqlType::DateTime(), SqlType{SqlType::Kind::Char, 1, 0, 0}})
        EXPECT_EQ(SqlType::Decode(type.Encode()), type) << type.Name().toStdString();
}

TEST(SqlTypeTest, CommonTypeIsTheHigherOne) {
    EXPECT_EQ(CommonType(SqlType::Int(), SqlType::Text(9)), SqlType::Int());
    EXPECT_EQ(CommonType(SqlType::Text(9), SqlType::DateTime()), SqlType::DateTime());
    EXPECT_EQ(CommonType(SqlType(), SqlType::Money()), SqlType::Money());
    EXPECT_EQ(CommonType(SqlType::Text(3), SqlType::Text(9)), SqlType::Text(9));
    EXPECT_EQ(CommonType(SqlType::Decimal(5, 1), SqlType::Decimal(4, 3)), SqlType::Decimal(7, 3));
    EXPECT_EQ(CommonType(SqlType::Money(), SqlType::Int()), SqlType::Money());
}

TEST(ArithmeticTypeTest, DigitsOfDecimals) {
    const SqlType a = SqlType::Decimal(5, 2);
    const SqlType b = SqlType::Decimal(3, 1);
    EXPECT_EQ(ArithmeticType(u'+', a, b), SqlType::Decimal(6, 2));
    EXPECT_EQ(ArithmeticType(u'*', a, b), SqlType::Decimal(9, 3));
    EXPECT_EQ(ArithmeticType(u'/', a, b), SqlType::Decimal(10, 6));
    EXPECT_EQ(ArithmeticType(u'%', a, b), SqlType::Decimal(4, 2));
    EXPECT_EQ(ArithmeticType(u'*', SqlType::Decimal(38, 10), a), SqlType::Decimal(38, 6));
}

TEST(ArithmeticTypeTest, HigherKindWins) {
    EXPECT_EQ(ArithmeticType(u'+', SqlType::Money(), SqlType::Int()), SqlType::Money());
    EXPECT_EQ(ArithmeticType(u'+', SqlType::Float(), SqlType::Money()), SqlType::Float());
    EXPECT_EQ(ArithmeticType(u'+', SqlType::Bit(), SqlType::Bit()), SqlType::Int());
    EXPECT_EQ(ArithmeticType(u'+', SqlType(), SqlType::Int()), SqlType::Int());
}
