#include "maintenance/commands.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MaintenanceCommands, StatusListOfAll) {
    EXPECT_COMMAND(AssessmentStatusCommand(u""_s), u"Clinical_Area..spEarCare_AssessmentStatus '1',''"_s);
}

TEST(MaintenanceCommands, StatusListTakesTheSearchTextAsItStands) {
    EXPECT_COMMAND(AssessmentStatusCommand(u" o'brien "_s),
                   u"Clinical_Area..spEarCare_AssessmentStatus '1',' o'brien '"_s);
}

TEST(MaintenanceCommands, LinesOfAReference) {
    EXPECT_COMMAND(
        LinesOfReferenceCommand(u"5017"_s),
        u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '5017'"_s);
}

TEST(MaintenanceCommands, SlipDataOfAReference) {
    EXPECT_COMMAND(AssessmentSlipCommand(u"5017"_s),
                   u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = '5017'"_s);
    EXPECT_COMMAND(AssessmentSlipCommand(u""_s),
                   u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = ''"_s);
}

TEST(MaintenanceCommands, RevokeOfALine) {
    EXPECT_COMMAND(AssessRevokeCommand(u"731"_s, u"5017"_s, u"HC"_s),
                   u"Clinical_Area..spEarCare_AssessRevoke '731','5017','HC'"_s);
}

TEST(MaintenanceCommands, RevokeKeepsBlanksAndAnEmptyReference) {
    EXPECT_COMMAND(AssessRevokeCommand(u"731"_s, u""_s, u" HC "_s),
                   u"Clinical_Area..spEarCare_AssessRevoke '731','',' HC '"_s);
}

TEST(MaintenanceCommands, ListOfChargesIsThatOfHCWhateverTheDepartment) {
    EXPECT_COMMAND(ListAllChargesCommand(u" 100085"_s, u"104233"_s),
                   u"Clinical_Area..SpEarCare_List_AllCharges ' 100085','104233','HC'"_s);
}

TEST(MaintenanceCommands, VerificationOfALine) {
    EXPECT_COMMAND(VerifyChargesCommand(u"104233"_s, u"HC001"_s, u"H1042C"_s, u"HC"_s),
                   u"Clinical_Area..spEarCare_VerifyCharges '104233','HC001','H1042C','HC'"_s);
    EXPECT_COMMAND(VerifyChargesCommand(u"104233"_s, u""_s, u""_s, u""_s),
                   u"Clinical_Area..spEarCare_VerifyCharges '104233','','',''"_s);
}

TEST(MaintenanceCommands, CancellationOfAServiceHasThirteenArgumentsAndEndsInAnEmptyOne) {
    EXPECT_COMMAND(UpdateChargingCommand({.hospitalNumber = u"100085"_s,
                                          .idNumber = u"104233"_s,
                                          .itemID = u"HC001"_s,
                                          .amount = u"2800"_s,
                                          .quantity = u"1"_s,
                                          .moment = u"11/21/2026 10:30:15 AM"_s,
                                          .department = u"HC"_s,
                                          .userCode = u"NURSE"_s,
                                          .patientType = u"I"_s,
                                          .room = u"301-A"_s,
                                          .slipNumber = u"H1042C"_s}),
                   u"Clinical_ARea..spEarCare_UpdateCharging '100085','104233','HC001','2800','1',"
                   "'11/21/2026 10:30:15 AM','HC','NURSE','I','C','301-A','H1042C',''"_s);
}

TEST(MaintenanceCommands, ReprintOfASlip) {
    EXPECT_COMMAND(ReprintChargeSlipCommand(u"H1042C"_s),
                   u"Clinical_Area..spEarCare_ReprintChargeSlip 'H1042C'"_s);
}

TEST(MaintenanceCommands, ChargesOfAPatient) {
    EXPECT_COMMAND(ChargesByPatientCommand(u"104233"_s),
                   u"Hemodialysis..spKidney_ChargesbyPatient '104233'"_s);
}

TEST(MaintenanceCommands, LineOfADuplicate) {
    EXPECT_COMMAND(SaveDuplicateLineCommand({.code = u"HCHC001"_s,
                                             .amount = u"2800.00"_s,
                                             .quantity = u""_s,
                                             .revenueCode = u"HC"_s,
                                             .description = u"TREATMENT"_s}),
                   u"Hemodialysis..spKidney_SaveChargePrint 'HCHC001','2800.00','','HC','TREATMENT'"_s);
}

TEST(MaintenanceCommands, IssuerOfASlip) {
    EXPECT_COMMAND(IssuerCommand(u"NURSE"_s),
                   u"Select * from PASSWORD..tbPasswordMain where EmployeeID = 'NURSE'"_s);
}
