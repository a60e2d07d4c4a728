#pragma once

#include <QString>

/// The command texts of the charge screens. Each argument goes in as it stands; nothing is escaped or
/// trimmed.

/// The charge slip counter.
QString ChargeSlipCounterCommand();
/// Empties the print table, which all workstations share, for a posting.
QString ClearChargePrintCommand();

/// One charge as it is posted to the patient's account.
struct ChargePosting {
    QString hospitalNumber;
    QString admissionNumber;
    /// "MM/DD/YYYY hh:mm:ss AM/PM".
    QString moment;
    QString department;
    QString code;
    QString quantity;
    QString slipNumber;
    QString amount;
    QString userCode;
    QString room;
    /// The requesting doctor's code and the admitting doctor's name: two different doctors.
    QString requestingDoctorCode;
    QString admittingDoctorName;
    QString patientType;
    QString particular;
};
QString AppendChargingCommand(const ChargePosting& charge);

/// One line of the charge slip as it is printed.
struct ChargePrintLine {
    QString code;
    QString amount;
    QString quantity;
    QString department;
    QString particular;
};
QString SaveChargePrintCommand(const ChargePrintLine& line);

/// The assessment counter.
QString AssessmentCounterCommand();

/// One line that a cash patient has to pay at the cashier.
struct AssessmentLine {
    QString number;
    QString patientName;
    QString code;
    QString department;
    QString quantity;
    QString amount;
    QString userCode;
    QString hospitalNumber;
    QString visitNumber;
    QString requestingDoctorCode;
    QString requestingDoctorName;
};
QString AssessmentCommand(const AssessmentLine& line);

/// One line of the assessment slip as it is printed.
struct AssessmentPrintLine {
    QString code;
    QString particular;
    QString quantity;
    QString price;
    QString amount;
    QString department;
    QString userCode;
};
/// The hospital's copy of a printed line, with its price and the user.
QString GlobalDumpChargeSlipCommand(const AssessmentPrintLine& line);
/// The line as the slip shows it.
QString DumpChargeSlipCommand(const AssessmentPrintLine& line);

/// The items of a package.
QString PackageCommand(const QString& packageCode);
/// Marks the stock card entries of an item under a reference number as a package's.
QString LinkStockCardCommand(const QString& packageCode, const QString& itemID,
                             const QString& referenceNumber);
