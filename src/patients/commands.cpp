#include "patients/commands.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString GetPatientCommand(const QString& patientType, const QString& text) {
    return u"Clinical_Area..spEarCare_GetPatient '"_s + patientType + u"','"_s + text + u"'"_s;
}

QString OutPatientCommand(const QString& idNumber) {
    return u"select * from patient_data..tboutpatient where idnum = '"_s + idNumber + u"'"_s;
}

QString GetCashPatientCommand(const QString& text, const QString& kind) {
    // Kept: two blanks stand before the first quote; the text is what the server has always been sent.
    return u"CLINICAL_AREA..spEarCare_GetCashPatient  '"_s + text + u"','"_s + kind + u"'"_s;
}

QString WalkInCommand(const QString& searchBy, const QString& text) {
    return u"PATIENT_DATA..spGlobal_WalkIn '"_s + searchBy + u"', '"_s + text + u"'"_s;
}

QString EarCareAddCashPatientCommand(const WalkInEntry& entry) {
    const QStringList arguments = {entry.lastName, entry.firstName,      entry.middleName, entry.street,
                                   entry.barangay, entry.townCode,       entry.birthDate,  entry.age,
                                   entry.sex,      entry.civilStatusCode};
    return u"CLINICAL_AREA..spEarCare_Add_CashPatient '"_s + arguments.join(u"','"_s) + u"'"_s;
}

QString AddCashPatientCommand(const WalkInEntry& entry) {
    const QStringList arguments = {entry.lastName, entry.firstName, entry.middleName, entry.civilStatusCode,
                                   entry.sex,      entry.birthDate, entry.age,        entry.street,
                                   entry.barangay, entry.townCode};
    return u"PATIENT_DATA..spAddCashPatient '"_s + arguments.join(u"','"_s) + u"'"_s;
}
