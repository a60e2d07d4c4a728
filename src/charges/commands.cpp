#include "charges/commands.h"

#include "gateway/CommandText.h"

QString ChargeSlipCounterCommand() {
    return CommandText(u"Select * from Clinical_Area..tbEarCareChargeSlip");
}

QString ClearChargePrintCommand() {
    return CommandText(u"Delete Clinical_Area..tbEarCareChargePrint");
}

QString AppendChargingCommand(const ChargePosting& charge) {
    // Kept: two of the joints carry a blank; the text is what the server has always been sent.
    return CommandText(
        u"Clinical_Area..spEarCare_Append_Charging '{}','{}','{}','{}','D','{}','{}', '{}','{}','{}','{}','{}','{}', '{}','{}'",
        {charge.hospitalNumber, charge.admissionNumber, charge.moment, charge.department, charge.code,
         charge.quantity, charge.slipNumber, charge.amount, charge.userCode, charge.room,
         charge.requestingDoctorCode, charge.admittingDoctorName, charge.patientType, charge.particular});
}

QString SaveChargePrintCommand(const ChargePrintLine& line) {
    // Kept: the last argument is "O" for in-patients too.
    return CommandText(u"Clinical_Area..spEarCare_SaveChargePrint '{}','{}','{}','{}','{}', 'O'",
                       {line.code, line.amount, line.quantity, line.department, line.particular});
}

QString AssessmentCounterCommand() {
    return CommandText(u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum");
}

QString AssessmentCommand(const AssessmentLine& line) {
    // Kept: the department that assesses is the fixed "HC", whatever department the workstation is set up
    // for.
    return CommandText(
        u"Clinical_Area..spEarCare_Assessment '{}','{}','{}','{}','{}','{}','HC','{}','{}','{}','{}','{}'",
        {line.number, line.patientName, line.code, line.department, line.quantity, line.amount, line.userCode,
         line.hospitalNumber, line.visitNumber, line.requestingDoctorCode, line.requestingDoctorName});
}

QString GlobalDumpChargeSlipCommand(const AssessmentPrintLine& line) {
    return CommandText(u"Clinical_Area..spEarCare_GlobalDumpChargeSlip '{}','{}','{}','{}','{}','{}'",
                       {line.code, line.particular, line.quantity, line.price, line.amount, line.userCode});
}

QString DumpChargeSlipCommand(const AssessmentPrintLine& line) {
    return CommandText(u"Clinical_Area..spEarCare_DumpChargeSlip '{}','{}','{}','{}','{}'",
                       {line.code, line.particular, line.quantity, line.amount, line.department});
}

QString PackageCommand(const QString& packageCode) {
    return CommandText(u"SELECT * FROM HEMODIALYSIS..tbhemopackage WHERE PackageCode = '{}'", {packageCode});
}

QString LinkStockCardCommand(const QString& packageCode, const QString& itemID,
                             const QString& referenceNumber) {
    return CommandText(
        u"UPDATE INVENTORY..tbInvStockCard SET PackageID = '{}' WHERE ItemID = '{}' AND RefNum = '{}'",
        {packageCode, itemID, referenceNumber});
}
