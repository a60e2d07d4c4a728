#pragma once

#include <QString>

/// The command texts of the patient screens. Each argument goes in as it stands; nothing is escaped or
/// trimmed.

/// Lists patients of a type ("I", "O") by the beginning of the last name or by number.
QString GetPatientCommand(const QString& patientType, const QString& text);

/// The out-patient visit with that number, for its doctors.
QString OutPatientCommand(const QString& idNumber);

/// Lists who may pay cash by the beginning of the last name or by number: in-patients ("1"), out-patients
/// ("2"), walk-ins ("3").
QString GetCashPatientCommand(const QString& text, const QString& kind);

/// Lists walk-ins by last name ("0") or by number ("1").
QString WalkInCommand(const QString& searchBy, const QString& text);

/// What is known of a walk-in at the registration. Any field may be empty.
struct WalkInEntry {
    QString lastName;
    QString firstName;
    QString middleName;
    /// Street or house number.
    QString street;
    QString barangay;
    /// The code of the town in the list of addresses.
    QString townCode;
    /// "mm/dd/yyyy".
    QString birthDate;
    QString age;
    /// "M" or "F".
    QString sex;
    QString civilStatusCode;
};
/// Registers a walk-in from the entry screen in use.
QString EarCareAddCashPatientCommand(const WalkInEntry& entry);
/// Registers a walk-in from the older entry screen, which sends the same facts in another order.
QString AddCashPatientCommand(const WalkInEntry& entry);

/// Lists walk-ins by last name ("0") or by hospital number ("1") for the correction of their records.
QString ListWalkInCommand(const QString& searchBy, const QString& text);
/// The record of one walk-in.
QString LoadWalkInCommand(const QString& hospitalNumber);
/// Corrects the record of a walk-in.
QString UpdateWalkInCommand(const QString& hospitalNumber, const WalkInEntry& entry);

/// Lists out-patient visits: the current ones alone ("1") or all ("0"), by last name ("0") or by admission
/// number ("1").
QString RegisteredOPDCommand(const QString& current, const QString& kind, const QString& text);

/// Lists the patients of a type who have a billing record.
QString SearchBilledPatientCommand(const QString& patientType, const QString& text);
