#pragma once

#include "patients/PatientFrames.h"

/// The three load routines of the finder. Before the call gPatientType, gHospitalNumber and gIDNumber name
/// the pick; after it the finder is closed, whether the patient was found or not. A patient who is not found
/// leaves the waiting screen as it was, without a message. Each raises 91 or 94 where the patient master
/// lacks a member, 6 when the stay is too long for the counter of days, and what a failing command raises.

/// The boxes of a waiting screen that shows a patient to be charged.
struct ChargedPatientBoxes {
    const PatientNameBoxes& name;
    const HospitalInfoBoxes& info;
};

/// Fills the charge screen and the patient in hand. Answers whether he was found.
bool LoadForPost(const ChargedPatientBoxes& boxes);
/// Fills the charge list and the patient in hand, field for field as LoadForPost.
void LoadForList(const ChargedPatientBoxes& boxes);
/// Fills the ledger screen and what the ledger report needs.
void LoadForLedger(const SearchPatientBoxes& boxes);
