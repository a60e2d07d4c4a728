#include "maintenance/commands.h"

using namespace Qt::StringLiterals;

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
