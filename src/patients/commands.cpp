#include "patients/commands.h"

using namespace Qt::StringLiterals;

QString GetPatientCommand(const QString& patientType, const QString& text) {
    return u"Clinical_Area..spEarCare_GetPatient '"_s + patientType + u"','"_s + text + u"'"_s;
}

QString OutPatientCommand(const QString& idNumber) {
    return u"select * from patient_data..tboutpatient where idnum = '"_s + idNumber + u"'"_s;
}
