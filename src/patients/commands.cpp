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

QString ListWalkInCommand(const QString& searchBy, const QString& text) {
    return u"PATIENT_DATA..spGlobal_ListWalkIn '"_s + searchBy + u"','"_s + text + u"'"_s;
}

QString LoadWalkInCommand(const QString& hospitalNumber) {
    return u"PATIENT_DATA..spGlobal_LoadWalkIn '"_s + hospitalNumber + u"'"_s;
}

QString UpdateWalkInCommand(const QString& hospitalNumber, const WalkInEntry& entry) {
    const QStringList arguments = {hospitalNumber,  entry.lastName, entry.firstName, entry.middleName,
                                   entry.birthDate, entry.age,      entry.sex,       entry.civilStatusCode,
                                   entry.street,    entry.barangay, entry.townCode};
    return u"PATIENT_DATA..spGlobal_UpdateWalkIn '"_s + arguments.join(u"','"_s) + u"'"_s;
}

QString RegisteredOPDCommand(const QString& current, const QString& kind, const QString& text) {
    // Kept: a blank stands before the last argument only.
    return u"BILLING..spGlobal_RegisteredOPD '"_s + current + u"','"_s + kind + u"', '"_s + text + u"'"_s;
}

QString SearchBilledPatientCommand(const QString& patientType, const QString& text) {
    return u"HEMODIALYSIS..spKidney_SearchPatient '"_s + patientType + u"','"_s + text + u"'"_s;
}
