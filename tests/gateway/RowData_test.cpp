#include "gateway/RowData.h"
#include "support/PrintQt.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

RowData TwoColumns() {
    RowData rows;
    rows.columns = {u"Name"_s, u"Price"_s};
    return rows;
}

} // namespace

TEST(RowData, HasAsManyRowsAsAreWhole) {
    RowData rows = TwoColumns();
    EXPECT_EQ(rows.RowCount(), 0U);
    rows.Add(u"A"_s);
    EXPECT_EQ(rows.RowCount(), 0U);
    rows.Add(1);
    EXPECT_EQ(rows.RowCount(), 1U);
    EXPECT_EQ(RowData().RowCount(), 0U);
}

TEST(RowData, EqualValuesOfNeighboursAreHeldOnce) {
    RowData rows = TwoColumns();
    for (const Value& value : std::vector<Value>{u"A"_s, 1, u"A"_s, 2, u"B"_s, 2})
        rows.Add(value);
    EXPECT_EQ(&rows.Cell(0, 0), &rows.Cell(1, 0));
    EXPECT_EQ(&rows.Cell(1, 1), &rows.Cell(2, 1));
    EXPECT_EQ(rows.Cell(2, 0), Value(u"B"_s));
    EXPECT_EQ(rows.Cell(0, 1), Value(1));
}

TEST(RowData, ValuesOfDifferentTypesAndZerosOfDifferentSignsStayApart) {
    RowData rows = TwoColumns();
    for (const Value& value : std::vector<Value>{u"1"_s, 0.0, 1, -0.0, Decimal{u"1"_s}, {}})
        rows.Add(value);
    EXPECT_EQ(rows.Cell(0, 0), Value(u"1"_s));
    EXPECT_EQ(rows.Cell(1, 0), Value(1));
    EXPECT_EQ(rows.Cell(2, 0), Value(Decimal{u"1"_s}));
    EXPECT_FALSE(std::signbit(rows.Cell(0, 1).ToDouble()));
    EXPECT_TRUE(std::signbit(rows.Cell(1, 1).ToDouble()));
    EXPECT_TRUE(rows.Cell(2, 1).IsNull());
}

TEST(RowData, ACellTakesTheValueOfAnEarlierRowOfItsColumn) {
    RowData rows = TwoColumns();
    for (const Value& value : std::vector<Value>{u"A"_s, 1, u"B"_s, 2})
        rows.Add(value);
    rows.AddAsIn(0);
    rows.AddAsIn(1);
    EXPECT_EQ(&rows.Cell(2, 0), &rows.Cell(0, 0));
    EXPECT_EQ(&rows.Cell(2, 1), &rows.Cell(1, 1));
}

TEST(RowData, ACellThatIsSetLeavesThoseAloneThatSharedItsValue) {
    RowData rows = TwoColumns();
    for (const Value& value : std::vector<Value>{u"A"_s, 1, u"A"_s, 1})
        rows.Add(value);
    rows.Set(1, 0, u"B"_s);
    EXPECT_EQ(rows.Cell(0, 0), Value(u"A"_s));
    EXPECT_EQ(rows.Cell(1, 0), Value(u"B"_s));
    EXPECT_EQ(rows.Cell(1, 1), Value(1));
}

TEST(RowData, WhatIsThereNeverMoves) {
    RowData rows;
    rows.columns = {u"Number"_s};
    rows.Add(0);
    const Value& first = rows.Cell(0, 0);
    for (int i = 1; i < 100000; ++i)
        rows.Add(i);
    EXPECT_EQ(&rows.Cell(0, 0), &first);
    EXPECT_EQ(first, Value(0));
    EXPECT_EQ(rows.Cell(99999, 0), Value(99999));
}
