#include "screens/ScreenTable.h"
#include "screens/ScreenWalk.h"
#include "screens/WaysIn.h"
#include "support/CaseName.h"

#include <QDirIterator>

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

INSTANTIATE_TEST_SUITE_P(Screens, EveryScreen, testing::ValuesIn(ReadableTable()), CaseName());

} // namespace
