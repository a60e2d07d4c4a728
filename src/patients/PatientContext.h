#pragma once

#include "gateway/RowSet.h"
#include "gateway/Value.h"

#include <QString>

/// The patient and admission in hand. The next pick overwrites what its path writes and nothing clears the
/// rest, so a field may hold a value of a former patient.

/// "I" in-patient, "O" out-patient, "W" walk-in. Set by the menus and screens, read by the finder, the load
/// routines and the saves.
inline QString gPatientType;
/// The row picked. Set by the finder and the cash patient list; the load routines read it and hand it to the
/// patient master by reference, which may bring it into a form of its own.
inline QString gHospitalNumber;
/// Admission number (in-patient) or visit number (out-patient) of the row picked.
inline QString gIDNumber;
/// Room class letter, the key to a rate column. Set by the load routines and the cash patient list, read by
/// the pricing.
inline QString gRoomClass;
/// Nursing station and account number. Set by the load routines, read by the slips.
inline QString gStationName;
inline QString gAccountNumber;
/// Kept: the company is filled and read by no one.
inline QString gCompany;
/// The first doctor: an id, later a name (out-patient) or a code (in-patient).
inline Value gDoctor1 = QString();
/// Kept: the second and third doctor are filled and read by no one.
inline Value gDoctor2 = QString();
inline Value gDoctor3 = QString();
inline Value gDoctor2Code = QString();
/// Kept: whole days from the admission to today, read by no one.
inline qint16 gDaysConfined = 0;
/// Admission date: as "mm/dd/yyyy" after an in-patient ledger pick, else as the date turns to text. Set by
/// the load routines, read by the ledger report.
inline QString gAdmissionDate;
/// Kept: filled for out-patients and read by no one.
inline QString gDischargeDate;
/// Room text, "OPD" for out-patients. Set by the load routines, read by the ledger report.
inline QString gRoomID;

/// The ultrasound examination picked last, its name and its code. Set by frmSearcher, read by no one.
inline QString gUltraExam;
inline QString gUltraExamID;

/// What a search of the cash patient list goes by: the gCashSearchText of that moment.
inline QString gCashSearchCopy;
/// The hits of the cash patient list while they go into its grid; closed before and after.
inline RowSet gCashRecordset;
