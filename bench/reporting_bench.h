#pragma once

class BenchTable;

/// Measures the report engine against the same pages painted by a bare loop. Needs an application object.
void BenchReporting(BenchTable& table);
