#include "charges/commands.h"

using namespace Qt::StringLiterals;

QString ChargeSlipCounterCommand() {
    return u"Select * from Clinical_Area..tbEarCareChargeSlip"_s;
}

QString ClearChargePrintCommand() {
    return u"Delete Clinical_Area..tbEarCareChargePrint"_s;
}

QString AppendChargingCommand(const ChargePosting& charge) {
    // Kept: two of the joints carry a blank; the text is what the server has always been sent.
    return u"Clinical_Area..spEarCare_Append_Charging '"_s + charge.hospitalNumber + u"','"_s +
           charge.admissionNumber + u"','"_s + charge.moment + u"','"_s + charge.department + u"','"_s +
           u"D"_s + u"','"_s + charge.code + u"','"_s + charge.quantity + u"', '"_s + charge.slipNumber +
           u"','"_s + charge.amount + u"','"_s + charge.userCode + u"','"_s + charge.room + u"','"_s +
           charge.requestingDoctorCode + u"','"_s + charge.admittingDoctorName + u"', '"_s +
           charge.patientType + u"','"_s + charge.particular + u"'"_s;
}

QString SaveChargePrintCommand(const ChargePrintLine& line) {
    // Kept: the last argument is "O" for in-patients too.
    return u"Clinical_Area..spEarCare_SaveChargePrint '"_s + line.code + u"','"_s + line.amount + u"','"_s +
           line.quantity + u"','"_s + line.department + u"','"_s + line.particular + u"', '"_s + u"O"_s +
           u"'"_s;
}

QString AssessmentCounterCommand() {
    return u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s;
}

QString AssessmentCommand(const AssessmentLine& line) {
    // Kept: the department that assesses is the fixed "HC", whatever department the workstation is set up
    // for.
    return u"Clinical_Area..spEarCare_Assessment '"_s + line.number + u"','"_s + line.patientName + u"','"_s +
           line.code + u"','"_s + line.department + u"','"_s + line.quantity + u"','"_s + line.amount +
           u"','"_s + u"HC"_s + u"','"_s + line.userCode + u"','"_s + line.hospitalNumber + u"','"_s +
           line.visitNumber + u"','"_s + line.requestingDoctorCode + u"','"_s + line.requestingDoctorName +
           u"'"_s;
}

QString ClearAssessmentPrintCommand() {
    // Kept: the same table as a posting empties, with a small "delete"; the text is what the server has
    // always been sent.
    return u"delete Clinical_Area..tbEarCareChargePrint"_s;
}

QString GlobalDumpChargeSlipCommand(const AssessmentPrintLine& line) {
    return u"Clinical_Area..spEarCare_GlobalDumpChargeSlip '"_s + line.code + u"','"_s + line.particular +
           u"','"_s + line.quantity + u"','"_s + line.price + u"','"_s + line.amount + u"','"_s +
           line.userCode + u"'"_s;
}

QString DumpChargeSlipCommand(const AssessmentPrintLine& line) {
    return u"Clinical_Area..spEarCare_DumpChargeSlip '"_s + line.code + u"','"_s + line.particular +
           u"','"_s + line.quantity + u"','"_s + line.amount + u"','"_s + line.department + u"'"_s;
}

QString PackageCommand(const QString& packageCode) {
    return u"SELECT * FROM HEMODIALYSIS..tbhemopackage WHERE PackageCode = '"_s + packageCode + u"'"_s;
}

QString LinkStockCardCommand(const QString& packageCode, const QString& itemID,
                             const QString& referenceNumber) {
    return u"UPDATE INVENTORY..tbInvStockCard "_s + u"SET PackageID = '"_s + packageCode + u"'"_s +
           u" WHERE ItemID = '"_s + itemID + u"' AND RefNum = '"_s + referenceNumber + u"'"_s;
}
