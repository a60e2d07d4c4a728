#include "desk/Desk.h"

#include <QFile>

#include <set>

using namespace Qt::StringLiterals;

// Each window and screen of the program, opened as the clerk opens it and looked at.

namespace {

/// The screens that the table of screens tells.
QStringList ScreensOfTheTable() {
    QFile table(u"" TARVEN_SOURCE_DIR "/tests/screens/screens.txt"_s);
    QStringList screens;
    if (!table.open(QIODevice::ReadOnly))
        return screens;
    for (const QString& line : QString::fromUtf8(table.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'|');
        if (cells.front().trimmed() == "screen"_L1)
            screens << cells.value(1).trimmed();
    }
    return screens;
}

class EveryScreen : public WayDesk {};
class EveryTabStop : public WayDesk {};

TEST_P(EveryScreen, CutsNothingLiesInsideAndShowsTheFocus) {
    const QString screen = GoThere();
    ExpectNothingCut(screen);
    ExpectInside(screen);
    ExpectAFocus();
    ExpectFocusIsSeen();
}

/// What a control looks like does not depend on the window manager.
TEST_P(EveryTabStop, ShowsTheFocus) {
    GoThere();
    ExpectEachFocusIsSeen();
}

TEST(WaysToTheScreens, LeadToEveryScreenOfTheTable) {
    std::set<std::string> ends;
    for (const Way& way : EveryWay())
        ends.insert(way.End());
    const QStringList screens = ScreensOfTheTable();
    EXPECT_FALSE(screens.isEmpty());
    for (const QString& screen : screens)
        EXPECT_TRUE(ends.contains(screen.toStdString())) << "no way leads to " << screen.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Under, EveryScreen,
                         testing::Combine(testing::ValuesIn(kWindowManagers), testing::ValuesIn(EveryWay())),
                         WayName());
INSTANTIATE_TEST_SUITE_P(Under, EveryTabStop,
                         testing::Combine(testing::Values(WindowManager::None),
                                          testing::ValuesIn(EveryWay())),
                         WayName());

} // namespace
