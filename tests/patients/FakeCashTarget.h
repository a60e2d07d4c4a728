#pragma once

#include "patients/CashTarget.h"
#include "patients/KeptBox.h"

/// An assessment that waits for the cash patient list and writes down what it is given.
class FakeCashTarget : public CashTarget, public Written {
  public:
    /// The patient type option that is on, -1 for none.
    int typeOn = -1;
    int enabled = 0;

    bool PatientTypeOn(int index) const override { return index == typeOn; }
    void EnableExams() override {
        ++enabled;
        order.push_back(QStringLiteral("fraExams"));
    }
    const CashPatientBoxes& Boxes() const override { return mBoxes; }

  private:
    KeptBox mName{QStringLiteral("txtSname"), *this};
    KeptBox mHospitalNumber{QStringLiteral("txtHospNum"), *this};
    KeptBox mIdNumber{QStringLiteral("txtIdnum"), *this};
    CashPatientBoxes mBoxes{.txtSname = &mName, .txtHospNum = &mHospitalNumber, .txtIdnum = &mIdNumber};
};
