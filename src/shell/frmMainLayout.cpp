#include "nursing/PendingMonitor.h"
#include "shell/frmMain.h"
#include "shell/MainArea.h"
#include "shell/MenuTree.h"
#include "shell/StatusPanel.h"
#include "toolkit/Colors.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

// How the main window looks; what it does stands in frmMain.cpp.

namespace {

struct DropdownItem {
    const char* caption;
    const char* key;
};

struct ToolButton {
    const char* key;
    const char* tip;
    const char* icon;
    std::array<DropdownItem, 3> items;
};

constexpr std::array kToolButtons = {
    ToolButton{"Assess", "Assessment Entry", "assess", {}},
    ToolButton{"Trans",
               "Transaction Entry",
               "transaction",
               {{{"Inpatient Request", "Inpatient"}, {"Out-Patient Request", "Outpatient"}, {}}}},
    ToolButton{"Reports",
               nullptr,
               "reports",
               {{{"Audit Report", "Audit"}, {"OPD Income Report", "Opd"}, {"IPD Income Report", "IPD"}}}},
};

constexpr int kMinimumWidth = 800;
constexpr int kMinimumHeight = 560;

} // namespace

void frmMain::Layout() {
    setObjectName(u"frmMain"_s);
    // Kept: the title that stands until the load has gone through.
    setWindowTitle(u"Orvandelle"_s);
    setMinimumSize(kMinimumWidth, kMinimumHeight);
    // A menu of the window's own could hide the toolbar.
    setContextMenuPolicy(Qt::NoContextMenu);
    mArea = new MainArea(this);
    mArea->setBackground(TheColors().area);
    setCentralWidget(mArea);
    LayoutMenu();
    LayoutToolbar();
    LayoutPendingStrip();
    LayoutStatusBar();
}

void frmMain::LayoutMenu() {
    for (const MenuEntry& entry : MenuEntry::Tree())
        AddMenuEntry(entry);
    // The letter of a menu that is not shown would take the keys to the bar, where nobody sees them.
    for (QAction* action : menuBar()->actions()) {
        if (!action->isVisible())
            menuBar()->removeAction(action);
    }
}

/// Adds the entry behind the ones before it, under the last entry of the level above.
void frmMain::AddMenuEntry(const MenuEntry& entry) {
    QMenu* parent = nullptr;
    for (int level = 2; level <= entry.level; ++level) {
        const QList<QAction*> actions = parent ? parent->actions() : menuBar()->actions();
        QAction* above = actions.last();
        if (!above->menu()) {
            auto* menu = new QMenu(menuBar());
            above->setMenu(menu);
        }
        parent = above->menu();
    }
    const QString caption = QString::fromLatin1(entry.caption);
    const bool separator = caption == u"-"_s;
    // A separator with a text would be drawn as the heading of a section.
    auto* action = new QAction(separator ? QString() : caption, menuBar());
    action->setObjectName(QString::fromLatin1(entry.name));
    action->setSeparator(separator);
    action->setVisible(entry.visible);
    action->setEnabled(entry.enabled);
    action->setMenuRole(QAction::NoRole);
    if (entry.shortcut)
        action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    if (entry.click)
        connect(action, &QAction::triggered, this, entry.click);
    if (entry.report != ReportType::None)
        connect(action, &QAction::triggered, this,
                [this, report = entry.report] { OpenReportRange(report); });
    if (parent)
        parent->addAction(action);
    else
        menuBar()->addAction(action);
}

void frmMain::LayoutToolbar() {
    auto* toolbar = new QToolBar(this);
    toolbar->setObjectName(u"Toolbar1"_s);
    toolbar->setWindowTitle(u"Toolbar"_s);
    toolbar->setMovable(false);
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const ToolButton& button : kToolButtons) {
        const QString key = QString::fromLatin1(button.key);
        auto* tool = new QToolButton(toolbar);
        tool->setObjectName(key);
        tool->setIcon(ProgramIcon(QString::fromLatin1(button.icon)));
        tool->setAccessibleName(button.tip ? QString::fromLatin1(button.tip) : key);
        if (button.tip)
            tool->setToolTip(QString::fromLatin1(button.tip));
        connect(tool, &QToolButton::clicked, this, [this, key] { Toolbar1_ButtonClick(key); });
        for (const DropdownItem& item : button.items) {
            if (!item.key)
                continue;
            if (!tool->menu()) {
                tool->setMenu(new QMenu(tool));
                tool->setPopupMode(QToolButton::MenuButtonPopup);
            }
            const QString itemKey = QString::fromLatin1(item.key);
            QAction* action = tool->menu()->addAction(QString::fromLatin1(item.caption));
            action->setObjectName(itemKey);
            connect(action, &QAction::triggered, this,
                    [this, itemKey] { Toolbar1_ButtonMenuClick(itemKey); });
        }
        toolbar->addWidget(tool);
    }
    addToolBar(toolbar);
}

/// The strip stands beside the toolbar, where the screens do not move when it appears.
void frmMain::LayoutPendingStrip() {
    auto* bar = new QToolBar(this);
    bar->setObjectName(u"PendingBar"_s);
    bar->setWindowTitle(u"Pending requests"_s);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    mPendingMonitor = new PendingMonitor(bar);
    mPendingMonitor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bar->addWidget(mPendingMonitor);
    addToolBar(bar);
}

void frmMain::LayoutStatusBar() {
    statusBar()->setObjectName(u"sbStatusBar"_s);
    mPanel1 = new StatusPanel(StatusPanel::Style::Text, u"Status"_s, this);
    mPanel1->SetText(u"Status"_s);
    // Kept: the load gives the next two panels the user's initial and name, and both go on showing date and
    // time.
    mPanel2 = new StatusPanel(StatusPanel::Style::Date, u"Panel2"_s, this);
    mPanel3 = new StatusPanel(StatusPanel::Style::Time, u"Panel3"_s, this);
    statusBar()->addWidget(mPanel1, 1);
    statusBar()->addPermanentWidget(mPanel2);
    statusBar()->addPermanentWidget(mPanel3);
}
