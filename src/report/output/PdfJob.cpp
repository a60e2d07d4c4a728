#include "report/output/PdfJob.h"

#include "report/pages/PagedPaint.h"
#include "report/pages/PaintPage.h"
#include "report/pages/ReportDocument.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPdfResolution = 1200;

} // namespace

PdfJob::PdfJob(const ReportDocument& document, const QString& title, const QString& file)
    : ReportJob(document.PageCount())
    , mDocument(document)
    , mTitle(title)
    , mFile(file) {}

PdfJob::~PdfJob() = default;

bool PdfJob::Begin() {
    mWriter.emplace(&mFile.Device());
    mWriter->setResolution(kPdfResolution);
    mWriter->setTitle(mTitle);
    mWriter->setPageLayout(mDocument.Paper());
    return BeginPages(mPainter, *mWriter);
}

bool PdfJob::Step() {
    if (!mFile.IsGood())
        return End(mFile.Problem());
    const bool begun = Done() == 0 ? Begin() : mWriter->newPage();
    if (!begun)
        return End(u"The pages cannot be painted."_s);
    PaintPage(mPainter, mDocument, Done() + 1, mFonts);
    if (StepIsDone())
        return true;
    const bool ended = mPainter.end();
    mWriter.reset();
    if (!ended)
        return End(u"The pages cannot be painted."_s);
    return End(mFile.End());
}
