#pragma once

#include "components/Component.h"
#include "components/Ref.h"
#include "gateway/Value.h"

#include <QString>

class CommandGateway;

struct StationRecord {
    Value Description;
};

struct RoomRecord {
    Value RoomID;
    /// The letter that selects a rate column.
    Value roomclassid;
    Ref<StationRecord> Station;
};

struct DoctorRecord {
    Value completename;
    Value Code;
};

struct AccountRecord {
    Value AccountNumber;
    Value Company;
};

struct PatientRecord {
    Value LastName;
    Value FirstName;
    Value MiddleName;
    Value Sex;
    Value BirthDate;
    Value Age;
    Value HospitalNumber;
    Ref<AccountRecord> Account;
};

/// An admission; after OpenOutPatient and LoadPatient it answers for the visit in the same words.
struct AdmissionRecord {
    Value IDNumber;
    Value HospitalNumber;
    Value AdmissionDate;
    Value Age;
    Ref<PatientRecord> Patient;
    Ref<AccountRecord> Account;
    Ref<RoomRecord> Room;
    Ref<DoctorRecord> AttendingDoctor1;
    Ref<DoctorRecord> AttendingDoctor2;
};

/// The person of a visit. Its fields are filled by LoadPatient.
struct LoadablePatient : PatientRecord {
    virtual ~LoadablePatient() = default;
    /// Loads the patient with that hospital number. True when there is one.
    virtual bool LoadPatient(QString& hospitalNumber) = 0;
};

/// The out-patient visit in hand.
class OutPatientVisit {
  public:
    virtual ~OutPatientVisit() = default;

    /// Opens a visit by its number and the patient's. True when there is one; both arguments then hold the
    /// numbers as the record has them.
    virtual bool OpenOutPatient(QString& idNumber, QString& hospitalNumber) = 0;
    virtual Value AdmissionDate() const = 0;
    /// Date 0 for a visit without a discharge.
    virtual Value dischargeDate() const = 0;
    virtual LoadablePatient& Patient() = 0;
};

/// The ways in to patients that are not admitted.
struct PatientClasses {
    OutPatientVisit& clsOutPatient;
};

/// The patient master, PersonFinderLib.clsPersonFinder. It holds the one patient being opened; a member that
/// the record lacks is an unset reference or Null, and reading through it raises 91 or 94.
class clsPersonFinder : public Component {
  public:
    /// Takes the connection and the name of a remote server. False when the connection cannot be used.
    virtual bool InitConnection(CommandGateway* connection, const QString& server) = 0;
    /// Opens an in-patient admission by its number, which then holds the number as the record has it. True
    /// when there is one.
    virtual bool ValidateAdmission(QString& idNumber) = 0;
    virtual const AdmissionRecord& Admission() const = 0;
    virtual PatientClasses PatientClass() = 0;
};
