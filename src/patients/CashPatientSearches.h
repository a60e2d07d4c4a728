#pragma once

#include "components/clsPersonFinder.h"
#include "gateway/Value.h"

#include <QString>

// The two searches that frmCashPatients asks for patients who are not walk-ins.

/// Looks among out-patients for the caller of frmCashPatients.
class VisitByText {
  public:
    virtual ~VisitByText() = default;
    /// True when the text names an out-patient.
    virtual bool ValidatePatient(const QString& text) = 0;
    virtual Value IDNumber() const = 0;
};

/// Looks among admissions for the caller of frmCashPatients.
class AdmissionByText {
  public:
    virtual ~AdmissionByText() = default;
    /// True when the text names an admission.
    virtual bool ValidateAdmission(const QString& text, const QString& hospitalNumber) = 0;
    virtual const AdmissionRecord& Admission() const = 0;
};
