#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/SharedHospital.h"
#include "text/RunTimeError.h"
#include "trial/translate/FunctionTranslator.h"

using namespace Qt::StringLiterals;

namespace {

struct FunctionCase {
    std::string name;
    QString expression;
    Value value;
};

class FunctionValue : public SharedHospital, public testing::WithParamInterface<FunctionCase> {};

class AggregateValue : public SharedHospital, public testing::WithParamInterface<FunctionCase> {};

struct FunctionMistake {
    std::string name;
    QString command;
    int number;
};

class FunctionFailure : public SharedHospital, public testing::WithParamInterface<FunctionMistake> {};

} // namespace

TEST_P(FunctionValue, IsTheServers) {
    const RowSet rows = Gateway().Execute(u"select "_s + GetParam().expression + u" as x"_s);
    EXPECT_EQ(rows.Fields(u"x"), GetParam().value) << rows.Fields(u"x").TextOrEmpty().toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FunctionValue,
    testing::Values(FunctionCase{"ConcatReadsNullAsEmpty", u"concat('a', NULL, 'b')"_s, Text(u"ab")},
                    FunctionCase{"ConcatOfTypes", u"concat(1, '-', 2.50, '-', cast(3 as money))"_s,
                                 Text(u"1-2.50-3.00")},
                    FunctionCase{"ConcatOfDate", u"concat(cast('2026-11-21' as datetime), '')"_s,
                                 Text(u"Nov 21 2026 12:00AM")},
                    FunctionCase{"Coalesce", u"coalesce(NULL, NULL, 'x')"_s, Text(u"x")},
                    FunctionCase{"CoalesceTakesTheHigherType", u"coalesce(NULL, '7', 1)"_s, Value(7)},
                    FunctionCase{"NullIfEqual", u"nullif('A', 'a ')"_s, Value()},
                    FunctionCase{"NullIfUnequal", u"nullif('a', 'b')"_s, Text(u"a")},
                    FunctionCase{"LenWithoutBlanksAtTheEnd", u"len(' ab  ')"_s, Value(3)},
                    FunctionCase{"LenCountsCharacters", u"len('ñÑ')"_s, Value(2)},
                    FunctionCase{"LenOfNull", u"len(NULL)"_s, Value()},
                    FunctionCase{"LenOfNumber", u"len(12.50)"_s, Value(5)},
                    FunctionCase{"Left", u"left('ñandu', 2)"_s, Text(u"ña")},
                    FunctionCase{"LeftOfMoreThanThereIs", u"left('ab', 9)"_s, Text(u"ab")},
                    FunctionCase{"Right", u"right('año', 2)"_s, Text(u"ño")},
                    FunctionCase{"RightOfMoreThanThereIs", u"right('ab', 9)"_s, Text(u"ab")},
                    FunctionCase{"Substring", u"substring('abcdef', 2, 3)"_s, Text(u"bcd")},
                    FunctionCase{"SubstringFromBeforeTheFirst", u"substring('abcdef', 0, 3)"_s, Text(u"ab")},
                    FunctionCase{"SubstringBehindTheEnd", u"substring('abc', 9, 3)"_s, Text(u"")},
                    FunctionCase{"SubstringToTheEndOfAllNumbers",
                                 u"substring('abcdef', 5, 9223372036854775807)"_s, Text(u"ef")},
                    FunctionCase{"Upper", u"upper('señor')"_s, Text(u"SEÑOR")},
                    FunctionCase{"Lower", u"lower('SEÑOR')"_s, Text(u"señor")},
                    FunctionCase{"LTrim", u"ltrim('  a ')"_s, Text(u"a ")},
                    FunctionCase{"RTrim", u"rtrim(' a  ')"_s, Text(u" a")},
                    FunctionCase{"Replace", u"replace('aXbx', 'x', '--')"_s, Text(u"a--b--")},
                    FunctionCase{"ReplaceNothing", u"replace('abc', '', 'x')"_s, Text(u"abc")},
                    FunctionCase{"ReplaceKeepsAccents", u"replace('añn', 'n', 'x')"_s, Text(u"añx")},
                    FunctionCase{"Replicate", u"replicate('Ñ', 3)"_s, Text(u"ÑÑÑ")},
                    FunctionCase{"ReplicateNever", u"replicate('x', 0)"_s, Text(u"")},
                    FunctionCase{"ReplicateLessThanNever", u"replicate('x', -1)"_s, Value()}),
    CaseName());

// Texts that are made of others are cut where the server's longest text ends.
INSTANTIATE_TEST_SUITE_P(
    LongTexts, FunctionValue,
    testing::Values(
        FunctionCase{"Replicate", u"len(replicate('abc', 5000))"_s, Value(8000)},
        FunctionCase{"ReplicateCountsCharacters", u"len(replicate('ñ', 9000))"_s, Value(8000)},
        FunctionCase{"NationalReplicate", u"len(replicate(N'x', 9000))"_s, Value(4000)},
        FunctionCase{"Replace", u"len(replace(replicate('x', 5000), 'x', 'yy'))"_s, Value(8000)},
        FunctionCase{"ReplaceByANationalText", u"len(replace(replicate('x', 5000), 'x', N'yy'))"_s,
                     Value(4000)},
        FunctionCase{"Concat", u"len(concat(replicate('x', 5000), replicate('y', 5000)))"_s, Value(8000)},
        FunctionCase{"ConcatWithANationalText", u"len(concat(replicate('x', 5000), N'y'))"_s, Value(4000)},
        FunctionCase{"Plus", u"right(replicate('x', 7999) + 'ab' + 'c', 2)"_s, Text(u"xa")},
        FunctionCase{"PlusANationalText", u"len(replicate('x', 5000) + N'y')"_s, Value(4000)},
        FunctionCase{"PlusNull", u"'a' + NULL + 'b'"_s, Value()}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Numbers, FunctionValue,
    testing::Values(FunctionCase{"Abs", u"abs(-5)"_s, Value(5)},
                    FunctionCase{"AbsOfMoney", u"abs(cast(-1.5 as money))"_s, Exact(u"1.5000")},
                    FunctionCase{"RoundHalfUp", u"round(2.675, 2)"_s, Exact(u"2.680")},
                    FunctionCase{"RoundNegativeHalfAway", u"round(-2.5, 0)"_s, Exact(u"-3.0")},
                    FunctionCase{"RoundLeftOfThePoint", u"round(1250, -2)"_s, Value(1300)},
                    FunctionCase{"RoundCuts", u"round(2.679, 2, 1)"_s, Exact(u"2.670")},
                    FunctionCase{"RoundOfMoney", u"round(cast('1.00505' as money), 2)"_s, Exact(u"1.0100")},
                    FunctionCase{"RoundKeepsAWholeNumber", u"round(cast(9007199254740993 as bigint), 2)"_s,
                                 Value(qint64(9007199254740993))},
                    FunctionCase{"RoundOfNull", u"round(NULL, 2)"_s, Value()}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Dates, FunctionValue,
    testing::Values(
        FunctionCase{"GetDate", u"getdate()"_s, MomentOf({2026, 11, 21, 14, 2, 3, 457})},
        FunctionCase{"AddDays", u"dateadd(day, -1, '2026-03-01')"_s, MomentOf({2026, 2, 28, 0, 0, 0, 0})},
        FunctionCase{"AddMonthsToTheLastDay", u"dateadd(month, 1, '2026-01-31')"_s,
                     MomentOf({2026, 2, 28, 0, 0, 0, 0})},
        FunctionCase{"AddMonthsOverTheYear", u"dateadd(mm, -11, '2026-03-15')"_s,
                     MomentOf({2025, 4, 15, 0, 0, 0, 0})},
        FunctionCase{"AddYearsFromALeapDay", u"dateadd(yy, 1, '2024-02-29')"_s,
                     MomentOf({2025, 2, 28, 0, 0, 0, 0})},
        FunctionCase{"AddHours", u"dateadd(hour, 25, '2026-01-01')"_s, MomentOf({2026, 1, 2, 1, 0, 0, 0})},
        FunctionCase{"AddMinutes", u"dateadd(mi, -1, '2026-01-01')"_s,
                     MomentOf({2025, 12, 31, 23, 59, 0, 0})},
        FunctionCase{"AddToNull", u"dateadd(day, 1, NULL)"_s, Value()},
        FunctionCase{"DaysCountMidnights", u"datediff(day, '2026-01-01 23:59', '2026-01-02 00:01')"_s,
                     Value(1)},
        FunctionCase{"DaysBackwards", u"datediff(dd, '2026-01-02', '2025-12-31')"_s, Value(-2)},
        FunctionCase{"MonthsCountTurns", u"datediff(month, '2025-12-31', '2026-01-01')"_s, Value(1)},
        FunctionCase{"YearsCountTurns", u"datediff(year, '2025-12-31', '2026-01-01')"_s, Value(1)},
        FunctionCase{"HoursCountTurns", u"datediff(hour, '2026-01-01 00:59', '2026-01-01 01:01')"_s,
                     Value(1)},
        FunctionCase{"MinutesBefore1900", u"datediff(minute, '1899-01-01', '1899-01-01 01:00')"_s, Value(60)},
        FunctionCase{"Year", u"year('11/21/2026')"_s, Value(2026)},
        FunctionCase{"Month", u"month('11/21/2026')"_s, Value(11)},
        FunctionCase{"Day", u"day(getdate())"_s, Value(21)}),
    CaseName());

TEST_P(AggregateValue, IsTheServers) {
    const RowSet rows =
        Gateway().Execute(u"select "_s + GetParam().expression + u" as x from Clinical_Area..tbCharge"_s);
    EXPECT_EQ(rows.Fields(u"x"), GetParam().value) << rows.Fields(u"x").TextOrEmpty().toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Aggregates, AggregateValue,
    testing::Values(FunctionCase{"CountRows", u"count(*)"_s, Value(2)},
                    FunctionCase{"CountWithoutNulls", u"count(Rate)"_s, Value(1)},
                    FunctionCase{"CountDistinct", u"count(distinct HospNum)"_s, Value(1)},
                    FunctionCase{"SumOfMoney", u"sum(Amount)"_s, Exact(u"1250.6000")},
                    FunctionCase{"SumOfDecimal", u"sum(Rate)"_s, Exact(u"12.35")},
                    FunctionCase{"SumOfInts", u"sum(Quantity)"_s, Value(3)},
                    FunctionCase{"SumOfFloat", u"sum(Ratio)"_s, Value(0.1)},
                    FunctionCase{"SumOfNothing", u"sum(case when 1 = 2 then Amount end)"_s, Value()},
                    FunctionCase{"SumOfProducts", u"sum(Amount * Quantity)"_s, Exact(u"2501.1000")},
                    FunctionCase{"AverageOfMoney", u"avg(Amount)"_s, Exact(u"625.3000")},
                    FunctionCase{"AverageOfIntsIsCut", u"avg(Quantity)"_s, Value(1)},
                    FunctionCase{"AverageOfDecimalHasSixPlaces", u"avg(Rate)"_s, Exact(u"12.350000")},
                    FunctionCase{"AverageOfNothing", u"avg(case when 1 = 2 then Quantity end)"_s, Value()},
                    FunctionCase{"MinOfDates", u"min(ChargeDate)"_s, MomentOf({2026, 11, 20, 0, 0, 0, 0})},
                    FunctionCase{"MaxOfMoney", u"max(Amount)"_s, Exact(u"1250.5000")},
                    FunctionCase{"RoundedSum", u"round(sum(Amount), 0)"_s, Exact(u"1251.0000")}),
    CaseName());

TEST_F(SharedHospital, SumsAreExactThoughTheDoublesLieBelowTheirDecimals) {
    EXPECT_EQ(RowTexts(Gateway(),
                       u"select sum(x) from (select cast(0.0029 as money) as x union all select 0.0058 union "
                       "all select 0.0113) as q"_s),
              QStringList{u"0.02"_s});
}

TEST_F(SharedHospital, ExtremesOfTextsFollowTheCollation) {
    EXPECT_EQ(RowTexts(Gateway(), u"select min(LastName), max(LastName) from Clinical_Area..tbPatient"_s),
              QStringList{u"DELA CRUZ|O'BRIEN"_s});
    EXPECT_EQ(RowTexts(Gateway(),
                       u"select max(concat(LastName, '')) from Clinical_Area..tbPatient where LastName like "
                       "'N%'"_s),
              QStringList{u"NUÑEZ"_s});
}

TEST_P(FunctionFailure, IsTheServersError) {
    EXPECT_EQ(FailureOf(Gateway(), GetParam().command).number, GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, FunctionFailure,
    testing::Values(
        FunctionMistake{"UnknownFunction", u"select charindex('a', 'b')"_s, 195},
        FunctionMistake{"TooFewArguments", u"select substring('a', 1)"_s, 174},
        FunctionMistake{"TooManyArguments", u"select getdate(1)"_s, 174},
        FunctionMistake{"StarOutsideOfCount", u"select sum(*) from Clinical_Area..tbSlip"_s, 174},
        FunctionMistake{"CountWithoutArgument", u"select count() from Clinical_Area..tbSlip"_s, 174},
        FunctionMistake{"DistinctSum", u"select sum(distinct ChargeSlip) from Clinical_Area..tbSlip"_s, 156},
        FunctionMistake{"UnknownDatePart", u"select dateadd(week, 1, getdate())"_s, 155},
        FunctionMistake{"DateTooLate", u"select dateadd(year, 9000, getdate())"_s, 517},
        FunctionMistake{"DayTooLate", u"select dateadd(day, 2147483647, getdate())"_s, 517},
        FunctionMistake{"DayTooEarly", u"select dateadd(day, -2147483647, getdate())"_s, 517},
        FunctionMistake{"MoreDaysThanAnInt", u"select dateadd(day, 9000000000, getdate())"_s, 8115},
        FunctionMistake{"AggregateInWhere", u"select * from Clinical_Area..tbSlip where count(*) = 1"_s, 147},
        FunctionMistake{"SumOfText", u"select sum(LastName) from Clinical_Area..tbPatient"_s, 8117},
        FunctionMistake{"SumOverflow",
                        u"select sum(x) from (select 2147483647 as x union all select 1 as x) as q"_s, 8115},
        FunctionMistake{
            "BigSumOverflow",
            u"select sum(x) from (select cast(9223372036854775807 as bigint) as x union all select 1 as x) as q"_s,
            8115},
        FunctionMistake{"AbsOverflow", u"select abs(cast('-2147483648' as int))"_s, 8115},
        FunctionMistake{"BigAbsOverflow", u"select abs(cast(-9223372036854775808 as bigint))"_s, 8115},
        FunctionMistake{"RoundOverflow", u"select round(2147483647, -1)"_s, 8115},
        FunctionMistake{"BigRoundOverflow", u"select round(cast(9223372036854775807 as bigint), -1)"_s, 8115},
        FunctionMistake{"NegativeLeft", u"select left('abc', -1)"_s, 536},
        FunctionMistake{"NegativeRight", u"select right('abc', -1)"_s, 536},
        FunctionMistake{"NegativeSubstring", u"select substring('abc', 2, -1)"_s, 537},
        FunctionMistake{"AggregateOfAnAggregate", u"select sum(count(*)) from Clinical_Area..tbSlip"_s, 130},
        FunctionMistake{"AbsOfDate", u"select abs(getdate())"_s, 8117}),
    CaseName());
