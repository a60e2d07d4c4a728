#pragma once

#include <QString>

/// The command texts of the maintenance screens. Each argument goes in as it stands; nothing is escaped or
/// trimmed.

/// Lists the department's cash assessments of the patients whose last name begins with the text; an empty
/// text brings all.
QString AssessmentStatusCommand(const QString& lastName);

/// The lines that bear a reference number, with what a revoke needs of each.
QString LinesOfReferenceCommand(const QString& reference);

/// The lines that bear a reference number, whole, for the re-printed slip.
QString AssessmentSlipCommand(const QString& reference);

/// Revokes one line of an assessment. The reference is empty for a line that stands alone.
QString AssessRevokeCommand(const QString& assessmentNumber, const QString& reference,
                            const QString& revenueCode);

/// What the department has charged to an admission or visit.
///
/// Kept: the department is "HC" on a workstation of any department.
QString ListAllChargesCommand(const QString& hospitalNumber, const QString& idNumber);

/// What is left of an item on a slip.
QString VerifyChargesCommand(const QString& idNumber, const QString& itemID, const QString& slipNumber,
                             const QString& department);

/// The cancellation of one charge line of a service or a doctor's fee.
struct ChargeCancellation {
    QString hospitalNumber;
    QString idNumber;
    QString itemID;
    /// As the list shows it, its sign not changed.
    QString amount;
    QString quantity;
    /// "MM/DD/YYYY hh:mm:ss AM/PM".
    QString moment;
    QString department;
    QString userCode;
    /// "I" or "O".
    QString patientType;
    QString room;
    QString slipNumber;
};

/// Takes a charge line back.
QString UpdateChargingCommand(const ChargeCancellation& cancellation);

/// Tells the database that a slip is printed again.
QString ReprintChargeSlipCommand(const QString& slipNumber);

/// The unit's charges of an admission or visit.
QString ChargesByPatientCommand(const QString& idNumber);

/// One line of a slip's duplicate.
struct DuplicateLine {
    /// The revenue code and the item's code without anything between them.
    QString code;
    QString amount;
    QString quantity;
    QString revenueCode;
    QString description;
};

/// Writes a line of a slip's duplicate into the print table.
QString SaveDuplicateLineCommand(const DuplicateLine& line);

/// The user who entered a charge.
QString IssuerCommand(const QString& encoder);
