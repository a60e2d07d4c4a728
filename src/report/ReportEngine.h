#pragma once

#include "report/Report.h"

#include <QString>

#include <memory>

/// How every report is opened: the file is free for others as soon as the report is open.
constexpr int kOpenOption = 1;

/// The report engine: opens template files.
class ReportEngine {
  public:
    /// Opens a template, whose path may be written with either slash and in any letter case. Raises 53 for a
    /// file that is not there, and an error with file and line for a mistake in it. `option` is
    /// kOpenOption; there is no other.
    std::shared_ptr<Report> OpenReport(const QString& path, int option) const;
};
