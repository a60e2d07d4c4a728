#include "patients/commands.h"

#include "gateway/CommandText.h"

#include <QStringList>

QString GetPatientCommand(const QString& patientType, const QString& text) {
    return CommandText(u"Clinical_Area..spEarCare_GetPatient '{}','{}'", {patientType, text});
}

QString OutPatientCommand(const QString& idNumber) {
    return CommandText(u"select * from patient_data..tboutpatient where idnum = '{}'", {idNumber});
}

QString GetCashPatientCommand(const QString& text, const QString& kind) {
    // Kept: two blanks stand before the first quote; the text is what the server has always been sent.
    return CommandText(u"CLINICAL_AREA..spEarCare_GetCashPatient  '{}','{}'", {text, kind});
}

QString WalkInCommand(const QString& searchBy, const QString& text) {
    return CommandText(u"PATIENT_DATA..spGlobal_WalkIn '{}', '{}'", {searchBy, text});
}

QString EarCareAddCashPatientCommand(const WalkInEntry& entry) {
    return CommandText(
        u"CLINICAL_AREA..spEarCare_Add_CashPatient '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'",
        {entry.lastName, entry.firstName, entry.middleName, entry.street, entry.barangay, entry.townCode,
         entry.birthDate, entry.age, entry.sex, entry.civilStatusCode});
}

QString AddCashPatientCommand(const WalkInEntry& entry) {
    return CommandText(u"PATIENT_DATA..spAddCashPatient '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'",
                       {entry.lastName, entry.firstName, entry.middleName, entry.civilStatusCode, entry.sex,
                        entry.birthDate, entry.age, entry.street, entry.barangay, entry.townCode});
}

QString ListWalkInCommand(const QString& searchBy, const QString& text) {
    return CommandText(u"PATIENT_DATA..spGlobal_ListWalkIn '{}','{}'", {searchBy, text});
}

QString LoadWalkInCommand(const QString& hospitalNumber) {
    return CommandText(u"PATIENT_DATA..spGlobal_LoadWalkIn '{}'", {hospitalNumber});
}

QString UpdateWalkInCommand(const QString& hospitalNumber, const WalkInEntry& entry) {
    return CommandText(
        u"PATIENT_DATA..spGlobal_UpdateWalkIn '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'",
        {hospitalNumber, entry.lastName, entry.firstName, entry.middleName, entry.birthDate, entry.age,
         entry.sex, entry.civilStatusCode, entry.street, entry.barangay, entry.townCode});
}

QString RegisteredOPDCommand(const QString& current, const QString& kind, const QString& text) {
    // Kept: a blank stands before the last argument only.
    return CommandText(u"BILLING..spGlobal_RegisteredOPD '{}','{}', '{}'", {current, kind, text});
}

QString SearchBilledPatientCommand(const QString& patientType, const QString& text) {
    return CommandText(u"HEMODIALYSIS..spKidney_SearchPatient '{}','{}'", {patientType, text});
}
