#include "charges/commands.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ChargeCommands, SlipCounterAndPrintTable) {
    EXPECT_COMMAND(ChargeSlipCounterCommand(), u"Select * from Clinical_Area..tbEarCareChargeSlip"_s);
    EXPECT_COMMAND(ClearChargePrintCommand(), u"Delete Clinical_Area..tbEarCareChargePrint"_s);
}

TEST(ChargeCommands, PostingOfALineHasItsTwoBlankJoints) {
    EXPECT_COMMAND(
        AppendChargingCommand({.hospitalNumber = u"1"_s,
                               .admissionNumber = u"2"_s,
                               .moment = u"3"_s,
                               .department = u"4"_s,
                               .code = u"6"_s,
                               .quantity = u"7"_s,
                               .slipNumber = u"8"_s,
                               .amount = u"9"_s,
                               .userCode = u"10"_s,
                               .room = u"11"_s,
                               .requestingDoctorCode = u"12"_s,
                               .admittingDoctorName = u"13"_s,
                               .patientType = u"14"_s,
                               .particular = u"15"_s}),
        u"Clinical_Area..spEarCare_Append_Charging '1','2','3','4','D','6','7', '8','9','10','11','12','13', "
        "'14','15'"_s);
}

TEST(ChargeCommands, PostingOfAnEmptyLineKeepsItsPlaces) {
    EXPECT_COMMAND(
        AppendChargingCommand({}),
        u"Clinical_Area..spEarCare_Append_Charging '','','','','D','','', '','','','','','', '',''"_s);
}

TEST(ChargeCommands, PrintedLineEndsInO) {
    EXPECT_COMMAND(SaveChargePrintCommand({.code = u"1"_s,
                                           .amount = u"2"_s,
                                           .quantity = u"3"_s,
                                           .department = u"4"_s,
                                           .particular = u"5"_s}),
                   u"Clinical_Area..spEarCare_SaveChargePrint '1','2','3','4','5', 'O'"_s);
}

TEST(ChargeCommands, AssessmentCounter) {
    EXPECT_COMMAND(AssessmentCounterCommand(), u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s);
}

TEST(ChargeCommands, AssessedLineBearsTheFixedDepartment) {
    EXPECT_COMMAND(
        AssessmentCommand({.number = u"1"_s,
                           .patientName = u"2"_s,
                           .code = u"3"_s,
                           .department = u"4"_s,
                           .quantity = u"5"_s,
                           .amount = u"6"_s,
                           .userCode = u"8"_s,
                           .hospitalNumber = u"9"_s,
                           .visitNumber = u"10"_s,
                           .requestingDoctorCode = u"11"_s,
                           .requestingDoctorName = u"12"_s}),
        u"Clinical_Area..spEarCare_Assessment '1','2','3','4','5','6','HC','8','9','10','11','12'"_s);
}

TEST(ChargeCommands, AssessmentOfAnEmptyLineKeepsItsPlaces) {
    EXPECT_COMMAND(AssessmentCommand({}),
                   u"Clinical_Area..spEarCare_Assessment '','','','','','','HC','','','','',''"_s);
}

const AssessmentPrintLine kPrintLine{.code = u"1"_s,
                                     .particular = u"2"_s,
                                     .quantity = u"3"_s,
                                     .price = u"4"_s,
                                     .amount = u"5"_s,
                                     .department = u"6"_s,
                                     .userCode = u"7"_s};

TEST(ChargeCommands, HospitalsCopyOfAPrintedLineHasPriceAndUser) {
    EXPECT_COMMAND(GlobalDumpChargeSlipCommand(kPrintLine),
                   u"Clinical_Area..spEarCare_GlobalDumpChargeSlip '1','2','3','4','5','7'"_s);
}

TEST(ChargeCommands, PrintedLineOfAnAssessmentEndsInItsDepartment) {
    EXPECT_COMMAND(DumpChargeSlipCommand(kPrintLine),
                   u"Clinical_Area..spEarCare_DumpChargeSlip '1','2','3','5','6'"_s);
}

TEST(ChargeCommands, AssessmentTextsGoInAsTheyStand) {
    AssessmentLine line;
    line.patientName = u" O'BRIEN "_s;
    EXPECT_COMMAND(AssessmentCommand(line),
                   u"Clinical_Area..spEarCare_Assessment '',' O'BRIEN ','','','','','HC','','','','',''"_s);
    AssessmentPrintLine printed;
    printed.particular = u" MENIERE'S "_s;
    EXPECT_COMMAND(DumpChargeSlipCommand(printed),
                   u"Clinical_Area..spEarCare_DumpChargeSlip '',' MENIERE'S ','','',''"_s);
}

TEST(ChargeCommands, ItemsOfAPackage) {
    EXPECT_COMMAND(PackageCommand(u"PKG01"_s),
                   u"SELECT * FROM HEMODIALYSIS..tbhemopackage WHERE PackageCode = 'PKG01'"_s);
}

TEST(ChargeCommands, LinkOfAStockCardToItsPackage) {
    EXPECT_COMMAND(
        LinkStockCardCommand(u" PKG01 "_s, u"M0002"_s, u"5017"_s),
        u"UPDATE INVENTORY..tbInvStockCard SET PackageID = ' PKG01 ' WHERE ItemID = 'M0002' AND RefNum = "
        "'5017'"_s);
}
