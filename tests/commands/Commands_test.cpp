#include "catalogue/commands.h"
#include "charges/commands.h"
#include "maintenance/commands.h"
#include "nursing/commands.h"
#include "patients/commands.h"
#include "reports/commands.h"
#include "shell/commands.h"
#include "support/golden/GoldenCommands.h"
#include "support/PrintQt.h"
#include "treatment/commands.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gmock/gmock.h>
#include <set>

using namespace Qt::StringLiterals;

namespace {

using Composer = QString (*)(const ArgumentOf& of);

WalkInEntry WalkInOf(const ArgumentOf& of) {
    return {.lastName = of("lastName"),
            .firstName = of("firstName"),
            .middleName = of("middleName"),
            .street = of("street"),
            .barangay = of("barangay"),
            .townCode = of("townCode"),
            .birthDate = of("birthDate"),
            .age = of("age"),
            .sex = of("sex"),
            .civilStatusCode = of("civilStatusCode")};
}

AssessmentPrintLine PrintLineOf(const ArgumentOf& of) {
    return {.code = of("code"),
            .particular = of("particular"),
            .quantity = of("quantity"),
            .price = of("price"),
            .amount = of("amount"),
            .department = of("department"),
            .userCode = of("userCode")};
}

QString PostingOf(const ArgumentOf& of) {
    return AppendChargingCommand({.hospitalNumber = of("hospitalNumber"),
                                  .admissionNumber = of("admissionNumber"),
                                  .moment = of("moment"),
                                  .department = of("department"),
                                  .code = of("code"),
                                  .quantity = of("quantity"),
                                  .slipNumber = of("slipNumber"),
                                  .amount = of("amount"),
                                  .userCode = of("userCode"),
                                  .room = of("room"),
                                  .requestingDoctorCode = of("requestingDoctorCode"),
                                  .admittingDoctorName = of("admittingDoctorName"),
                                  .patientType = of("patientType"),
                                  .particular = of("particular")});
}

QString AssessmentOf(const ArgumentOf& of) {
    return AssessmentCommand({.number = of("number"),
                              .patientName = of("patientName"),
                              .code = of("code"),
                              .department = of("department"),
                              .quantity = of("quantity"),
                              .amount = of("amount"),
                              .userCode = of("userCode"),
                              .hospitalNumber = of("hospitalNumber"),
                              .visitNumber = of("visitNumber"),
                              .requestingDoctorCode = of("requestingDoctorCode"),
                              .requestingDoctorName = of("requestingDoctorName")});
}

QString CancellationOf(const ArgumentOf& of) {
    return UpdateChargingCommand({.hospitalNumber = of("hospitalNumber"),
                                  .idNumber = of("idNumber"),
                                  .itemID = of("itemID"),
                                  .amount = of("amount"),
                                  .quantity = of("quantity"),
                                  .moment = of("moment"),
                                  .department = of("department"),
                                  .userCode = of("userCode"),
                                  .patientType = of("patientType"),
                                  .room = of("room"),
                                  .slipNumber = of("slipNumber")});
}

/// Every command with its arguments by name.
const std::map<std::string, Composer> kComposers = {
    {"GetPatientCommand", [](auto& of) { return GetPatientCommand(of("patientType"), of("text")); }},
    {"OutPatientCommand", [](auto& of) { return OutPatientCommand(of("idNumber")); }},
    {"GetCashPatientCommand", [](auto& of) { return GetCashPatientCommand(of("text"), of("kind")); }},
    {"WalkInCommand", [](auto& of) { return WalkInCommand(of("searchBy"), of("text")); }},
    {"EarCareAddCashPatientCommand", [](auto& of) { return EarCareAddCashPatientCommand(WalkInOf(of)); }},
    {"AddCashPatientCommand", [](auto& of) { return AddCashPatientCommand(WalkInOf(of)); }},
    {"ListWalkInCommand", [](auto& of) { return ListWalkInCommand(of("searchBy"), of("text")); }},
    {"LoadWalkInCommand", [](auto& of) { return LoadWalkInCommand(of("hospitalNumber")); }},
    {"UpdateWalkInCommand", [](auto& of) { return UpdateWalkInCommand(of("hospitalNumber"), WalkInOf(of)); }},
    {"RegisteredOPDCommand",
     [](auto& of) { return RegisteredOPDCommand(of("current"), of("kind"), of("text")); }},
    {"SearchBilledPatientCommand",
     [](auto& of) { return SearchBilledPatientCommand(of("patientType"), of("text")); }},
    {"ExactRevenueCommand", [](auto& of) { return ExactRevenueCommand(of("code")); }},
    {"PartialRevenueCommand", [](auto& of) { return PartialRevenueCommand(of("text")); }},
    {"RevenueListQuery", [](auto&) { return RevenueListQuery(); }},
    {"RatesCommand", [](auto& of) { return RatesCommand(of("revenueID")); }},
    {"UltraExamsCommand", [](auto&) { return UltraExamsCommand(); }},
    {"SearchUltraExamCommand", [](auto& of) { return SearchUltraExamCommand(of("text")); }},
    {"ChargeSlipCounterCommand", [](auto&) { return ChargeSlipCounterCommand(); }},
    {"ClearChargePrintCommand", [](auto&) { return ClearChargePrintCommand(); }},
    {"AppendChargingCommand", PostingOf},
    {"SaveChargePrintCommand",
     [](auto& of) {
         return SaveChargePrintCommand({.code = of("code"),
                                        .amount = of("amount"),
                                        .quantity = of("quantity"),
                                        .department = of("department"),
                                        .particular = of("particular")});
     }},
    {"AssessmentCounterCommand", [](auto&) { return AssessmentCounterCommand(); }},
    {"AssessmentCommand", AssessmentOf},
    {"GlobalDumpChargeSlipCommand", [](auto& of) { return GlobalDumpChargeSlipCommand(PrintLineOf(of)); }},
    {"DumpChargeSlipCommand", [](auto& of) { return DumpChargeSlipCommand(PrintLineOf(of)); }},
    {"PackageCommand", [](auto& of) { return PackageCommand(of("packageCode")); }},
    {"LinkStockCardCommand",
     [](auto& of) { return LinkStockCardCommand(of("packageCode"), of("itemID"), of("referenceNumber")); }},
    {"EmptyChargePrintCommand", [](auto&) { return EmptyChargePrintCommand(); }},
    {"AssessmentStatusCommand", [](auto& of) { return AssessmentStatusCommand(of("lastName")); }},
    {"LinesOfReferenceCommand", [](auto& of) { return LinesOfReferenceCommand(of("reference")); }},
    {"AssessmentSlipCommand", [](auto& of) { return AssessmentSlipCommand(of("reference")); }},
    {"AssessRevokeCommand",
     [](auto& of) {
         return AssessRevokeCommand(of("assessmentNumber"), of("reference"), of("revenueCode"));
     }},
    {"ListAllChargesCommand",
     [](auto& of) { return ListAllChargesCommand(of("hospitalNumber"), of("idNumber")); }},
    {"VerifyChargesCommand",
     [](auto& of) {
         return VerifyChargesCommand(of("idNumber"), of("itemID"), of("slipNumber"), of("department"));
     }},
    {"UpdateChargingCommand", CancellationOf},
    {"ReprintChargeSlipCommand", [](auto& of) { return ReprintChargeSlipCommand(of("slipNumber")); }},
    {"ChargesByPatientCommand", [](auto& of) { return ChargesByPatientCommand(of("idNumber")); }},
    {"SaveDuplicateLineCommand",
     [](auto& of) {
         return SaveDuplicateLineCommand({.code = of("code"),
                                          .amount = of("amount"),
                                          .quantity = of("quantity"),
                                          .revenueCode = of("revenueCode"),
                                          .description = of("description")});
     }},
    {"IssuerCommand", [](auto& of) { return IssuerCommand(of("encoder")); }},
    {"NurseRequestCommand", [](auto&) { return NurseRequestCommand(); }},
    {"RoomClassCommand", [](auto& of) { return RoomClassCommand(of("roomId")); }},
    {"LoadExamCommand", [](auto& of) { return LoadExamCommand(of("idNum")); }},
    {"RevokeNurseRequestCommand",
     [](auto& of) { return RevokeNurseRequestCommand(of("requestNumber"), of("employeeCode")); }},
    {"CheckPendingCommand", [](auto&) { return CheckPendingCommand(); }},
    {"SaveTreatmentRecordCommand",
     [](auto& of) {
         return SaveTreatmentRecordCommand({of("first"), of("second"), of("third")});
     }},
    {"TreatmentRecordCommand",
     [](auto& of) { return TreatmentRecordCommand(of("idNum"), of("requestNum")); }},
    {"HospitalRecordCommand", [](auto&) { return HospitalRecordCommand(); }},
};

/// The functions that the rooms declare in their commands.h.
std::set<std::string> Declared() {
    static const QRegularExpression function(u"^QString (\\w+)\\("_s, QRegularExpression::MultilineOption);
    std::set<std::string> names;
    QDirIterator headers(u"" TARVEN_SOURCE_DIR "/src"_s, {u"commands.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile header(headers.next());
        EXPECT_TRUE(header.open(QIODevice::ReadOnly));
        auto functions = function.globalMatch(QString::fromUtf8(header.readAll()));
        while (functions.hasNext())
            names.insert(functions.next().captured(1).toStdString());
    }
    return names;
}

template <class Second> std::set<std::string> NamesOf(const std::map<std::string, Second>& table) {
    std::set<std::string> names;
    for (const auto& [name, second] : table)
        names.insert(name);
    return names;
}

class Commands : public testing::TestWithParam<std::pair<const std::string, Composer>> {};

} // namespace

TEST_P(Commands, AreTheGoldenTexts) {
    const auto golden = GoldenCommands().find(GetParam().first);
    ASSERT_NE(golden, GoldenCommands().end());
    for (const ArgumentOf& argument : GoldenArguments())
        EXPECT_EQ(GetParam().second(argument), WithArguments(golden->second, argument));
}

INSTANTIATE_TEST_SUITE_P(All, Commands, testing::ValuesIn(kComposers),
                         [](const auto& command) { return command.param.first; });

TEST(CommandTable, HasEveryCommandOfTheRooms) {
    EXPECT_EQ(NamesOf(kComposers), Declared());
    EXPECT_EQ(NamesOf(GoldenCommands()), Declared());
}
