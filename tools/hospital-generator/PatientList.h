#pragma once

#include "Catalogue.h"
#include "HospitalSize.h"
#include "Moment.h"
#include "Prng.h"

#include <QString>

#include <optional>
#include <vector>

namespace Generator {

/// A person of the patient master, or a walk-in.
struct Person {
    QString hospNum;
    QString lastName;
    QString firstName;
    QString middleName;
    bool male = false;
    QDate birthDate;
    QString civilStatus;
    QString street;
    QString barangay;
    QString zipCode;
    QString accountNum;

    /// "LAST, FIRST MIDDLE".
    QString Name() const;
    /// Whole years on the day that stands for today.
    int Age() const;
};

/// One admission of an in-patient or one visit of an out-patient.
struct Episode {
    QString idNum;
    size_t person = 0;
    bool inPatient = false;
    Moment admitted;
    std::optional<Moment> discharged;
    std::optional<Moment> billed;
    /// In-patients only: index into the catalogue's rooms.
    size_t room = 0;
    QString company;
    /// Indexes into the catalogue's doctors; -1 for none.
    int doctor1 = 0;
    int doctor2 = -1;
    int doctor3 = -1;
    /// Comes for dialysis three times a week: on the first, third and fifth day (0) or on the others (1).
    bool dialysis = false;
    int shift = 0;
};

/// Everybody whom the hospital has on file.
struct PatientList {
    std::vector<Person> persons;
    /// In the order of their numbers, which is the order of admission.
    std::vector<Episode> admissions;
    std::vector<Episode> visits;
    std::vector<Person> walkIns;
    /// When each walk-in was registered.
    std::vector<Moment> registered;
};

PatientList MakePatientList(const HospitalSize& size, const Catalogue& catalogue, Prng& prng);

} // namespace Generator
