#pragma once

#include "report/output/ReportJob.h"
#include "report/pages/ReportFont.h"

#include <QPainter>

#include <memory>

class QPrinter;
class ReportDocument;

/// Prints the pages that the printer's settings ask for, a page a step. A printer that makes one copy only
/// gets the pages once for each. A page lies upright at the top left of whatever sheet the printer is set up
/// for, nothing of it cut. When the job is given up, the pages that the printer has got are printed: few
/// printers give a page back.
class PrintJob : public ReportJob {
  public:
    /// The document must outlive the job.
    PrintJob(const ReportDocument& document, const std::shared_ptr<QPrinter>& printer);
    ~PrintJob() override;

    bool Step() override;
    QString CancelledText() const override;

  private:
    struct Range;

    PrintJob(const ReportDocument& document, std::shared_ptr<QPrinter> printer, const Range& range);
    bool BeginPage(int page);
    QString Refusal() const;

    const ReportDocument& mDocument;
    std::shared_ptr<QPrinter> mPrinter;
    int mFirst;
    int mPages;
    ReportFonts mFonts;
    QPainter mPainter;
};

/// Prints at one go on a printer of the caller's, on the sheet that suits the report best. Answers what
/// failed, empty for nothing.
QString PrintAtOnce(const ReportDocument& document, QPrinter& printer);
