#include "support/hospital/HospitalTest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class Patients : public HospitalTest {
  protected:
    static QString FindCommand(const QString& type, const QString& text) {
        return Call(u"Clinical_Area..spEarCare_GetPatient"_s, {type, text});
    }
    std::vector<QStringList> Find(const QString& type, const QString& text) {
        return Rows(FindCommand(type, text));
    }
    /// Some in-patient's or out-patient's row of the master with the number of his admission or visit.
    QStringList Somebody(const QString& table, const QString& condition) {
        return Rows(u"SELECT TOP 1 m.HospNum, p.IdNum, m.LastName FROM PATIENT_DATA..%1 AS p INNER JOIN "
                    "PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum WHERE %2 ORDER BY p.IdNum"_s.arg(
                        table, condition))
            .front();
    }
};

TEST_F(Patients, SearchGivesTheNamedColumns) {
    const QStringList expected = {u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s,
                                  u"Billing Date"_s};
    EXPECT_EQ(Columns(FindCommand(u"I"_s, u""_s)), expected);
    EXPECT_EQ(Columns(FindCommand(u"O"_s, u"XX"_s)), expected);
}

TEST_F(Patients, DatesComeAsDates) {
    const RowSet rows = mGateway->Execute(FindCommand(u"O"_s, u""_s));
    EXPECT_TRUE(std::holds_alternative<DateTime>(rows.Fields(u"admission date"_s).Get()));
    EXPECT_TRUE(std::holds_alternative<QString>(rows.Fields(u"hospital #"_s).Get()));
}

TEST_F(Patients, EmptyTextListsEverybodyOfTheType) {
    EXPECT_EQ(Find(u"I"_s, u""_s).size(), 60U);
    EXPECT_EQ(Find(u"O"_s, u""_s).size(), 250U);
    EXPECT_TRUE(Find(u"X"_s, u""_s).empty());
}

TEST_F(Patients, RowsComeInTheOrderOfNames) {
    for (const QString& type : {u"I"_s, u"O"_s}) {
        QStringList byName;
        for (const QStringList& row : Rows(u"SELECT RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', "
                                           u"m.MiddleName)) FROM PATIENT_DATA..%1 AS p "
                                           "INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum "
                                           "WHERE '%2' = 'O' OR p.DcrDate IS "
                                           "NULL ORDER BY m.LastName, m.FirstName, m.MiddleName"_s.arg(
                                               type == "I"_L1 ? u"tbpatient"_s : u"tboutpatient"_s, type)))
            byName.push_back(row[0]);
        EXPECT_EQ(Column(Find(type, u""_s), 2), byName);
    }
}

TEST_F(Patients, BlanksAtTheEndOfTheTextDoNotCount) {
    for (const QString& type : {u"I"_s, u"O"_s}) {
        EXPECT_EQ(Find(type, u"DE "_s), Find(type, u"DE"_s));
        EXPECT_EQ(Find(type, u" "_s), Find(type, u""_s));
        EXPECT_FALSE(Find(type, u"DE "_s).empty());
    }
}

TEST_F(Patients, LastNameIsFoundByItsBeginningInAnyLetterCase) {
    const auto rows = Find(u"O"_s, u"DE"_s);
    ASSERT_GT(rows.size(), 3U);
    for (const QStringList& row : rows)
        EXPECT_TRUE(row[2].startsWith("DE"_L1)) << row[2].toStdString();
    EXPECT_EQ(Find(u"O"_s, u"de"_s), rows);
    EXPECT_EQ(Find(u"O"_s, u""_s).size() - Find(u"O"_s, u"DE"_s).size(),
              size_t(std::ranges::count_if(
                  Find(u"O"_s, u""_s), [](const QStringList& row) { return !row[2].startsWith("DE"_L1); })));
}

TEST_F(Patients, SurnameOfSeveralWordsIsFoundAsAWholeAndByItsBeginning) {
    for (const QString& type : {u"I"_s, u"O"_s})
        for (const QString& surname : {u"DELA CRUZ"_s, u"DE LOS SANTOS"_s}) {
            const auto rows = Find(type, surname);
            ASSERT_FALSE(rows.empty());
            for (const QStringList& row : rows)
                EXPECT_TRUE(row[2].startsWith(surname + ", "_L1));
            EXPECT_GT(Find(type, u"DE"_s).size(), rows.size());
        }
}

TEST_F(Patients, SurnamesWithEnyeAreOnFileInBothTypes) {
    for (const QString& type : {u"I"_s, u"O"_s})
        for (const QString& surname : {u"MUÑOZ"_s, u"PEÑA"_s, u"ÑIGUEZ"_s})
            EXPECT_FALSE(Find(type, surname).empty()) << surname.toStdString();
}

TEST_F(Patients, EnyeIsALetterOfItsOwn) {
    Run(u"INSERT INTO PATIENT_DATA..tbmaster (HospNum, LastName, FirstName, Sex, AccountNum) VALUES "
        "('900001','MUNOZ','ANA','F','1'),('900002','MUÑOZ','ANA','F','2'),('900003','MUOZ','ANA','F','3'),"
        "('900004','ÑIGUEZ','ANA','F','4')"_s);
    for (const QString& number : {u"900001"_s, u"900002"_s, u"900003"_s, u"900004"_s})
        Run(u"INSERT INTO PATIENT_DATA..tboutpatient (IdNum, HospNum, AdmDate, CompanyID) VALUES "
            "('%1B','%1','20261120','PER')"_s.arg(number));
    const auto numbers = [this](const QString& text) {
        QStringList found = Column(Find(u"O"_s, text), 0);
        found.removeIf([](const QString& number) { return !number.startsWith(u'9'); });
        return found;
    };
    EXPECT_EQ(numbers(u"MU"_s), QStringList({u"900001"_s, u"900002"_s, u"900003"_s}));
    EXPECT_EQ(numbers(u"MUÑ"_s), QStringList({u"900002"_s}));
    EXPECT_EQ(numbers(u"muñoz"_s), QStringList({u"900002"_s}));
    EXPECT_EQ(numbers(u"MUN"_s), QStringList({u"900001"_s}));
    EXPECT_EQ(numbers(u"Ñ"_s), QStringList({u"900004"_s}));
}

TEST_F(Patients, WholeNumbersFindAPatientAndPartsDoNot) {
    const QStringList inPatient = Somebody(u"tbpatient"_s, u"p.DcrDate IS NULL"_s);
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(Find(u"I"_s, inPatient[i]).size(), 1U);
        EXPECT_EQ(Find(u"I"_s, inPatient[i]).front().mid(0, 2), inPatient.mid(0, 2));
        EXPECT_TRUE(Find(u"I"_s, inPatient[i].chopped(1)).empty());
        EXPECT_TRUE(Find(u"O"_s, inPatient[i]).empty());
    }
    const QStringList outPatient = Somebody(u"tboutpatient"_s, u"p.DcrDate IS NULL"_s);
    ASSERT_EQ(Find(u"O"_s, outPatient[1]).size(), 1U);
    EXPECT_EQ(Find(u"O"_s, outPatient[1]).front()[0], outPatient[0]);
    EXPECT_EQ(Find(u"O"_s, outPatient[1].toLower()).size(), 1U);
    EXPECT_TRUE(Find(u"O"_s, outPatient[1].chopped(1)).empty());
    for (const QStringList& row : Find(u"O"_s, outPatient[0]))
        EXPECT_EQ(row[0], outPatient[0]);
    EXPECT_FALSE(Find(u"O"_s, outPatient[0]).empty());
}

TEST_F(Patients, WhoHasLeftIsNoInPatientAnyMore) {
    const QStringList gone = Somebody(u"tbpatient"_s, u"p.DcrDate IS NOT NULL"_s);
    EXPECT_TRUE(Find(u"I"_s, gone[1]).empty());
}

TEST_F(Patients, NumberThatIsBothAHospitalNumberAndAnAdmissionIsFoundOnce) {
    const QStringList somebody = Somebody(u"tbpatient"_s, u"p.DcrDate IS NULL"_s);
    Run(u"UPDATE PATIENT_DATA..tbpatient SET IdNum = HospNum WHERE IdNum = '%1'"_s.arg(somebody[1]));
    EXPECT_EQ(Find(u"I"_s, somebody[0]).size(), 1U);
}

TEST_F(Patients, ClosedAccountsShowTheirBillingDate) {
    const auto rows = Find(u"I"_s, u""_s);
    EXPECT_EQ(std::ranges::count_if(rows, [](const QStringList& row) { return row[4] != "NULL"_L1; }), 4);
}

TEST_F(Patients, SearchForTheApostropheNameIsRefusedAndHisPlaceIsInTheList) {
    EXPECT_THROW(Find(u"O"_s, u"O'BRIEN"_s), RunTimeError);
    const auto rows = Find(u"O"_s, u"O"_s);
    EXPECT_EQ(
        std::ranges::count_if(rows, [](const QStringList& row) { return row[2].startsWith("O'BRIEN, "_L1); }),
        1);
}

TEST_F(Patients, InPatientsLieInRoomsOfEveryClassEachInABedOfHisOwn) {
    EXPECT_EQ(Column(Rows(u"SELECT DISTINCT r.RoomClassID FROM PATIENT_DATA..tbpatient AS p INNER JOIN "
                          "build_file..tbCoRoom AS r ON r.RoomID = p.RoomID WHERE p.DcrDate IS NULL ORDER BY "
                          "r.RoomClassID"_s),
                     0)
                  .join(u""_s),
              u"ABCDEFGH"_s);
    EXPECT_TRUE(
        Rows(u"SELECT RoomID FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL GROUP BY RoomID HAVING "
             "COUNT(*) > 1"_s)
            .empty());
}

TEST_F(Patients, VisitNumbersEndInBAndAdmissionNumbersAreNumeric) {
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM PATIENT_DATA..tboutpatient WHERE RIGHT(IdNum, 1) <> 'B'"_s),
              u"0"_s);
    for (const QStringList& row : Rows(u"SELECT IdNum, HospNum FROM PATIENT_DATA..tbpatient"_s)) {
        bool numeric = false;
        row[0].toInt(&numeric);
        EXPECT_TRUE(numeric) << row[0].toStdString();
        row[1].toInt(&numeric);
        EXPECT_TRUE(numeric) << row[1].toStdString();
    }
}

TEST_F(Patients, OutPatientsKeepTheirDoctorsAndSomeHaveAThird) {
    EXPECT_EQ(Columns(u"select * from patient_data..tboutpatient where idnum = '104001B'"_s).mid(6),
              QStringList({u"DoctorID1"_s, u"DoctorID2"_s, u"DoctorID3"_s}));
    EXPECT_NE(Cell(u"SELECT COUNT(*) FROM PATIENT_DATA..tboutpatient WHERE DoctorID3 IS NOT NULL"_s), u"0"_s);
    EXPECT_NE(Cell(u"SELECT COUNT(*) FROM PATIENT_DATA..tboutpatient WHERE DoctorID3 IS NULL"_s), u"0"_s);
}

TEST_F(Patients, EverythingIsAsOfTheDayOnWhichTheHospitalWasMade) {
    EXPECT_EQ(Cell(u"SELECT MAX(AdmDate) FROM PATIENT_DATA..tbpatient"_s), u"11/21/2026"_s);
    EXPECT_EQ(Cell(u"SELECT MAX(AdmDate) FROM PATIENT_DATA..tboutpatient"_s), u"11/21/2026"_s);
    for (const QString& latest :
         {u"MAX(DcrDate) FROM PATIENT_DATA..tbpatient"_s, u"MAX(BillingDate) FROM PATIENT_DATA..tbpatient"_s,
          u"MAX(DcrDate) FROM PATIENT_DATA..tboutpatient"_s,
          u"MAX(BillingDate) FROM PATIENT_DATA..tboutpatient"_s,
          u"MAX(TransDate) FROM BILLING..tbPatientCharges"_s,
          u"MAX(EntryDate) FROM BILLING..tbPatientCharges"_s,
          u"MAX(TransDate) FROM BILLING..tbCashAssessment"_s, u"MAX(AuditDate) FROM BILLING..tbAuditTrail"_s,
          u"MAX(TransDate) FROM INVENTORY..tbInvStockCard"_s,
          u"MAX(RequestDate) FROM RADIOLOGY..tbNurseRequest"_s,
          u"MAX(RegDate) FROM PATIENT_DATA..tbwalkin"_s}) {
        const RowSet rows = mGateway->Execute(u"SELECT "_s + latest);
        const DateTime date = rows.Fields(0).ToDate();
        EXPECT_LT(date, Moment()) << latest.toStdString();
        EXPECT_GT(date, Moment().AddDays(-10)) << latest.toStdString();
    }
}

} // namespace
