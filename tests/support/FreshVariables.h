#pragma once

/// Brings the variables that the whole program shares back to what a fresh process has.
void ResetShared();

/// Brings the patient in hand back to what a fresh process has.
void ResetPatientContext();
