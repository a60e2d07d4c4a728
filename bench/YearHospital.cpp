#include "YearHospital.h"

#include "KeptHospital.h"

using namespace Qt::StringLiterals;

namespace {

/// About nine hundred treatments on each day that the unit is open.
Generator::HospitalSize BusyUnit() {
    Generator::HospitalSize size;
    size.patients = 20000;
    size.admissions = 6000;
    size.visits = 44000;
    size.months = 12;
    size.slipsPerDay = 1040;
    size.assessments = 20000;
    return size;
}

} // namespace

QString YearHospital() {
    return KeptHospital{u"busy-year"_s, BusyUnit()}.Path();
}
