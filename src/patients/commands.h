#pragma once

#include <QString>

/// The command texts of the patient screens. Each argument goes in as it stands; nothing is escaped or
/// trimmed.

/// Lists patients of a type ("I", "O") by the beginning of the last name or by number.
QString GetPatientCommand(const QString& patientType, const QString& text);

/// The out-patient visit with that number, for its doctors.
QString OutPatientCommand(const QString& idNumber);
