#include "patients/commands.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PatientCommands, ListOfPatientsOfAType) {
    EXPECT_COMMAND(GetPatientCommand(u"I"_s, u"DELA"_s), u"Clinical_Area..spEarCare_GetPatient 'I','DELA'"_s);
    EXPECT_COMMAND(GetPatientCommand(u"O"_s, u"DELA"_s), u"Clinical_Area..spEarCare_GetPatient 'O','DELA'"_s);
}

TEST(PatientCommands, TextGoesInAsItStands) {
    EXPECT_COMMAND(GetPatientCommand(u"I"_s, u"  o'brien, Ana %"_s),
                   u"Clinical_Area..spEarCare_GetPatient 'I','  o'brien, Ana %'"_s);
    EXPECT_COMMAND(GetPatientCommand(u"I"_s, u""_s), u"Clinical_Area..spEarCare_GetPatient 'I',''"_s);
}

TEST(PatientCommands, VisitByItsNumber) {
    EXPECT_COMMAND(OutPatientCommand(u"10231B"_s),
                   u"select * from patient_data..tboutpatient where idnum = '10231B'"_s);
}

TEST(PatientCommands, ListOfCashPatientsHasTwoBlanksBeforeItsArguments) {
    EXPECT_COMMAND(GetCashPatientCommand(u"DELA CRUZ"_s, u"1"_s),
                   u"CLINICAL_AREA..spEarCare_GetCashPatient  'DELA CRUZ','1'"_s);
    EXPECT_COMMAND(GetCashPatientCommand(u" o'brien "_s, u"3"_s),
                   u"CLINICAL_AREA..spEarCare_GetCashPatient  ' o'brien ','3'"_s);
    EXPECT_COMMAND(GetCashPatientCommand(u""_s, u"2"_s),
                   u"CLINICAL_AREA..spEarCare_GetCashPatient  '','2'"_s);
}

TEST(PatientCommands, ListOfWalkInsHasABlankBetweenItsArguments) {
    EXPECT_COMMAND(WalkInCommand(u"0"_s, u"DELA"_s), u"PATIENT_DATA..spGlobal_WalkIn '0', 'DELA'"_s);
    EXPECT_COMMAND(WalkInCommand(u"1"_s, u"O'B"_s), u"PATIENT_DATA..spGlobal_WalkIn '1', 'O'B'"_s);
}

namespace {

const WalkInEntry kAna{.lastName = u"O'Brien "_s,
                       .firstName = u"Ana"_s,
                       .middleName = u"Sy"_s,
                       .street = u"12 Rizal St."_s,
                       .barangay = u"Poblacion"_s,
                       .townCode = u"1100"_s,
                       .birthDate = u"02/29/1984"_s,
                       .age = u"42"_s,
                       .sex = u"F"_s,
                       .civilStatusCode = u"2"_s};

} // namespace

TEST(PatientCommands, RegistrationOfAWalkIn) {
    EXPECT_COMMAND(EarCareAddCashPatientCommand(kAna),
                   u"CLINICAL_AREA..spEarCare_Add_CashPatient 'O'Brien ','Ana','Sy','12 Rizal "
                   "St.','Poblacion','1100','02/29/1984','42','F','2'"_s);
    EXPECT_COMMAND(EarCareAddCashPatientCommand({}),
                   u"CLINICAL_AREA..spEarCare_Add_CashPatient '','','','','','','','','',''"_s);
}

TEST(PatientCommands, OlderRegistrationOfAWalkInHasAnOrderOfItsOwn) {
    EXPECT_COMMAND(
        AddCashPatientCommand(kAna),
        u"PATIENT_DATA..spAddCashPatient 'O'Brien ','Ana','Sy','2','F','02/29/1984','42','12 Rizal "
        "St.','Poblacion','1100'"_s);
    EXPECT_COMMAND(AddCashPatientCommand({}),
                   u"PATIENT_DATA..spAddCashPatient '','','','','','','','','',''"_s);
}
