#include "report/viewer/ReportViewer.h"

#include "report/output/ChoosePrinter.h"
#include "report/output/CsvJob.h"
#include "report/output/JobRunner.h"
#include "report/output/PageFinder.h"
#include "report/output/PdfJob.h"
#include "report/output/Printers.h"
#include "report/output/PrintJob.h"
#include "report/viewer/FetchThread.h"
#include "report/viewer/PageView.h"
#include "report/viewer/ParameterDialog.h"
#include "report/viewer/StatusLine.h"
#include "report/viewer/WorkBar.h"
#include "text/RunTimeError.h"
#include "toolkit/Failure.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/MsgBox.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QToolButton>
#include <QTreeView>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr double kZoomStep = 1.25;
/// In characters; a longer name is hard to read in a list of files.
constexpr qsizetype kLongestName = 80;

/// A text as a file of any system may be called.
QString FileNameOf(QString text) {
    static const QRegularExpression kForbidden(u"[\\x00-\\x1f/\\\\:*?\"<>|]"_s);
    text = text.replace(kForbidden, u"-"_s).left(kLongestName).trimmed();
    while (text.startsWith(u'.'))
        text.remove(0, 1);
    return text;
}

} // namespace

ReportViewer::~ReportViewer() {
    // A job must not outlive the pages that it works on.
    mRunner->Stop();
}

void ReportViewer::SetReportSource(std::shared_ptr<Report> report) {
    mReport = std::move(report);
}

void ReportViewer::DisplayGroupTree(bool display) {
    if (display && mTree->model()->rowCount() == 0)
        FillGroupTree();
    mTree->setVisible(display && mTreeButton->isVisibleTo(this));
}

void ReportViewer::EnableGroupTree(bool enable) {
    mTreeButton->setVisible(enable);
    mTreeButton->defaultAction()->setVisible(enable);
    if (!enable)
        mTree->hide();
}

void ReportViewer::Zoom(int level) {
    if (level == kPageWidth)
        mPages->FitWidth();
    else if (level == kWholePage)
        mPages->FitPage();
    else
        mPages->SetZoomFactor(level / 100.0);
}

void ReportViewer::ViewReport() {
    if (!mReport)
        throw RunTime::Error(RunTime::kObjectNotSet);
    StopWork();
    if (mReport->HasDocument())
        return ShowDocument();
    if (!AskUnsetParameters(mReport->ParameterFields(), this)) {
        mStatus->Tell(u"The report was not given its values."_s);
        return;
    }
    mStatus->Tell({});
    mFetch = new FetchThread(mReport->Order(), this);
    connect(mFetch, &FetchThread::Finished, this, &ReportViewer::TakeRows);
    mPages->viewport()->setCursor(Qt::BusyCursor);
    mWorkBar->Begin(u"Fetching the rows"_s);
}

void ReportViewer::TakeRows() {
    FetchThread* fetch = std::exchange(mFetch, nullptr);
    fetch->deleteLater();
    EndWork();
    if (Failure::IsEnding())
        return;
    mReport->SetDocument(fetch->Result());
    ShowDocument();
}

void ReportViewer::ShowDocument() {
    mDocument = mReport->Document();
    mStatus->Tell({});
    EnableCommands(true);
    mPageBox->setRange(1, mDocument->PageCount());
    mPageCount->setText(u"of %1"_s.arg(mDocument->PageCount()));
    mFound.reset();
    mTree->model()->removeRows(0, mTree->model()->rowCount());
    mPages->SetDocument(mDocument);
    if (mTree->isVisibleTo(this))
        FillGroupTree();
}

bool ReportViewer::IsWorking() const {
    return mFetch || mRunner->IsRunning();
}

void ReportViewer::StopWork() {
    delete std::exchange(mFetch, nullptr);
    mRunner->Stop();
    EndWork();
}

void ReportViewer::EndWork() {
    if (mWorkBar->isAncestorOf(QApplication::focusWidget()))
        setFocus();
    mPages->viewport()->unsetCursor();
    mWorkBar->End();
    EnableJobs(mDocument != nullptr);
}

void ReportViewer::CancelWork() {
    const QString told = mFetch ? u"The report was cancelled."_s : mRunner->Job().CancelledText();
    StopWork();
    mStatus->Tell(told);
}

void ReportViewer::Escape() {
    // Before the bar shows there is nothing yet that the clerk could want to give up but the window.
    if (mWorkBar->isVisible())
        CancelWork();
    else
        Q_EMIT CloseRequested();
}

void ReportViewer::RunJob(const QString& what, std::unique_ptr<ReportJob> job, JobEnded ended) {
    mStatus->Tell({});
    mRunner->Run(std::move(job), [this, ended = std::move(ended)](const ReportJob& done) {
        EndWork();
        ended(done);
    });
    if (!mRunner->IsRunning())
        return;
    EnableJobs(false);
    mWorkBar->Begin(what);
}

/// One at a time: the ways to begin another job are closed while one is done.
void ReportViewer::EnableJobs(bool enable) {
    if (!enable && qobject_cast<QToolButton*>(focusWidget()))
        setFocus();
    for (QAction* action : mJobActions)
        action->setEnabled(enable);
}

void ReportViewer::EnableCommands(bool enable) {
    for (QAction* action : mActions)
        action->setEnabled(enable);
    EnableJobs(enable);
    mPageBox->setEnabled(enable);
    mFindBox->setEnabled(enable);
}

QString ReportViewer::Title() const {
    return mDocument->Title().isEmpty() ? window()->windowTitle() : mDocument->Title();
}

void ReportViewer::PrintReport() {
    if (!mDocument || IsWorking())
        return;
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    if (ChoosePrinter(*mDocument, *printer, this))
        Print(printer);
}

/// The clerk who prints slip after slip on one printer is not asked each time.
void ReportViewer::PrintAgain() {
    if (!mDocument || IsWorking())
        return;
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    if (TakeLastPrinter(*mDocument, *printer))
        return Print(printer);
    if (const QString last = LastPrinter(); !last.isEmpty())
        mStatus->Tell(u"The printer \"%1\" is not there any more."_s.arg(last));
    PrintReport();
}

void ReportViewer::Print(const std::shared_ptr<QPrinter>& printer) {
    printer->setDocName(Title());
    RunJob(u"Printing"_s, std::make_unique<PrintJob>(*mDocument, printer),
           [this, name = printer->printerName()](const ReportJob& job) {
               TellFailure(u"The report could not be printed."_s, job.Failure());
               if (!job.Failure().isEmpty() || name.isEmpty())
                   return;
               RememberPrinter(name);
               mStatus->Tell(u"Printed on \"%1\"."_s.arg(name));
           });
}

void ReportViewer::SetSwitch258(bool /*on*/) {}

void ReportViewer::SetSwitch259(bool /*on*/) {}

void ReportViewer::cmdPdf_Click() {
    const QString file = AskSaveFile(this, u"Save as PDF"_s, SuggestedName(u"pdf"_s), u"PDF (*.pdf)"_s);
    if (!file.isEmpty())
        Save(u"Writing the PDF"_s, file, std::make_unique<PdfJob>(*mDocument, Title(), file));
}

void ReportViewer::cmdCsv_Click() {
    const QString file =
        AskSaveFile(this, u"Save Rows"_s, SuggestedName(u"csv"_s), u"Comma-separated values (*.csv)"_s);
    if (!file.isEmpty())
        Save(u"Writing the rows"_s, file, std::make_unique<CsvJob>(mDocument->Rows(), file));
}

void ReportViewer::Save(const QString& what, const QString& file, std::unique_ptr<ReportJob> job) {
    RunJob(what, std::move(job), [this, file](const ReportJob& done) {
        TellFailure(u"\"%1\" could not be saved."_s.arg(file), done.Failure());
        if (done.Failure().isEmpty())
            mStatus->Tell(u"Saved as %1"_s.arg(QDir::toNativeSeparators(file)));
    });
}

QString ReportViewer::SuggestedName(const QString& ending) const {
    const QString title = FileNameOf(mDocument->Title());
    return (title.isEmpty() ? QFileInfo(mReport->File()).completeBaseName() : title) + u'.' + ending;
}

void ReportViewer::TellFailure(const QString& what, const QString& failure) {
    if (failure.isEmpty())
        return;
    MsgBox(
        {.text = what + u"\n\n"_s + failure, .icon = MsgIcon::Exclamation, .title = window()->windowTitle()});
}

void ReportViewer::cmdFirst_Click() {
    mPages->GoTo(1);
}

void ReportViewer::cmdPrevious_Click() {
    mPages->GoTo(mPages->CurrentPage() - 1);
}

void ReportViewer::cmdNext_Click() {
    mPages->GoTo(mPages->CurrentPage() + 1);
}

void ReportViewer::cmdLast_Click() {
    mPages->GoTo(mDocument->PageCount());
}

void ReportViewer::cmdZoomIn_Click() {
    mPages->SetZoomFactor(mPages->ZoomFactor() * kZoomStep);
}

void ReportViewer::cmdZoomOut_Click() {
    mPages->SetZoomFactor(mPages->ZoomFactor() / kZoomStep);
}

void ReportViewer::cmdPageWidth_Click() {
    Zoom(kPageWidth);
}

void ReportViewer::cmdWholePage_Click() {
    Zoom(kWholePage);
}

void ReportViewer::cmdGroupTree_Click() {
    DisplayGroupTree(!mTree->isVisibleTo(this));
}

void ReportViewer::AskPage() {
    mPageBox->setFocus();
    mPageBox->selectAll();
}

void ReportViewer::AskText() {
    mFindBox->setFocus();
    mFindBox->selectAll();
}

void ReportViewer::ShowPageNumber(int page) {
    const QSignalBlocker quiet(mPageBox);
    mPageBox->setValue(page);
}

void ReportViewer::EnterFind() {
    mFound.reset();
    mStatus->Tell({});
    mPages->ForgetFound();
}

void ReportViewer::cmdFindNext_Click() {
    Find(FindDirection::Forwards);
}

void ReportViewer::FindPrevious() {
    Find(FindDirection::Backwards);
}

void ReportViewer::Find(FindDirection direction) {
    if (!mDocument || IsWorking())
        return;
    if (mFindBox->text().isEmpty())
        return AskText();
    const QString text = mFindBox->text();
    const auto after = mFound ? std::optional(*mFound) : std::nullopt;
    RunJob(u"Looking for the text"_s, std::make_unique<FindJob>(*mDocument, text, after, direction),
           [this, text](const ReportJob& job) {
               // Nobody wants to see a text any more that was changed meanwhile.
               if (text == mFindBox->text())
                   ShowFound(static_cast<const FindJob&>(job).Found());
           });
}

void ReportViewer::ShowFound(const std::optional<FoundText>& found) {
    if (!found)
        return mStatus->Tell(u"Not found"_s);
    mFound = std::make_unique<CellPosition>(found->position);
    mPages->ShowFound(*found);
}

void ReportViewer::FillGroupTree() {
    auto* model = static_cast<QStandardItemModel*>(mTree->model());
    model->clear();
    if (!mDocument)
        return;
    std::vector<QStandardItem*> parents;
    for (const GroupEntry& group : mDocument->Groups()) {
        auto* item = new QStandardItem(group.label);
        item->setData(group.page, kPageRole);
        parents.resize(std::min(parents.size(), size_t(group.level)));
        (parents.empty() ? model->invisibleRootItem() : parents.back())->appendRow(item);
        parents.push_back(item);
    }
    // The tree would make its first group the current one when it takes the focus, and turn to its page.
    const QSignalBlocker quiet(mTree->selectionModel());
    mTree->setCurrentIndex(model->index(0, 0));
}

void ReportViewer::GoToGroup(const QModelIndex& index) {
    if (index.isValid())
        mPages->GoTo(index.data(kPageRole).toInt());
}
