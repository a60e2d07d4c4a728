#pragma once

#include <QString>

/// Ends the benchmarks with a text on standard error and exit code 1: a figure that was measured over
/// something that failed would be worse than none.
[[noreturn]] void GiveUp(const QString& why);
