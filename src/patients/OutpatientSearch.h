#pragma once

#include "components/Ref.h"

#include <QString>

/// The search for one visit by its number, with the record of the last hit.
class OutpatientSearch {
  public:
    OutpatientSearch() = default;
    OutpatientSearch(const OutpatientSearch&) = delete;
    OutpatientSearch& operator=(const OutpatientSearch&) = delete;
    virtual ~OutpatientSearch() = default;

    /// Finds the visit, if need be by the clerk's choice, which then replaces the number. True on a hit.
    virtual bool ValidatePatient(QString& AdmNum) = 0;

    virtual QString IDNumber() const = 0;
    virtual QString HospitalNumber() const = 0;
    virtual QString LastName() const = 0;
    virtual QString FirstName() const = 0;
    virtual QString MiddleName() const = 0;
    virtual QString Company() const = 0;
};

/// Read by the slip duplicate. Kept: nothing sets it in this release, so its out-patient choice ends in 91.
inline Ref<OutpatientSearch> gOutpatientSearch;
