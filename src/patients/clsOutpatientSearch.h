#pragma once

#include "patients/OutpatientSearch.h"

#include <QString>

class RowSet;

/// Finds one out-patient visit by its number and holds the record of the last hit. Where the number does not
/// settle on one visit the clerk chooses from frmRegisteredOPD. Kept: nothing in this release makes one.
class clsOutpatientSearch : public OutpatientSearch {
  public:
    /// A number that is on file more than once or not at all opens the list. A search without a hit leaves
    /// the record as it was. Raises 3021 when the choice is no longer on file.
    bool ValidatePatient(QString& AdmNum) override;

    QString IDNumber() const override { return mIDNumber; }
    QString HospitalNumber() const override { return mHospitalNumber; }
    QString LastName() const override { return mLastName; }
    QString FirstName() const override { return mFirstName; }
    QString MiddleName() const override { return mMiddleName; }
    /// Empty for a patient without an account.
    QString AccountNum() const { return mAccountNum; }
    QString Company() const override { return mCompany; }
    /// "mm/dd/yyyy".
    QString AdmDate() const { return mAdmDate; }
    /// "hh:mmAM/PM".
    QString AdmTime() const { return mAdmTime; }
    /// Empty while the visit is open, in the form of AdmDate otherwise.
    QString DcrDate() const { return mDcrDate; }
    QString DcrTime() const { return mDcrTime; }
    /// Empty while the account is open.
    QString BillingDate() const { return mBillingDate; }
    /// "1" where the record has none.
    QString CivilStatus() const { return mCivilStatus; }
    QString Sex() const { return mSex; }
    QString BirthDate() const { return mBirthDate; }
    QString Age() const { return mAge; }
    QString HouseStreet() const { return mHouseStreet; }
    QString Barangay() const { return mBarangay; }
    QString Town() const { return mTown; }
    QString Province() const { return mProvince; }

  private:
    void TakeVisit(const RowSet& visits);
    void TakePerson(const RowSet& visits);

    QString mIDNumber;
    QString mHospitalNumber;
    QString mLastName;
    QString mFirstName;
    QString mMiddleName;
    QString mAccountNum;
    QString mCompany;
    QString mAdmDate;
    QString mAdmTime;
    QString mDcrDate;
    QString mDcrTime;
    QString mBillingDate;
    QString mCivilStatus;
    QString mSex;
    QString mBirthDate;
    QString mAge;
    QString mHouseStreet;
    QString mBarangay;
    QString mTown;
    QString mProvince;
};
