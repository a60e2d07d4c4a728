#pragma once

#include "report/output/ReportJob.h"
#include "report/output/WholeFile.h"
#include "report/pages/ReportFont.h"

#include <QPainter>
#include <QPdfWriter>

#include <optional>

class ReportDocument;

/// Writes a report as a PDF file, a page a step.
class PdfJob : public ReportJob {
  public:
    /// The document must outlive the job.
    PdfJob(const ReportDocument& document, const QString& title, const QString& file);
    ~PdfJob() override;

    bool Step() override;

  private:
    bool Begin();

    const ReportDocument& mDocument;
    QString mTitle;
    ReportFonts mFonts;
    WholeFile mFile;
    // The painter ends before the writer, and the writer before its file.
    std::optional<QPdfWriter> mWriter;
    QPainter mPainter;
};
