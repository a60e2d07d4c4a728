#pragma once

class BenchTable;
class QString;

/// The report engine against the same pages painted by a bare loop. Needs an application object.
void BenchReports(BenchTable& table);

/// A charge slip of 50 lines on the trial hospital against the same statements through SQLite's C API.
void BenchSave(BenchTable& table);

/// Commands whose text is new each time, and procedures of ten statements, against SQLite's C API.
void BenchStatements(BenchTable& table);

/// The patient finder with 100,000 hits: listing, sorting, memory.
void BenchFinder(BenchTable& table);

/// From the start of the process to the sign-on window against an empty Qt main window.
void BenchStart(BenchTable& table, const char* program);

/// Each report over a year of a busy unit, for a day, a month and the year, against its query run bare.
/// `only` is the beginning of the names of the reports that are measured; empty for all.
void BenchYearReports(BenchTable& table, const QString& only);

/// The clerk's work on hospitals of a thousand to a million patients, and how its time grows from one to the
/// next, in a table of its own. `most` is the patients of the largest one that is measured; 0 for all.
void BenchScale(BenchTable& table, int most);

/// A key in the charge grid.
void BenchKeys(BenchTable& table);

/// The whole program signed on and left alone for a minute while requests wait: processor time, and memory
/// over 10,000 ticks of the monitor; and how soon a ward's request shows.
void BenchIdle(BenchTable& table, const char* program);

/// What BenchIdle starts as a process of its own: the program, signed on and left alone; prints the
/// processor seconds used, the megabytes that the ticks left, and the seconds from a request to the strip.
int ShowIdleProgram(int& argumentCount, char** arguments);

/// The way to a server through the driver, on a responder of the tests' own.
void BenchOdbc(BenchTable& table);
