#include "tsql/Units.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

Units Read(const char* text, int scale = 0) {
    return *ReadFixed(text, scale).units;
}

const char* const kMost = "99999999999999999999999999999999999999";

std::string TextOf(const std::optional<Units>& units, int scale = 0) {
    return units ? UnitsText(*units, scale).toStdString() : "none";
}

} // namespace

TEST(UnitsTest, TextsComeBack) {
    for (const char* text : {"0", "-1", "9223372036854775808", "-9223372036854775809", kMost})
        EXPECT_EQ(TextOf(Read(text)), text);
    EXPECT_EQ(TextOf(Read("12.5", 4), 4), "12.5000");
    EXPECT_EQ(TextOf(Read("-.05", 2), 2), "-0.05");
    EXPECT_EQ(TextOf(Read(" +7. ", 1), 1), "7.0");
    EXPECT_EQ(TextOf(Read("-0.00001", 4), 4), "0.0000") << "no negative zero";
}

TEST(UnitsTest, TextsAreRoundedHalfAwayFromZero) {
    EXPECT_EQ(TextOf(Read("2.675", 2), 2), "2.68");
    EXPECT_EQ(TextOf(Read("-2.6749999999999999999999999999999999999999999", 2), 2), "-2.67");
    EXPECT_EQ(TextOf(Read("9.995", 2), 2), "10.00");
}

TEST(UnitsTest, TextsOfOtherThingsAreNoNumbers) {
    for (const char* text : {"", " ", ".", "-", "1e3", "1 2", "12x", "0x10", "inf", "--1"})
        EXPECT_FALSE(ReadFixed(text, 2).isNumber) << text;
}

TEST(UnitsTest, MoreThan38DigitsAreNone) {
    EXPECT_EQ(TextOf(ReadFixed("100000000000000000000000000000000000000", 0).units), "none");
    EXPECT_EQ(TextOf(ReadFixed("10", 37).units), "none");
    EXPECT_EQ(TextOf(Rescaled(Read(kMost), 0, 1)), "none");
    EXPECT_EQ(TextOf(Product(Read(kMost), 2, 0)), "none");
    EXPECT_EQ(TextOf(Product(Read(kMost), Read(kMost), 0)), "none");
    EXPECT_EQ(TextOf(Quotient(Read(kMost), 1, 1)), "none");
}

TEST(UnitsTest, Scales) {
    EXPECT_EQ(TextOf(Rescaled(15, 1, 0)), "2");
    EXPECT_EQ(TextOf(Rescaled(-15, 1, 0)), "-2");
    EXPECT_EQ(TextOf(Rescaled(14, 1, 0)), "1");
    EXPECT_EQ(TextOf(Rescaled(5, 0, 3)), "5000");
    EXPECT_EQ(TextOf(Rescaled(1250, 0, -2)), "13");
    EXPECT_EQ(TextOf(Rescaled(0, 0, 99)), "0");
    EXPECT_EQ(TextOf(Rescaled(Read(kMost), 99, 0)), "0");
    EXPECT_EQ(TextOf(CutBehind(2679, 3, 2)), "2670");
    EXPECT_EQ(TextOf(CutBehind(-1299, 0, -2)), "-1200");
    EXPECT_EQ(TextOf(CutBehind(7, 0, 3)), "7");
}

TEST(UnitsTest, ProductsLoseDigitsByRounding) {
    EXPECT_EQ(TextOf(Product(Read(kMost), Read(kMost), 38)), "99999999999999999999999999999999999998");
    EXPECT_EQ(TextOf(Product(5, 5, 1)), "3");
    EXPECT_EQ(TextOf(Product(-5, 5, 1)), "-3");
    EXPECT_EQ(TextOf(Product(7, 7, 1)), "5");
    EXPECT_EQ(TextOf(Product(7, 2, 1)), "1");
}

TEST(UnitsTest, QuotientsAreCut) {
    EXPECT_EQ(TextOf(Quotient(2, 3, 6)), "666666");
    EXPECT_EQ(TextOf(Quotient(-2, 3, 6)), "-666666");
    EXPECT_EQ(TextOf(Quotient(1, Read(kMost), 38)), "1");
    EXPECT_EQ(TextOf(Quotient(Read("50000000000000000000000000000000000000"), Read(kMost), 3)), "500");
    EXPECT_EQ(TextOf(Quotient(Read(kMost), Read(kMost), 0)), "1");
}

TEST(UnitsTest, RemaindersAreExact) {
    EXPECT_EQ(TextOf(Remainder(101, 0, 1, 0)), "0");
    EXPECT_EQ(TextOf(Remainder(75, 1, 35, 0)), "15");
    EXPECT_EQ(TextOf(Remainder(-75, 0, 2, 1)), "-15");
    EXPECT_EQ(TextOf(Remainder(Read(kMost), 0, Read(kMost), 5)), kMost);
    EXPECT_EQ(TextOf(Remainder(7, 38, 3, 0)), "1");
}

TEST(UnitsTest, CellsSortAsTheNumbersDo) {
    const SqlType wide = SqlType::Decimal(38, 0);
    const std::vector<QByteArray> texts = {
        "-99999999999999999999999999999999999999", "-10", "-9", "0", "9", "10", kMost};
    QByteArray before;
    for (const QByteArray& text : texts) {
        const Cell cell = *UnitsCell(Read(text), wide);
        EXPECT_GT(std::get<QByteArray>(cell), before) << text.toStdString();
        EXPECT_EQ(TextOf(ReadUnits(cell, wide)), text.toStdString());
        before = std::get<QByteArray>(cell);
    }
    EXPECT_EQ(UnitsCell(125, SqlType::Decimal(18, 2)), Cell(qint64(125)));
    EXPECT_FALSE(UnitsCell(1000, SqlType::Decimal(3, 0)));
    EXPECT_TRUE(UnitsCell(std::numeric_limits<qint64>::max(), SqlType::Money()));
    EXPECT_FALSE(UnitsCell(Units(std::numeric_limits<qint64>::max()) + 1, SqlType::Money()));
}

TEST(UnitsTest, DoublesAreTheNearest) {
    EXPECT_EQ(UnitsToDouble(1, 1), 0.1);
    EXPECT_EQ(UnitsToDouble(Read("12345678901234567890123", 0), 10), 1234567890123.4567890123);
    EXPECT_EQ(UnitsToDouble(Read(kMost), 38), 1.0);
    EXPECT_EQ(TextOf(DoubleToUnits(2.675, 2), 2), "2.68");
    EXPECT_EQ(TextOf(DoubleToUnits(-0.1, 20), 20), "-0.10000000000000001000");
    EXPECT_EQ(TextOf(DoubleToUnits(1e20, 2), 2), "100000000000000000000.00");
    EXPECT_EQ(TextOf(DoubleToUnits(1e39, 0)), "none");
    EXPECT_EQ(TextOf(DoubleToUnits(std::numeric_limits<double>::infinity(), 0)), "none");
}
