#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/SharedHospital.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

struct AnswerCase {
    std::string name;
    QString command;
    /// The first column, row by row.
    std::vector<Value> values;
};

class Answer : public SharedHospital, public testing::WithParamInterface<AnswerCase> {};

struct RefusalCase {
    std::string name;
    QString command;
    int number;
};

class Refusal : public SharedHospital, public testing::WithParamInterface<RefusalCase> {};

/// Whole numbers, decimals and money that SQLite must not take for one another: i 3 and 7, d 1.5 and 7.25, m
/// 100 and 0.01, f 0.1 and 2.
QString Of(const QString& expression) {
    return u"select "_s + expression +
           u" from (select 3 as i, cast(1.5 as decimal(9,2)) as d, cast(100 as money) as m, cast(0.1 as float) as f"
           u" union all select 7, 7.25, cast(0.01 as money), 2) as x order by i"_s;
}

} // namespace

TEST_P(Answer, IsTheServers) {
    const RowSet rows = Gateway().Execute(GetParam().command);
    const auto data = rows.Data();
    ASSERT_EQ(data->RowCount(), GetParam().values.size());
    for (size_t row = 0; row < data->RowCount(); ++row)
        EXPECT_EQ(data->Cell(row, 0), GetParam().values[row])
            << "row " << row << ": " << data->Cell(row, 0).TextOrEmpty().toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    ChangesOfType, Answer,
    testing::Values(
        AnswerCase{"WholeByAFloat", Of(u"100 / cast(i as float)"_s), {100 / 3.0, 100 / 7.0}},
        AnswerCase{"FloatByAWhole", Of(u"cast(i as float) / 2"_s), {1.5, 3.5}},
        AnswerCase{"WholeTimesAFloatByAWhole", Of(u"i * 1e0 / 2"_s), {1.5, 3.5}},
        AnswerCase{
            "CoalesceWithADecimal", Of(u"coalesce(i, 0.0) / 2"_s), {Exact(u"1.500000"), Exact(u"3.500000")}},
        AnswerCase{"CoalesceWithAFloat", Of(u"coalesce(i, 0e0) / 2"_s), {1.5, 3.5}},
        AnswerCase{"CoalesceWithMoney", Of(u"coalesce(i, m) / 8"_s), {Exact(u"0.3750"), Exact(u"0.8750")}},
        AnswerCase{"CaseOfWholeAndDecimal",
                   Of(u"case when i = 3 then i else d end / 2"_s),
                   {Exact(u"1.500000"), Exact(u"3.625000")}},
        AnswerCase{"CaseOfWholeAndFloat", Of(u"case when i = 3 then i else f end / 2"_s), {1.5, 1.0}},
        AnswerCase{"CaseOfBitAndMoney",
                   u"select case when 1 = 1 then cast(1 as bit) else cast(2 as money) end / 8"_s,
                   {Exact(u"0.1250")}},
        AnswerCase{"NullIfKeepsItsFirstType", Of(u"nullif(i, 7.0) / 2"_s), {1, Value()}},
        AnswerCase{"UnionOfDecimalAndWhole",
                   u"select x / 2 from (select 1.5 as x union all select 7) as q order by x"_s,
                   {Exact(u"0.750000"), Exact(u"3.500000")}},
        AnswerCase{
            "UnionPutIntoText",
            u"select cast(x as varchar(10)) from (select 1 as x union all select 2.5) as q order by x"_s,
            {Text(u"1.0"), Text(u"2.5")}},
        AnswerCase{"UnionOfWholeAndFloat",
                   u"select x / 2 from (select 1 as x union all select 7e0) as q order by x"_s,
                   {0.5, 3.5}},
        AnswerCase{"SubqueryOfAWholeByADecimal",
                   u"select (select ChargeSlip from Clinical_Area..tbSlip) / 8.0"_s,
                   {Exact(u"12.500000")}},
        AnswerCase{"WholeOfABit", Of(u"i / (cast(1 as bit) + 1)"_s), {1, 3}},
        AnswerCase{"TextBesideADecimal", Of(u"'2.50' * d"_s), {Exact(u"3.7500"), Exact(u"18.1250")}},
        AnswerCase{"TextBesideMoney", Of(u"'0.5' * m"_s), {Exact(u"50.0000"), Exact(u"0.0050")}},
        AnswerCase{"ComparedWithOneScale", Of(u"i"_s).replace(u"order"_s, u"where i = d * 2 order"_s), {3}},
        AnswerCase{
            "MoneyAmongDecimals", Of(u"i"_s).replace(u"order"_s, u"where m in (0.010, 5) order"_s), {7}},
        AnswerCase{"WholesAmongWideDecimals",
                   Of(u"i"_s).replace(u"order"_s, u"where i in (cast(3 as decimal(38,10)), '9') order"_s),
                   {3}},
        AnswerCase{"DecimalsAmongSelectedWholes",
                   Of(u"i"_s).replace(u"order"_s, u"where d * 2 in (select ChargeSlip - 97 from "
                                                  "Clinical_Area..tbSlip) order"_s),
                   {3}},
        AnswerCase{"BranchThatIsNotTaken",
                   Of(u"case when i > 0 then i else cast(1e300 as decimal(9,2)) + cast('x' as int) end"_s),
                   {Exact(u"3.00"), Exact(u"7.00")}},
        AnswerCase{"BigIntBesideADecimal",
                   u"select cast(9223372036854775807 as bigint) + 0.5"_s,
                   {Exact(u"9223372036854775807.5")}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Quotients, Answer,
    testing::Values(
        AnswerCase{"OfDecimalsAreCut", u"select 2.0 / 3"_s, {Exact(u"0.666666")}},
        AnswerCase{"OfNegativesAreCutTowardsZero", u"select -2.0 / 3"_s, {Exact(u"-0.666666")}},
        AnswerCase{"OfMoneyAreCut", u"select cast(100 as money) / 339"_s, {Exact(u"0.2949")}},
        AnswerCase{
            "OfMoneyByMoneyAreCut", u"select cast(2 as money) / cast(3 as money)"_s, {Exact(u"0.6666")}},
        AnswerCase{"OfWholesByMoneyAreCut", u"select 2 / cast(3 as money)"_s, {Exact(u"0.6666")}},
        AnswerCase{"HaveTheDigitsOfTheirDivisor",
                   u"select cast(1 as decimal(9,2)) / cast(3 as decimal(9,2))"_s,
                   {Exact(u"0.333333333333")}},
        AnswerCase{"OfManyDigits",
                   u"select cast(1 as decimal(38,10)) / cast(3 as decimal(38,10))"_s,
                   {Exact(u"0.333333")}},
        AnswerCase{"OfWideNumbers",
                   u"select 99999999999999999999999999999999 / cast(7 as decimal(2,0))"_s,
                   {Exact(u"14285714285714285714285714285714.142857")}},
        AnswerCase{"AverageOfDecimalsIsCut",
                   Of(u"avg(d) as i"_s).replace(u" order by i"_s, u""_s),
                   {Exact(u"4.375000")}},
        AnswerCase{
            "AverageOfMoneyIsCut",
            u"select avg(x) from (select cast(1 as money) as x union all select 0 union all select 1) as q"_s,
            {Exact(u"0.6666")}},
        AnswerCase{"AverageOfThreeDecimalsIsCut",
                   u"select avg(x) from (select 1.0 as x union all select 0 union all select 1) as q"_s,
                   {Exact(u"0.666666")}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Remainders, Answer,
    testing::Values(AnswerCase{"OfDecimalsAreExact", u"select 10.1 % 0.1"_s, {Exact(u"0.0")}},
                    AnswerCase{"KeepTheLongerScale", u"select 7.5 % 0.35"_s, {Exact(u"0.15")}},
                    AnswerCase{"HaveTheSignOfTheDividend", u"select -7.5 % 2"_s, {Exact(u"-1.5")}},
                    AnswerCase{"OfMoney", u"select cast(100 as money) % 0.7"_s, {Exact(u"0.6000")}},
                    AnswerCase{"ByANumberBeyondAll",
                               u"select cast(3 as decimal(38,38) ) % 7"_s.replace(u"cast(3"_s, u"cast(0.3"_s),
                               {Exact(u"0.30000000000000000000000000000000000000")}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    ManyDigits, Answer,
    testing::Values(
        AnswerCase{"LargestMoney",
                   u"select cast('922337203685477.5807' as money)"_s,
                   {Exact(u"922337203685477.5807")}},
        AnswerCase{"SmallestMoney",
                   u"select cast(-922337203685477.5808 as money)"_s,
                   {Exact(u"-922337203685477.5808")}},
        AnswerCase{"SumOfDecimalsOf38Digits",
                   u"select 12345678901234567890123456789.12345678 + 0.00000001"_s,
                   {Exact(u"12345678901234567890123456789.12345679")}},
        AnswerCase{"ProductOfWideDecimals",
                   u"select cast('12345678901234567890.5' as decimal(21,1)) * 1.5"_s,
                   {Exact(u"18518518351851851835.75")}},
        AnswerCase{"ProductThatLosesDigitsIsRounded",
                   u"select cast(0.0000005 as decimal(38,10)) * cast(1 as decimal(38,10))"_s,
                   {Exact(u"0.000001")}},
        AnswerCase{"NegativeWide",
                   u"select -cast('12345678901234567890' as decimal(20,0))"_s,
                   {Exact(u"-12345678901234567890")}},
        AnswerCase{"AbsOfWide",
                   u"select abs(cast('-12345678901234567890' as decimal(20,0)))"_s,
                   {Exact(u"12345678901234567890")}},
        AnswerCase{"RoundOfWide",
                   u"select round(cast('12345678901234567895.55' as decimal(22,2)), -1)"_s,
                   {Exact(u"12345678901234567900.00")}},
        AnswerCase{
            "OrderOfWides",
            u"select x from (select cast(-5 as decimal(38,2)) as x union all select 10 union all select 9 "
            "union all select -40) as q order by x"_s,
            {Exact(u"-40.00"), Exact(u"-5.00"), Exact(u"9.00"), Exact(u"10.00")}},
        AnswerCase{
            "LargestOfSums",
            u"select max(s) from (select HospNum, sum(Rate) as s from Clinical_Area..tbCharge group by "
            "HospNum) as q"_s,
            {Exact(u"12.35")}},
        AnswerCase{"WholesBeyondIntAreDecimals", u"select 2147483648 / 3"_s, {Exact(u"715827882.666666")}},
        AnswerCase{"LongSumOfWides",
                   u"select cast(0 as decimal(38,2))"_s + QString(u" - 0.01"_s).repeated(100),
                   {Exact(u"-1.00")}},
        AnswerCase{"FloatOfWide",
                   u"select cast(cast('12345678901234567890' as decimal(20,0)) as float)"_s,
                   {12345678901234567890.0}},
        AnswerCase{
            "DecimalOfFloat", u"select cast(1e20 as decimal(38,2))"_s, {Exact(u"100000000000000000000.00")}},
        AnswerCase{"WholeOfWide",
                   u"select cast(cast('9223372036854775807.9' as decimal(20,1)) as bigint)"_s,
                   {qint64(9223372036854775807)}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Dates, Answer,
    testing::Values(
        AnswerCase{"DayLater", u"select getdate() + 1"_s, {MomentOf({2026, 11, 22, 14, 2, 3, 457})}},
        AnswerCase{"HalfADayEarlier", u"select getdate() - 0.5"_s, {MomentOf({2026, 11, 21, 2, 2, 3, 457})}},
        AnswerCase{"NumberInFront", u"select 1 + getdate()"_s, {MomentOf({2026, 11, 22, 14, 2, 3, 457})}},
        AnswerCase{"Difference",
                   u"select cast(getdate() - cast('2026-11-20' as datetime) as float)"_s,
                   {1 + (14 * 3600 + 2 * 60 + 3 + 137 / 300.0) / 86400}},
        AnswerCase{"ToIntFromNoonOnTheNextDay", u"select cast(getdate() as int)"_s, {46346}},
        AnswerCase{"ToIntBeforeNoon", u"select cast(cast('1900-01-02 11:59' as datetime) as int)"_s, {1}},
        AnswerCase{"ToFloat", u"select cast(cast('1900-01-02 06:00' as datetime) as float)"_s, {1.25}},
        AnswerCase{"ToDecimal",
                   u"select cast(cast('1900-01-02 06:00' as datetime) as decimal(9,2))"_s,
                   {Exact(u"1.25")}},
        AnswerCase{"ToBit", u"select cast(cast('1900-01-01' as datetime) as bit)"_s, {false}},
        AnswerCase{"NullStaysNull", u"select getdate() + NULL"_s, {Value()}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    TooShortTexts, Answer,
    testing::Values(
        AnswerCase{"IntIsAStar", u"select cast(-150 as varchar(3))"_s, {Text(u"*")}},
        AnswerCase{"IntInCharIsAPaddedStar", u"select cast(1234 as char(3))"_s, {Text(u"*  ")}},
        AnswerCase{"DateTimeIsCut", u"select cast(getdate() as varchar(6))"_s, {Text(u"Nov 21")}},
        AnswerCase{"DateIsCut", u"select convert(char(4), cast(getdate() as date), 120)"_s, {Text(u"2026")}}),
    CaseName());

TEST_P(Refusal, IsTheServers) {
    EXPECT_EQ(FailureOf(Gateway(), GetParam().command).number, GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    TooShortTexts, Refusal,
    testing::Values(RefusalCase{"IntInNational", u"select cast(-150 as nvarchar(3))"_s, 8115},
                    RefusalCase{"BigInt", u"select cast(cast(1234 as bigint) as varchar(3))"_s, 8115},
                    RefusalCase{"Decimal", u"select cast(12.34 as varchar(3))"_s, 8115},
                    RefusalCase{"Money", u"select cast(cast(12.34 as money) as varchar(3))"_s, 234},
                    RefusalCase{"Float", u"select cast(12.34e0 as varchar(3))"_s, 232}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Overflows, Refusal,
    testing::Values(
        RefusalCase{"OfMoney", u"select cast(922337203685477.5807 as money) + 1"_s, 8115},
        RefusalCase{"OfMoneyColumns", Of(u"(m + cast(9e14 as money)) * i"_s), 8115},
        RefusalCase{"OfMoneyByTenThousandth", u"select cast(1e14 as money) / cast(0.0001 as money)"_s, 8115},
        RefusalCase{
            "OfMoneySums",
            u"select sum(x) from (select cast(9e14 as money) as x union all select cast(9e14 as money)) as q"_s,
            8115},
        RefusalCase{"OfARoundedDecimal", u"select round(748.58, -3)"_s, 8115},
        RefusalCase{"OfDecimals", u"select 99999999999999999999999999999999999999 + 1"_s, 8115},
        RefusalCase{
            "OfDecimalSums",
            u"select sum(x) from (select 99999999999999999999999999999999999999 as x union all select 1) "
            "as q"_s,
            8115},
        RefusalCase{"OfProducts", u"select cast(9e37 as decimal(38,0)) * cast(2 as decimal(38,0))"_s, 8115},
        RefusalCase{"OfAFloatThatShallBeAnInt", u"select cast(3e9 as int)"_s, 232},
        RefusalCase{"OfAFloatThatShallBeABigInt", u"select cast(1e30 as bigint)"_s, 8115},
        RefusalCase{"OfFloats", u"select 1e308 * 10"_s, 8115},
        RefusalCase{"OfIntsInALongerSum",
                    u"select 2147483647 + ChargeSlip + cast(1 as bigint) from Clinical_Area..tbSlip"_s, 8115},
        RefusalCase{"OfInts", u"select sum(x) from (select 2147483647 as x union all select 1) as q"_s, 8115},
        RefusalCase{"OfAverages", u"select avg(x) from (select 2147483647 as x union all select 1) as q"_s,
                    8115},
        RefusalCase{"OfNumberTexts", u"select 999999999999999999999999999999999999999"_s, 1007},
        RefusalCase{"OfFloatTexts", u"select 1e999"_s, 168},
        RefusalCase{"OfDateDiff", u"select datediff(minute, '1753-01-01', '9999-12-31')"_s, 535},
        RefusalCase{"OfDates", u"select getdate() + 2958463"_s, 8115},
        RefusalCase{"OfDecimalDivisionByZero", Of(u"m / (d - d)"_s), 8134},
        RefusalCase{"OfDecimalRemainders", Of(u"d % (d - d)"_s), 8134}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    TypesThatDoNotMeet, Refusal,
    testing::Values(
        RefusalCase{"DateTimeIntoAnInt",
                    u"update Clinical_Area..tbSlip set ChargeSlip = cast('2026-01-01' as datetime)"_s, 257},
        RefusalCase{"DateTimeIntoMoney", u"update Clinical_Area..tbCharge set Amount = getdate()"_s, 257},
        RefusalCase{"DateTimeSelectedIntoAnInt",
                    u"insert into Clinical_Area..tbSlip (ChargeSlip) select getdate()"_s, 257},
        RefusalCase{"NumberIntoADate", u"update Clinical_Area..tbPatient set BirthDate = 5"_s, 206},
        RefusalCase{"DateIntoAnInt",
                    u"update Clinical_Area..tbSlip set ChargeSlip = cast(getdate() as date)"_s, 206},
        RefusalCase{"CastOfADateToInt", u"select cast(cast('2026-01-01' as date) as int)"_s, 529},
        RefusalCase{"CastOfANumberToDate", u"select cast(5 as date)"_s, 529},
        RefusalCase{"DateAndNumber", u"select cast('2026-01-01' as date) + 1"_s, 206},
        RefusalCase{"TwoDates", u"select cast('2026-01-01' as date) - cast('2026-01-01' as date)"_s, 8117},
        RefusalCase{"DateAndDateTime", u"select cast('2026-01-01' as date) + getdate()"_s, 402},
        RefusalCase{"TimesADateTime", u"select getdate() * 2"_s, 402},
        RefusalCase{"FloatRemainder", u"select 5e0 % 2"_s, 402},
        RefusalCase{"DateTimeAsALength", u"select left('abc', getdate())"_s, 257},
        RefusalCase{"LeftSideFirst", u"select 1 from Clinical_Area..tbSlip where a = b"_s, 207}),
    CaseName());

TEST_F(SharedHospital, AComparisonNamesTheUnknownColumnOfItsLeftSide) {
    for (const QString& condition :
         {u"Lft = Rght"_s, u"case Lft when Rght then 1 end = 1"_s, u"Lft + Rght = 1"_s})
        EXPECT_EQ(FailureOf(Gateway(), u"select 1 from Clinical_Area..tbSlip where "_s + condition).text,
                  u"Invalid column name 'Lft'."_s);
}
