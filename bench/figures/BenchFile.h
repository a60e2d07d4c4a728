#pragma once

#include "BenchLine.h"

#include <vector>

/// The table of a run as a file: {"lines": [{"what", "unit", "ours", "bare", "judged": [value, low, high],
/// "promised"}]}; "bare" is 0 where the line has a limit of its own. Gives up where the file cannot be
/// written.
void SaveLines(const QString& path, const std::vector<BenchLine>& lines);

/// The lines of such a file. Gives up with the file's name where it cannot be read or is another file.
std::vector<BenchLine> LoadLines(const QString& path);
