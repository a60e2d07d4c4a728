#pragma once

#include "report/output/ReportJob.h"
#include "report/output/WholeFile.h"

struct RowData;

/// Writes rows as comma-separated values, some hundred rows a step. Dates are written as 2026-11-21, and a
/// text that a spreadsheet would take for a formula gets an apostrophe before it.
class CsvJob : public ReportJob {
  public:
    /// The rows must outlive the job.
    CsvJob(const RowData& rows, const QString& file);

    bool Step() override;

  private:
    const RowData& mRows;
    WholeFile mFile;
};
