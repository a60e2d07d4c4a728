#pragma once

#include <functional>

class QLineEdit;

/// The boxes of a cash patient; an assessment has them as its own.
struct CashPatientBoxes {
    QLineEdit* txtSname;
    QLineEdit* txtHospNum;
    QLineEdit* txtIdnum;
};

/// What the list of cash patients needs of the assessment that waits for it.
class CashTarget {
  public:
    virtual ~CashTarget() = default;

    /// Whether one of the patient type options is on: 0 in-patient, 1 out-patient, 2 walk-in.
    virtual bool PatientTypeOn(int index) const = 0;
    /// Lets lines be keyed.
    virtual void EnableExams() = 0;
    /// The boxes that tell whom the assessment is for.
    virtual const CashPatientBoxes& Boxes() const = 0;
};

/// Answers the waiting assessment, which a first touch creates.
using CashTargetSource = std::function<CashTarget&()>;

/// Enters the assessment as the screen that waits for a cash patient.
void RegisterCashTarget(CashTargetSource source);

/// The assessment. Raises 91 when none is entered.
CashTarget& WaitingCashTarget();
