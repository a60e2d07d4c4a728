#include "support/BothRoads.h"
#include "support/CaseName.h"
#include "support/smallhospital/SharedHospital.h"

using namespace Qt::StringLiterals;

namespace {

/// Literals of every type and of every kind of mistake, as they are written into a command.
QStringList LiteralTexts() {
    return {u"'1001'"_s,
            u"'1002'"_s,
            u"''"_s,
            u"'a'"_s,
            u"'dela cruz   '"_s,
            u"'O''BRIEN'"_s,
            u"N'NUÑEZ'"_s,
            u"N'DELOS REYES'"_s,
            u'\'' + QString(40, u'x') + u'\'',
            u'\'' + QString(8001, u'y') + u'\'',
            u"'12.5'"_s,
            u"'-3'"_s,
            u"'1e3'"_s,
            u"'2026-11-20'"_s,
            u"'20261121 14:02'"_s,
            u"'31/31/2026'"_s,
            u"'0001-01-01'"_s,
            u"'D%'"_s,
            u"'[A-M]_L%'"_s,
            u"0"_s,
            u"1"_s,
            u"2"_s,
            u"3"_s,
            u"101"_s,
            u"120"_s,
            u"2147483647"_s,
            u"2147483648"_s,
            u"99999999999999999999"_s,
            u"0.5"_s,
            u"2.5"_s,
            u"12.345"_s,
            u"1e3"_s,
            u"1e300"_s,
            u"1e999"_s,
            u"-5"_s,
            u"- 2.5"_s,
            u"+4"_s,
            u"NULL"_s};
}

/// The template with a literal in its first place, and others in the next ones.
QString Filled(const QString& form, qsizetype number) {
    const QStringList literals = LiteralTexts();
    QString text = form;
    for (qsizetype place = 0; text.contains(u"{}"_s); ++place)
        text.replace(text.indexOf(u"{}"_s), 2, literals[(number + 7 * place) % literals.size()]);
    return text;
}

struct TextForm {
    std::string name;
    QString text;
};

class KeptForm : public testing::TestWithParam<TextForm> {};

class KeptCommandsTest : public testing::Test {
  protected:
    const Seam<DateTime()>::Replacement clock = FixedClock(*DateTime::FromFields({2026, 11, 21, 14, 2, 3}));

    EmbeddedGateway& Gateway() { return hospital.Gateway(); }
    int Prepared() { return BothRoads::CountStatements(Gateway()); }
    QStringList Rows(const QString& command) { return RowTexts(Gateway(), command); }
    /// How many statements the commands have had prepared.
    int PreparedBy(const QStringList& commands) {
        const int before = Prepared();
        for (const QString& command : commands)
            Gateway().ExecuteNoResult(command);
        return Prepared() - before;
    }

    SmallHospital hospital;
};

const QString kNames = u"select HospNum, LastName from Clinical_Area..tbPatient "_s;
const QString kIntoCharge =
    u"insert into Clinical_Area..tbCharge (HospNum, Quantity, Amount, ChargeDate) values "_s;

} // namespace

TEST_P(KeptForm, AnswersAsIfItWereReadAnew) {
    const auto clock = FixedClock(*DateTime::FromFields({2026, 11, 21, 14, 2, 3}));
    const SmallHospital hospital;
    BothRoads roads(hospital.Path());
    for (qsizetype number = 0; number < LiteralTexts().size(); ++number)
        EXPECT_TRUE(roads.Agree(Filled(GetParam().text, number)));
}

INSTANTIATE_TEST_SUITE_P(
    Statements, KeptForm,
    testing::Values(
        TextForm{"TextKey", kNames + u"where HospNum = {}"_s},
        TextForm{"BothSides", kNames + u"where {} = HospNum and {} < LastName"_s},
        TextForm{"Range", kNames + u"where LastName >= {} and LastName <= {} order by LastName"_s},
        TextForm{"Like", kNames + u"where LastName like {}"_s},
        TextForm{"Flag", kNames + u"where Active = {}"_s},
        TextForm{"Date", kNames + u"where BirthDate < {} or BirthDate between {} and '1971-01-02'"_s},
        TextForm{"Moment", u"select ChargeID from Clinical_Area..tbCharge where ChargeDate >= {}"_s},
        TextForm{"Money", u"select ChargeID from Clinical_Area..tbCharge where Amount >= {}"_s},
        TextForm{"Decimal", u"select ChargeID from Clinical_Area..tbCharge where Rate <> {}"_s},
        TextForm{"Float", u"select ChargeID from Clinical_Area..tbCharge where Ratio < {}"_s},
        TextForm{"Int", u"select ChargeID from Clinical_Area..tbCharge where Quantity not in (1, {}, {})"_s},
        TextForm{"Value", u"select {}, {} as x"_s}, TextForm{"Sum", u"select {} + 1, {} - 2.5"_s},
        TextForm{"Product", u"select 1.5 * {}"_s}, TextForm{"Quotient", u"select 7 / {}, 7.00 / {}"_s},
        TextForm{"QuotientOf", u"select {} / 2"_s}, TextForm{"Negative", u"select -({}), - {}"_s},
        TextForm{"Joined", u"select 'a' + {} + LastName from Clinical_Area..tbPatient"_s},
        TextForm{"CastInt", u"select cast({} as int)"_s},
        TextForm{"CastBigInt", u"select cast({} as bigint)"_s},
        TextForm{"CastBit", u"select cast({} as bit)"_s},
        TextForm{"CastMoney", u"select cast({} as money)"_s},
        TextForm{"CastDecimal", u"select cast({} as decimal(5,2))"_s},
        TextForm{"CastFloat", u"select cast({} as float)"_s},
        TextForm{"CastDate", u"select cast({} as date)"_s},
        TextForm{"CastMoment",
                 u"select cast({} as datetime), convert(varchar(30), cast({} as datetime), 120)"_s},
        TextForm{"CastText",
                 u"select cast({} as varchar(3)), cast({} as char(5)), cast({} as nvarchar(50))"_s},
        TextForm{"Style", u"select convert(varchar(30), ChargeDate, {}) from Clinical_Area..tbCharge"_s},
        TextForm{"Length", u"select cast('12345' as varchar({}))"_s},
        TextForm{"Scale", u"select cast(1.23456 as decimal(9, {}))"_s},
        TextForm{"Concat", u"select concat({}, '|', {}), len({}), upper({}), rtrim({})"_s},
        TextForm{"Part", u"select left({}, 2), right({}, 3), substring({}, 2, 3)"_s},
        TextForm{"PartLength", u"select left(LastName, {}) from Clinical_Area..tbPatient"_s},
        TextForm{"Replace", u"select replace(LastName, {}, {}) from Clinical_Area..tbPatient"_s},
        TextForm{"Replicate", u"select len(replicate('x', {}))"_s},
        TextForm{"Round", u"select round({}, 1), abs({}), round(12.3456, {})"_s},
        TextForm{"DateAdd", u"select dateadd(day, {}, '2026-01-31'), dateadd(month, 1, {})"_s},
        TextForm{"DateDiff", u"select datediff(day, {}, '2026-12-31'), year({})"_s},
        TextForm{"Coalesce",
                 u"select coalesce(FirstName, {}), nullif(LastName, {}) from Clinical_Area..tbPatient"_s},
        TextForm{"CaseOfConditions",
                 u"select case when Quantity = {} then {} else Remark end from Clinical_Area..tbCharge"_s},
        TextForm{
            "CaseOfValues",
            u"select case {} when 'a' then 1 when {} then 2 else 3 end, case HospNum when {} then 'x' end from "
            "Clinical_Area..tbCharge"_s},
        TextForm{"Top", u"select top {} HospNum from Clinical_Area..tbPatient order by HospNum"_s},
        TextForm{"TopInParentheses",
                 u"select top ({}) HospNum from Clinical_Area..tbPatient order by HospNum"_s},
        TextForm{"OrderPosition", kNames + u"order by {}"_s},
        TextForm{"OrderExpression", kNames + u"order by left(LastName, {}), HospNum"_s},
        TextForm{"Alias", u"select HospNum as {} from Clinical_Area..tbPatient"_s},
        TextForm{"Distinct", u"select distinct left(LastName, {}) from Clinical_Area..tbPatient order by "
                             "left(LastName, {})"_s},
        TextForm{"GroupedAlike",
                 u"select left(LastName, {}), count(*) from Clinical_Area..tbPatient group by "
                 "left(LastName, {})"_s},
        TextForm{"Having",
                 u"select Quantity, sum(Amount) from Clinical_Area..tbCharge group by Quantity having "
                 "sum(Amount) > {}"_s},
        TextForm{"Sums",
                 u"select sum(Amount * {}), count({}), max({}), avg({}) from Clinical_Area..tbCharge"_s},
        TextForm{"UnionColumn", u"select {} union all select {} union all select LastName from "
                                "Clinical_Area..tbPatient"_s},
        TextForm{"DerivedTable", u"select x.a from (select {} as a union all select HospNum from "
                                 "Clinical_Area..tbPatient) as x where x.a <> {}"_s},
        TextForm{"Subquery",
                 u"select (select max(Quantity) from Clinical_Area..tbCharge where HospNum = {}), {}"_s},
        TextForm{"InQuery", kNames + u"where {} in (select Quantity from Clinical_Area..tbCharge)"_s},
        TextForm{"Exists", kNames +
                               u"where exists (select 1 from Clinical_Area..tbCharge as c where c.HospNum = "
                               "tbPatient.HospNum and c.Remark <> {})"_s},
        TextForm{"JoinCondition",
                 u"select p.HospNum from Clinical_Area..tbPatient as p left join "
                 "Clinical_Area..tbCharge as c on c.HospNum = p.HospNum and c.Quantity > {}"_s},
        TextForm{"UnknownColumn", u"select {} from Clinical_Area..tbPatient where Nobody = {}"_s},
        TextForm{"UnknownTable", u"select cast({} as int) from Clinical_Area..tbNobody"_s},
        TextForm{"TwoStatements", u"select {}; select {}"_s}, TextForm{"NoStatement", u"selec {}"_s},
        TextForm{"OpenQuote", u"select {}, 'x"_s}, TextForm{"Parameter", u"select @x where 1 = {}"_s}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Writing, KeptForm,
    testing::Values(
        TextForm{"InsertNumber", u"insert into BILLING..tbCharge (Number, Code) values ({}, 'a')"_s},
        TextForm{"InsertText", u"insert into Clinical_Area..tbPrint values ({})"_s},
        TextForm{"InsertQuantity", kIntoCharge + u"('1009', {}, 2, '2026-01-01')"_s},
        TextForm{"InsertAmount", kIntoCharge + u"('1009', 1, {}, {})"_s},
        TextForm{"InsertRows", u"insert into BILLING..tbCharge (Number, Code) values ({}, {}), (77, 'b')"_s},
        TextForm{"InsertExpression", u"insert into BILLING..tbCharge (Number, Code) values (1 + {}, {})"_s},
        TextForm{"InsertTooFew", u"insert into BILLING..tbCharge (Number, Code) values ({})"_s},
        TextForm{"InsertQuery",
                 u"insert into Clinical_Area..tbCharge (HospNum, Quantity, Amount, ChargeDate) "
                 "select HospNum, {}, {}, getdate() from Clinical_Area..tbPatient where HospNum = "
                 "'1001'"_s},
        TextForm{"UpdateText",
                 u"update Clinical_Area..tbPatient set FirstName = {} where HospNum = '1002'"_s},
        TextForm{
            "UpdateNumbers",
            u"update Clinical_Area..tbCharge set Quantity = {}, Amount = {}, Rate = {} where HospNum = {}"_s},
        TextForm{"UpdateSum", u"update Clinical_Area..tbCharge set Rate = Rate + {}, Amount = Amount * {}"_s},
        TextForm{"UpdateDate", u"update Clinical_Area..tbPatient set BirthDate = {} where BirthDate = {}"_s},
        TextForm{"UpdateKey", u"update Clinical_Area..tbPatient set HospNum = {}"_s},
        TextForm{"Delete", u"delete Clinical_Area..tbPatient where LastName = {} or FirstName like {}"_s}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Calls, KeptForm,
    testing::Values(TextForm{"Search", u"Clinical_Area..spGetPatient {}"_s},
                    TextForm{"EveryType", u"Clinical_Area..spEcho {}, {}, {}, {}, {}, {}, {}, {}"_s},
                    TextForm{"Text", u"exec Clinical_Area.dbo.spEcho @Text = {}"_s},
                    TextForm{"Number", u"Clinical_Area..spEcho @Number = {}"_s},
                    TextForm{"Money", u"Clinical_Area..spEcho @Amount = {}"_s},
                    TextForm{"Moment", u"Clinical_Area..spEcho @Moment = {}"_s},
                    TextForm{"Float", u"Clinical_Area..spEcho @Real = {}"_s},
                    TextForm{"Flag", u"Clinical_Area..spEcho @Flag = {}"_s},
                    TextForm{"Day", u"Clinical_Area..spEcho @Day = {}"_s},
                    TextForm{"Decimal", u"Clinical_Area..spEcho @Rate = {}"_s},
                    TextForm{"NamedInAnotherOrder",
                             u"Clinical_Area..spEcho @Rate = {}, @Moment = {}, @Number = {}"_s},
                    TextForm{"BareWord", u"Clinical_Area..spEcho abc, {}"_s},
                    TextForm{"TooMany", u"Clinical_Area..spGetPatient {}, {}"_s},
                    TextForm{"UnknownParameter", u"Clinical_Area..spEcho @Number = {}, @Nobody = {}"_s},
                    TextForm{"Twice", u"Clinical_Area..spEcho @Number = {}, @Number = {}"_s},
                    TextForm{"Missing", u"Clinical_Area..spAddCharge '1001', {}"_s},
                    TextForm{"Writes", u"Clinical_Area..spAddCharge '1001', {}, {}, '2026-01-01'"_s},
                    TextForm{"FailsInside", u"Clinical_Area..spAddThenFail {}"_s},
                    TextForm{"Prints", u"Clinical_Area..spPrint {}"_s},
                    TextForm{"UnknownProcedure", u"Clinical_Area..spNobody {}"_s}),
    CaseName());

TEST_F(KeptCommandsTest, TextsThatDifferInTheirLiteralsShareOneStatement) {
    QStringList texts;
    for (const QString& name : {u"DELA"_s, u"N"_s, u"O''BRIEN"_s, QString(300, u'z'), QString()})
        texts << kNames + u"where LastName >= '"_s + name + u"' and HospNum <> '1'"_s;
    EXPECT_EQ(PreparedBy(texts), 1);
}

TEST_F(KeptCommandsTest, RowsOfOneTableShareOneStatement) {
    // What begins and ends a transaction stays prepared too.
    Gateway().ExecuteNoResult(u"delete Clinical_Area..tbPrint"_s);
    EXPECT_EQ(PreparedBy({u"insert BILLING..tbCharge values (10, 'a')"_s,
                          u"insert BILLING..tbCharge values (11, 'bc')"_s,
                          u"insert BILLING..tbCharge values (12, '')"_s}),
              1);
    EXPECT_EQ(Rows(u"select * from BILLING..tbCharge order by Number"_s),
              (QStringList{u"10|a   "_s, u"11|bc  "_s, u"12|    "_s}));
}

TEST_F(KeptCommandsTest, CallsShareTheProceduresStatements) {
    EXPECT_EQ(PreparedBy({u"Clinical_Area..spGetPatient 'D'"_s, u"Clinical_Area..spGetPatient 'DELOS'"_s,
                          u"Clinical_Area..spGetPatient N'NUÑ'"_s}),
              1);
}

TEST_F(KeptCommandsTest, WhatALiteralDecidesIsKeptForThatLiteralAlone) {
    const auto date = [](int style) {
        return u"select convert(varchar(20), ChargeDate, %1) from Clinical_Area..tbCharge where ChargeID = 1"_s
            .arg(style);
    };
    EXPECT_EQ(PreparedBy({date(101), date(120), date(101), date(120)}), 2);
    EXPECT_EQ(Rows(date(101)), QStringList{u"11/20/2026"_s});
    EXPECT_EQ(Rows(date(120)), QStringList{u"2026-11-20 00:00:00"_s});
}

TEST_F(KeptCommandsTest, TheNumberBehindTopIsPartOfTheStatement) {
    EXPECT_EQ(PreparedBy({u"select top 2 HospNum from Clinical_Area..tbPatient"_s,
                          u"select top 3 HospNum from Clinical_Area..tbPatient"_s}),
              2);
}

TEST_F(KeptCommandsTest, ExpressionsThatAreComparedKeepTheirLiterals) {
    EXPECT_EQ(
        Rows(u"select left(LastName, 2), count(*) from Clinical_Area..tbPatient group by left(LastName, 2) "
             "order by left(LastName, 2)"_s),
        (QStringList{u"DE|2"_s, u"NU|3"_s, u"O'|1"_s}));
    EXPECT_EQ(
        Rows(u"select distinct left(LastName, 3) from Clinical_Area..tbPatient where LastName < 'E' order by "
             "left(LastName, 3)"_s),
        QStringList{u"DEL"_s});
}

TEST_F(KeptCommandsTest, ManyRowsAreNotKept) {
    const QString rows = u"insert BILLING..tbCharge values (%1, 'a'), (%2, 'b')"_s;
    Gateway().ExecuteNoResult(u"delete Clinical_Area..tbPrint"_s);
    EXPECT_EQ(PreparedBy({rows.arg(20).arg(21), rows.arg(22).arg(23)}), 0);
}

TEST_F(KeptCommandsTest, NoMoreThanSoManyAreKept) {
    QStringList texts;
    for (int i = 0; i < 500; ++i)
        texts << u"select HospNum as x%1 from Clinical_Area..tbPatient"_s.arg(i);
    EXPECT_EQ(PreparedBy(texts), 200);
}

TEST_F(KeptCommandsTest, ALongTextIsNotKept) {
    const QString text = kNames + u"where LastName = '"_s + QString(10000, u'x') + u'\'';
    EXPECT_EQ(PreparedBy({text, text}), 0);
}

TEST_F(KeptCommandsTest, ATextOfManyLiteralsIsNotKept) {
    const auto withLiterals = [](int count) {
        return kNames + u"where LastName IN ('A'"_s + u",'A'"_s.repeated(count - 1) + u')';
    };
    EXPECT_EQ(PreparedBy({withLiterals(100), withLiterals(100)}), 1);
    EXPECT_EQ(PreparedBy({withLiterals(101), withLiterals(101)}), 0);
}

TEST_F(KeptCommandsTest, AnotherDefaultDatabaseMeansOtherTables) {
    Gateway().SetDefaultDatabase(u"BILLING"_s);
    Gateway().ExecuteNoResult(u"insert tbCharge values (5, 'bill')"_s);
    EXPECT_EQ(Rows(u"select count(*) from tbCharge where 2 <> 3"_s), QStringList{u"1"_s});
    Gateway().SetDefaultDatabase(u"Clinical_Area"_s);
    EXPECT_EQ(Rows(u"select count(*) from tbCharge where 2 <> 3"_s), QStringList{u"2"_s});
}

TEST_F(KeptCommandsTest, ADefinitionCountsForTheNextText) {
    const QString call = u"Clinical_Area..spGetPatient '%1'"_s;
    EXPECT_EQ(Rows(call.arg(u"DELA"_s)), QStringList{u"1001|DELA CRUZ, JUAN"_s});
    Gateway().Engine().Define(Procedure{u"Clinical_Area"_s, u"spGetPatient"_s,
                                        u"CREATE PROCEDURE dbo.spGetPatient @Search varchar(30) AS BEGIN "
                                        "SELECT @Search AS Told; END"_s});
    EXPECT_EQ(Rows(call.arg(u"DELOS"_s)), QStringList{u"DELOS"_s});
}

TEST_F(KeptCommandsTest, TheUserAndTheMomentAreThoseOfTheRun) {
    const QString text = u"select suser_sname(), getdate(), %1"_s;
    Gateway().SetSessionUser(u"NURSE"_s);
    EXPECT_EQ(Rows(text.arg(2)), QStringList{u"NURSE|11/21/2026 2:02:03 PM|2"_s});
    Gateway().SetSessionUser(u"CLERK"_s);
    const auto later = FixedClock(*DateTime::FromFields({2026, 11, 22, 8, 0, 0}));
    EXPECT_EQ(Rows(text.arg(3)), QStringList{u"CLERK|11/22/2026 8:00:00 AM|3"_s});
}
