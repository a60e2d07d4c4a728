#include "report/pages/ReportSums.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct Summed {
    std::string name;
    std::vector<Value> cells;
    QString sum;
};

class ReportSumsTest : public testing::TestWithParam<Summed> {};

/// The sum of one column over a run of rows.
Value SumOf(const RowData& rows, size_t column, quint32 first, quint32 end) {
    return ReportSums(rows, {column}, {{first, end}}).Of(column, first, end);
}

} // namespace

TEST_P(ReportSumsTest, IsExact) {
    std::vector<std::vector<Value>> rows;
    for (const Value& cell : GetParam().cells)
        rows.push_back({u"x"_s, cell});
    const auto data = Rows({u"a"_s, u"b"_s}, rows);
    EXPECT_EQ(SumOf(*data, 1, 0, quint32(data->RowCount())), Value(Decimal{GetParam().sum}));
}

INSTANTIATE_TEST_SUITE_P(
    Columns, ReportSumsTest,
    testing::Values(Summed{"Nothing", {}, u"0.0000"_s},
                    Summed{"MoneyToTheLastDecimal",
                           {Decimal{u"0.1000"_s}, Decimal{u"0.2000"_s}, Decimal{u"1234567890123.4567"_s}},
                           u"1234567890123.7567"_s},
                    Summed{"Negatives", {Decimal{u"100.0000"_s}, Decimal{u"-250.5000"_s}}, u"-150.5000"_s},
                    Summed{"LessThanOneBelowZero", {Decimal{u"-0.2500"_s}}, u"-0.2500"_s},
                    Summed{"DecimalsOfAnyLength",
                           {Decimal{u"5"_s}, Decimal{u"1.5"_s}, Decimal{u"0.123456"_s}},
                           u"6.6234"_s},
                    Summed{"NullCountsNothing", {Decimal{u"5.0000"_s}, Value()}, u"5.0000"_s},
                    Summed{"TextsAsValReadsThem",
                           {Value(u"4"_s), Value(u""_s), Value(u"2.5 kg"_s), Value(u"none"_s)},
                           u"6.5000"_s},
                    Summed{"WholeAndFloatingNumbers", {Value(3), Value(0.25)}, u"3.2500"_s}),
    CaseName());

TEST(ReportSums, TakesInTheRowsAskedForOnly) {
    const auto rows = Rows({u"a"_s}, {{Value(1)}, {Value(10)}, {Value(100)}, {Value(1000)}});
    EXPECT_EQ(SumOf(*rows, 0, 1, 3), Value(Decimal{u"110.0000"_s}));
}

TEST(ReportSums, RunsOfOneColumnAndColumnsOfOneRunStayApart) {
    const auto rows = Rows({u"a"_s, u"b"_s}, {{Value(1), Value(2)}, {Value(10), Value(20)}});
    const ReportSums sums(*rows, {1, 0}, {{0, 1}, {1, 2}, {0, 2}, {0, 2}});
    EXPECT_EQ(sums.Of(0, 0, 1), Value(Decimal{u"1.0000"_s}));
    EXPECT_EQ(sums.Of(0, 0, 2), Value(Decimal{u"11.0000"_s}));
    EXPECT_EQ(sums.Of(0, 1, 2), Value(Decimal{u"10.0000"_s}));
    EXPECT_EQ(sums.Of(1, 0, 2), Value(Decimal{u"22.0000"_s}));
}

TEST(ReportSums, RunsWithinEachOther) {
    const auto rows = Rows({u"a"_s}, {{Value(1)}, {Value(10)}, {Value(100)}, {Value(1000)}, {Value(10000)}});
    const ReportSums sums(*rows, {0}, {{0, 5}, {1, 4}, {1, 2}, {2, 4}, {4, 5}});
    EXPECT_EQ(sums.Of(0, 0, 5), Value(Decimal{u"11111.0000"_s}));
    EXPECT_EQ(sums.Of(0, 1, 4), Value(Decimal{u"1110.0000"_s}));
    EXPECT_EQ(sums.Of(0, 1, 2), Value(Decimal{u"10.0000"_s}));
    EXPECT_EQ(sums.Of(0, 2, 4), Value(Decimal{u"1100.0000"_s}));
    EXPECT_EQ(sums.Of(0, 4, 5), Value(Decimal{u"10000.0000"_s}));
}

TEST(ReportSums, ARunWithoutRowsIsNothing) {
    EXPECT_EQ(SumOf(*Rows({u"a"_s}, {{Value(1)}, {Value(10)}}), 0, 1, 1), Value(Decimal{u"0.0000"_s}));
}

TEST(ReportSums, AnOverflowIsRaisedForItsOwnRunOnly) {
    const auto rows = Rows({u"a"_s}, {{Value(1e15)}, {Value(1)}});
    const ReportSums sums(*rows, {0}, {{0, 1}, {1, 2}});
    EXPECT_EQ(sums.Of(0, 1, 2), Value(Decimal{u"1.0000"_s}));
    EXPECT_THROW(sums.Of(0, 0, 1), RunTimeError);
}

TEST(ReportSums, ASumBeyondAnyAccountIsAnOverflow) {
    const std::vector<std::vector<Value>> beyond = {
        {Decimal{u"9223372036854775807"_s}},
        {Decimal{u"922337203685477.5807"_s}, Decimal{u"0.0001"_s}},
        {Decimal{u"-922337203685477.5807"_s}, Decimal{u"-0.0002"_s}},
        {Value(1e15)},
        {Value(std::numeric_limits<double>::quiet_NaN())},
        {Value(-std::numeric_limits<double>::infinity())}};
    for (size_t i = 0; i < beyond.size(); ++i) {
        std::vector<std::vector<Value>> cells;
        for (const Value& cell : beyond[i])
            cells.push_back({cell});
        const auto rows = Rows({u"a"_s}, cells);
        try {
            SumOf(*rows, 0, 0, quint32(rows->RowCount()));
            ADD_FAILURE() << i;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), RunTime::kOverflow) << i;
        }
    }
}

TEST(ReportSums, TheSmallestSumOfAllIsShown) {
    const auto rows = Rows({u"a"_s}, {{Decimal{u"-922337203685477.5807"_s}}, {Decimal{u"-0.0001"_s}}});
    EXPECT_EQ(SumOf(*rows, 0, 0, 2), Value(Decimal{u"-922337203685477.5808"_s}));
}
