#include "shell/frmMain.h"
#include "shell/MenuTree.h"
#include "support/ScreenTest.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <ostream>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Item {
    int level;
    QString name;
    QString caption;
    QString shortcut = {};
    bool visible = true;
    bool enabled = true;

    bool operator==(const Item&) const = default;
};

void PrintTo(const Item& item, std::ostream* out) {
    *out << item.level << " " << item.name.toStdString() << " \"" << item.caption.toStdString() << "\" "
         << item.shortcut.toStdString() << (item.visible ? "" : " hidden")
         << (item.enabled ? "" : " disabled");
}

/// The menu as it stands at the start, line by line.
std::vector<Item> WantedTree() {
    return {
        {1, u"mnuRequest"_s, u"Re&quest"_s},
        {2, u"mnuAssessment"_s, u"&Assessment"_s, u"Ctrl+A"_s},
        {2, u"mnuSep3"_s, u"-"_s},
        {2, u"mnuInTransactionEntry"_s, u"In-Patient Trans Entry"_s},
        {2, u"mnuOutTransaction"_s, u"Out-Patient Trans Entry"_s},
        {.level = 2, .name = u"mnuCash"_s, .caption = u"Cash Patient"_s, .visible = false, .enabled = false},
        {2, u"mnusep"_s, u"-"_s},
        {2, u"mnuExit"_s, u"E&xit"_s, u"Ctrl+X"_s},
        {.level = 1, .name = u"mnuResult"_s, .caption = u"&Results"_s, .visible = false, .enabled = false},
        {2, u"mnuResultEntry"_s, u"Result &Entry"_s, u"Ctrl+E"_s},
        {.level = 2, .name = u"mnuRandomResult"_s, .caption = u"Random - &Result Entry"_s, .enabled = false},
        {2, u"mnuSep2"_s, u"-"_s},
        {2, u"mnuResultInquiry"_s, u"Result Inquiry"_s},
        {1, u"mnuReport"_s, u"Re&ports"_s},
        {2, u"mnuReportAudit"_s, u"Audit Report"_s},
        {2, u"mnuIncome"_s, u"Income Report"_s},
        {3, u"mnuOPDIncome"_s, u"OPD Income Report"_s},
        {3, u"mnuIPDIncomeReport"_s, u"IPD Income Report"_s},
        {3, u"mnuCashIncome"_s, u"Cash Income Report"_s},
        {2, u"mnuReportMonthly"_s, u"Monthly Summary Report"_s},
        {2, u"mnuCompany"_s, u"Monthly Company Report"_s},
        {3, u"mnuIn"_s, u"In Patient"_s},
        {3, u"mnuOut"_s, u"Out Patient"_s},
        {2, u"mnuCensus"_s, u"Inpatient Census"_s},
        {2, u"mnuseparators"_s, u"-"_s},
        {2, u"mnuLedger"_s, u"Patient Ledger"_s},
        {.level = 1, .name = u"mnuMLedger"_s, .caption = u"Patient's Ledger"_s, .enabled = false},
        {1, u"mnuMaintenance"_s, u"Maintenance"_s},
        {2, u"mnuReportStatus"_s, u"Assessment Status"_s},
        {2, u"mnuListCharges"_s, u"List of Charges"_s},
        {.level = 2, .name = u"mnuDuplicate"_s, .caption = u"Charge Slip Duplicate"_s, .enabled = false},
        {1, u"mModule"_s, u"Module"_s},
        {2, u"mSetup"_s, u"Setup"_s},
        {2, u"mnuAbout"_s, u"&About"_s},
    };
}

void Collect(const QWidget& menu, int level, std::vector<Item>& items) {
    for (const QAction* action : menu.actions()) {
        items.push_back({level, action->objectName(), action->isSeparator() ? u"-"_s : action->text(),
                         action->shortcut().toString(QKeySequence::PortableText), action->isVisible(),
                         action->isEnabled()});
        if (const QMenu* submenu = action->menu())
            Collect(*submenu, level + 1, items);
    }
}

using MenuTree = ScreenTest;

TEST_F(MenuTree, OfTheMainWindowIsThisOne) {
    frmMain window;
    // Nothing of the hidden menu stands in the bar.
    auto* hidden = window.findChild<QAction*>(u"mnuResult"_s);
    ASSERT_FALSE(window.menuBar()->actions().contains(hidden));
    window.menuBar()->insertAction(window.findChild<QAction*>(u"mnuReport"_s), hidden);
    std::vector<Item> items;
    Collect(*window.menuBar(), 1, items);
    const std::vector<Item> wanted = WantedTree();
    ASSERT_EQ(items.size(), wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(items[i], wanted[i]);
}

TEST_F(MenuTree, NamesEachEntryOnce) {
    const frmMain window;
    for (const Item& item : WantedTree())
        EXPECT_EQ(window.findChildren<QAction*>(item.name).size(), 1) << item.name.toStdString();
}

TEST_F(MenuTree, DrawsItsSeparatorsAsLinesWithoutAHeading) {
    const frmMain window;
    int separators = 0;
    for (const QAction* action : window.findChildren<QAction*>())
        if (action->isSeparator() && !action->objectName().isEmpty()) {
            EXPECT_EQ(action->text(), QString()) << action->objectName().toStdString();
            ++separators;
        }
    EXPECT_EQ(separators, 4);
}

TEST_F(MenuTree, TheLedgersEntryOfTheBarIsClickedAndOpensNoMenu) {
    const frmMain window;
    const auto* entry = window.findChild<QAction*>(u"mnuMLedger"_s);
    EXPECT_EQ(entry->menu(), nullptr);
    EXPECT_TRUE(window.menuBar()->actions().contains(entry));
}

} // namespace
