#include "maintenance/commands.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// The arguments between single quotes, as they stand.
QString Quoted(const QStringList& arguments) {
    return u'\'' + arguments.join("','"_L1) + u'\'';
}

} // namespace

QString AssessmentStatusCommand(const QString& lastName) {
    return u"Clinical_Area..spEarCare_AssessmentStatus '1','"_s + lastName + u"'"_s;
}

QString LinesOfReferenceCommand(const QString& reference) {
    return u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '"_s +
           reference + u"'"_s;
}

QString AssessmentSlipCommand(const QString& reference) {
    return u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = '"_s + reference + u"'"_s;
}

QString AssessRevokeCommand(const QString& assessmentNumber, const QString& reference,
                            const QString& revenueCode) {
    return u"Clinical_Area..spEarCare_AssessRevoke '"_s + assessmentNumber + u"','"_s + reference + u"','"_s +
           revenueCode + u"'"_s;
}

QString ListAllChargesCommand(const QString& hospitalNumber, const QString& idNumber) {
    return u"Clinical_Area..SpEarCare_List_AllCharges "_s + Quoted({hospitalNumber, idNumber, u"HC"_s});
}

QString VerifyChargesCommand(const QString& idNumber, const QString& itemID, const QString& slipNumber,
                             const QString& department) {
    return u"Clinical_Area..spEarCare_VerifyCharges "_s + Quoted({idNumber, itemID, slipNumber, department});
}

QString UpdateChargingCommand(const ChargeCancellation& cancellation) {
    // Kept: the last argument is the remark that nobody keys, and the database's name bears a capital R.
    return u"Clinical_ARea..spEarCare_UpdateCharging "_s +
           Quoted({cancellation.hospitalNumber, cancellation.idNumber, cancellation.itemID,
                   cancellation.amount, cancellation.quantity, cancellation.moment, cancellation.department,
                   cancellation.userCode, cancellation.patientType, u"C"_s, cancellation.room,
                   cancellation.slipNumber, QString()});
}

QString ReprintChargeSlipCommand(const QString& slipNumber) {
    return u"Clinical_Area..spEarCare_ReprintChargeSlip "_s + Quoted({slipNumber});
}

QString ChargesByPatientCommand(const QString& idNumber) {
    return u"Hemodialysis..spKidney_ChargesbyPatient "_s + Quoted({idNumber});
}

QString EmptyChargePrintCommand() {
    return u"delete Clinical_Area..tbEarCareChargePrint"_s;
}

QString SaveDuplicateLineCommand(const DuplicateLine& line) {
    return u"Hemodialysis..spKidney_SaveChargePrint "_s +
           Quoted({line.code, line.amount, line.quantity, line.revenueCode, line.description});
}

QString IssuerCommand(const QString& encoder) {
    return u"Select * from PASSWORD..tbPasswordMain where EmployeeID = '"_s + encoder + u"'"_s;
}
