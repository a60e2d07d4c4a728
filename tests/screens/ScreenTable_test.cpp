#include "screens/ScreenTable.h"
#include "support/CaseName.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <ostream>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class TableFile {
  public:
    explicit TableFile(const QByteArray& text)
        : mPath(mFolder.filePath(u"table.txt"_s)) {
        QFile file(mPath);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            throw std::runtime_error("The table of the test cannot be written.");
    }
    const QString& Path() const { return mPath; }

  private:
    QTemporaryDir mFolder;
    QString mPath;
};

std::vector<ScreenSection> Read(const QByteArray& text) {
    return ReadScreenTable(TableFile(text).Path());
}

std::string ErrorOf(const QByteArray& text) {
    try {
        Read(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

constexpr auto kScreen = "screen | frmA | \"A\" | menu mnuA | modal\n";

} // namespace

TEST(ScreenTable, KeepsScreensAndControlsInTheirOrder) {
    const auto sections = Read("screen | frmB | - | start | not modal\n"
                               "screen | frmA | \"A \" | menu mnuA, toolbar A | modal\n"
                               "txtB | text box | \"B \" | yes | no | tab\n"
                               "txtA | grid | - | - | - | -\n"
                               "txtC | grid | - | - | - | no\n");
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].name, "frmB");
    EXPECT_EQ(sections[0].title, std::nullopt);
    EXPECT_THAT(sections[0].ways, ElementsAre(u"start"_s));
    EXPECT_FALSE(sections[0].isModal);
    EXPECT_EQ(sections[1].title, u"A "_s);
    EXPECT_THAT(sections[1].ways, ElementsAre(u"menu mnuA"_s, u"toolbar A"_s));
    EXPECT_TRUE(sections[1].isModal);
    ASSERT_EQ(sections[1].rows.size(), 3U);
    const ControlRow& box = sections[1].rows[0];
    EXPECT_EQ(box.name, u"txtB"_s);
    EXPECT_EQ(box.kind, u"text box"_s);
    EXPECT_EQ(box.caption, u"B "_s);
    EXPECT_EQ(box.visible, true);
    EXPECT_EQ(box.enabled, false);
    EXPECT_EQ(box.isTabStop, true);
    EXPECT_EQ(box.line, 3);
    const ControlRow& grid = sections[1].rows[1];
    EXPECT_EQ(grid.caption, std::nullopt);
    EXPECT_EQ(grid.visible, std::nullopt);
    EXPECT_EQ(grid.enabled, std::nullopt);
    EXPECT_EQ(grid.isTabStop, std::nullopt);
    EXPECT_EQ(sections[1].rows[2].isTabStop, false);
}

TEST(ScreenTable, PassesOverRemarksAndEmptyLines) {
    const auto sections = Read(QByteArray("# a remark | with cells\n\n") + kScreen + "  \n#txtA | x\n");
    ASSERT_EQ(sections.size(), 1U);
    EXPECT_TRUE(sections[0].rows.empty());
}

TEST(ScreenTable, FindsAControlWithoutANameByItsCaption) {
    EXPECT_EQ(Read(QByteArray(kScreen) + "- | label | \"X\" | yes | yes | -\n")[0].rows[0].name, QString());
}

TEST(ScreenTable, GathersTheNamesOfAScreensOwnControls) {
    const auto sections = Read(QByteArray(kScreen) + "own | cmdA  cmdB\nown | txtC\n");
    EXPECT_THAT(sections[0].own, ElementsAre(u"cmdA"_s, u"cmdB"_s, u"txtC"_s));
}

TEST(ScreenTable, TellsWhichFileItCannotOpen) {
    try {
        ReadScreenTable(u"/nowhere/table.txt"_s);
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_TRUE(std::string(error.what()).starts_with("table.txt:0: ")) << error.what();
    }
}

namespace {

struct BadLine {
    std::string name;
    /// Stands behind the line of a screen, in line 2.
    QByteArray text;
    std::string error;
};

void PrintTo(const BadLine& line, std::ostream* out) {
    *out << line.text.toStdString();
}

class BadLineTest : public testing::TestWithParam<BadLine> {};

} // namespace

TEST_P(BadLineTest, IsAnErrorWithFileAndLine) {
    EXPECT_EQ(ErrorOf(kScreen + GetParam().text), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    ScreenTable, BadLineTest,
    testing::Values(
        BadLine{"AControlWithTooFewCells", "txtA | grid | -", "table.txt:2: 3 cells instead of 6"},
        BadLine{"AScreenWithTooManyCells", "screen | frmB | - | start | modal | x",
                "table.txt:2: 6 cells instead of 5"},
        BadLine{"OwnControlsInTwoCells", "own | a | b", "table.txt:2: 3 cells instead of 2"},
        BadLine{"AnUnknownKind", "txtA | gird | - | yes | yes | -",
                "table.txt:2: no kind of control is called \"gird\""},
        BadLine{"ACaptionWithoutQuotes", "txtA | label | X | yes | yes | -",
                "table.txt:2: X is neither \"-\" nor in quotes"},
        BadLine{"ACaptionWithOneQuote", "txtA | label | \" | yes | yes | -",
                "table.txt:2: \" is neither \"-\" nor in quotes"},
        BadLine{"ANeitherYesNorNo", "txtA | label | - | ja | yes | -",
                "table.txt:2: \"ja\" is neither \"yes\" nor \"no\""},
        BadLine{"AnUnknownTabStop", "txtA | label | - | yes | yes | yes",
                "table.txt:2: \"yes\" is neither \"tab\" nor \"no\""},
        BadLine{"AScreenNeitherModalNorNot", "screen | frmB | - | start | yes",
                "table.txt:2: \"yes\" is neither \"modal\" nor \"not modal\""},
        BadLine{"NeitherNameNorCaption", "- | label | - | yes | yes | -",
                "table.txt:2: a control without a name is found by the caption on it"},
        BadLine{"NoNameAndAKindWithoutACaption", "- | grid | \"X\" | yes | yes | -",
                "table.txt:2: a control without a name is found by the caption on it"},
        BadLine{"AScreenTwice", "screen | frmA | - | start | modal", "table.txt:2: frmA stands twice"},
        BadLine{"AControlTwice", "txtA | grid | - | yes | yes | -\ntxtA | grid | - | yes | yes | -",
                "table.txt:3: txtA stands twice"},
        BadLine{"AnOwnControlTwice", "txtA | grid | - | yes | yes | -\nown | txtA",
                "table.txt:3: txtA stands twice"}),
    CaseName());

TEST(ScreenTable, TakesNoControlBeforeTheFirstScreen) {
    EXPECT_EQ(ErrorOf("txtA | grid | - | yes | yes | -\n"), "table.txt:1: a control before the first screen");
    EXPECT_EQ(ErrorOf("own | txtA\n"), "table.txt:1: a control before the first screen");
}
