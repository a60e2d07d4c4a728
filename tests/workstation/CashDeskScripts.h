#pragma once

#include <QString>

class Driver;

// The work of the cash desk.

/// Opens the assessment with "Walk-In Patient" on and the name's box reached.
void OpenForWalkIn(Driver& clerk);

/// Opens the registration of a walk-in out of the assessment; its first box has the focus.
void OpenRegistration(Driver& clerk);
/// Saves a registration whose names are keyed; tells the age.
void FinishRegistration(Driver& clerk);

/// Looks assessments up by a name in the list of their status; the list has the focus.
void FindAssessments(Driver& clerk, const QString& name);

/// Registers a walk-in from the assessment's list, keys five lines, a package and a doctor's fee among them,
/// and prints the slip.
void NewWalkInAssessment(Driver& clerk);
/// Finds that walk-in's assessment, prints it again and revokes it.
void AssessmentStatusAndRevoke(Driver& clerk);
/// Saves an assessment of a name with an apostrophe.
void AssessmentOfAnApostrophe(Driver& clerk);
