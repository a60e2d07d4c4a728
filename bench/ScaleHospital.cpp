#include "ScaleHospital.h"

#include "KeptHospital.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFewAdmissions = 150;

Generator::HospitalSize SizeOf(int patients) {
    Generator::HospitalSize size;
    size.patients = patients;
    size.admissions = std::max(kFewAdmissions, patients / 10);
    size.visits = patients;
    size.walkIns = patients / 20;
    size.months = 12;
    size.slipsPerDay = std::max(1, patients / 960);
    size.assessments = patients / 50;
    return size;
}

/// Two hundred surnames are too few for a million patients: one that is keyed whole would have thousands of
/// hits. So most bear two, as many families do.
const QString& DoubleSurnames() {
    static const QString kCommand =
        u"UPDATE PATIENT_DATA..tbmaster SET LastName = CONCAT(LastName, '-', MiddleName) "
        "WHERE MiddleName <> '' AND LEN(LastName) + LEN(MiddleName) < 30"_s;
    return kCommand;
}

} // namespace

QString ScaleHospital(int patients) {
    return KeptHospital{u"scale-%1"_s.arg(patients), SizeOf(patients), {DoubleSurnames()}}.Path();
}
