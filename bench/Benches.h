#pragma once

class BenchTable;

/// A charge slip of 50 lines on the trial hospital against the same statements through SQLite's C API.
void BenchSave(BenchTable& table);

/// The patient finder with 100,000 hits: listing, sorting, memory.
void BenchFinder(BenchTable& table);

/// From the start of the process to the sign-on window against an empty Qt main window.
void BenchStart(BenchTable& table, const char* program);

/// A key in the charge grid.
void BenchKeys(BenchTable& table);

/// The way to a server through the driver, on a responder of the tests' own.
void BenchOdbc(BenchTable& table);
