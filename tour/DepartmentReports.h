#pragma once

class Album;
class Driver;

/// Opens a report of a period, the ledger of the patient charged before, and the census by station.
void LookAtTheReports(Driver& clerk, Album& album);
