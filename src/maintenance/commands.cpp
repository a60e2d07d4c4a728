#include "maintenance/commands.h"

#include "gateway/CommandText.h"

QString AssessmentStatusCommand(const QString& lastName) {
    return CommandText(u"Clinical_Area..spEarCare_AssessmentStatus '1','{}'", {lastName});
}

QString LinesOfReferenceCommand(const QString& reference) {
    return CommandText(
        u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '{}'",
        {reference});
}

QString AssessmentSlipCommand(const QString& reference) {
    return CommandText(u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = '{}'", {reference});
}

QString AssessRevokeCommand(const QString& assessmentNumber, const QString& reference,
                            const QString& revenueCode) {
    return CommandText(u"Clinical_Area..spEarCare_AssessRevoke '{}','{}','{}'",
                       {assessmentNumber, reference, revenueCode});
}

QString ListAllChargesCommand(const QString& hospitalNumber, const QString& idNumber) {
    return CommandText(u"Clinical_Area..SpEarCare_List_AllCharges '{}','{}','HC'",
                       {hospitalNumber, idNumber});
}

QString VerifyChargesCommand(const QString& idNumber, const QString& itemID, const QString& slipNumber,
                             const QString& department) {
    return CommandText(u"Clinical_Area..spEarCare_VerifyCharges '{}','{}','{}','{}'",
                       {idNumber, itemID, slipNumber, department});
}

QString UpdateChargingCommand(const ChargeCancellation& cancellation) {
    // Kept: the last argument is the remark that nobody keys, and the database's name bears a capital R.
    return CommandText(
        u"Clinical_ARea..spEarCare_UpdateCharging '{}','{}','{}','{}','{}','{}','{}','{}','{}','C','{}','{}',''",
        {cancellation.hospitalNumber, cancellation.idNumber, cancellation.itemID, cancellation.amount,
         cancellation.quantity, cancellation.moment, cancellation.department, cancellation.userCode,
         cancellation.patientType, cancellation.room, cancellation.slipNumber});
}

QString ReprintChargeSlipCommand(const QString& slipNumber) {
    return CommandText(u"Clinical_Area..spEarCare_ReprintChargeSlip '{}'", {slipNumber});
}

QString ChargesByPatientCommand(const QString& idNumber) {
    return CommandText(u"Hemodialysis..spKidney_ChargesbyPatient '{}'", {idNumber});
}

QString SaveDuplicateLineCommand(const DuplicateLine& line) {
    return CommandText(u"Hemodialysis..spKidney_SaveChargePrint '{}','{}','{}','{}','{}'",
                       {line.code, line.amount, line.quantity, line.revenueCode, line.description});
}

QString IssuerCommand(const QString& encoder) {
    return CommandText(u"Select * from PASSWORD..tbPasswordMain where EmployeeID = '{}'", {encoder});
}
