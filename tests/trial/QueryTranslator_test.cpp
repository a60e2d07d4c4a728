#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/SharedHospital.h"
#include "text/RunTimeError.h"
#include "trial/translate/QueryTranslator.h"

using namespace Qt::StringLiterals;

namespace {

struct QueryCase {
    std::string name;
    QString query;
    QStringList rows;
};

class QueryResult : public SharedHospital, public testing::WithParamInterface<QueryCase> {};

struct QueryMistake {
    std::string name;
    QString query;
    int number;
};

class QueryFailure : public SharedHospital, public testing::WithParamInterface<QueryMistake> {};

const QString kPatients = u" from Clinical_Area..tbPatient "_s;

} // namespace

TEST_P(QueryResult, IsTheServers) {
    EXPECT_EQ(RowTexts(Gateway(), GetParam().query), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    Clauses, QueryResult,
    testing::Values(
        QueryCase{"WithoutFrom", u"select 1, 'a'"_s, {u"1|a"_s}},
        QueryCase{"Top",
                  u"select top 2 HospNum"_s + kPatients + u"order by HospNum desc"_s,
                  {u"1006"_s, u"1005"_s}},
        QueryCase{
            "TopInParentheses", u"select top (1) HospNum"_s + kPatients + u"order by HospNum"_s, {u"1001"_s}},
        QueryCase{"Distinct",
                  u"select distinct left(LastName, 3)"_s + kPatients +
                      u"where LastName like 'NU%' order by 1"_s,
                  {u"NUN"_s, u"NUÑ"_s}},
        QueryCase{"DistinctIgnoresLetterCase",
                  u"select distinct x from (select 'a' as x union all select 'A' as x) as q"_s,
                  {u"a"_s}},
        QueryCase{"TopNone", u"select top (0) HospNum"_s + kPatients, {}},
        QueryCase{"GroupByTwiceTheSame",
                  u"select FirstName"_s + kPatients + u"where Active = 0 group by FirstName, FirstName"_s,
                  {u"CARL"_s}},
        QueryCase{"GroupByAColumnAndWhatIsMadeOfIt",
                  u"select len(FirstName)"_s + kPatients +
                      u"where Active = 0 group by FirstName, len(FirstName)"_s,
                  {u"4"_s}},
        QueryCase{
            "HavingWithoutGroupBy", u"select 'some'"_s + kPatients + u"having count(*) > 5"_s, {u"some"_s}},
        QueryCase{"HavingWithoutGroupByThatDoesNotHold",
                  u"select 'some'"_s + kPatients + u"having count(*) > 6"_s,
                  {}},
        QueryCase{"HavingWithoutGroupByIsOneRow", u"select 7"_s + kPatients + u"having 1 = 1"_s, {u"7"_s}},
        QueryCase{"HavingWithoutGroupByOverNothing",
                  u"select 7"_s + kPatients + u"where 1 = 2 having 1 = 1"_s,
                  {u"7"_s}},
        QueryCase{"OrderByAnAggregateIsOneRow", u"select 7"_s + kPatients + u"order by count(*)"_s, {u"7"_s}},
        QueryCase{"OrderByAlias",
                  u"select HospNum as n"_s + kPatients +
                      u"where Active = 1 and HospNum > '1003' order by n desc"_s,
                  {u"1006"_s, u"1005"_s}},
        QueryCase{"OrderByPosition",
                  u"select FirstName, HospNum"_s + kPatients + u"where LastName like 'N%' order by 2 desc"_s,
                  {u"CARL|1004"_s, u"BEA|1003"_s, u"ANA|1002"_s}},
        QueryCase{"OrderByColumnThatIsNotSelected",
                  u"select HospNum"_s + kPatients + u"where LastName like 'N%' order by LastName"_s,
                  {u"1002"_s, u"1004"_s, u"1003"_s}},
        QueryCase{"OrderByExpressionUsesTheCollation",
                  u"select HospNum"_s + kPatients +
                      u"where LastName like 'N%' order by concat(LastName, '')"_s,
                  {u"1002"_s, u"1004"_s, u"1003"_s}},
        QueryCase{"NullsComeFirst",
                  u"select FirstName"_s + kPatients + u"where LastName like 'DEL%' order by FirstName"_s,
                  {u"NULL"_s, u"JUAN"_s}},
        QueryCase{"GroupBy",
                  u"select Active, count(*) as n"_s + kPatients + u"group by Active order by n"_s,
                  {u"False|1"_s, u"True|5"_s}},
        QueryCase{"GroupByExpression",
                  u"select left(LastName, 1), count(*)"_s + kPatients +
                      u"group by left(LastName, 1) order by 1"_s,
                  {u"D|2"_s, u"N|3"_s, u"O|1"_s}},
        QueryCase{"GroupByIgnoresLetterCase",
                  u"select count(*) from (select 'a' as x union all select 'A' as x) as q group by x"_s,
                  {u"2"_s}},
        QueryCase{"Having",
                  u"select left(LastName, 1)"_s + kPatients +
                      u"group by left(LastName, 1) having count(*) > 2"_s,
                  {u"N"_s}},
        QueryCase{"ColumnInBrackets",
                  u"select [hospnum] as [hospital #]"_s + kPatients + u"where [LastName] = 'nuno'"_s,
                  {u"1004"_s}},
        QueryCase{"UnionAll",
                  u"select 1 as n union all select 2 union all select 1 order by n"_s,
                  {u"1"_s, u"1"_s, u"2"_s}},
        QueryCase{"UnionTakesTheHigherType",
                  u"select '7' as n union all select 1.50 order by n"_s,
                  {u"1.5"_s, u"7"_s}},
        QueryCase{
            "TopInsideAUnion", u"select top 1 1 as n union all select 2 order by n"_s, {u"1"_s, u"2"_s}},
        QueryCase{"UnionOrderedByText",
                  u"select N'Ñ' as x union all select 'o' union all select 'N' order by x"_s,
                  {u"N"_s, u"Ñ"_s, u"o"_s}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Sources, QueryResult,
    testing::Values(
        QueryCase{"InnerJoin",
                  u"select p.HospNum, c.Quantity from Clinical_Area..tbPatient as p inner join "
                  u"Clinical_Area..tbCharge c "
                  "on c.HospNum = p.HospNum order by c.ChargeID"_s,
                  {u"1001|2"_s, u"1001|1"_s}},
        QueryCase{"PlainJoin",
                  u"select count(*) from Clinical_Area..tbPatient as p join Clinical_Area..tbCharge as c on "
                  u"c.HospNum = "
                  "p.HospNum"_s,
                  {u"2"_s}},
        QueryCase{
            "LeftJoin",
            u"select p.HospNum, c.ChargeID from Clinical_Area..tbPatient as p left join "
            u"Clinical_Area..tbCharge as "
            "c on c.HospNum = p.HospNum and c.Quantity = 2 where p.HospNum < '1003' order by p.HospNum"_s,
            {u"1001|1"_s, u"1002|NULL"_s}},
        QueryCase{"LeftOuterJoin",
                  u"select c.ChargeID from Clinical_Area..tbSlip as s left outer join "
                  u"Clinical_Area..tbCharge as c on "
                  "c.ChargeID = s.ChargeSlip"_s,
                  {u"NULL"_s}},
        QueryCase{"TableNameQualifies",
                  u"select tbPatient.HospNum"_s + kPatients + u"where tbpatient.LastName = 'NUNO'"_s,
                  {u"1004"_s}},
        QueryCase{"FullNameQualifies",
                  u"select Clinical_Area..tbPatient.HospNum"_s + kPatients +
                      u"where clinical_area.dbo.tbPatient.LastName = 'NUNO'"_s,
                  {u"1004"_s}},
        QueryCase{"DerivedTable",
                  u"select d.n from (select HospNum as n, LastName"_s + kPatients +
                      u") as d where d.LastName = 'nuno'"_s,
                  {u"1004"_s}},
        QueryCase{"DerivedTableWithOrder",
                  u"select n from (select top 2 HospNum as n"_s + kPatients +
                      u"order by HospNum desc) as d order by n"_s,
                  {u"1005"_s, u"1006"_s}},
        QueryCase{"StarOfOneSource",
                  u"select s.*, p.HospNum from Clinical_Area..tbSlip as s inner join "
                  u"Clinical_Area..tbPatient as p on "
                  "p.HospNum = '1001'"_s,
                  {u"100|1001"_s}},
        QueryCase{"StarOfADerivedTable", u"select * from (select 1 as a, 2 as b) as d"_s, {u"1|2"_s}},
        QueryCase{"CorrelatedSubquery",
                  u"select HospNum, (select count(*) from Clinical_Area..tbCharge as c where c.HospNum = "
                  u"p.HospNum) from "
                  "Clinical_Area..tbPatient as p where p.HospNum < '1003' order by HospNum"_s,
                  {u"1001|2"_s, u"1002|0"_s}},
        QueryCase{
            "SubqueryInsideASubquery",
            u"select HospNum from Clinical_Area..tbPatient where HospNum in (select HospNum from "
            "Clinical_Area..tbCharge where ChargeID = (select max(ChargeID) from Clinical_Area..tbCharge))"_s,
            {u"1001"_s}}),
    CaseName());

TEST_P(QueryFailure, IsTheServersError) {
    EXPECT_EQ(FailureOf(Gateway(), GetParam().query).number, GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, QueryFailure,
    testing::Values(
        QueryMistake{"ColumnOutsideOfTheGroup", u"select LastName, count(*)"_s + kPatients, 8120},
        QueryMistake{"ColumnNotInGroupBy", u"select LastName"_s + kPatients + u"group by FirstName"_s, 8120},
        QueryMistake{"ExpressionNotInGroupBy",
                     u"select left(LastName, 2)"_s + kPatients + u"group by left(LastName, 1)"_s, 8120},
        QueryMistake{"HavingNotInGroupBy",
                     u"select 1"_s + kPatients + u"group by FirstName having LastName = 'x'"_s, 8120},
        QueryMistake{"OrderNotInGroupBy",
                     u"select FirstName"_s + kPatients + u"group by FirstName order by LastName"_s, 8127},
        QueryMistake{"OrderNotSelectedDistinct",
                     u"select distinct FirstName"_s + kPatients + u"order by LastName"_s, 145},
        QueryMistake{"GroupByAConstant", u"select 1"_s + kPatients + u"group by 1"_s, 164},
        QueryMistake{"GroupByAnOuterColumn",
                     u"select (select 1 from Clinical_Area..tbSlip group by p.HospNum) from "
                     "Clinical_Area..tbPatient as p"_s,
                     164},
        QueryMistake{"GroupByAnAggregate", u"select 1"_s + kPatients + u"group by count(HospNum)"_s, 144},
        QueryMistake{"HavingOfAColumnWithoutGroupBy", u"select 1"_s + kPatients + u"having LastName = 'x'"_s,
                     8120},
        QueryMistake{"ColumnBesideHavingWithoutGroupBy", u"select LastName"_s + kPatients + u"having 1 = 1"_s,
                     8120},
        QueryMistake{"OrderByAnAggregateOfAColumn", u"select LastName"_s + kPatients + u"order by count(*)"_s,
                     8120},
        QueryMistake{"OrderByAText", u"select LastName"_s + kPatients + u"order by 'a'"_s, 408},
        QueryMistake{"OrderByANegativeNumber", u"select LastName"_s + kPatients + u"order by -1"_s, 408},
        QueryMistake{"OrderByNull", u"select LastName"_s + kPatients + u"order by LastName, NULL"_s, 408},
        QueryMistake{"TopNull", u"select top (NULL) HospNum"_s + kPatients, 1060},
        QueryMistake{"TopNullAtLast", u"select top ((select NULLIF(1, 1))) HospNum"_s + kPatients, 1060},
        QueryMistake{"TopFraction", u"select top (1.5) HospNum"_s + kPatients, 1060},
        QueryMistake{"TopLessThanNone", u"select top (-1) HospNum"_s + kPatients, 127},
        QueryMistake{"TopLessThanNoneAtLast",
                     u"select top ((select min(1 - ChargeSlip) from Clinical_Area..tbSlip)) HospNum"_s +
                         kPatients,
                     127},
        QueryMistake{"OrderPositionTooHigh", u"select FirstName"_s + kPatients + u"order by 2"_s, 108},
        QueryMistake{"OrderInUnion", u"select 1 as a union all select 2 order by b"_s, 104},
        QueryMistake{"UnionOfDifferentLengths", u"select 1 union all select 2, 3"_s, 205},
        QueryMistake{
            "AmbiguousColumn",
            u"select HospNum from Clinical_Area..tbPatient as a inner join Clinical_Area..tbCharge as b on 1 = 1"_s,
            209},
        QueryMistake{
            "AliasTwice",
            u"select 1 from Clinical_Area..tbSlip as a inner join Clinical_Area..tbSlip as a on 1 = 1"_s,
            1011},
        QueryMistake{"AliasHidesTheName", u"select tbPatient.HospNum from Clinical_Area..tbPatient as p"_s,
                     4104},
        QueryMistake{"OrderInDerivedTable",
                     u"select n from (select HospNum as n"_s + kPatients + u"order by HospNum) as d"_s, 1033},
        QueryMistake{"DerivedTableWithoutName", u"select 1 from (select 1 as a)"_s, 102},
        QueryMistake{"StarOfNothing", u"select x.* from Clinical_Area..tbSlip as s"_s, 4104},
        QueryMistake{"ReservedWordAsColumn", u"select User from Clinical_Area..tbSlip"_s, 156},
        QueryMistake{"OtherOwner", u"select * from Clinical_Area.sys.tbSlip"_s, 208},
        QueryMistake{"FourParts", u"select * from a.b.c.d"_s, 102},
        QueryMistake{"TwoTablesWithComma", u"select 1 from Clinical_Area..tbSlip, Clinical_Area..tbPatient"_s,
                     102},
        QueryMistake{"Union", u"select 1 union select 2"_s, 156},
        QueryMistake{"Into", u"select 1 as a into Clinical_Area..tbNew from Clinical_Area..tbSlip"_s, 102},
        QueryMistake{"MissingOn",
                     u"select 1 from Clinical_Area..tbSlip as a inner join Clinical_Area..tbPatient as b"_s,
                     102}),
    CaseName());

TEST_F(SharedHospital, ResultColumnsBearTheServersNames) {
    const auto columns =
        Gateway()
            .Execute(u"select p.hospnum, LastName as [last name], concat(1, 2), count(*) as 'n' from "
                     "Clinical_Area..tbPatient as p group by p.hospnum, LastName"_s)
            .Data()
            ->columns;
    EXPECT_EQ(columns, (std::vector<QString>{u"hospnum"_s, u"last name"_s, u""_s, u"n"_s}));
    EXPECT_EQ(Gateway().Execute(u"select * from Clinical_Area..tbPrint"_s).Data()->columns,
              (std::vector<QString>{u"Line"_s, u"Slip #"_s}));
}

TEST_F(SharedHospital, MoreTablesThanThereCanBeAreTheServersError) {
    QString joined = u"select 1 from Clinical_Area..tbSlip as t0"_s;
    for (int i = 1; i < 64; ++i)
        joined += u" inner join Clinical_Area..tbSlip as t%1 on 1 = 1"_s.arg(i);
    EXPECT_EQ(RowTexts(Gateway(), joined), QStringList{u"1"_s});
    const RaisedError failure =
        FailureOf(Gateway(), joined + u" inner join Clinical_Area..tbSlip as more on 1 = 1"_s);
    EXPECT_EQ(failure.number, 106);
    EXPECT_EQ(failure.text, u"Too many table names in the query. The maximum allowable is 64."_s);
    for (int i = 64; i < 300; ++i)
        joined += u" inner join Clinical_Area..tbSlip as t%1 on 1 = 1"_s.arg(i);
    EXPECT_EQ(FailureOf(Gateway(), joined).number, 106);
}

TEST_F(SharedHospital, WhatSqliteRefusesHasNoWordsOfItsOwn) {
    QString united = u"select 1"_s;
    united += QString(u" union all select 1"_s).repeated(600);
    const RaisedError failure = FailureOf(Gateway(), united);
    EXPECT_EQ(failure.number, 8623);
    EXPECT_FALSE(failure.text.contains(u"SELECT"_s)) << failure.text.toStdString();
}

TEST_F(SharedHospital, PrefixSearchUsesTheIndexOfTheNames) {
    EXPECT_EQ(Gateway().QueryPlan(u"Clinical_Area..spGetPatient 'DE'"_s),
              QStringList{
                  u"SEARCH Clinical_Area..tbPatient AS t1 USING INDEX Clinical_Area..tbPatient.ixPatientName "
                  "(LastName>? AND LastName<?)"_s});
}

TEST_F(SharedHospital, NumberIsFoundByItsKey) {
    const QStringList plan =
        Gateway().QueryPlan(u"select * from Clinical_Area..tbPatient where HospNum = '1001 '"_s);
    ASSERT_EQ(plan.size(), 1);
    EXPECT_TRUE(plan[0].startsWith(u"SEARCH Clinical_Area..tbPatient AS t1 USING INDEX"_s))
        << plan[0].toStdString();
}
