#pragma once

#include "components/clsPersonFinder.h"

/// The patient master over the hospital's own tables.
///
/// An admission or a visit that is opened answers for its room, station, accounts and doctors; a visit's room
/// is "OPD", class "A". A visit or an admission without a doctor answers empty texts for him.
class PersonFinder : public clsPersonFinder, private OutPatientVisit, private LoadablePatient {
  public:
    bool InitConnection(CommandGateway* connection, const QString& server) override;
    bool ValidateAdmission(QString& idNumber) override;
    const AdmissionRecord& Admission() const override { return mAdmission; }
    PatientClasses PatientClass() override { return {*this}; }

  private:
    bool OpenOutPatient(QString& idNumber, QString& hospitalNumber) override;
    Value AdmissionDate() const override { return mVisitDate; }
    Value dischargeDate() const override { return mDischargeDate; }
    LoadablePatient& Patient() override { return *this; }
    bool LoadPatient(QString& hospitalNumber) override;

    CommandGateway& Connection() const;

    CommandGateway* mConnection = nullptr;
    AdmissionRecord mAdmission;
    Value mVisitDate;
    Value mDischargeDate;
};
