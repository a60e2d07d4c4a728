#include "patients/commands.h"
#include "support/CaseName.h"
#include "support/hospital/HospitalTest.h"

using namespace Qt::StringLiterals;

namespace {

class PatientLookups : public HospitalTest {
  protected:
    std::vector<QStringList> Walkins(const QString& by, const QString& text) {
        return Rows(Call(u"PATIENT_DATA..spGlobal_ListWalkIn"_s, {by, text}));
    }
    QStringList LoadWalkIn(const QString& number) {
        const auto rows = Rows(Call(u"PATIENT_DATA..spGlobal_LoadWalkIn"_s, {number}));
        return rows.size() == 1 ? rows[0] : QStringList();
    }
    void UpdateWalkIn(const QStringList& arguments) {
        Run(Call(u"PATIENT_DATA..spGlobal_UpdateWalkIn"_s, arguments));
    }
    QString Traces() {
        return Cell(u"SELECT COUNT(*) FROM BILLING..tbAuditTrail WHERE Event = 'WALK-IN UPDATE'"_s);
    }
    std::vector<QStringList> Visits(const QString& current, const QString& kind, const QString& text) {
        return Rows(u"BILLING..spGlobal_RegisteredOPD '%1','%2', '%3'"_s.arg(current, kind, text));
    }
    std::vector<QStringList> Billed(const QString& type, const QString& text) {
        return Rows(Call(u"HEMODIALYSIS..spKidney_SearchPatient"_s, {type, text}));
    }
};

TEST_F(PatientLookups, WalkInsAreListedByNameOrNumberWithTheNumberFirst) {
    EXPECT_EQ(Columns(u"PATIENT_DATA..spGlobal_ListWalkIn '0',''"_s),
              QStringList({u"HospNum"_s, u"LastName"_s, u"FirstName"_s, u"MiddleName"_s}));
    EXPECT_EQ(Walkins(u"0"_s, u""_s).size(), 25U);
    const QStringList somebody = Walkins(u"0"_s, u""_s)[3];
    for (const QStringList& row : Walkins(u"0"_s, somebody[1].left(3)))
        EXPECT_TRUE(row[1].startsWith(somebody[1].left(3)));
    EXPECT_EQ(Walkins(u"1"_s, somebody[0]), std::vector<QStringList>{somebody});
    EXPECT_TRUE(Walkins(u"1"_s, somebody[1]).empty());
}

TEST_F(PatientLookups, RecordOfAWalkInHasTheTownOfItsZipCode) {
    EXPECT_EQ(Columns(u"PATIENT_DATA..spGlobal_LoadWalkIn 'W000001'"_s),
              QStringList({u"HospNum"_s, u"LastName"_s, u"FirstName"_s, u"MiddleName"_s, u"BirthDate"_s,
                           u"Age"_s, u"Sex"_s, u"CivilStatusid"_s, u"Address1"_s, u"Address2"_s,
                           u"Address3"_s, u"ZipCode"_s}));
    const QStringList record = LoadWalkIn(u"w000001"_s);
    ASSERT_EQ(record.size(), 12);
    EXPECT_EQ(record[10], Rows(u"SELECT CONCAT(Town, ', ', Province) FROM build_file..tbCoAddress WHERE "
                               "ZipCode = '%1'"_s.arg(record[11]))[0][0]);
    EXPECT_TRUE(LoadWalkIn(u"W999999"_s).isEmpty());
}

TEST_F(PatientLookups, CorrectedWalkInIsKeptAndLeavesATrace) {
    UpdateWalkIn({u"W000001"_s, u"PEÑA"_s, u"ANA"_s, u"SY"_s, u"02/29/1984"_s, u"42"_s, u"F"_s, u"2"_s,
                  u"12 RIZAL ST."_s, u"POBLACION"_s, u"1100"_s});
    const QStringList record = LoadWalkIn(u"W000001"_s);
    EXPECT_EQ(record.mid(0, 10), QStringList({u"W000001"_s, u"PEÑA"_s, u"ANA"_s, u"SY"_s, u"2/29/1984"_s,
                                              u"42"_s, u"F"_s, u"2"_s, u"12 RIZAL ST."_s, u"POBLACION"_s}));
    EXPECT_EQ(record[11], u"1100"_s);
    EXPECT_EQ(Traces(), u"1"_s);
}

TEST_F(PatientLookups, RecordThatIsCorrectedIsKeptAsItWas) {
    const QString record = u"SELECT * FROM PATIENT_DATA..tbwalkin WHERE HospNum = 'W000001'"_s;
    const QString history = u"SELECT * FROM PATIENT_DATA..tbWalkInHistory"_s;
    EXPECT_EQ(Columns(history).mid(3), Columns(record));
    const QStringList first = Rows(record).front();
    UpdateWalkIn({u"W000001"_s, u"PEÑA"_s, u"ANA"_s, u"SY"_s, u"02/29/1984"_s, u"42"_s, u"F"_s, u"2"_s,
                  u"12 RIZAL ST."_s, u"POBLACION"_s, u"1100"_s});
    const QStringList second = Rows(record).front();
    RunAs(u"CLERK"_s,
          Call(u"PATIENT_DATA..spGlobal_UpdateWalkIn"_s,
               {u"W000001"_s, u"CRUZ"_s, u""_s, u""_s, u""_s, u""_s, u"M"_s, u"1"_s, u""_s, u""_s, u""_s}));
    const QString moment = u"11/21/2026 10:15:00 AM"_s;
    EXPECT_EQ(Rows(history), (std::vector<QStringList>{QStringList{u"1"_s, u"NURSE"_s, moment} + first,
                                                       QStringList{u"2"_s, u"CLERK"_s, moment} + second}));
    EXPECT_EQ(Column(Rows(u"SELECT UserID FROM BILLING..tbAuditTrail WHERE Event = 'WALK-IN UPDATE' ORDER BY "
                          "AuditID"_s),
                     0),
              QStringList({u"NURSE"_s, u"CLERK"_s}));
    EXPECT_EQ(second.back(), first.back()) << "who registered it stays";
}

TEST_F(PatientLookups, EmptyEntriesOfTheCorrectionAreNone) {
    for (const QString& none : {u"6"_s, u"-1"_s}) {
        UpdateWalkIn({u"W000001"_s, u"CRUZ"_s, u""_s, u""_s, u""_s, u""_s, u""_s, none, u""_s, u""_s, u""_s});
        const QStringList record = LoadWalkIn(u"W000001"_s);
        EXPECT_EQ(record[4], u"NULL"_s);
        EXPECT_EQ(record[7], u""_s);
        EXPECT_EQ(record[10], u""_s) << "no town without a zip code";
    }
}

TEST_F(PatientLookups, CorrectionOfAnUnknownWalkInChangesNothing) {
    const auto before = Rows(u"SELECT * FROM PATIENT_DATA..tbwalkin ORDER BY HospNum"_s);
    UpdateWalkIn({u"W999999"_s, u"X"_s, u""_s, u""_s, u""_s, u""_s, u"M"_s, u"1"_s, u""_s, u""_s, u""_s});
    EXPECT_EQ(Rows(u"SELECT * FROM PATIENT_DATA..tbwalkin ORDER BY HospNum"_s), before);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM PATIENT_DATA..tbWalkInHistory"_s), u"0"_s);
    EXPECT_EQ(Traces(), u"0"_s);
}

TEST_F(PatientLookups, RefusedBirthDateChangesNothing) {
    const QStringList before = LoadWalkIn(u"W000001"_s);
    EXPECT_THROW(UpdateWalkIn({u"W000001"_s, u"X"_s, u""_s, u""_s, u"13/45/1984"_s, u""_s, u"M"_s, u"1"_s,
                               u""_s, u""_s, u""_s}),
                 RunTimeError);
    EXPECT_EQ(LoadWalkIn(u"W000001"_s), before);
}

TEST_F(PatientLookups, VisitsComeWithThePickersColumnsFirst) {
    EXPECT_EQ(Columns(u"BILLING..spGlobal_RegisteredOPD '0','0', ''"_s),
              QStringList({u"IdNum"_s, u"LastName"_s, u"FirstName"_s, u"MiddleName"_s, u"Adm. Date"_s,
                           u"HospNum"_s, u"AccountNum"_s, u"Company"_s, u"AdmDate"_s, u"DcrDate"_s,
                           u"BillingDate"_s, u"CivilStatus"_s, u"Sex"_s, u"BirthDate"_s, u"Age"_s,
                           u"HouseStreet"_s, u"Barangay"_s, u"Town"_s, u"Province"_s}));
    EXPECT_EQ(Visits(u"0"_s, u"0"_s, u""_s).size(), 250U);
    EXPECT_TRUE(Visits(u"0"_s, u"1"_s, u""_s).empty());
}

TEST_F(PatientLookups, VisitIsFoundByNameByItsNumberAndByTheHospitalNumber) {
    const QStringList visit = Visits(u"0"_s, u"0"_s, u""_s)[20];
    EXPECT_EQ(Visits(u"0"_s, u"1"_s, visit[0].toLower()), std::vector<QStringList>{visit});
    for (const QString& kind : {u"0"_s, u"1"_s}) {
        const auto found = Visits(u"0"_s, kind, kind == u"0"_s ? visit[1].left(4) : visit[5]);
        EXPECT_NE(std::find(found.begin(), found.end(), visit), found.end());
        EXPECT_LT(found.size(), 100U);
    }
}

TEST_F(PatientLookups, HospitalNumberOfAPatientWithTwoVisitsBringsBoth) {
    const auto twice =
        Rows(u"SELECT HospNum FROM PATIENT_DATA..tboutpatient GROUP BY HospNum HAVING COUNT(*) > 1"_s);
    ASSERT_FALSE(twice.empty());
    EXPECT_GT(Visits(u"0"_s, u"1"_s, twice[0][0]).size(), 1U);
}

TEST_F(PatientLookups, VisitOfAPatientWithoutACivilStatusHasAnEmptyOne) {
    const QStringList visit = Visits(u"0"_s, u"0"_s, u""_s)[20];
    Run(u"UPDATE PATIENT_DATA..tbmaster SET CivilStatusID = '' WHERE HospNum = '%1'"_s.arg(visit[5]));
    EXPECT_EQ(Visits(u"0"_s, u"1"_s, visit[0])[0][11], QString()) << "and not a blank";
}

TEST_F(PatientLookups, CurrentRegistrationsAreThoseThatAreOpen) {
    const auto current = Visits(u"1"_s, u"0"_s, u""_s);
    EXPECT_FALSE(current.empty());
    EXPECT_LT(current.size(), 250U);
    for (const QStringList& visit : current)
        EXPECT_EQ(visit[9], u"NULL"_s);
}

TEST_F(PatientLookups, BilledPatientsHaveTheColumnsOfThePicker) {
    EXPECT_EQ(Columns(u"HEMODIALYSIS..spKidney_SearchPatient 'I',''"_s),
              QStringList({u"Hospital Num"_s, u"Adm. Num"_s, u"Patient Name"_s, u"Billing Date"_s,
                           u"Charging Status"_s, u"Discharge Date"_s}));
    const size_t inPatients = Billed(u"I"_s, u""_s).size();
    const size_t outPatients = Billed(u"O"_s, u""_s).size();
    EXPECT_GT(inPatients, 10U);
    EXPECT_GT(outPatients, 10U);
    EXPECT_EQ(Billed(u""_s, u""_s).size(), inPatients + outPatients);
}

TEST_F(PatientLookups, BilledPatientHasChargesAndAStatusThatFollowsTheBill) {
    for (const QStringList& row : Billed(u""_s, u"DE"_s)) {
        EXPECT_NE(Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE IdNum = '%1'"_s.arg(row[1])),
                  u"0"_s);
        EXPECT_EQ(row[4], row[3] == u"NULL"_s ? u"OPEN"_s : u"CLOSED"_s);
        EXPECT_TRUE(row[2].startsWith("DE"_L1));
    }
}

TEST_F(PatientLookups, BilledPatientIsFoundByAnyOfTheThreeTexts) {
    for (const QString& type : {u"I"_s, u"O"_s}) {
        const QStringList somebody = Billed(type, u""_s)[5];
        EXPECT_EQ(Billed(type, somebody[1]), std::vector<QStringList>{somebody});
        for (const QString& text : {somebody[0], somebody[2].section(u',', 0, 0)}) {
            const auto found = Billed(type, text);
            EXPECT_NE(std::find(found.begin(), found.end(), somebody), found.end()) << text.toStdString();
        }
    }
}

TEST_F(PatientLookups, UltrasoundExaminationsAreListedAndSearched) {
    const auto all =
        Rows(u"select ultraexam as UtraExam, ultraexamid as UltraExamId from build_file..tbcoultraexam"_s);
    ASSERT_GT(all.size(), 3U);
    EXPECT_TRUE(all[0][1].startsWith("US"_L1));
    const QString text = all[1][0].left(5);
    const auto found =
        Rows(u"select ultraexam, ultraexamid from build_file..tbcoultraexam where ultraexam like'%1%'"_s.arg(
            text.toLower()));
    EXPECT_NE(std::find(found.begin(), found.end(), all[1]), found.end());
    EXPECT_LT(found.size(), all.size());
    EXPECT_THROW(
        Run(u"select ultraexam, ultraexamid from build_file..tbcoultraexam where ultraexam like''%'"_s),
        RunTimeError);
}

TEST_F(PatientLookups, BlanksAtTheEndOfTheTextDoNotCount) {
    const QString walkIn = Walkins(u"0"_s, u""_s)[3][1].left(2);
    const auto search = [&](const QString& blanks) {
        return std::vector{Walkins(u"0"_s, blanks),        Walkins(u"0"_s, walkIn + blanks),
                           Visits(u"0"_s, u"0"_s, blanks), Visits(u"0"_s, u"0"_s, u"DE"_s + blanks),
                           Billed(u"I"_s, blanks),         Billed(u"I"_s, u"DE"_s + blanks),
                           Billed(u"O"_s, blanks),         Billed(u"O"_s, u"DE"_s + blanks)};
    };
    const auto plain = search({});
    const auto blank = search(u"  "_s);
    for (size_t i = 0; i < plain.size(); ++i) {
        EXPECT_EQ(blank[i], plain[i]) << i;
        EXPECT_FALSE(plain[i].empty()) << i;
    }
}

struct ApostropheCase {
    const char* name;
    QString command;
};

class PatientLookupsApostrophe : public PatientLookups, public testing::WithParamInterface<ApostropheCase> {};

TEST_P(PatientLookupsApostrophe, EndsTheTextAndChangesNothing) {
    const QStringList tables = {u"PATIENT_DATA..tbwalkin"_s, u"PATIENT_DATA..tbmaster"_s,
                                u"PATIENT_DATA..tboutpatient"_s, u"BILLING..tbAuditTrail"_s};
    const auto everything = [&] {
        std::vector<std::vector<QStringList>> all;
        for (const QString& table : tables)
            all.push_back(Rows(u"SELECT * FROM "_s + table));
        return all;
    };
    const auto before = everything();
    try {
        Run(GetParam().command);
        ADD_FAILURE() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.Number() == 102 || error.Number() == 105) << error.Description().toStdString();
    }
    EXPECT_EQ(everything(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, PatientLookupsApostrophe,
    testing::Values(ApostropheCase{"List", ListWalkInCommand(u"0"_s, u"O'BRIEN"_s)},
                    ApostropheCase{"Update", UpdateWalkInCommand(u"W000001"_s, {.lastName = u"O'BRIEN"_s,
                                                                                .firstName = u"ANA"_s,
                                                                                .middleName = u"SY"_s,
                                                                                .street = {},
                                                                                .barangay = {},
                                                                                .townCode = u"1100"_s,
                                                                                .birthDate = u"02/29/1984"_s,
                                                                                .age = u"42"_s,
                                                                                .sex = u"F"_s,
                                                                                .civilStatusCode = u"2"_s})},
                    ApostropheCase{"Visits", RegisteredOPDCommand(u"0"_s, u"0"_s, u"O'BRIEN"_s)},
                    ApostropheCase{"Billed", SearchBilledPatientCommand(u"I"_s, u"O'BRIEN"_s)}),
    CaseName());

} // namespace
