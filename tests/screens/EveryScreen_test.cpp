#include "screens/ScreenTable.h"
#include "screens/ScreenWalk.h"
#include "screens/WaysIn.h"
#include "support/CaseName.h"
#include "toolkit/DisplaySize.h"

#include <QApplication>
#include <QDirIterator>
#include <QMdiArea>
#include <QMdiSubWindow>
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

/// The room that a window's frame takes above it.
constexpr int kTitleBar = 24;

/// What a screen needs of the display, with the main window around it where it stands inside, at the place
/// where it opens.
QSize RoomOf(const QWidget& screen) {
    const auto* frame = qobject_cast<const QMdiSubWindow*>(screen.parentWidget());
    if (!frame)
        return screen.size() + QSize(0, kTitleBar);
    const QMdiArea& area = *frame->mdiArea();
    const QSize around = area.window()->size() - area.viewport()->size();
    // A screen without a place stands in the middle, in a smaller area too.
    const QPoint middle = QRect(QPoint(), area.viewport()->size() - frame->size()).center();
    const bool isPlaced = (frame->pos() - middle).manhattanLength() > 2;
    const QPoint place = isPlaced ? frame->pos() : QPoint();
    return around + QSize(place.x(), place.y()) + frame->size() + QSize(0, kTitleBar);
}

/// A report takes whatever there is.
bool TakesAll(const std::string& screen) {
    return screen == "frmReport" || screen == "frmReportviewer" || screen == "frmMain";
}

TEST_P(EveryScreen, FitsIntoTheRoomWithWhichTheDisplaySizeReckons) {
    if (TakesAll(GetParam().name))
        GTEST_SKIP() << "it is as large as the display lets it be";
    Open(GetParam(), [](const QWidget& screen) {
        const QSize room = RoomOf(screen);
        EXPECT_LE(room.width(), DisplaySize::kLargestScreen.width());
        EXPECT_LE(room.height(), DisplaySize::kLargestScreen.height());
        RecordProperty("width", room.width());
        RecordProperty("height", room.height());
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
