#pragma once

#include "report/Report.h"

#include <QKeySequence>
#include <QList>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class FetchThread;
class JobRunner;
class PageView;
class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QModelIndex;
class QPrinter;
class QShortcut;
class QSpinBox;
class QToolButton;
class QTreeView;
class ReportJob;
class StatusLine;
class WorkBar;
struct CellPosition;
struct FoundText;
enum class FindDirection;

/// The viewer control: a report's pages on screen, with the ways to move, to find, to print and to save.
///
/// Rows are fetched on another thread, and long work on the pages is done between two events: the window goes
/// on, tells what it waits for, and lets the clerk give it up.
class ReportViewer : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool IsWorking READ IsWorking)

  public:
    explicit ReportViewer(QWidget* parent = nullptr);
    ~ReportViewer() override;

    /// What Zoom takes besides a percentage.
    static constexpr int kPageWidth = 1;
    static constexpr int kWholePage = 2;

    void SetReportSource(std::shared_ptr<Report> report);
    /// Shows or hides the group tree, which must be enabled to be seen.
    void DisplayGroupTree(bool display);
    /// Whether the group tree can be opened.
    void EnableGroupTree(bool enable);
    /// Fits the page's width (1), the whole page (2), or takes a percentage.
    void Zoom(int level);
    /// Asks for the parameters that have no value and has the rows fetched; the first page shows when they
    /// are there. When the clerk gives the question up, no page is shown. Raises 91 without a report, and
    /// what the report's order raises. What the fetching raises comes out of the event loop, where nothing
    /// traps it.
    void ViewReport();
    /// Asks for the printer and prints, and remembers which one it was. Nothing happens before a page is
    /// shown, or while the viewer works.
    void PrintReport();
    /// Whether rows are being fetched, or long work on the pages is going on.
    bool IsWorking() const;
    /// Gives up whatever is being done; a file half written goes. For a window that closes.
    void StopWork();

    // Kept: the openers of the census and of the consultation form turn on a switch of the viewer that they
    // know by its number alone. What they want, a report that stays as it was when it was opened, this viewer
    // does anyway.
    void SetSwitch258(bool on);
    void SetSwitch259(bool on);

  Q_SIGNALS:
    /// Escape was pressed, and there was nothing to give up.
    void CloseRequested();

  private:
    using Handler = void (ReportViewer::*)();
    using JobEnded = std::function<void(const ReportJob& job)>;

    QBoxLayout* NewBar();
    void AddFileButtons(QBoxLayout& bar);
    void AddPageButtons(QBoxLayout& bar);
    void AddZoomButtons(QBoxLayout& bar);
    void AddFindBox(QBoxLayout& bar);
    QToolButton* AddButton(QBoxLayout& bar, const QString& name, const QString& text,
                           const QList<QKeySequence>& keys, Handler handler);
    QShortcut* AddKey(const QKeySequence& key, Handler handler);

    void cmdPdf_Click();
    void cmdCsv_Click();
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmdZoomIn_Click();
    void cmdZoomOut_Click();
    void cmdPageWidth_Click();
    void cmdWholePage_Click();
    void cmdFindNext_Click();
    void cmdGroupTree_Click();
    void Escape();
    void AskPage();
    void AskText();
    void PrintAgain();
    void Print(const std::shared_ptr<QPrinter>& printer);
    void FindPrevious();
    void Find(FindDirection direction);
    void EnterFind();
    void ShowPageNumber(int page);

    void TakeRows();
    void ShowDocument();
    void RunJob(const QString& what, std::unique_ptr<ReportJob> job, JobEnded ended);
    void Save(const QString& what, const QString& file, std::unique_ptr<ReportJob> job);
    void ShowFound(const std::optional<FoundText>& found);
    void CancelWork();
    void EndWork();

    void FillGroupTree();
    void GoToGroup(const QModelIndex& index);
    void EnableCommands(bool enable);
    void EnableJobs(bool enable);
    QString Title() const;
    void TellFailure(const QString& what, const QString& failure);
    QString SuggestedName(const QString& ending) const;

    std::shared_ptr<Report> mReport;
    std::shared_ptr<const ReportDocument> mDocument;
    std::unique_ptr<CellPosition> mFound;
    PageView* mPages;
    QTreeView* mTree;
    StatusLine* mStatus;
    QSpinBox* mPageBox = nullptr;
    QLabel* mPageCount = nullptr;
    QLabel* mZoomLabel = nullptr;
    QLineEdit* mFindBox = nullptr;
    QToolButton* mTreeButton = nullptr;
    /// What needs a page to act upon.
    QList<QAction*> mActions;
    /// What begins a job.
    QList<QAction*> mJobActions;
    /// Set while rows are fetched.
    FetchThread* mFetch = nullptr;
    WorkBar* mWorkBar = nullptr;
    JobRunner* mRunner = nullptr;
};
