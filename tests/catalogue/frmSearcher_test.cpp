#include "catalogue/commands.h"
#include "catalogue/frmSearcher.h"
#include "patients/PatientContext.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"
#include "toolkit/TextBox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

class frmSearcherTest : public ScreenTest {
  protected:
    frmSearcherTest() {
        gUltraExam = u"BEFORE"_s;
        gUltraExamID = u"US000"_s;
    }

    static std::shared_ptr<const RowData> All() {
        return Rows({u"UtraExam"_s, u"UltraExamId"_s},
                    {{u"KUB"_s, u"US001"_s}, {u"LIVER"_s, u"US002"_s}, {u"PELVIS"_s, u"US003"_s}});
    }
    static std::shared_ptr<const RowData> Found(std::vector<std::vector<Value>> rows) {
        return Rows({u"ultraexam"_s, u"ultraexamid"_s}, std::move(rows));
    }
    void ExpectSearch(const QString& text, std::shared_ptr<const RowData> rows) {
        gateway.Expect(SearchUltraExamCommand(text), std::move(rows));
    }
    /// The load lists all; the box then takes the focus and searches.
    frmSearcher& Open() {
        gateway.Expect(UltraExamsCommand(), All());
        auto& screen = Screens::Get<frmSearcher>();
        ExpectSearch(u""_s, Found({{u"KUB"_s, u"US001"_s}, {u"LIVER"_s, u"US002"_s}}));
        screen.Show();
        Activate(screen);
        RunEvents();
        return screen;
    }
    static QLineEdit& Text(const Form& screen) { return Find<QLineEdit>(screen, "txtSearchStr"); }
    static FlexGrid& Grid(const Form& screen) { return Find<FlexGrid>(screen, "grdDispWindow"); }
    static QPushButton& Button(const Form& screen, const char* name) {
        return Find<QPushButton>(screen, name);
    }
};

TEST_F(frmSearcherTest, BoxAndListAreSpoken) {
    const auto& screen = Open();
    for (const char* name : {"txtSearchStr", "grdDispWindow"})
        EXPECT_FALSE(Find<QWidget>(screen, name).accessibleName().isEmpty()) << name;
}

TEST_F(frmSearcherTest, LoadListsEveryExamination) {
    gateway.Expect(UltraExamsCommand(), All());
    const auto& screen = Screens::Get<frmSearcher>();
    const FlexGrid& grid = Grid(screen);
    EXPECT_EQ(grid.ColWidth(0), 100);
    EXPECT_EQ(grid.ColWidth(1), 4200);
    EXPECT_EQ(grid.ColWidth(2), 1500);
    EXPECT_EQ(grid.Cells().Rows(), 4);
    EXPECT_EQ(grid.Cells().TextMatrix(3, 2), u"US003"_s);
    EXPECT_EQ(grid.Cells().TextMatrix(0, 1), u"UtraExam"_s) << "the fields' names are the headings";
}

TEST_F(frmSearcherTest, FocusSearchesWithTheTextOfTheBox) {
    const auto& screen = Open();
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(Grid(screen).Cells().Rows(), 3);
    Text(screen).setText(u"LI"_s);
    Grid(screen).setFocus();
    ExpectSearch(u"LI"_s, Found({{u"LIVER"_s, u"US002"_s}}));
    Text(screen).setFocus();
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
}

TEST_F(frmSearcherTest, EachKeySearchesWithItAndLeavesTheBox) {
    const auto& screen = Open();
    ExpectSearch(u"k"_s, Found({{u"KUB"_s, u"US001"_s}}));
    Type(Text(screen), u"k"_s);
    EXPECT_TRUE(Grid(screen).hasFocus()) << "a key typed ahead finds the box left already";
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(Text(screen).text(), u"k"_s) << "letters stay as they are keyed";
    EXPECT_TRUE(Grid(screen).hasFocus());
    EXPECT_EQ(Grid(screen).Cells().Rows(), 2);
    EXPECT_TRUE(Screens::IsLoaded<frmSearcher>()) << "the key itself picks nothing";
}

TEST_F(frmSearcherTest, APastedTextIsSearchedForOnceAsAWhole) {
    const auto& screen = Open();
    QGuiApplication::clipboard()->setText(u"kub"_s + QString(1 << 20, u'x'));
    const QString whole = u"kub"_s + QString(Text(screen).maxLength() - 3, u'x');
    ExpectSearch(u""_s, All());
    ExpectSearch(whole, Found({}));
    qobject_cast<TextBox*>(&Text(screen))->paste();
    RunEvents();
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(Text(screen).text(), whole);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_TRUE(Screens::IsLoaded<frmSearcher>()) << "none of its characters picks";
}

TEST_F(frmSearcherTest, BackspaceSearchesWithoutTheLastLetter) {
    const auto& screen = Open();
    ExpectSearch(u"k"_s, Found({{u"KUB"_s, u"US001"_s}}));
    Type(Text(screen), u"k"_s);
    ExpectSearch(u"k"_s, Found({{u"KUB"_s, u"US001"_s}}));
    Text(screen).setFocus();
    ExpectSearch(u""_s, All());
    Press(Text(screen), Qt::Key_Backspace);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(Text(screen).text(), QString());
}

TEST_F(frmSearcherTest, ApostropheReachesTheQueryAsItIs) {
    const auto& screen = Open();
    gateway.ExpectFailure(SearchUltraExamCommand(u"'"_s), RunTimeError(102, u"Incorrect syntax near '%'."_s));
    Type(Text(screen), u"'"_s);
    RunEvents();
    EXPECT_EQ(TakeFailure(), 102);
}

TEST_F(frmSearcherTest, SelectTakesTheCurrentRow) {
    const auto& screen = Open();
    Grid(screen).Cells().SetRow(2);
    gateway.Expect(UltraExamsCommand(), All());
    Click(Button(screen, "cmdSelect"));
    EXPECT_EQ(gUltraExam, u"LIVER"_s);
    EXPECT_EQ(gUltraExamID, u"US002"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearcher>());
}

TEST_F(frmSearcherTest, AnyKeyInTheListPicks) {
    const auto& screen = Open();
    Press(Grid(screen), Qt::Key_Down);
    EXPECT_TRUE(Screens::IsLoaded<frmSearcher>()) << "an arrow is no character";
    gateway.Expect(UltraExamsCommand(), All());
    Type(Grid(screen), u"x"_s);
    EXPECT_EQ(gUltraExamID, u"US002"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearcher>());
}

TEST_F(frmSearcherTest, DoubleClickPicks) {
    const auto& screen = Open();
    gateway.Expect(UltraExamsCommand(), All());
    FlexGrid& grid = Grid(screen);
    DoubleClick(*grid.viewport(), grid.CellRect(2, 1).center() - grid.viewport()->pos());
    EXPECT_EQ(gUltraExam, u"LIVER"_s);
}

TEST_F(frmSearcherTest, PickFromAnEmptyTableLeavesTheFormerOne) {
    const auto& screen = Open();
    gateway.Expect(UltraExamsCommand(), Found({}));
    Click(Button(screen, "cmdSelect"));
    EXPECT_EQ(gUltraExam, u"BEFORE"_s);
    EXPECT_EQ(gUltraExamID, u"US000"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearcher>());
}

TEST_F(frmSearcherTest, PickWithoutAnyExaminationOnFileLeavesTheFormerOne) {
    gateway.Expect(UltraExamsCommand(), Found({}));
    auto& screen = Screens::Get<frmSearcher>();
    ExpectSearch(u""_s, Found({}));
    screen.Show();
    Activate(screen);
    RunEvents();
    EXPECT_EQ(Grid(screen).Cells().Rows(), 1);
    gateway.Expect(UltraExamsCommand(), Found({}));
    Type(Grid(screen), u"x"_s);
    EXPECT_EQ(gUltraExam, u"BEFORE"_s);
    EXPECT_EQ(gUltraExamID, u"US000"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearcher>());
}

TEST_F(frmSearcherTest, PickFromAnEmptyListTakesNoHeading) {
    const auto& screen = Open();
    ExpectSearch(u"z"_s, Found({}));
    Type(Text(screen), u"z"_s);
    RunEvents();
    gateway.Expect(UltraExamsCommand(), All());
    Click(Button(screen, "cmdSelect"));
    EXPECT_EQ(gUltraExam, u""_s);
    EXPECT_EQ(gUltraExamID, u""_s);
}

TEST_F(frmSearcherTest, CancelEmptiesTheCodeAlone) {
    const auto& screen = Open();
    Click(Button(screen, "cmdCancel"));
    EXPECT_EQ(gUltraExam, u"BEFORE"_s);
    EXPECT_EQ(gUltraExamID, u""_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearcher>());
}
