#pragma once

class Driver;

// The department's reports.

/// Opens each report of a period from the menu, for the last two months, and leaves it again. Tells the
/// period and the title of each.
void PeriodReports(Driver& clerk);
/// Prints the ledger of an in-patient whom the finder brings.
void LedgerOfAnInPatient(Driver& clerk);
/// Opens the census in both arrangements.
void Census(Driver& clerk);
/// Opens a report, closes its window when the file "silent" stands in the program's folder, and leaves the
/// program by the menu. Tells when it begins to leave.
void LeaveBesideAReport(Driver& clerk);
