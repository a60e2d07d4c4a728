#include "suite/PersonFinder.h"
#include "suite/SuiteTest.h"
#include "support/CaseName.h"

using namespace Qt::StringLiterals;

namespace {

/// A patient PEÑA with an admission A900 in room 9-A of class F, and a visit V900; today is 21 November 2026.
class PersonFinderTest : public SuiteTest {
  protected:
    PersonFinderTest() {
        Run(u"INSERT INTO PATIENT_DATA..tbmaster (HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, "
            u"AccountNum) "
            "VALUES ('H900', 'PEÑA', 'ROSA', 'LIM', 'F', '19601122', '500900')"_s);
        Run(u"INSERT INTO build_file..tbCoStation (StationID, Station) VALUES ('S9', 'STATION 9')"_s);
        Run(u"INSERT INTO build_file..tbCoRoom (RoomID, RoomClassID, StationID) VALUES ('9-A', 'F', 'S9')"_s);
        Run(u"INSERT INTO build_file..tbCoCompany (CompanyID, Company) VALUES ('C900', 'ACME MUTUAL')"_s);
        Run(u"INSERT INTO build_file..tbCoDoctor (DoctorID, LastName, FirstName) VALUES ('D991', 'UY', 'ANA')"_s);
        Run(u"INSERT INTO build_file..tbCoDoctor (DoctorID, LastName, FirstName) VALUES ('D992', 'GO', 'BEN')"_s);
        AddAdmission(u"A900"_s, u"9-A"_s, u"'D992'"_s);
        AddVisit(u"V900"_s, u"NULL"_s);
        EXPECT_TRUE(finder.InitConnection(mGateway.get(), QString()));
    }

    void AddAdmission(const QString& number, const QString& room, const QString& secondDoctor) {
        Run(u"INSERT INTO PATIENT_DATA..tbpatient (IdNum, HospNum, AdmDate, RoomID, CompanyID, DoctorID1, "
            u"DoctorID2) "
            "VALUES ('%1', 'H900', '2026-11-03 14:15', '%2', 'C900', 'D991', %3)"_s.arg(number, room,
                                                                                        secondDoctor));
    }

    void AddVisit(const QString& number, const QString& discharge) {
        Run(u"INSERT INTO PATIENT_DATA..tboutpatient (IdNum, HospNum, AdmDate, DcrDate, CompanyID, "
            u"DoctorID1) "
            "VALUES ('%1', 'H900', '2026-11-20 08:05', %2, 'C900', 'D991')"_s.arg(number, discharge));
    }

    static DateTime On(int month, int day, int hour, int minute) {
        return *DateTime::FromFields(
            {.year = 2026, .month = month, .day = day, .hour = hour, .minute = minute});
    }

    bool OpenVisit(const QString& number) {
        QString id = number;
        QString hospital = u"H900"_s;
        return finder.PatientClass().clsOutPatient.OpenOutPatient(id, hospital);
    }

    PersonFinder finder;
};

TEST_F(PersonFinderTest, OpensAnAdmissionWithAllThatBelongsToIt) {
    QString number = u"a900"_s;
    EXPECT_TRUE(finder.ValidateAdmission(number));
    EXPECT_EQ(number, u"A900"_s) << "the number as the record has it";
    const AdmissionRecord& admission = finder.Admission();
    EXPECT_EQ(admission.IDNumber.ToText(), u"A900"_s);
    EXPECT_EQ(admission.HospitalNumber.ToText(), u"H900"_s);
    EXPECT_EQ(admission.AdmissionDate.ToDate(), On(11, 3, 14, 15));
    EXPECT_EQ(admission.Age.ToText(), u"65"_s);
    EXPECT_EQ(admission.Patient->LastName.ToText(), u"PEÑA"_s);
    EXPECT_EQ(admission.Patient->FirstName.ToText(), u"ROSA"_s);
    EXPECT_EQ(admission.Patient->MiddleName.ToText(), u"LIM"_s);
    EXPECT_EQ(admission.Patient->Sex.ToText(), u"FEMALE"_s);
    EXPECT_EQ(admission.Patient->BirthDate.ToDate(), *DateTime::FromFields({1960, 11, 22}));
    EXPECT_EQ(admission.Patient->Account->AccountNumber.ToText(), u"500900"_s);
    EXPECT_EQ(admission.Account->Company.ToText(), u"ACME MUTUAL"_s);
    EXPECT_EQ(admission.Room->RoomID.ToText(), u"9-A"_s);
    EXPECT_EQ(admission.Room->roomclassid.ToText(), u"F"_s);
    EXPECT_EQ(admission.Room->Station->Description.ToText(), u"STATION 9"_s);
    EXPECT_EQ(admission.AttendingDoctor1->completename.ToText(), u"DR. ANA UY"_s);
    EXPECT_EQ(admission.AttendingDoctor1->Code.ToText(), u"D991"_s);
    EXPECT_EQ(admission.AttendingDoctor2->Code.ToText(), u"D992"_s);
}

TEST_F(PersonFinderTest, AnAdmissionWithoutASecondDoctorAnswersEmptyTextsForHim) {
    AddAdmission(u"A901"_s, u"9-A"_s, u"NULL"_s);
    QString number = u"A901"_s;
    ASSERT_TRUE(finder.ValidateAdmission(number));
    EXPECT_EQ(finder.Admission().AttendingDoctor2->completename.ToText(), QString());
    EXPECT_EQ(finder.Admission().AttendingDoctor2->Code.ToText(), QString());
}

TEST_F(PersonFinderTest, AnAdmissionInARoomWithoutARecordHasNoRoom) {
    AddAdmission(u"A902"_s, u"GONE"_s, u"NULL"_s);
    QString number = u"A902"_s;
    ASSERT_TRUE(finder.ValidateAdmission(number));
    EXPECT_FALSE(finder.Admission().Room.IsSet());
    EXPECT_THROW(finder.Admission().Room->RoomID.ToText(), RunTimeError);
}

TEST_F(PersonFinderTest, AnAdmissionThatIsNotThereKeepsTheOneBefore) {
    QString number = u"A900"_s;
    ASSERT_TRUE(finder.ValidateAdmission(number));
    for (const QString& unknown : {u"A999"_s, QString(), u"O'BRIEN"_s, u"V900"_s}) {
        QString text = unknown;
        EXPECT_FALSE(finder.ValidateAdmission(text)) << unknown.toStdString();
        EXPECT_EQ(text, unknown);
    }
    EXPECT_EQ(finder.Admission().IDNumber.ToText(), u"A900"_s);
}

TEST_F(PersonFinderTest, OpensAVisitInTheSameWords) {
    QString id = u"v900"_s;
    QString hospital = u"h900"_s;
    OutPatientVisit& visit = finder.PatientClass().clsOutPatient;
    EXPECT_TRUE(visit.OpenOutPatient(id, hospital));
    EXPECT_EQ(id, u"V900"_s);
    EXPECT_EQ(hospital, u"H900"_s);
    EXPECT_EQ(visit.AdmissionDate().ToDate(), On(11, 20, 8, 5));
    EXPECT_EQ(finder.Admission().IDNumber.ToText(), u"V900"_s);
    EXPECT_EQ(finder.Admission().Room->RoomID.ToText(), u"OPD"_s);
    EXPECT_EQ(finder.Admission().Room->roomclassid.ToText(), u"A"_s);
    EXPECT_EQ(finder.Admission().Room->Station->Description.ToText(), u"OUT-PATIENT"_s);
    EXPECT_EQ(finder.Admission().AttendingDoctor1->completename.ToText(), u"DR. ANA UY"_s);
    EXPECT_EQ(finder.Admission().AttendingDoctor2->completename.ToText(), QString());
}

TEST_F(PersonFinderTest, AVisitWithoutADischargeHasDateZero) {
    ASSERT_TRUE(OpenVisit(u"V900"_s));
    EXPECT_EQ(finder.PatientClass().clsOutPatient.dischargeDate().ToDate(), DateTime());
    AddVisit(u"V901"_s, u"'2026-11-20 17:30'"_s);
    ASSERT_TRUE(OpenVisit(u"V901"_s));
    EXPECT_EQ(finder.PatientClass().clsOutPatient.dischargeDate().ToDate(), On(11, 20, 17, 30));
}

TEST_F(PersonFinderTest, AVisitIsOpenedWithItsOwnPatientsNumberAlone) {
    QString id = u"V900"_s;
    QString hospital = u"H901"_s;
    EXPECT_FALSE(finder.PatientClass().clsOutPatient.OpenOutPatient(id, hospital));
    EXPECT_FALSE(OpenVisit(u"A900"_s));
}

TEST_F(PersonFinderTest, LoadsThePersonOfTheVisit) {
    ASSERT_TRUE(OpenVisit(u"V900"_s));
    EXPECT_FALSE(finder.Admission().Patient.IsSet()) << "the person comes with LoadPatient";
    LoadablePatient& person = finder.PatientClass().clsOutPatient.Patient();
    QString hospital = u"h900"_s;
    EXPECT_TRUE(person.LoadPatient(hospital));
    EXPECT_EQ(hospital, u"H900"_s);
    EXPECT_EQ(person.LastName.ToText(), u"PEÑA"_s);
    EXPECT_EQ(person.Age.ToText(), u"65"_s);
    EXPECT_EQ(person.Account->Company.ToText(), u"ACME MUTUAL"_s);
    EXPECT_EQ(finder.Admission().Patient->LastName.ToText(), u"PEÑA"_s);
    EXPECT_EQ(finder.Admission().Age.ToText(), u"65"_s);
}

TEST_F(PersonFinderTest, APersonThatIsNotThereIsNotLoaded) {
    QString hospital = u"H999"_s;
    EXPECT_FALSE(finder.PatientClass().clsOutPatient.Patient().LoadPatient(hospital));
    EXPECT_EQ(hospital, u"H999"_s);
}

struct AgeCase {
    const char* name;
    QString birthDate;
    QString age;
};

class Age : public PersonFinderTest, public testing::WithParamInterface<AgeCase> {};

TEST_P(Age, IsCountedInWholeYearsOrMonths) {
    Run(u"UPDATE PATIENT_DATA..tbmaster SET BirthDate = %1 WHERE HospNum = 'H900'"_s.arg(
        GetParam().birthDate));
    QString hospital = u"H900"_s;
    LoadablePatient& person = finder.PatientClass().clsOutPatient.Patient();
    ASSERT_TRUE(person.LoadPatient(hospital));
    EXPECT_EQ(person.Age.ToText(), GetParam().age);
}

INSTANTIATE_TEST_SUITE_P(Births, Age,
                         testing::Values(AgeCase{"BirthdayToday", u"'19601121'"_s, u"66"_s},
                                         AgeCase{"BirthdayTomorrow", u"'19601122'"_s, u"65"_s},
                                         AgeCase{"BirthdayYesterday", u"'19601120'"_s, u"66"_s},
                                         AgeCase{"OneYear", u"'20251121'"_s, u"1"_s},
                                         AgeCase{"ElevenMonths", u"'20251122'"_s, u"11 mos."_s},
                                         AgeCase{"BornToday", u"'20261121'"_s, u"0 mos."_s}),
                         CaseName());

TEST_F(PersonFinderTest, WithoutABirthDateAgeAndDateAreEmpty) {
    Run(u"UPDATE PATIENT_DATA..tbmaster SET BirthDate = NULL, Sex = 'M' WHERE HospNum = 'H900'"_s);
    QString hospital = u"H900"_s;
    LoadablePatient& person = finder.PatientClass().clsOutPatient.Patient();
    ASSERT_TRUE(person.LoadPatient(hospital));
    EXPECT_EQ(person.Age.ToText(), QString());
    EXPECT_EQ(person.BirthDate.ToText(), QString());
    EXPECT_EQ(person.Sex.ToText(), u"MALE"_s);
}

TEST_F(PersonFinderTest, TakesNoConnectionThatIsNotOpen) {
    PersonFinder other;
    EXPECT_FALSE(other.InitConnection(nullptr, QString()));
    ScriptedGateway closed;
    closed.SetConnected(false);
    EXPECT_FALSE(other.InitConnection(&closed, QString()));
}

TEST_F(PersonFinderTest, WithoutAConnectionItRaises91) {
    PersonFinder other;
    QString number = u"A900"_s;
    try {
        other.ValidateAdmission(number);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 91);
    }
}

} // namespace
