#include "support/CaseName.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"
#include "text/RunTimeError.h"
#include "trial/translate/StatementTranslator.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

DateTime Moment() {
    return *DateTime::FromFields({2026, 11, 21, 14, 2, 3, 456});
}

/// A hospital of its own for each test, since these write.
class WritingStatement : public testing::Test {
  protected:
    const Seam<DateTime()>::Replacement clock = FixedClock(Moment());

    CommandGateway& Gateway() { return hospital.Gateway(); }
    void Run(const QString& command) { Gateway().ExecuteNoResult(command); }
    QStringList Rows(const QString& command) { return RowTexts(Gateway(), command); }

    SmallHospital hospital;
};

struct WriteMistake {
    std::string name;
    QString command;
    int number;
};

class WriteFailure : public WritingStatement, public testing::WithParamInterface<WriteMistake> {};

const QString kInsertCharge = u"insert into Clinical_Area..tbCharge (HospNum, Quantity, Amount, ChargeDate"_s;

} // namespace

TEST_F(WritingStatement, InsertFillsDefaultsAndIdentity) {
    Run(kInsertCharge + u") values ('1002', '3', '1.5', '11/21/2026')"_s);
    EXPECT_EQ(Rows(u"select * from Clinical_Area..tbCharge where HospNum = '1002'"_s),
              QStringList{u"3|1002|3|1.5|NULL|NULL|11/21/2026|11/21/2026 2:02:03 PM|none"_s});
}

TEST_F(WritingStatement, InsertOfExpressions) {
    Run(kInsertCharge + u", Remark) values ('1002', 1 + 2, 0.5 * 3, getdate(), upper('ñ'))"_s);
    EXPECT_EQ(Rows(u"select Quantity, Amount, ChargeDate, Entered, Remark from Clinical_Area..tbCharge where "
                   u"HospNum = "
                   "'1002'"_s),
              QStringList{u"3|1.5|11/21/2026 2:02:03 PM|11/21/2026 2:02:03 PM|Ñ"_s});
}

TEST_F(WritingStatement, InsertOfSeveralRows) {
    Run(u"insert into BILLING..tbCharge (Number, Code) values (1, 'a'), (2, NULL), ('3', 7)"_s);
    EXPECT_EQ(Rows(u"select * from BILLING..tbCharge order by Number"_s),
              (QStringList{u"1|a   "_s, u"2|NULL"_s, u"3|7   "_s}));
}

TEST_F(WritingStatement, InsertOfSeveralRowsWithExpressions) {
    Run(u"insert into BILLING..tbCharge (Number, Code) values (1, 'a'), (1 + 1, 'b')"_s);
    EXPECT_EQ(Rows(u"select Number from BILLING..tbCharge order by Number"_s), (QStringList{u"1"_s, u"2"_s}));
}

TEST_F(WritingStatement, InsertWithoutColumnsTakesAllButTheIdentity) {
    Run(u"insert Clinical_Area..tbPrint values ('H1C')"_s);
    EXPECT_EQ(Rows(u"select * from Clinical_Area..tbPrint"_s), QStringList{u"1|H1C"_s});
}

TEST_F(WritingStatement, InsertOfAQueryConvertsToTheColumnsTypes) {
    Run(u"insert into BILLING..tbCharge (Number, Code) select HospNum, left(LastName, 4) from "
        u"Clinical_Area..tbPatient "
        "where HospNum <= '1002' order by HospNum desc"_s);
    EXPECT_EQ(Rows(u"select * from BILLING..tbCharge order by Number"_s),
              (QStringList{u"1001|DELA"_s, u"1002|NUNE"_s}));
}

TEST_F(WritingStatement, InsertOfAQueryFillsDefaults) {
    Run(kInsertCharge +
        u") select HospNum, 1, 2, BirthDate from Clinical_Area..tbPatient where HospNum = '1002'"_s);
    EXPECT_EQ(Rows(u"select Entered, Remark from Clinical_Area..tbCharge where HospNum = '1002'"_s),
              QStringList{u"11/21/2026 2:02:03 PM|none"_s});
}

TEST_F(WritingStatement, IdentityFollowsTheOrderAndIsNeverUsedAgain) {
    Run(u"insert into Clinical_Area..tbPrint ([Slip #]) select HospNum from Clinical_Area..tbPatient where "
        u"HospNum < "
        "'1003' order by HospNum desc"_s);
    EXPECT_EQ(Rows(u"select * from Clinical_Area..tbPrint order by Line"_s),
              (QStringList{u"1|1002"_s, u"2|1001"_s}));
    Run(u"delete Clinical_Area..tbPrint"_s);
    Run(u"insert into Clinical_Area..tbPrint ([Slip #]) values ('x')"_s);
    EXPECT_EQ(Rows(u"select Line from Clinical_Area..tbPrint"_s), QStringList{u"3"_s});
}

TEST_F(WritingStatement, UpdateReadsTheRowAsItWas) {
    Run(u"update Clinical_Area..tbCharge set Quantity = Quantity + 1, Amount = Amount * Quantity where ChargeID = 1"_s);
    EXPECT_EQ(Rows(u"select Quantity, Amount from Clinical_Area..tbCharge where ChargeID = 1"_s),
              QStringList{u"3|2501"_s});
}

TEST_F(WritingStatement, UpdateFromASubquery) {
    Run(u"update Clinical_Area..tbSlip set ChargeSlip = (select max(ChargeID) from Clinical_Area..tbCharge)"_s);
    EXPECT_EQ(Rows(u"select * from Clinical_Area..tbSlip"_s), QStringList{u"2"_s});
}

TEST_F(WritingStatement, UpdateByTheTablesOwnName) {
    Run(u"update Clinical_Area..tbPatient set FirstName = '' where tbPatient.HospNum = '1001' and exists "
        u"(select 1 from "
        "Clinical_Area..tbCharge as c where c.HospNum = tbPatient.HospNum)"_s);
    EXPECT_EQ(Rows(u"select FirstName from Clinical_Area..tbPatient where FirstName = ''"_s),
              QStringList{u""_s});
}

TEST_F(WritingStatement, DeleteWithAndWithoutFrom) {
    Run(u"Delete From Clinical_Area.dbo.tbPatient where HospNum > '1003'"_s);
    EXPECT_EQ(Rows(u"select count(*) from Clinical_Area..tbPatient"_s), QStringList{u"3"_s});
    Run(u"delete Clinical_Area..tbPatient"_s);
    EXPECT_EQ(Rows(u"select count(*) from Clinical_Area..tbPatient"_s), QStringList{u"0"_s});
}

TEST_F(WritingStatement, TextsOfAStatementAreNeverReadAsAnythingElse) {
    const QString name = u"a'';drop \"x\"?1 [b] --"_s;
    Run(u"update Clinical_Area..tbPatient set FirstName = '"_s + name + u"' where HospNum = '1001'"_s);
    EXPECT_EQ(Rows(u"select FirstName from Clinical_Area..tbPatient where HospNum = '1001'"_s),
              QStringList{u"a';drop \"x\"?1 [b] --"_s});
}

TEST_F(WritingStatement, BlanksThatDoNotFitAreCutWithoutError) {
    Run(u"update Clinical_Area..tbPatient set HospNum = '1001         ' where HospNum = '1001'"_s);
    EXPECT_EQ(Rows(u"select concat(HospNum, '|') from Clinical_Area..tbPatient where HospNum = '1001'"_s),
              QStringList{u"1001      |"_s});
}

TEST_P(WriteFailure, IsTheServersErrorAndChangesNothing) {
    const QString counts = u"select (select count(*) from Clinical_Area..tbCharge), (select count(*) from "
                           "BILLING..tbCharge), (select sum(ChargeSlip) from Clinical_Area..tbSlip), (select "
                           "max(concat(HospNum, FirstName)) from Clinical_Area..tbPatient)"_s;
    const QStringList before = Rows(counts);
    EXPECT_EQ(FailureOf(Gateway(), GetParam().command).number, GetParam().number);
    EXPECT_EQ(Rows(counts), before);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, WriteFailure,
    testing::Values(
        WriteMistake{"UnknownColumn", u"insert into BILLING..tbCharge (Nothing) values (1)"_s, 207},
        WriteMistake{"ColumnTwice", u"insert into BILLING..tbCharge (Number, number) values (1, 2)"_s, 264},
        WriteMistake{"AssignedTwice", u"update Clinical_Area..tbSlip set ChargeSlip = 1, ChargeSlip = 2"_s,
                     264},
        WriteMistake{"FewerValues", u"insert into BILLING..tbCharge (Number, Code) values (1)"_s, 109},
        WriteMistake{"MoreValues", u"insert into BILLING..tbCharge (Number, Code) values (1, 'a', 2)"_s, 110},
        WriteMistake{"WrongNumberWithoutColumns", u"insert into BILLING..tbCharge values (1)"_s, 213},
        WriteMistake{"FewerSelected", u"insert into BILLING..tbCharge (Number, Code) select 1"_s, 120},
        WriteMistake{"MoreSelected", u"insert into BILLING..tbCharge (Number) select 1, 2"_s, 121},
        WriteMistake{"SecondRowFails",
                     u"insert into BILLING..tbCharge (Number, Code) values (1, 'a'), ('x', 'b')"_s, 8114},
        WriteMistake{"SecondRowOfExpressionsFails",
                     u"insert into BILLING..tbCharge (Number, Code) values (1 + 0, 'a'), (1 + 0, 'b')"_s,
                     2601},
        WriteMistake{
            "DuplicateKey",
            u"insert into Clinical_Area..tbPatient (HospNum, LastName) values ('2000', 'A'), ('1001 ', 'X')"_s,
            2627},
        WriteMistake{"NullInAKey", u"insert into Clinical_Area..tbPatient (LastName) values ('X')"_s, 515},
        WriteMistake{"NullWhereNoneMayBe", u"update Clinical_Area..tbSlip set ChargeSlip = NULL"_s, 515},
        WriteMistake{"TextTooLong", u"update Clinical_Area..tbPatient set FirstName = replicate('x', 31)"_s,
                     8152},
        WriteMistake{
            "LiteralTooLong",
            u"insert into Clinical_Area..tbPatient (HospNum, LastName) values ('12345678901', 'X')"_s, 8152},
        WriteMistake{"IdentityInserted", u"insert into Clinical_Area..tbPrint (Line) values (7)"_s, 544},
        WriteMistake{"IdentityUpdated", u"update Clinical_Area..tbPrint set Line = 7"_s, 8102},
        WriteMistake{"IntTooLarge", u"update Clinical_Area..tbSlip set ChargeSlip = 3000000000"_s, 8115},
        WriteMistake{"MoneyTooLarge", u"update Clinical_Area..tbCharge set Amount = 1e15"_s, 8115},
        WriteMistake{"RubbishForADate", u"update Clinical_Area..tbCharge set ChargeDate = 'soon'"_s, 241},
        WriteMistake{"UnknownTable", u"delete Clinical_Area..tbNothing"_s, 208},
        WriteMistake{"InsertWithoutValues", u"insert into BILLING..tbCharge (Number)"_s, 102},
        WriteMistake{"UpdateFrom",
                     u"update Clinical_Area..tbSlip set ChargeSlip = 1 from Clinical_Area..tbPatient"_s,
                     102}),
    CaseName());

TEST_F(WritingStatement, KeysAreLookedAtWhenAllRowsAreChanged) {
    Run(u"insert into BILLING..tbCharge (Number, Code) values (1, 'a'), (2, 'b'), (3, 'c')"_s);
    Run(u"update BILLING..tbCharge set Number = Number + 1"_s);
    EXPECT_EQ(Rows(u"select * from BILLING..tbCharge order by Number"_s),
              (QStringList{u"2|a   "_s, u"3|b   "_s, u"4|c   "_s}));
    Run(u"update BILLING..tbCharge set Number = 6 - Number, Code = 'x' where Number <> 3"_s);
    EXPECT_EQ(Rows(u"select * from BILLING..tbCharge order by Number desc"_s),
              (QStringList{u"4|x   "_s, u"3|b   "_s, u"2|x   "_s}));
}

TEST_F(WritingStatement, TwoKeysChangePlacesAndTakeTheRestOfTheirRowsAlong) {
    const QString others =
        u"select * from Clinical_Area..tbPatient where HospNum > '1002' order by HospNum"_s;
    const QStringList before = Rows(others);
    Run(u"update Clinical_Area..tbPatient set HospNum = case when HospNum = '1001' then '1002' else '1001' "
        "end, FirstName = concat(FirstName, (select count(*) from Clinical_Area..tbPatient)) where HospNum in "
        "('1001', '1002')"_s);
    EXPECT_EQ(
        Rows(u"select HospNum, LastName, FirstName from Clinical_Area..tbPatient where HospNum < '1003' "
             "order by HospNum"_s),
        (QStringList{u"1001|NUNEZ|ANA6"_s, u"1002|DELA CRUZ|JUAN6"_s}));
    EXPECT_EQ(Rows(others), before);
}

TEST_F(WritingStatement, AKeyThatIsThereTwiceInTheEndIsAnErrorAndChangesNothing) {
    const QString all = u"select * from Clinical_Area..tbPatient order by HospNum"_s;
    const QStringList before = Rows(all);
    for (const QString& values :
         {u"HospNum = '2000'"_s, u"HospNum = '1003' where HospNum = '1001'"_s,
          u"HospNum = case when HospNum = '1001' then '1002' else '1003 ' end where HospNum < '1003'"_s}) {
        const RaisedError failure = FailureOf(Gateway(), u"update Clinical_Area..tbPatient set "_s + values);
        EXPECT_EQ(failure.number, 2627) << values.toStdString();
        EXPECT_EQ(failure.text, u"Violation of PRIMARY KEY or UNIQUE constraint (HospNum). Cannot insert "
                                "duplicate key in object 'Clinical_Area..tbPatient'."_s);
        EXPECT_EQ(Rows(all), before);
    }
}

TEST_F(WritingStatement, AUniqueIndexIsNamed) {
    Run(u"insert into BILLING..tbCharge (Number, Code) values (1, 'a'), (2, 'b')"_s);
    for (const QString& command : {u"insert into BILLING..tbCharge (Number, Code) values (1, 'c')"_s,
                                   u"update BILLING..tbCharge set Number = 1"_s}) {
        const RaisedError failure = FailureOf(Gateway(), command);
        EXPECT_EQ(failure.number, 2601) << command.toStdString();
        EXPECT_EQ(failure.text, u"Cannot insert duplicate key row in object 'BILLING..tbCharge' with unique "
                                "index 'ixNumber'."_s);
    }
}

TEST_F(WritingStatement, TextsThatAreEqualToTheCollationMeetWithoutAnIndex) {
    Run(u"insert into BILLING..tbCharge (Number, Code) values (1, 'ana'), (2, 'bea')"_s);
    // The code's blanks fill its column, the first names have none, and neither column has an index.
    EXPECT_EQ(Rows(u"select c.Number, p.FirstName from BILLING..tbCharge as c inner join "
                   "Clinical_Area..tbPatient as p on p.FirstName = c.Code order by 1"_s),
              (QStringList{u"1|ANA"_s, u"2|BEA"_s}));
    EXPECT_EQ(Rows(u"select a.n from (select 'DELA CRUZ ' as n union all select 'x') as a inner join (select "
                   "'dela cruz' as n union all select 'y') as b on a.n = b.n"_s),
              QStringList{u"DELA CRUZ "_s});
}

TEST_F(WritingStatement, MoreThanAThousandRowsInOneInsertAreRefused) {
    QStringList rows;
    for (int i = 0; i < 1001; ++i)
        rows << u"(%1)"_s.arg(i);
    const QString insert = u"insert into BILLING..tbCharge (Number) values "_s;
    EXPECT_EQ(FailureOf(Gateway(), insert + rows.join(u',')).number, 10738);
    rows.removeLast();
    Run(insert + rows.join(u','));
    EXPECT_EQ(Rows(u"select count(*) from BILLING..tbCharge"_s), QStringList{u"1000"_s});
}
