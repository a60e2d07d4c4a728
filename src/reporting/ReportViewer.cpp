#include "reporting/ReportViewer.h"

#include "reporting/PageFinder.h"
#include "reporting/PageView.h"
#include "reporting/ParameterDialog.h"
#include "reporting/ReportOutput.h"
#include "text/RunTimeError.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/Look.h"
#include "toolkit/MousePointer.h"
#include "toolkit/MsgBox.h"

#include <QAction>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QScopeGuard>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStandardItemModel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr double kZoomStep = 1.25;
constexpr int kTreeWidth = 200;
constexpr int kFindWidth = 130;

/// The wait shape for as long as something runs that takes its time.
auto Waiting() {
    const MousePointer before = CurrentMousePointer();
    SetMousePointer(MousePointer::Wait);
    return qScopeGuard([before] { SetMousePointer(before); });
}

QIcon IconOf(const QString& control) {
    return QIcon(u":/reporting/%1.svg"_s.arg(control.mid(3).toLower()));
}

} // namespace

ReportViewer::ReportViewer(QWidget* parent)
    : QWidget(parent)
    , mPages(new PageView(this))
    , mTree(new QTreeView(this)) {
    Q_INIT_RESOURCE(reporting);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(NewBar());
    auto* splitter = new QSplitter(this);
    splitter->addWidget(mTree);
    splitter->addWidget(mPages);
    splitter->setSizes({kTreeWidth, 4 * kTreeWidth});
    splitter->setCollapsible(1, false);
    column->addWidget(splitter, 1);
    mPages->setObjectName(u"PageView"_s);
    mTree->setObjectName(u"GroupTree"_s);
    mTree->setAccessibleName(u"Groups"_s);
    mTree->setHeaderHidden(true);
    mTree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mTree->hide();
    mTree->setModel(new QStandardItemModel(mTree));
    connect(mTree->selectionModel(), &QItemSelectionModel::currentChanged, this, &ReportViewer::GoToGroup);
    connect(mTree, &QTreeView::clicked, this, &ReportViewer::GoToGroup);
    connect(mPages, &PageView::PageChanged, this, &ReportViewer::ShowPageNumber);
    connect(mPages, &PageView::ZoomChanged, this,
            [this](double factor) { mZoomLabel->setText(u"%1 %"_s.arg(std::lround(factor * 100))); });
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_G), &ReportViewer::AskPage);
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_F), &ReportViewer::AskText);
    AddKey(QKeySequence(Qt::Key_Escape), &ReportViewer::CloseRequested);
    setFocusProxy(mPages);
    EnableGroupTree(false);
    EnableCommands(false);
}

ReportViewer::~ReportViewer() = default;

QBoxLayout* ReportViewer::NewBar() {
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(Space::kTight, Space::kTight, Space::kTight, Space::kTight);
    bar->setSpacing(2);
    AddFileButtons(*bar);
    bar->addSpacing(Space::kWide);
    AddPageButtons(*bar);
    bar->addSpacing(Space::kWide);
    AddZoomButtons(*bar);
    bar->addSpacing(Space::kWide);
    AddFindBox(*bar);
    bar->addStretch(1);
    return bar;
}

void ReportViewer::AddFileButtons(QBoxLayout& bar) {
    for (QToolButton* button : {AddButton(bar, u"cmdPrint"_s, u"Print"_s,
                                          {QKeySequence(Qt::CTRL | Qt::Key_P)}, &ReportViewer::PrintReport),
                                AddButton(bar, u"cmdPdf"_s, u"Save as PDF"_s,
                                          {QKeySequence(Qt::CTRL | Qt::Key_S)}, &ReportViewer::cmdPdf_Click),
                                AddButton(bar, u"cmdCsv"_s, u"Save Rows"_s,
                                          {QKeySequence(Qt::CTRL | Qt::Key_E)}, &ReportViewer::cmdCsv_Click)})
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    mTreeButton = AddButton(bar, u"cmdGroupTree"_s, u"Groups"_s, {QKeySequence(Qt::CTRL | Qt::Key_T)},
                            &ReportViewer::cmdGroupTree_Click);
    mTreeButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

void ReportViewer::AddPageButtons(QBoxLayout& bar) {
    AddButton(bar, u"cmdFirst"_s, u"First page"_s, {QKeySequence(Qt::CTRL | Qt::Key_Home)},
              &ReportViewer::cmdFirst_Click);
    AddButton(bar, u"cmdPrevious"_s, u"Previous page"_s, {QKeySequence(Qt::CTRL | Qt::Key_PageUp)},
              &ReportViewer::cmdPrevious_Click);
    mPageBox = new QSpinBox(this);
    mPageBox->setObjectName(u"txtPage"_s);
    mPageBox->setAccessibleName(u"Page"_s);
    mPageBox->setToolTip(u"Page (Ctrl+G)"_s);
    mPageBox->setButtonSymbols(QAbstractSpinBox::NoButtons);
    mPageBox->setKeyboardTracking(false);
    mPageBox->setAlignment(Qt::AlignRight);
    connect(mPageBox, &QSpinBox::valueChanged, mPages, &PageView::GoTo);
    bar.addWidget(mPageBox);
    mPageCount = new QLabel(this);
    mPageCount->setObjectName(u"lblPages"_s);
    bar.addWidget(mPageCount);
    AddButton(bar, u"cmdNext"_s, u"Next page"_s, {QKeySequence(Qt::CTRL | Qt::Key_PageDown)},
              &ReportViewer::cmdNext_Click);
    AddButton(bar, u"cmdLast"_s, u"Last page"_s, {QKeySequence(Qt::CTRL | Qt::Key_End)},
              &ReportViewer::cmdLast_Click);
}

void ReportViewer::AddZoomButtons(QBoxLayout& bar) {
    AddButton(bar, u"cmdZoomOut"_s, u"Smaller"_s, {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
              &ReportViewer::cmdZoomOut_Click);
    mZoomLabel = new QLabel(this);
    mZoomLabel->setObjectName(u"lblZoom"_s);
    bar.addWidget(mZoomLabel);
    AddButton(bar, u"cmdZoomIn"_s, u"Larger"_s,
              {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
              &ReportViewer::cmdZoomIn_Click);
    AddButton(bar, u"cmdPageWidth"_s, u"Page width"_s, {QKeySequence(Qt::CTRL | Qt::Key_1)},
              &ReportViewer::cmdPageWidth_Click);
    AddButton(bar, u"cmdWholePage"_s, u"Whole page"_s, {QKeySequence(Qt::CTRL | Qt::Key_2)},
              &ReportViewer::cmdWholePage_Click);
}

void ReportViewer::AddFindBox(QBoxLayout& bar) {
    mFindBox = NewTextBox(u"txtFind"_s, this);
    mFindBox->setAccessibleName(u"Find text"_s);
    mFindBox->setPlaceholderText(u"Find"_s);
    mFindBox->setToolTip(u"Find text (Ctrl+F)"_s);
    mFindBox->setFixedWidth(kFindWidth);
    connect(mFindBox, &QLineEdit::textChanged, this, &ReportViewer::EnterFind);
    connect(mFindBox, &QLineEdit::returnPressed, this, &ReportViewer::cmdFindNext_Click);
    bar.addWidget(mFindBox);
    AddButton(bar, u"cmdFindNext"_s, u"Find next"_s, {QKeySequence(Qt::Key_F3)},
              &ReportViewer::cmdFindNext_Click);
    mStatus = new QLabel(this);
    mStatus->setObjectName(u"lblStatus"_s);
    bar.addWidget(mStatus);
}

QToolButton* ReportViewer::AddButton(QBoxLayout& bar, const QString& name, const QString& text,
                                     const QList<QKeySequence>& keys, Handler handler) {
    auto* action = new QAction(IconOf(name), text, this);
    action->setToolTip(u"%1 (%2)"_s.arg(text, keys.front().toString(QKeySequence::NativeText)));
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, handler);
    addAction(action);
    mActions << action;
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    bar.addWidget(button);
    return button;
}

void ReportViewer::AddKey(const QKeySequence& key, Handler handler) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, handler);
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
    if (!mReport->HasDocument() && !AskUnsetParameters(mReport->ParameterFields(), this)) {
        mStatus->setText(u"The report was not given its values."_s);
        return;
    }
    const auto waiting = Waiting();
    mDocument = mReport->Document();
    mStatus->clear();
    EnableCommands(true);
    mPageBox->setRange(1, mDocument->PageCount());
    mPageCount->setText(u"of %1"_s.arg(mDocument->PageCount()));
    mFound.reset();
    mTree->model()->removeRows(0, mTree->model()->rowCount());
    mPages->SetDocument(mDocument);
    if (mTree->isVisibleTo(this))
        FillGroupTree();
}

void ReportViewer::EnableCommands(bool enable) {
    for (QAction* action : mActions)
        action->setEnabled(enable);
    mPageBox->setEnabled(enable);
    mFindBox->setEnabled(enable);
}

void ReportViewer::PrintReport() {
    if (!mDocument)
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(window()->windowTitle());
    if (!ChoosePrinter(*mDocument, printer, this))
        return;
    const auto waiting = Waiting();
    TellFailure(u"The report could not be printed."_s, Print(*mDocument, printer));
}

void ReportViewer::SetSwitch258(bool /*on*/) {}

void ReportViewer::SetSwitch259(bool /*on*/) {}

void ReportViewer::cmdPdf_Click() {
    const QString file = AskSaveFile(this, u"Save as PDF"_s, SuggestedName(u"pdf"_s), u"PDF (*.pdf)"_s);
    if (file.isEmpty())
        return;
    const auto waiting = Waiting();
    TellFailure(u"\"%1\" could not be saved."_s.arg(file),
                SavePdf(*mDocument, window()->windowTitle(), file));
}

void ReportViewer::cmdCsv_Click() {
    const QString file =
        AskSaveFile(this, u"Save Rows"_s, SuggestedName(u"csv"_s), u"Comma-separated values (*.csv)"_s);
    if (file.isEmpty())
        return;
    const auto waiting = Waiting();
    TellFailure(u"\"%1\" could not be saved."_s.arg(file), SaveCsv(mDocument->Rows(), file));
}

QString ReportViewer::SuggestedName(const QString& ending) const {
    return QFileInfo(mReport->File()).completeBaseName() + u'.' + ending;
}

void ReportViewer::TellFailure(const QString& what, const QString& failure) {
    if (failure.isEmpty())
        return;
    SetMousePointer(MousePointer::Default);
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
    mStatus->clear();
    mPages->ForgetFound();
}

void ReportViewer::cmdFindNext_Click() {
    if (mFindBox->text().isEmpty())
        return AskText();
    const auto waiting = Waiting();
    const auto after = mFound ? std::optional(*mFound) : std::nullopt;
    const auto found = FindText(*mDocument, mFindBox->text(), after);
    if (!found) {
        mStatus->setText(u"Not found"_s);
        return;
    }
    mStatus->clear();
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
