#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/SharedHospital.h"
#include "text/RunTimeError.h"
#include "trial/translate/ExpressionTranslator.h"

using namespace Qt::StringLiterals;

namespace {

struct ValueCase {
    std::string name;
    QString expression;
    Value value;
};

class ExpressionValue : public SharedHospital, public testing::WithParamInterface<ValueCase> {};

struct ConditionCase {
    std::string name;
    QString condition;
    bool holds;
};

class Condition : public SharedHospital, public testing::WithParamInterface<ConditionCase> {};

struct MistakeCase {
    std::string name;
    QString expression;
    int number;
};

class ExpressionMistake : public SharedHospital, public testing::WithParamInterface<MistakeCase> {};

} // namespace

TEST_P(ExpressionValue, IsTheServers) {
    const RowSet rows = Gateway().Execute(u"select "_s + GetParam().expression + u" as x"_s);
    EXPECT_EQ(rows.Fields(u"x"), GetParam().value) << rows.Fields(u"x").TextOrEmpty().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Literals, ExpressionValue,
                         testing::Values(ValueCase{"Text", u"'a  b '"_s, Text(u"a  b ")},
                                         ValueCase{"NationalText", u"N'Ž'"_s, Text(u"Ž")},
                                         ValueCase{"Quote", u"''''"_s, Text(u"'")},
                                         ValueCase{"Empty", u"''"_s, Text(u"")},
                                         ValueCase{"Null", u"NULL"_s, Value()},
                                         ValueCase{"Int", u"5"_s, Value(5)},
                                         ValueCase{"NegativeInt", u"-5"_s, Value(-5)},
                                         ValueCase{"DoubleNegative", u"-(-5)"_s, Value(5)},
                                         ValueCase{"WholeBeyondInt", u"3000000000"_s, Exact(u"3000000000")},
                                         ValueCase{"Decimal", u"12.50"_s, Exact(u"12.50")},
                                         ValueCase{"DecimalWithoutWhole", u".5"_s, Exact(u"0.5")},
                                         ValueCase{"Float", u"1.5e2"_s, Value(150.0)}),
                         CaseName());

INSTANTIATE_TEST_SUITE_P(
    Arithmetic, ExpressionValue,
    testing::Values(ValueCase{"Precedence", u"1 + 2 * 3"_s, Value(7)},
                    ValueCase{"Parentheses", u"(1 + 2) * 3"_s, Value(9)},
                    ValueCase{"LeftToRight", u"10 - 4 - 3"_s, Value(3)},
                    ValueCase{"WholeDivision", u"7 / 2"_s, Value(3)},
                    ValueCase{"NegativeWholeDivision", u"-7 / 2"_s, Value(-3)},
                    ValueCase{"Remainder", u"-7 % 3"_s, Value(-1)},
                    ValueCase{"DecimalSum", u"0.1 + 0.25"_s, Exact(u"0.35")},
                    ValueCase{"DecimalProduct", u"1.25 * 1.5"_s, Exact(u"1.875")},
                    ValueCase{"DecimalQuotientHasSixPlaces", u"1.0 / 3"_s, Exact(u"0.333333")},
                    ValueCase{"MoneyTimesQuantity", u"cast('2.675' as money) * 3"_s, Exact(u"8.0250")},
                    ValueCase{"MoneyIsRoundedToFourPlaces", u"cast(1 as money) / 3"_s, Exact(u"0.3333")},
                    ValueCase{"MoneyAndDecimal", u"cast(1 as money) + 0.12345"_s, Exact(u"1.12345")},
                    ValueCase{"FloatWins", u"1 + 1.5e0"_s, Value(2.5)},
                    ValueCase{"TextBecomesANumber", u"'2' + 3"_s, Value(5)},
                    ValueCase{"TwoTextsAreJoined", u"'2' + '3'"_s, Text(u"23")},
                    ValueCase{"NullMakesNull", u"1 + NULL"_s, Value()},
                    ValueCase{"BitsAreCounted", u"cast(1 as bit) + cast(1 as bit)"_s, Value(2)}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Casts, ExpressionValue,
    testing::Values(
        ValueCase{"EmptyTextToInt", u"cast('' as int)"_s, Value(0)},
        ValueCase{"TextToIntWithBlanks", u"cast(' 12 ' as int)"_s, Value(12)},
        ValueCase{"DecimalToIntIsCut", u"cast(2.7 as int)"_s, Value(2)},
        ValueCase{"NegativeDecimalToIntIsCut", u"cast(-2.7 as int)"_s, Value(-2)},
        ValueCase{"MoneyToIntIsRounded", u"cast(cast(2.7 as money) as int)"_s, Value(3)},
        ValueCase{"TextToDecimalIsRounded", u"cast('2.675' as decimal(9,2))"_s, Exact(u"2.68")},
        ValueCase{"IntToBit", u"cast(7 as bit)"_s, Value(true)},
        ValueCase{"TextToBit", u"cast('False' as bit)"_s, Value(false)},
        ValueCase{"TextIsCut", u"cast('abcdef' as varchar(3))"_s, Text(u"abc")},
        ValueCase{"ThirtyCharactersByDefault", u"len(cast(replicate('x', 99) as varchar))"_s, Value(30)},
        ValueCase{"CharIsPadded", u"cast('ab' as char(4))"_s, Text(u"ab  ")},
        ValueCase{"SignsAloneAreNoMoney", u"cast('-' as money) + cast('.' as money) + cast(',' as money)"_s,
                  Exact(u"0.0000")},
        ValueCase{"MonthAndYear", u"cast('Nov 2026' as datetime)"_s, MomentOf({2026, 11, 1, 0, 0, 0, 0})},
        ValueCase{"YearDayMonth", u"cast('2026 21 Nov' as datetime)"_s, MomentOf({2026, 11, 21, 0, 0, 0, 0})},
        ValueCase{"FloatToTextHasSixDigits", u"cast(1234567.0e0 as varchar(20))"_s, Text(u"1.23457e+006")},
        ValueCase{"LargeFloatToText", u"cast(1e6 as varchar(20))"_s, Text(u"1e+006")},
        ValueCase{"SmallFloatToText", u"cast(0.00001e0 as varchar(20))"_s, Text(u"1e-005")},
        ValueCase{"HugeFloatToText", u"cast(1e300 as varchar(20))"_s, Text(u"1e+300")},
        ValueCase{"MoneyToTextHasTwoPlaces", u"cast(cast(1.2345 as money) as varchar(10))"_s, Text(u"1.23")},
        ValueCase{"DecimalToTextKeepsItsPlaces", u"cast(1.50 as varchar(10))"_s, Text(u"1.50")},
        ValueCase{"TextToDateTime", u"cast('20261121 14:02:03.045' as datetime)"_s,
                  MomentOf({2026, 11, 21, 14, 2, 3, 47})},
        ValueCase{"TextToDate", u"cast('11/21/2026 2:02 PM' as date)"_s,
                  MomentOf({2026, 11, 21, 0, 0, 0, 0})},
        ValueCase{"EmptyTextToDate", u"cast('' as datetime)"_s, MomentOf({1900, 1, 1, 0, 0, 0, 0})},
        ValueCase{"NumberToDate", u"cast(1 as datetime)"_s, MomentOf({1900, 1, 2, 0, 0, 0, 0})},
        ValueCase{"DateTimeToText", u"cast(cast('2026-11-01 14:02' as datetime) as varchar(30))"_s,
                  Text(u"Nov  1 2026  2:02PM")},
        ValueCase{"DateToText", u"cast(cast('2026-11-01' as date) as varchar(30))"_s, Text(u"2026-11-01")},
        ValueCase{"Style101", u"convert(varchar(10), cast('2026-11-01' as datetime), 101)"_s,
                  Text(u"11/01/2026")},
        ValueCase{"Style120", u"convert(varchar(19), getdate(), 120)"_s, Text(u"2026-11-21 14:02:03")},
        ValueCase{"NullStaysNull", u"cast(NULL as money)"_s, Value()}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Choices, ExpressionValue,
    testing::Values(
        ValueCase{"CaseWhen", u"case when 1 = 2 then 'a' when 2 = 2 then 'b' else 'c' end"_s, Text(u"b")},
        ValueCase{"CaseElse", u"case when 1 = 2 then 'a' else 'c' end"_s, Text(u"c")},
        ValueCase{"CaseWithoutElse", u"case when 1 = 2 then 'a' end"_s, Value()},
        ValueCase{"CaseWithOperand", u"case 'X' when 'x' then 1 else 2 end"_s, Value(1)},
        ValueCase{"CaseTakesTheHigherType", u"case when 1 = 1 then 1 else 2.50 end"_s, Exact(u"1.00")},
        ValueCase{"CaseConvertsTexts", u"case when 1 = 1 then '7' else 2 end"_s, Value(7)},
        ValueCase{"Subquery", u"(select ChargeSlip from Clinical_Area..tbSlip)"_s, Value(100)},
        ValueCase{"SubqueryWithoutRow", u"(select ChargeSlip from Clinical_Area..tbSlip where 1 = 2)"_s,
                  Value()}),
    CaseName());

TEST_P(Condition, HoldsAsOnTheServer) {
    const RowSet rows =
        Gateway().Execute(u"select ChargeSlip from Clinical_Area..tbSlip where "_s + GetParam().condition);
    EXPECT_EQ(!rows.Eof(), GetParam().holds);
}

INSTANTIATE_TEST_SUITE_P(
    Comparisons, Condition,
    testing::Values(ConditionCase{"LettersOfAnyCase", u"'abc' = 'ABC'"_s, true},
                    ConditionCase{"AccentsCount", u"'pena' = 'peña'"_s, false},
                    ConditionCase{"BlanksAtTheEndDoNot", u"'a' = 'a  '"_s, true},
                    ConditionCase{"CapitalAccent", u"'peÑa' = 'PEñA'"_s, true},
                    ConditionCase{"NumbersAsNumbers", u"'10' > 9"_s, true},
                    ConditionCase{"TextsAsTexts", u"'10' > '9'"_s, false},
                    ConditionCase{"NotEqual", u"1 <> 2"_s, true},
                    ConditionCase{"OldNotEqual", u"1 != 1"_s, false},
                    ConditionCase{"NotLess", u"1 !< 2"_s, false},
                    ConditionCase{"NotGreater", u"1 !> 2"_s, true},
                    ConditionCase{"NullIsNeverEqual", u"NULL = NULL"_s, false},
                    ConditionCase{"NullIsNeverUnequal", u"NOT (NULL = 1)"_s, false},
                    ConditionCase{"DateAndText", u"cast('2026-11-21' as date) = '11/21/2026'"_s, true},
                    ConditionCase{"DateAndDateTime", u"cast('2026-11-21' as date) < getdate()"_s, true},
                    ConditionCase{"DecimalsExactly", u"0.1 + 0.2 = 0.3"_s, true},
                    ConditionCase{"MoneyExactly", u"cast('1.1' as money) * 3 = 3.3"_s, true},
                    ConditionCase{"BitAndText", u"cast(1 as bit) = 'true'"_s, true}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Logic, Condition,
    testing::Values(
        ConditionCase{"AndBeforeOr", u"1 = 1 or 1 = 1 and 1 = 2"_s, true},
        ConditionCase{"Parentheses", u"(1 = 1 or 1 = 1) and 1 = 2"_s, false},
        ConditionCase{"NotBeforeAnd", u"not 1 = 2 and 1 = 1"_s, true},
        ConditionCase{"NotNot", u"not not 1 = 1"_s, true},
        ConditionCase{"ParenthesesAroundAValue", u"(1 + 2) * 2 > 5"_s, true},
        ConditionCase{"IsNull", u"NULL is null"_s, true},
        ConditionCase{"IsNotNull", u"'' is not null"_s, true},
        ConditionCase{"Between", u"5 between 5 and 7"_s, true},
        ConditionCase{"NotBetween", u"5 not between 6 and 7"_s, true},
        ConditionCase{"BetweenTexts", u"'b' between 'A' and 'C'"_s, true},
        ConditionCase{"In", u"'B' in ('a', 'b')"_s, true}, ConditionCase{"NotIn", u"3 not in (1, 2)"_s, true},
        ConditionCase{"InMixedTypes", u"'2' in (1, 2)"_s, true},
        ConditionCase{"InQuery", u"'dela cruz' in (select LastName from Clinical_Area..tbPatient)"_s, true},
        ConditionCase{"InQueryOfNumbers", u"'100' in (select ChargeSlip from Clinical_Area..tbSlip)"_s, true},
        ConditionCase{"Exists", u"exists (select * from Clinical_Area..tbPatient where HospNum = '1001')"_s,
                      true},
        ConditionCase{"NotExists",
                      u"not exists (select 1 from Clinical_Area..tbPatient where HospNum = '9')"_s, true},
        ConditionCase{
            "ExistsOfTheOuterRow",
            u"exists (select 1 from Clinical_Area..tbSlip as s where s.ChargeSlip = tbSlip.ChargeSlip)"_s,
            true}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(Patterns, Condition,
                         testing::Values(ConditionCase{"Prefix", u"'DELA CRUZ' like 'dela%'"_s, true},
                                         ConditionCase{"Inside", u"'ultrasound' like '%sou%'"_s, true},
                                         ConditionCase{"OneCharacter", u"'cat' like 'c_t'"_s, true},
                                         ConditionCase{"OneCharacterIsNotNone", u"'ct' like 'c_t'"_s, false},
                                         ConditionCase{"Whole", u"'cats' like 'cat'"_s, false},
                                         ConditionCase{"Set", u"'b1' like '[a-c][0-9]'"_s, true},
                                         ConditionCase{"ExcludedSet", u"'b' like '[^a-c]'"_s, false},
                                         ConditionCase{"Accent", u"'peña' like 'pen%'"_s, false},
                                         ConditionCase{"NotLike", u"'x' not like 'y%'"_s, true},
                                         ConditionCase{"Number", u"123 like '12%'"_s, true},
                                         ConditionCase{"UnclosedSet", u"'a' like '[abc'"_s, false},
                                         ConditionCase{"BlanksAtTheEnd", u"'cat  ' like 'cat'"_s, true},
                                         ConditionCase{"BlanksBehindAPlace", u"'cat  ' like 'c_t'"_s, true},
                                         ConditionCase{"BlanksOfThePattern", u"'cat' like 'cat '"_s, false},
                                         ConditionCase{"BlanksOfNationals", u"N'cat ' like 'cat'"_s, false},
                                         ConditionCase{"BlanksBeforeANationalPattern",
                                                       u"'cat ' like N'cat'"_s, false},
                                         ConditionCase{"NullPattern", u"'x' like NULL"_s, false}),
                         CaseName());

TEST_P(ExpressionMistake, IsTheServersError) {
    EXPECT_EQ(
        FailureOf(Gateway(), u"select "_s + GetParam().expression + u" from Clinical_Area..tbSlip"_s).number,
        GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, ExpressionMistake,
    testing::Values(
        MistakeCase{"DivisionByZero", u"1 / 0"_s, 8134},
        MistakeCase{"DecimalDivisionByZero", u"1.5 / 0"_s, 8134},
        MistakeCase{"IntOverflow", u"2147483647 + ChargeSlip"_s, 8115},
        MistakeCase{"NegativeIntOverflow", u"-cast('-2147483648' as int)"_s, 8115},
        MistakeCase{"NegativeBigIntOverflow", u"-cast(-9223372036854775808 as bigint)"_s, 8115},
        MistakeCase{"BigIntOverflow", u"cast(9223372036854775807 as bigint) + ChargeSlip"_s, 8115},
        MistakeCase{"BigIntOverflowAsText", u"cast(cast(9223372036854775807 as bigint) * 2 as varchar(30))"_s,
                    8115},
        MistakeCase{"QuotientOverflow", u"cast(-9223372036854775808 as bigint) / -1"_s, 8115},
        MistakeCase{"FloatTooLargeForBigInt", u"cast(1e30 as bigint)"_s, 8115},
        MistakeCase{"NumberBeforeTheCalendar", u"cast(-53691 as datetime)"_s, 8115},
        MistakeCase{"NumberBehindTheCalendar", u"cast(2958464 as datetime)"_s, 8115},
        MistakeCase{"NumberFarBehindTheCalendar", u"cast(1e300 as datetime)"_s, 8115},
        MistakeCase{"TextTooLargeForInt", u"cast('3000000000' as int)"_s, 248},
        MistakeCase{"EmptyTextToDecimal", u"cast('' as decimal(9,2))"_s, 8114},
        MistakeCase{"DecimalTooLarge", u"cast(1000 as decimal(5,2))"_s, 8115},
        MistakeCase{"UnknownStyle", u"convert(varchar(10), getdate(), 99)"_s, 281},
        MistakeCase{"UnknownParameter", u"@Nothing"_s, 137},
        MistakeCase{"TextsAreNotSubtracted", u"'a' - 'b'"_s, 8117},
        MistakeCase{"TextHasNoSign", u"-'a'"_s, 8117},
        MistakeCase{"DateAgainstNumber", u"case when cast('2026-01-01' as date) = 5 then 1 end"_s, 206},
        MistakeCase{"SubqueryOfTwoColumns", u"(select 1, 2)"_s, 205},
        MistakeCase{"ConditionAsValue", u"1 = 1"_s, 102},
        MistakeCase{"ValueAsCondition", u"case when 1 then 2 end"_s, 156},
        MistakeCase{"UnknownType", u"cast(1 as number)"_s, 2715},
        MistakeCase{"UnknownAlias", u"x.ChargeSlip"_s, 4104},
        MistakeCase{"TextTypeTooLong", u"cast(1 as varchar(8001))"_s, 131},
        MistakeCase{"CharTypeFarTooLong", u"cast(1 as char(2147483647))"_s, 131},
        MistakeCase{"NationalTypeTooLong", u"convert(nvarchar(4001), 1)"_s, 2717},
        MistakeCase{"TextTypeOfNoLength", u"cast(1 as varchar(0))"_s, 1001},
        MistakeCase{"BinaryNumber", u"0x10"_s, 102},
        MistakeCase{"ColumnOfNoAlias", u"tbSlip.Nothing"_s, 207}),
    CaseName());

TEST_F(SharedHospital, DeepNestingIsRefusedAndNotACrash) {
    for (const qsizetype depth : {1000, 40000}) {
        EXPECT_EQ(
            FailureOf(Gateway(), u"select "_s + QString(depth, u'(') + u'1' + QString(depth, u')')).number,
            191);
        EXPECT_EQ(FailureOf(Gateway(), u"select 1"_s + QString(u" + 1"_s).repeated(depth)).number, 191);
        EXPECT_EQ(
            FailureOf(Gateway(), u"select "_s + QString(u"case when 1 = 1 then "_s).repeated(depth)).number,
            191);
        EXPECT_EQ(FailureOf(Gateway(), u"select "_s + QString(u"(select "_s).repeated(depth)).number, 191);
    }
}

TEST_F(SharedHospital, ManyConditionsAreNotTooDeep) {
    const QString command = u"select ChargeSlip from Clinical_Area..tbSlip where 1 = 1"_s +
                            QString(u" and ChargeSlip = 100"_s).repeated(200);
    EXPECT_EQ(RowTexts(Gateway(), command), QStringList{u"100"_s});
}

TEST_F(SharedHospital, ManyTermsAreNotTooDeep) {
    EXPECT_EQ(RowTexts(Gateway(), u"select 0"_s + QString(u" + 1"_s).repeated(100)), QStringList{u"100"_s});
    EXPECT_EQ(RowTexts(Gateway(), u"select 0"_s + QString(u" - 0.01"_s).repeated(100)), QStringList{u"-1"_s});
}

TEST_F(SharedHospital, ManyTextsBehindOneAnotherAreNotTooDeep) {
    EXPECT_EQ(RowTexts(Gateway(), u"select 'x'"_s + QString(u" + 'y'"_s).repeated(200)),
              QStringList{u'x' + QString(200, u'y')});
}

TEST_F(SharedHospital, WhatGrowsWithEveryLevelIsRefused) {
    EXPECT_EQ(FailureOf(Gateway(), u"select "_s + QString(u"nullif("_s).repeated(60) + u'1' +
                                       QString(u", 2)"_s).repeated(60))
                  .number,
              8623);
}

TEST_F(SharedHospital, ATextStandsOnceAmongTheConstantsHoweverOftenItIsWritten) {
    const QString column = u"concat(HospNum, 'a')"_s;
    EXPECT_EQ(RowTexts(Gateway(), u"select "_s + column +
                                      u" from Clinical_Area..tbPatient where HospNum = "
                                      "'1001' group by "_s +
                                      column),
              QStringList{u"1001a"_s});
}

TEST_F(SharedHospital, TheTypesThatAreTooLongAreNamed) {
    EXPECT_EQ(
        FailureOf(Gateway(), u"select cast(1 as varchar(9000))"_s).text,
        u"The size (9000) given to the type 'varchar' exceeds the maximum allowed for any data type (8000)."_s);
    EXPECT_EQ(FailureOf(Gateway(), u"select cast(1 as nvarchar(5000))"_s).text,
              u"The size (5000) given to the type 'nvarchar' exceeds the maximum allowed (4000)."_s);
    EXPECT_EQ(FailureOf(Gateway(), u"select\ncast(1 as varchar(0))"_s).text,
              u"Line 2: Length or precision specification 0 is invalid."_s);
}

TEST_F(SharedHospital, TheEdgesOfTheWholeNumbersAreWholeNumbers) {
    EXPECT_EQ(
        RowTexts(
            Gateway(),
            u"select cast(-9223372036854775807 as bigint) - 1, cast(9223372036854775806 as bigint) + 1, "
            "cast(-9223372036854775808 as bigint) % -1, -cast('2147483647' as int), -cast('-5' as int)"_s),
        QStringList{u"-9223372036854775808|9223372036854775807|0|-2147483647|5"_s});
}

TEST_F(SharedHospital, TheEdgesOfTheCalendarAreDates) {
    EXPECT_EQ(
        RowTexts(Gateway(), u"select year(cast(-53690 as datetime)), year(cast(2958463 as datetime))"_s),
        QStringList{u"1753|9999"_s});
}
