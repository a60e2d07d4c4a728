#pragma once

namespace Generator {

constexpr int kDaysPerMonth = 30;

/// How large a generated hospital is. The values here are those of the trial hospital.
struct HospitalSize {
    int patients = 400;
    /// Admissions of all times, those of the patients who are in the hospital now included.
    int admissions = 150;
    /// In-patients who are in the hospital now; each takes a bed of its own.
    int inPatients = 60;
    int visits = 250;
    int walkIns = 25;
    /// Months of kDaysPerMonth days for which charges were posted.
    int months = 3;
    int slipsPerDay = 20;
    int assessments = 70;
    /// The wards' requests that still wait.
    int pendingRequests = 9;

    /// Those who come for dialysis as out-patients: three fifths of the visits are theirs, one a month each.
    constexpr int Regulars() const { return visits * 6 / 10 / months; }
};

/// Raises std::invalid_argument, which names the field, when no hospital can be made of that size.
void CheckSize(const HospitalSize& size);

} // namespace Generator
