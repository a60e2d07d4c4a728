#include "gateway/GatewayContract.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

const QString kCounter = u"Select * from Clinical_Area..tbSlip"_s;

} // namespace

INSTANTIATE_TEST_SUITE_P(Engines, GatewayContract, testing::ValuesIn(EnginesUnderTest()), CaseName());

QStringList GatewayContract::State() {
    return ContentOf(Gateway());
}

TEST_P(GatewayContract, RowsComeInOrderAndEndWithEof) {
    RowSet rows = Gateway().Execute(u"Clinical_Area..spGetPatient 'DE'"_s);
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(rows.Fields(u"hospital #").ToText(), u"1001"_s);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(u"Patient Name").ToText(), u"DELOS REYES, "_s);
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"hospital #"); }).number, RunTime::kNoCurrentRecord);
}

TEST_P(GatewayContract, NoRowsIsAnOpenRowSetAtEofThatKnowsItsColumns) {
    const RowSet rows = Gateway().Execute(u"Clinical_Area..spGetPatient 'XX'"_s);
    EXPECT_EQ(rows.State(), RowSet::Status::Open);
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.Data()->columns, (std::vector<QString>{u"hospital #"_s, u"Patient Name"_s}));
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"hospital #"); }).number, RunTime::kNoCurrentRecord);
}

TEST_P(GatewayContract, CommandWithoutResultIsAClosedRowSet) {
    EXPECT_EQ(Gateway().Execute(u"delete Clinical_Area..tbPrint"_s).State(), RowSet::Status::Closed);
    EXPECT_EQ(Gateway().Execute(u"Clinical_Area..spAddCharge '1001','1','1','1/1/2026'"_s).State(),
              RowSet::Status::Closed);
}

TEST_P(GatewayContract, OnlyTheFirstResultSetIsHandedBack) {
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spPrint 'H1C'"_s), QStringList{u"1"_s});
}

TEST_P(GatewayContract, NullIsAValueOfItsOwn) {
    const RowSet rows = Gateway().Execute(
        u"select FirstName, BirthDate from Clinical_Area..tbPatient where HospNum = '1006'"_s);
    EXPECT_TRUE(rows.Fields(u"FirstName").IsNull());
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"FirstName").ToText(); }).number, RunTime::kInvalidUseOfNull);
    EXPECT_EQ(rows.Fields(u"BirthDate").ToText(), u"8/9/1955"_s);
}

TEST_P(GatewayContract, RecordCountDependsOnTheCursor) {
    const QString all = u"select * from Clinical_Area..tbPatient"_s;
    EXPECT_EQ(
        Gateway().Open(all, CursorType::Dynamic, LockType::ReadOnly, CursorLocation::Client).RecordCount(),
        6);
    EXPECT_EQ(Gateway().Open(all, CursorType::Static, LockType::ReadOnly).RecordCount(), 6);
    EXPECT_EQ(Gateway().Open(all, CursorType::Dynamic, LockType::ReadOnly).RecordCount(), -1);
    EXPECT_EQ(Gateway().Open(all, CursorType::ForwardOnly, LockType::Optimistic).RecordCount(), -1);
}

TEST_P(GatewayContract, SeveralRowSetsStayOpenWhileOtherCommandsRun) {
    RowSet patients = Gateway().Execute(u"select HospNum from Clinical_Area..tbPatient order by HospNum"_s);
    const RowSet counter = Gateway().Execute(kCounter);
    Gateway().ExecuteNoResult(u"delete Clinical_Area..tbPatient"_s);
    Gateway().ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 0"_s);
    patients.MoveNext();
    EXPECT_EQ(patients.Fields(0).ToText(), u"1002"_s);
    EXPECT_EQ(counter.Fields(0).ToText(), u"100"_s);
}

TEST_P(GatewayContract, ColumnsAreFoundWithoutRegardToCase) {
    const RowSet rows = Gateway().Execute(u"Clinical_Area..spGetPatient 'NUNO'"_s);
    EXPECT_EQ(rows.Fields(u"HOSPITAL #").ToText(), u"1004"_s);
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"hospital"); }).number, RunTime::kItemNotFound);
}

TEST_P(GatewayContract, NamesAreFoundInAnyCase) {
    for (const QString& name :
         {u"Clinical_Area"_s, u"CLINICAL_AREA"_s, u"CLinical_Area"_s, u"Clinical_ARea"_s}) {
        EXPECT_EQ(RowTexts(Gateway(), name + u"..SPGETPATIENT 'NUNO'"_s), QStringList{u"1004|NUNO, CARL"_s});
        EXPECT_EQ(RowTexts(Gateway(),
                           u"SELECT hospnum FROM "_s + name + u".dbo.TBPATIENT WHERE LASTNAME = 'NUNO'"_s),
                  QStringList{u"1004"_s});
    }
}

TEST_P(GatewayContract, TablesOfOneNameInTwoDatabasesAreTwoTables) {
    EXPECT_EQ(RowTexts(Gateway(), u"select * from billing..tbCharge"_s), QStringList());
    EXPECT_EQ(RowTexts(Gateway(), u"select count(*) from Clinical_Area..tbCharge"_s), QStringList{u"2"_s});
}

TEST_P(GatewayContract, BlanksInsideArgumentsAreKept) {
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spEcho  ' a  b ' "_s)[0].section(u'|', 0, 0), u" a  b "_s);
}

TEST_P(GatewayContract, AnArgumentLongerThanItsParameterIsCut) {
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spEcho '1234567890ñx'"_s)[0].section(u'|', 0, 0),
              u"1234567890"_s);
}

TEST_P(GatewayContract, LeftOutArgumentsTakeTheirDefaults) {
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spEcho"_s),
              QStringList{u"empty|0|0|NULL|0|False|NULL|0"_s});
    Gateway().ExecuteNoResult(u"Clinical_Area..spAddCharge '1001','1','1','1/1/2026'"_s);
    EXPECT_EQ(RowTexts(Gateway(), u"select Remark from Clinical_Area..tbCharge where ChargeID = 3"_s),
              QStringList{u"by default"_s});
}

TEST_P(GatewayContract, CallsWithExecNumbersAndNames) {
    EXPECT_EQ(RowTexts(Gateway(), u"EXEC Clinical_Area.dbo.spEcho 'x', -7, 1.5, NULL"_s),
              QStringList{u"x|-7|1.5|NULL|0|False|NULL|0"_s});
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spEcho @Number = '12', @text = 'y'"_s),
              QStringList{u"y|12|0|NULL|0|False|NULL|0"_s});
}

TEST_P(GatewayContract, ColumnsHaveTheirDeclaredTypes) {
    const RowSet rows = Gateway().Execute(
        u"select Quantity, Amount, Rate, Ratio, ChargeDate, Remark, Active from "
        "Clinical_Area..tbCharge as c inner join Clinical_Area..tbPatient as p on p.HospNum = "
        "c.HospNum where ChargeID = 1"_s);
    EXPECT_EQ(rows.Fields(u"Quantity"), Value(2));
    EXPECT_EQ(rows.Fields(u"Amount"), Value(Decimal{u"1250.5000"_s}));
    EXPECT_EQ(rows.Fields(u"Rate"), Value(Decimal{u"12.35"_s}));
    EXPECT_EQ(rows.Fields(u"Ratio"), Value(0.1));
    EXPECT_EQ(rows.Fields(u"ChargeDate"), Value(*DateTime::FromFields({2026, 11, 20, 0, 0, 0, 0})));
    EXPECT_EQ(rows.Fields(u"Remark"), Value(u"none"_s));
    EXPECT_EQ(rows.Fields(u"Active"), Value(true));
}

TEST_P(GatewayContract, EmptyTextsBecomeZeroAndTheServersFirstDay) {
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spEcho '','','','','','',''"_s),
              QStringList{u"|0|0|1/1/1900|0|False|1/1/1900|0"_s});
}

TEST_P(GatewayContract, TextsBecomeTheParametersTypes) {
    EXPECT_EQ(RowTexts(Gateway(),
                       u"Clinical_Area..spEcho 'a',' 12 ','1,250.55555','11/21/2026 02:02:03 PM','1e3',"
                       "'true','2026-11-21','12.345'"_s),
              QStringList{u"a|12|1250.5556|11/21/2026 2:02:03 PM|1000|True|11/21/2026|12.35"_s});
}

TEST_P(GatewayContract, RubbishForAParameterIsError8114) {
    const QList<QPair<QString, QString>> cases = {{u"@Number='abc'"_s, u"int"_s},
                                                  {u"@Number='1.5'"_s, u"int"_s},
                                                  {u"@Amount='12x'"_s, u"money"_s},
                                                  {u"@Moment='no date'"_s, u"datetime"_s},
                                                  {u"@Moment='13/01/2026'"_s, u"datetime"_s},
                                                  {u"@Moment='02/30/2026'"_s, u"datetime"_s},
                                                  {u"@Real='x'"_s, u"float"_s},
                                                  {u"@Flag='maybe'"_s, u"bit"_s},
                                                  {u"@Rate=''"_s, u"numeric"_s}};
    for (const auto& [argument, type] : cases) {
        const RaisedError failure = FailureOf(Gateway(), u"Clinical_Area..spEcho "_s + argument);
        EXPECT_EQ(failure.number, 8114) << argument.toStdString();
        EXPECT_EQ(failure.text, u"Error converting data type varchar to "_s + type + u'.');
    }
}

TEST_P(GatewayContract, RubbishInAStatementIsTheServersConversionError) {
    const QString from = u" from Clinical_Area..tbCharge where "_s;
    EXPECT_EQ(FailureOf(Gateway(), u"select *"_s + from + u"Quantity = 'abc'"_s).text,
              u"Conversion failed when converting the varchar value 'abc' to data type int."_s);
    EXPECT_EQ(FailureOf(Gateway(), u"select *"_s + from + u"Quantity = 'abc'"_s).number, 245);
    EXPECT_EQ(FailureOf(Gateway(), u"select *"_s + from + u"ChargeDate = 'abc'"_s).number, 241);
    EXPECT_EQ(FailureOf(Gateway(), u"select *"_s + from + u"ChargeDate = '13/13/2026'"_s).number, 242);
    EXPECT_EQ(FailureOf(Gateway(), u"select *"_s + from + u"Amount = 'abc'"_s).number, 235);
    EXPECT_EQ(FailureOf(Gateway(), u"select *"_s + from + u"Ratio = 'abc'"_s).number, 8114);
}

TEST_P(GatewayContract, WrongArgumentsAreTheServersErrors) {
    const QString nine = u"Clinical_Area..spEcho '1','2','3','','5','6','','8','9'"_s;
    EXPECT_EQ(FailureOf(Gateway(), nine).text,
              u"Procedure or function spEcho has too many arguments specified."_s);
    EXPECT_EQ(FailureOf(Gateway(), nine).number, 8144);
    const RaisedError missing = FailureOf(Gateway(), u"Clinical_Area..spAddCharge '1001'"_s);
    EXPECT_EQ(missing.number, 201);
    EXPECT_EQ(missing.text,
              u"Procedure or function 'spAddCharge' expects parameter '@Quantity', which was not "
              "supplied."_s);
    EXPECT_EQ(FailureOf(Gateway(), u"Clinical_Area..spEcho @Nothing='1'"_s).number, 8145);
    EXPECT_EQ(FailureOf(Gateway(), u"Clinical_Area..spEcho 'a', @Text='1'"_s).number, 8143);
    EXPECT_EQ(FailureOf(Gateway(), u"Clinical_Area..spEcho @Text='1', 'a'"_s).number, 119);
}

TEST_P(GatewayContract, MistakesAreTheServersErrors) {
    struct Mistake {
        QString command;
        int number;
        QString text;
        QString state;
    };
    const std::vector<Mistake> mistakes = {
        {u"Clinical_Area..spGetPatient 'abc"_s, 105,
         u"Unclosed quotation mark after the character string 'abc'."_s, u"42000"_s},
        {u"select from Clinical_Area..tbSlip"_s, 156, u"Incorrect syntax near the keyword 'from'."_s,
         u"42000"_s},
        {u"select * from Clinical_Area..tbSlip where ChargeSlip ="_s, 102, u"Incorrect syntax near '='."_s,
         u"42000"_s},
        {u"Clinical_Area..spNothing 'a'"_s, 2812,
         u"Could not find stored procedure 'Clinical_Area..spNothing'."_s, u"42000"_s},
        {u"Nowhere..spGetPatient 'a'"_s, 2812, u"Could not find stored procedure 'Nowhere..spGetPatient'."_s,
         u"42000"_s},
        {u"select * from Clinical_Area..tbNothing"_s, 208,
         u"Invalid object name 'Clinical_Area..tbNothing'."_s, u"42S02"_s},
        {u"select * from tbPatient"_s, 208, u"Invalid object name 'tbPatient'."_s, u"42S02"_s},
        {u"select Nothing from Clinical_Area..tbPatient"_s, 207, u"Invalid column name 'Nothing'."_s,
         u"42S22"_s},
        {u"update Clinical_Area..tbSlip set Nothing = 1"_s, 207, u"Invalid column name 'Nothing'."_s,
         u"42S22"_s},
    };
    for (const Mistake& mistake : mistakes) {
        const RaisedError failure = FailureOf(Gateway(), mistake.command);
        EXPECT_EQ(failure.number, mistake.number) << mistake.command.toStdString();
        EXPECT_EQ(failure.text, mistake.text);
        EXPECT_EQ(failure.state, mistake.state);
    }
}

TEST_P(GatewayContract, WorksOnAfterAnError) {
    EXPECT_NE(FailureOf(Gateway(), u"Clinical_Area..spAddThenFail 'x'"_s).number, 0);
    EXPECT_NE(FailureOf(Gateway(), u"Clinical_Area..spGetPatient 'x"_s).number, 0);
    EXPECT_EQ(RowTexts(Gateway(), kCounter), QStringList{u"100"_s});
}

TEST_P(GatewayContract, ApostropheInASearchIsAnErrorAndChangesNothing) {
    const QStringList before = State();
    EXPECT_NE(FailureOf(Gateway(), u"Clinical_Area..spGetPatient 'O'BRIEN'"_s).number, 0);
    EXPECT_NE(
        FailureOf(Gateway(), u"select * from Clinical_Area..tbPatient where LastName = 'O'BRIEN'"_s).number,
        0);
    EXPECT_EQ(State(), before);
}

TEST_P(GatewayContract, ApostropheInASaveIsAnErrorAndChangesNothing) {
    const QStringList before = State();
    const QString call = u"Clinical_Area..spAddCharge '1001','1','1','1/1/2026','O'BRIEN'"_s;
    EXPECT_NE(FailureOf(Gateway(), call).number, 0);
    EXPECT_EQ(State(), before);
}

TEST_P(GatewayContract, AQuoteInAFieldMayLeaveAnotherValidCall) {
    const QString search = u"Clinical_Area..spGetPatient '"_s;
    const QStringList found = RowTexts(Gateway(), search + u"NU'"_s);
    ASSERT_EQ(found.size(), 3);
    EXPECT_EQ(RowTexts(Gateway(), search + u"NU' --"_s + u'\''), found) << "the rest is a remark";
    EXPECT_EQ(FailureOf(Gateway(), search + u"NU','X"_s + u'\'').number, 8144) << "one argument too many";
    const RowSet echo = Gateway().Execute(u"Clinical_Area..spEcho '"_s + u"x','5"_s + u"','7'"_s);
    EXPECT_EQ(echo.Fields(u"Text").ToText(), u"x"_s);
    EXPECT_EQ(echo.Fields(u"Number").ToText(), u"5"_s) << "what was typed fills the next argument too";
    EXPECT_EQ(echo.Fields(u"Amount").ToText(), u"7"_s);
}

TEST_P(GatewayContract, DoubledApostropheIsOne) {
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spGetPatient 'O''BRIEN'"_s),
              QStringList{u"1005|O'BRIEN, PAT"_s});
}

TEST_P(GatewayContract, FailureInTheMiddleOfAProcedureChangesNothing) {
    const QStringList before = State();
    const RaisedError failure = FailureOf(Gateway(), u"Clinical_Area..spAddThenFail 'seven'"_s);
    EXPECT_EQ(failure.number, 245);
    EXPECT_EQ(State(), before);
}

TEST_P(GatewayContract, CollationOfNames) {
    const auto found = [this](const QString& name) {
        return RowTexts(Gateway(),
                        u"select HospNum from Clinical_Area..tbPatient where LastName = '"_s + name + u'\'');
    };
    EXPECT_EQ(found(u"nunez"_s), QStringList{u"1002"_s}) << "letter case plays no part, accents do";
    EXPECT_EQ(found(u"nuñez"_s), QStringList{u"1003"_s});
    EXPECT_EQ(found(u"NUNEZ   "_s), QStringList{u"1002"_s}) << "blanks at the end do not count";
    EXPECT_EQ(found(u" NUNEZ"_s), QStringList()) << "blanks in front do";
    EXPECT_EQ(RowTexts(Gateway(), u"Clinical_Area..spGetPatient 'nu'"_s),
              (QStringList{u"1002|NUNEZ, ANA"_s, u"1004|NUNO, CARL"_s, u"1003|NUÑEZ, BEA"_s}))
        << "n comes before ñ, ñ before o";
}

TEST_P(GatewayContract, UpdatableRowIsWritten) {
    RowSet counter = Gateway().Open(kCounter, CursorType::Dynamic, LockType::Optimistic);
    counter.SetField(u"ChargeSlip", Value(counter.Fields(u"ChargeSlip").ToInteger() + 1));
    counter.Update();
    EXPECT_EQ(counter.Fields(u"ChargeSlip").ToText(), u"101"_s);
    EXPECT_EQ(RowTexts(Gateway(), kCounter), QStringList{u"101"_s});
}

TEST_P(GatewayContract, RowOfEveryTypeIsFoundAgainForItsUpdate) {
    for (const QString& number : {u"1"_s, u"2"_s}) {
        const QString command = u"select * from Clinical_Area..tbCharge where ChargeID = "_s + number;
        RowSet row = Gateway().Open(command, CursorType::Dynamic, LockType::Optimistic);
        row.SetField(u"Remark", Value(u"seen"_s));
        row.Update();
        EXPECT_EQ(Gateway().Execute(command).Fields(u"Remark").ToText(), u"seen"_s);
    }
    RowSet patient = Gateway().Open(u"select * from Clinical_Area..tbPatient where HospNum = '1004'"_s,
                                    CursorType::Dynamic, LockType::Optimistic);
    patient.SetField(u"Active", Value(true));
    patient.Update();
}

TEST_P(GatewayContract, RowThatAnotherConnectionChangedIsRefused) {
    const auto other = Connect();
    RowSet mine = Gateway().Open(kCounter, CursorType::Dynamic, LockType::Optimistic);
    RowSet theirs = other->Open(kCounter, CursorType::Dynamic, LockType::Optimistic);
    theirs.SetField(u"ChargeSlip", Value(101));
    theirs.Update();
    mine.SetField(u"ChargeSlip", Value(101));
    EXPECT_EQ(FailureOf([&] { mine.Update(); }).number, RunTime::kRowChanged);
    EXPECT_EQ(RowTexts(Gateway(), kCounter), QStringList{u"101"_s});
}

TEST_P(GatewayContract, RowsThatStandForNoTableRowCannotBeUpdated) {
    const QString join =
        u"select p.HospNum from Clinical_Area..tbPatient as p inner join Clinical_Area..tbCharge as c "
        "on c.HospNum = p.HospNum"_s;
    for (const QString& command : {join, u"Clinical_Area..spGetPatient 'NU'"_s}) {
        RowSet rows = Gateway().Open(command, CursorType::Dynamic, LockType::Optimistic);
        EXPECT_EQ(FailureOf([&] { rows.SetField(rows.Data()->columns[0], Value(u"x"_s)); }).number,
                  RunTime::kNotUpdatable);
    }
    RowSet rows = Gateway().Open(kCounter, CursorType::Dynamic, LockType::ReadOnly);
    EXPECT_EQ(FailureOf([&] { rows.SetField(u"ChargeSlip", Value(1)); }).number, RunTime::kNotUpdatable);
}

TEST_P(GatewayContract, WhatOneConnectionWroteTheOtherReads) {
    const auto other = Connect();
    Gateway().ExecuteNoResult(u"update Clinical_Area..tbSlip set ChargeSlip = 7"_s);
    EXPECT_EQ(RowTexts(*other, kCounter), QStringList{u"7"_s});
}

TEST_P(GatewayContract, MoneySumsAreExact) {
    for (int i = 0; i < 9; ++i)
        Gateway().ExecuteNoResult(u"Clinical_Area..spAddCharge '1002','1','0.1','1/1/2026'"_s);
    EXPECT_EQ(RowTexts(Gateway(),
                       u"select HospNum from Clinical_Area..tbCharge group by HospNum having sum(Amount) = "
                       "0.9"_s),
              QStringList{u"1002"_s});
}
