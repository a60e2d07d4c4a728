#include "report/output/PrintJob.h"

#include "report/output/Printers.h"
#include "report/output/Sheet.h"
#include "report/pages/PagedPaint.h"
#include "report/pages/PaintPage.h"
#include "report/pages/ReportDocument.h"

#include <QPrinter>

using namespace Qt::StringLiterals;

/// The pages to be printed, the last one included, and how often.
struct PrintJob::Range {
    int first = 1;
    int last = 1;
    int copies = 1;

    Range(const ReportDocument& document, const QPrinter& printer)
        : last(document.PageCount())
        , copies(printer.supportsMultipleCopies() ? 1 : printer.copyCount()) {
        if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
            first = qBound(1, printer.fromPage(), last);
            last = qBound(first, printer.toPage(), last);
        }
    }
    int Pages() const { return last - first + 1; }
};

PrintJob::PrintJob(const ReportDocument& document, const std::shared_ptr<QPrinter>& printer)
    : PrintJob(document, printer, Range(document, *printer)) {}

PrintJob::PrintJob(const ReportDocument& document, std::shared_ptr<QPrinter> printer, const Range& range)
    : ReportJob(range.Pages() * range.copies)
    , mDocument(document)
    , mPrinter(std::move(printer))
    , mFirst(range.first)
    , mPages(range.Pages()) {
    mPrinter->setFullPage(true);
}

PrintJob::~PrintJob() = default;

/// Each copy is a job of its own to the printer.
bool PrintJob::BeginPage(int page) {
    if (page > 0)
        return mPrinter->newPage();
    if ((mPainter.isActive() && !mPainter.end()) || !BeginPages(mPainter, *mPrinter))
        return false;
    const SheetPlace place = PlaceOnSheet(mDocument.Body(), PaintableOf(*mPrinter));
    mPainter.translate(place.shift);
    mPainter.scale(place.scale, place.scale);
    return true;
}

QString PrintJob::CancelledText() const {
    return u"Cancelled. Pages printed: %1"_s.arg(Done());
}

QString PrintJob::Refusal() const {
    const QString refusal = RefusalOf(*mPrinter);
    return refusal.isEmpty() ? u"The printer \"%1\" did not take the report."_s.arg(mPrinter->printerName())
                             : refusal;
}

bool PrintJob::Step() {
    const int page = Done() % mPages;
    if (page == 0) {
        if (const QString obstacle = ObstacleOf(*mPrinter); !obstacle.isEmpty())
            return End(obstacle);
    }
    if (!BeginPage(page))
        return End(Refusal());
    PaintPage(mPainter, mDocument, mFirst + page, mFonts);
    if (StepIsDone())
        return true;
    return End(mPainter.end() ? RefusalOf(*mPrinter) : Refusal());
}

QString PrintAtOnce(const ReportDocument& document, QPrinter& printer) {
    SetUpSheet(printer, document);
    return PrintJob(document, std::shared_ptr<QPrinter>(std::shared_ptr<void>(), &printer)).Finish();
}
