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

TEST(PatientCommands, WalkInsWhoseRecordsAreToBeCorrected) {
    EXPECT_COMMAND(ListWalkInCommand(u"0"_s, u" o'brien "_s),
                   u"PATIENT_DATA..spGlobal_ListWalkIn '0',' o'brien '"_s);
    EXPECT_COMMAND(LoadWalkInCommand(u"W000012"_s), u"PATIENT_DATA..spGlobal_LoadWalkIn 'W000012'"_s);
}

TEST(PatientCommands, CorrectionOfAWalkInHasElevenArgumentsInAnOrderOfTheirOwn) {
    EXPECT_COMMAND(
        UpdateWalkInCommand(u"W000012"_s, kAna),
        u"PATIENT_DATA..spGlobal_UpdateWalkIn 'W000012','O'Brien ','Ana','Sy','02/29/1984','42','F','2','12 "
        "Rizal St.','Poblacion','1100'"_s);
    EXPECT_COMMAND(UpdateWalkInCommand(u""_s, {}),
                   u"PATIENT_DATA..spGlobal_UpdateWalkIn '','','','','','','','','','',''"_s);
}

TEST(PatientCommands, RegisteredVisitsHaveABlankBeforeTheLastArgument) {
    EXPECT_COMMAND(RegisteredOPDCommand(u"0"_s, u"1"_s, u"104233B"_s),
                   u"BILLING..spGlobal_RegisteredOPD '0','1', '104233B'"_s);
    EXPECT_COMMAND(RegisteredOPDCommand(u"1"_s, u"0"_s, u"o'b"_s),
                   u"BILLING..spGlobal_RegisteredOPD '1','0', 'o'b'"_s);
}

TEST(PatientCommands, BilledPatientsOfAType) {
    EXPECT_COMMAND(SearchBilledPatientCommand(u"I"_s, u" DELA "_s),
                   u"HEMODIALYSIS..spKidney_SearchPatient 'I',' DELA '"_s);
}
