#include "report/output/JobRunner.h"
#include "report/viewer/PageView.h"
#include "report/viewer/ReportViewer.h"
#include "report/viewer/StatusLine.h"
#include "report/viewer/WorkBar.h"
#include "toolkit/Controls.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStandardItemModel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

// How the viewer looks, and which key does what.

namespace {

constexpr int kTreeWidth = 200;
constexpr int kFindWidth = 130;

QIcon IconOf(const QString& control) {
    return ProgramIcon(control.mid(3).toLower());
}

} // namespace

ReportViewer::ReportViewer(QWidget* parent)
    : QWidget(parent)
    , mPages(new PageView(this))
    , mTree(new QTreeView(this))
    , mStatus(new StatusLine(this))
    , mWorkBar(new WorkBar(this))
    , mRunner(new JobRunner(this)) {
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
    column->addWidget(mWorkBar);
    // It stands there also when it says nothing: pages that moved when it speaks would be in the reader's
    // way.
    mStatus->setObjectName(u"lblStatus"_s);
    column->addWidget(mStatus);
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
    AddKey(QKeySequence(Qt::SHIFT | Qt::Key_F3), &ReportViewer::FindPrevious);
    AddKey(QKeySequence(Qt::Key_Escape), &ReportViewer::Escape);
    // A key that is held is one slip.
    AddKey(QKeySequence(Qt::Key_P), &ReportViewer::PrintAgain)->setAutoRepeat(false);
    connect(mWorkBar, &WorkBar::CancelRequested, this, &ReportViewer::CancelWork);
    connect(mRunner, &JobRunner::Progressed, mWorkBar, &WorkBar::SetProgress);
    setFocusProxy(mPages);
    EnableGroupTree(false);
    EnableCommands(false);
}

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
    for (QToolButton* button :
         {AddButton(bar, u"cmdPrint"_s, u"Print"_s, {QKeySequence(Qt::CTRL | Qt::Key_P)},
                    &ReportViewer::PrintReport),
          AddButton(bar, u"cmdPdf"_s, u"Save as PDF"_s, {QKeySequence(Qt::CTRL | Qt::Key_S)},
                    &ReportViewer::cmdPdf_Click),
          AddButton(bar, u"cmdCsv"_s, u"Save Rows"_s, {QKeySequence(Qt::CTRL | Qt::Key_E)},
                    &ReportViewer::cmdCsv_Click)}) {
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        mJobActions << button->defaultAction();
    }
    mJobActions.front()->setToolTip(u"Print (Ctrl+P), print as last time (P)"_s);
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
    mJobActions << AddButton(bar, u"cmdFindNext"_s, u"Find next"_s, {QKeySequence(Qt::Key_F3)},
                             &ReportViewer::cmdFindNext_Click)
                       ->defaultAction();
    mJobActions.back()->setToolTip(u"Find next (F3), find previous (Shift+F3)"_s);
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

QShortcut* ReportViewer::AddKey(const QKeySequence& key, Handler handler) {
    auto* shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, this, handler);
    return shortcut;
}
