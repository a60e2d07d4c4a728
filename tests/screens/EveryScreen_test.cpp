#include "screens/ScreenTable.h"
#include "screens/ScreenWalk.h"
#include "screens/WaysIn.h"
#include "support/CaseName.h"

#include <QApplication>
#include <QDirIterator>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

// Every screen of the program is opened as the clerk opens it and compared with the table of screens.

namespace {

std::vector<ScreenSection> Table() {
    return ReadScreenTable(QStringLiteral(TARVEN_SOURCE_DIR "/tests/screens/screens.txt"));
}

/// A table that cannot be read has no cases here; AllScreens.HaveATableThatCanBeRead says why.
std::vector<ScreenSection> ReadableTable() {
    try {
        return Table();
    } catch (const std::exception&) {
        return {};
    }
}

using AllScreens = testing::Test;

TEST_F(AllScreens, HaveATableThatCanBeRead) {
    EXPECT_FALSE(Table().empty());
}

TEST_F(AllScreens, HaveASectionOfTheTable) {
    std::set<std::string> told;
    for (const ScreenSection& section : Table())
        told.insert(section.name);
    QDirIterator headers(QStringLiteral(TARVEN_SOURCE_DIR "/src"), {u"frm*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    ASSERT_TRUE(headers.hasNext());
    while (headers.hasNext()) {
        headers.next();
        const std::string screen = headers.fileInfo().baseName().toStdString();
        EXPECT_TRUE(told.contains(screen)) << screen << " is not in the table";
    }
}

class EveryScreen : public WaysIn, public testing::WithParamInterface<ScreenSection> {};

TEST_P(EveryScreen, StandsAsInTheTableRightAfterItOpens) {
    Open(GetParam(), [](const QWidget& screen) {
        const QStringList faults = ScreenWalk(screen, GetParam()).Faults();
        EXPECT_TRUE(faults.isEmpty()) << faults.join(u'\n').toStdString();
    });
}

/// A control by its name, for a failure's text.
std::string NameOf(const QWidget* control) {
    return control ? control->objectName().toStdString() : "nothing";
}

constexpr int kMostControls = 60;

TEST_P(EveryScreen, ShiftTabGoesBackToWhereTabCameFrom) {
    if (GetParam().name == "frmSearcher")
        GTEST_SKIP() << "its box searches each time that the focus comes to it";
    Open(GetParam(), [](const QWidget& screen) {
        if (!screen.focusWidget())
            return;
        ASSERT_TRUE(QTest::qWaitFor([&screen] { return screen.isAncestorOf(QApplication::focusWidget()); }));
        const QWidget* first = QApplication::focusWidget();
        for (int i = 0; i < kMostControls; ++i) {
            QWidget* from = QApplication::focusWidget();
            ASSERT_TRUE(from && screen.isAncestorOf(from)) << "the focus is at " << NameOf(from);
            QTest::keyClick(from, Qt::Key_Tab);
            QWidget* to = QApplication::focusWidget();
            ASSERT_NE(to, nullptr) << "Tab leads nowhere from " << NameOf(from);
            QTest::keyClick(to, Qt::Key_Backtab, Qt::ShiftModifier);
            EXPECT_EQ(QApplication::focusWidget(), from)
                << "Shift+Tab leads from " << NameOf(to) << " to " << NameOf(QApplication::focusWidget())
                << " and not back to " << NameOf(from);
            to->setFocus();
            if (to == first)
                return;
        }
    });
}

TEST_P(EveryScreen, IsLeftByEscape) {
    if (GetParam().name == "frmMain")
        GTEST_SKIP() << "the main window ends by its menu";
    Open(GetParam(), [this](const QWidget& screen) {
        if (GetParam().name == "frmAssessment" || GetParam().name == "frmCashWalkInPatient")
            messages.Expect({.text = u"Are you sure to close this program?"_s,
                             .icon = MsgIcon::Question,
                             .title = u"OPD Registration System"_s,
                             .buttons = MsgButtons::OkCancel});
        QWidget* focus = screen.focusWidget();
        QTest::keyClick(focus ? focus : &const_cast<QWidget&>(screen), Qt::Key_Escape);
        EXPECT_FALSE(screen.isVisible()) << "from " << NameOf(focus);
    });
}

INSTANTIATE_TEST_SUITE_P(Screens, EveryScreen, testing::ValuesIn(ReadableTable()), CaseName());

} // namespace
