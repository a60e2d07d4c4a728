#pragma once

#include <QString>

#include <functional>

/// What the list of cash patients needs of the assessment that waits for it.
class CashTarget {
  public:
    virtual ~CashTarget() = default;

    /// Whether one of the patient type options is on: 0 in-patient, 1 out-patient, 2 walk-in.
    virtual bool PatientTypeOn(int index) const = 0;
    /// Lets lines be keyed.
    virtual void EnableExams() = 0;
    /// Fills one of the assessment's boxes by its name. Raises 91 for a name that it does not have.
    virtual void SetBox(const QString& name, const QString& text) = 0;
};

/// Answers the waiting assessment, which a first touch creates.
using CashTargetSource = std::function<CashTarget&()>;

/// Enters the assessment as the screen that waits for a cash patient.
void RegisterCashTarget(CashTargetSource source);

/// The assessment. Raises 91 when none is entered.
CashTarget& WaitingCashTarget();
