#include "HospitalSize.h"

#include <stdexcept>
#include <string>

namespace Generator {

namespace {

/// So many surnames must be on file among the regular patients and among the in-patients.
constexpr int kNamedPatients = 7;

void CheckAtLeast(const char* field, int value, int least) {
    if (value < least)
        throw std::invalid_argument("HospitalSize::" + std::string(field) + " is " + std::to_string(value) +
                                    ", and must be at least " + std::to_string(least));
}

} // namespace

void CheckSize(const HospitalSize& size) {
    CheckAtLeast("months", size.months, 1);
    // The fewest visits of which three fifths give every named regular patient one a month.
    CheckAtLeast("visits", size.visits, (kNamedPatients * size.months * 10 + 5) / 6);
    CheckAtLeast("inPatients", size.inPatients, kNamedPatients);
    CheckAtLeast("admissions", size.admissions, size.inPatients);
    // Single visits and past admissions are somebody's who is neither a regular patient nor in the hospital
    // now.
    CheckAtLeast("patients", size.patients, size.Regulars() + size.inPatients + 1);
    CheckAtLeast("walkIns", size.walkIns, 0);
    CheckAtLeast("slipsPerDay", size.slipsPerDay, 0);
    CheckAtLeast("assessments", size.assessments, 0);
    CheckAtLeast("pendingRequests", size.pendingRequests, 0);
}

} // namespace Generator
