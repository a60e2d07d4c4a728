#include "support/hospital/HospitalTest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class CashPatients : public HospitalTest {
  protected:
    static QString FindCommand(const QString& text, const QString& kind) {
        return u"CLINICAL_AREA..spEarCare_GetCashPatient  '%1','%2'"_s.arg(text, kind);
    }
    std::vector<QStringList> Find(const QString& text, const QString& kind) {
        return Rows(FindCommand(text, kind));
    }
    void Register(const QString& lastName, const QString& birthDate, const QString& age = u"40"_s) {
        Run(Call(u"CLINICAL_AREA..spEarCare_Add_CashPatient"_s,
                 {lastName, u"ANA"_s, u"CRUZ"_s, u"12 RIZAL ST."_s, u"POBLACION"_s, u"1100"_s, birthDate, age,
                  u"F"_s, u"2"_s}));
    }
    std::vector<QStringList> WalkIns(const QString& lastName) {
        return Rows(
            u"SELECT * FROM PATIENT_DATA..tbwalkin WHERE LastName = '%1' ORDER BY HospNum"_s.arg(lastName));
    }
    int NextNumber() { return Cell(u"SELECT WalkInNum FROM PATIENT_DATA..tbWalkInNum"_s).toInt(); }
};

TEST_F(CashPatients, EveryKindGivesItsPatientsInTheColumnsThatTheListTakes) {
    const QStringList expected = {u"ADM. #"_s, u"HOSP. #"_s, u"PATIENT NAME"_s, u"ADM. DATE"_s,
                                  u"AdmissionNum"_s};
    for (const auto& [kind, count] :
         {std::pair(u"1"_s, 60U), std::pair(u"2"_s, 250U), std::pair(u"3"_s, 25U)}) {
        EXPECT_EQ(Columns(FindCommand(u""_s, kind)), expected);
        EXPECT_EQ(Find(u""_s, kind).size(), count);
        const RowSet rows = mGateway->Execute(FindCommand(u""_s, kind));
        EXPECT_TRUE(std::holds_alternative<DateTime>(rows.Fields(u"ADM. DATE"_s).Get()));
    }
}

TEST_F(CashPatients, BlanksAtTheEndOfTheTextDoNotCount) {
    for (const QString& kind : {u"1"_s, u"2"_s, u"3"_s}) {
        const QString name = Find(u""_s, kind).back()[2].left(2);
        EXPECT_EQ(Find(name + u"  "_s, kind), Find(name, kind)) << kind.toStdString();
        EXPECT_FALSE(Find(name, kind).empty());
        EXPECT_EQ(Find(u" "_s, kind), Find(u""_s, kind)) << kind.toStdString();
    }
}

TEST_F(CashPatients, NumbersTellHowTheRoomClassIsFound) {
    for (const QStringList& row : Find(u""_s, u"1"_s))
        EXPECT_EQ(row[0], row[4]);
    for (const QStringList& row : Find(u""_s, u"2"_s))
        EXPECT_TRUE(row[0].endsWith(u'B'));
    for (const QStringList& row : Find(u""_s, u"3"_s)) {
        EXPECT_EQ(row[0], u""_s);
        EXPECT_EQ(row[4], u""_s);
        EXPECT_TRUE(row[1].startsWith(u'W'));
    }
}

TEST_F(CashPatients, AreFoundByTheBeginningOfTheNameOrTheWholeNumber) {
    for (const QString& kind : {u"1"_s, u"2"_s, u"3"_s}) {
        const QStringList somebody = Find(u""_s, kind)[7];
        const auto byNumber = Find(somebody[1].toLower(), kind);
        EXPECT_TRUE(std::ranges::find(byNumber, somebody) != byNumber.end());
        const auto byName = Find(somebody[2].section(u',', 0, 0).left(3), kind);
        EXPECT_TRUE(std::ranges::find(byName, somebody) != byName.end());
        EXPECT_LT(byName.size(), Find(u""_s, kind).size());
        EXPECT_TRUE(Find(somebody[1].chopped(1), kind).empty());
    }
    const QStringList visit = Find(u""_s, u"2"_s)[7];
    EXPECT_EQ(Find(visit[0], u"2"_s), std::vector<QStringList>{visit});
}

TEST_F(CashPatients, RegisteredWalkInGetsTheNextNumberAndIsFound) {
    const int number = NextNumber();
    Register(u"ZUÑIGALVEZ"_s, u"02/29/1984"_s);
    EXPECT_EQ(NextNumber(), number + 1);
    const QString hospNum = u"W%1"_s.arg(number, 6, 10, QChar(u'0'));
    EXPECT_EQ(WalkIns(u"ZUÑIGALVEZ"_s),
              (std::vector<QStringList>{{hospNum, u"ZUÑIGALVEZ"_s, u"ANA"_s, u"CRUZ"_s, u"F"_s,
                                         u"2/29/1984"_s, u"40"_s, u"2"_s, u"12 RIZAL ST."_s, u"POBLACION"_s,
                                         u"1100"_s, u"11/21/2026 10:15:00 AM"_s, u"NURSE"_s}}));
    EXPECT_EQ(Find(u"ZUÑIGA"_s, u"3"_s).back().mid(0, 3),
              QStringList({u""_s, hospNum, u"ZUÑIGALVEZ, ANA CRUZ"_s}));
    EXPECT_EQ(
        Cell(u"SELECT UserID FROM BILLING..tbAuditTrail WHERE Event = 'WALK-IN' AND HospNum = '%1'"_s.arg(
            hospNum)),
        u"NURSE"_s);
}

TEST_F(CashPatients, EmptyMaskIsNoBirthDate) {
    for (const QString& empty : {u"/  /"_s, u"__/__/____"_s, u""_s})
        Register(u"ZZTEST"_s, empty, u""_s);
    ASSERT_EQ(WalkIns(u"ZZTEST"_s).size(), 3U);
    for (const QStringList& row : WalkIns(u"ZZTEST"_s))
        EXPECT_EQ(row[5], u"NULL"_s);
}

TEST_F(CashPatients, RefusedBirthDateSpendsNoNumber) {
    const int number = NextNumber();
    EXPECT_THROW(Register(u"ZZTEST"_s, u"13/45/1984"_s), RunTimeError);
    EXPECT_EQ(NextNumber(), number);
    EXPECT_TRUE(WalkIns(u"ZZTEST"_s).empty());
}

TEST_F(CashPatients, OneOfTheTwoNamesIsEnoughAndStandsWithoutAComma) {
    const auto save = [this](const QString& lastName, const QString& firstName) {
        Run(Call(u"CLINICAL_AREA..spEarCare_Add_CashPatient"_s,
                 {lastName, firstName, {}, {}, {}, {}, u"/  /"_s, {}, u"M"_s, {}}));
    };
    save(u"ZZTEST"_s, {});
    save({}, u"ANACLETA"_s);
    EXPECT_EQ(Column(Find(u"ZZTEST"_s, u"3"_s), 2), QStringList{u"ZZTEST"_s});
    const QStringList byFirstName = Find(u""_s, u"3"_s).front();
    EXPECT_EQ(byFirstName[2], u"ANACLETA"_s);
    EXPECT_EQ(Find(byFirstName[1], u"3"_s), std::vector<QStringList>{byFirstName});
}

TEST_F(CashPatients, NobodyElseGetsTheNumberOfAWalkInWhoIsGone) {
    const int number = NextNumber();
    Register(u"ZZTEST"_s, u"02/29/1984"_s);
    Run(u"DELETE FROM PATIENT_DATA..tbwalkin WHERE LastName = 'ZZTEST'"_s);
    Register(u"ZZTEST"_s, u"02/29/1984"_s);
    EXPECT_EQ(WalkIns(u"ZZTEST"_s).front().front(), u"W%1"_s.arg(number + 1, 6, 10, QChar(u'0')));
}

TEST_F(CashPatients, NameLongerThanItsColumnIsCutAsTheServerCutsAnArgument) {
    Register(u"ZZTEST"_s + QString(40, u'X'), u"02/29/1984"_s);
    EXPECT_EQ(WalkIns(u"ZZTEST"_s + QString(24, u'X')).size(), 1U);
}

TEST_F(CashPatients, OlderScreenRegistersTheSameFactsInItsOwnOrder) {
    RunAs(u"CLERK"_s, Call(u"PATIENT_DATA..spAddCashPatient"_s,
                           {u"ZZTEST"_s, u"ANA"_s, u"CRUZ"_s, u"2"_s, u"F"_s, u"02/29/1984"_s, u"42"_s,
                            u"12 RIZAL ST."_s, u"POBLACION"_s, u"1100"_s}));
    Run(Call(u"PATIENT_DATA..spAddCashPatient"_s,
             {u"ZZTEST"_s, u"EVA"_s, u""_s, u""_s, u"F"_s, u""_s, u""_s, u""_s, u""_s, u""_s}));
    const auto rows = WalkIns(u"ZZTEST"_s);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].mid(1), QStringList({u"ZZTEST"_s, u"ANA"_s, u"CRUZ"_s, u"F"_s, u"2/29/1984"_s, u"42"_s,
                                           u"2"_s, u"12 RIZAL ST."_s, u"POBLACION"_s, u"1100"_s,
                                           u"11/21/2026 10:15:00 AM"_s, u"CLERK"_s}));
    EXPECT_EQ(rows[1][5], u"NULL"_s);
    EXPECT_NE(rows[0][0], rows[1][0]);
}

TEST_F(CashPatients, OlderListFindsWalkInsByNameOrNumber) {
    const auto list = [this](const QString& by, const QString& text) {
        return Rows(u"PATIENT_DATA..spGlobal_WalkIn '%1', '%2'"_s.arg(by, text));
    };
    EXPECT_EQ(Columns(u"PATIENT_DATA..spGlobal_WalkIn '0', ''"_s),
              QStringList({u"HospNum"_s, u"LastName"_s, u"FirstName"_s, u"MiddleName"_s}));
    EXPECT_EQ(list(u"0"_s, u""_s).size(), 25U);
    const QStringList somebody = list(u"0"_s, u""_s)[3];
    const auto byName = list(u"0"_s, somebody[1].left(4));
    EXPECT_TRUE(std::ranges::find(byName, somebody) != byName.end());
    EXPECT_EQ(list(u"1"_s, somebody[0]), std::vector<QStringList>{somebody});
    EXPECT_TRUE(list(u"1"_s, somebody[1]).empty());
    EXPECT_TRUE(list(u"0"_s, somebody[0]).empty());
    EXPECT_EQ(list(u"0"_s, somebody[1].left(4) + u"  "_s), byName);
}

TEST_F(CashPatients, WalkInsAreAsOldAsTheirBirthDateSays) {
    for (const QStringList& row :
         Rows(u"SELECT Age, YEAR(BirthDate), MONTH(BirthDate) * 100 + DAY(BirthDate) FROM "
              "PATIENT_DATA..tbwalkin WHERE BirthDate IS NOT NULL"_s))
        EXPECT_EQ(row[0].toInt(), 2026 - row[1].toInt() - (row[2].toInt() > 1121 ? 1 : 0));
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM PATIENT_DATA..tbwalkin WHERE BirthDate IS NULL"_s), u"5"_s);
}

} // namespace
