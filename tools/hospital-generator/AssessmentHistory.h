#pragma once

#include "Catalogue.h"
#include "InsertWriter.h"
#include "PatientList.h"
#include "Prng.h"

namespace Generator {

/// Writes the cash assessments of the hospital's months, in the order of their numbers: open ones, paid ones
/// with their receipts, revoked ones, and a few single lines without a number. Returns the number for the
/// next one.
int WriteAssessments(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients,
                     Prng& prng, InsertWriter& writer);

} // namespace Generator
