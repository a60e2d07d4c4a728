#pragma once

class BenchTable;
class QString;

/// A charge slip of 50 lines on the trial hospital against the same statements through SQLite's C API.
void BenchSave(BenchTable& table);

/// The patient finder with 100,000 hits: listing, sorting, memory.
void BenchFinder(BenchTable& table);

/// From the start of the process to the sign-on window against an empty Qt main window.
void BenchStart(BenchTable& table, const char* program);

/// Each report over a year of a busy unit, for a day, a month and the year, against its query run bare.
/// `only` is the beginning of the names of the reports that are measured; empty for all.
void BenchYearReports(BenchTable& table, const QString& only);

/// A key in the charge grid.
void BenchKeys(BenchTable& table);
