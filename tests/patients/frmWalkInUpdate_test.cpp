#include "patients/WalkInUpdateGround.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

TEST_F(WalkInUpdateTest, EveryInputIsSpoken) {
    const auto& screen = Open();
    for (const char* name : {"cmbSearchBy", "txtSearch", "grdTable", "txtHospNum", "txtLastName",
                             "txtFirstName", "txtMiddleName", "dtpBirthDate", "txtAge", "cmbSex", "cmbCivil",
                             "txtAddress1", "txtAddress2", "txtAddress3", "txtZipCode", "cmdZipCode"})
        EXPECT_FALSE(Find<QWidget>(screen, name).accessibleName().isEmpty()) << name;
}

TEST_F(WalkInUpdateTest, OpensOnTheListWithItsCombosFilledAndAnEmptyPicker) {
    const auto& screen = Open();
    const auto entries = [&](const char* name) {
        QStringList texts;
        for (int i = 0; i < Combo(screen, name).count(); ++i)
            texts << Combo(screen, name).itemText(i);
        return texts;
    };
    EXPECT_EQ(entries("cmbSearchBy"), QStringList({u"Last Name"_s, u"Hospital #"_s}));
    EXPECT_EQ(entries("cmbSex"), QStringList({u"MALE"_s, u"FEMALE"_s}));
    EXPECT_EQ(entries("cmbCivil"), QStringList({u"CHILD"_s, u"SINGLE"_s, u"MARRIED"_s, u"WIDOW/ER"_s,
                                                u"SEPARATED"_s, u"DIVORCED"_s, u""_s}));
    EXPECT_EQ(Combo(screen, "cmbSearchBy").currentIndex(), 0);
    EXPECT_EQ(Tab(screen), 0);
    EXPECT_FALSE(Button(screen, "cmdEdit").isEnabled());
    EXPECT_EQ(Picker(screen).Value(), std::nullopt);
    EXPECT_TRUE(Box(screen, "txtSearch").hasFocus());
}

TEST_F(WalkInUpdateTest, ListThatNobodyHasFilledShowsNeitherHeadingsNorAMark) {
    const auto& grid = Find<FlexGrid>(Open(), "grdTable");
    EXPECT_TRUE(grid.Cells().IsUnfilled());
    EXPECT_FALSE(grid.horizontalHeader()->isVisible());
    EXPECT_FALSE(grid.verticalHeader()->isVisible());
}

TEST_F(WalkInUpdateTest, EachActivationGivesTheSearchTheFocus) {
    auto& screen = Open();
    Combo(screen, "cmbSearchBy").setFocus();
    ASSERT_FALSE(Box(screen, "txtSearch").hasFocus());
    Screens::Get<Form>().Show();
    screen.Show();
    Activate(screen);
    EXPECT_TRUE(Box(screen, "txtSearch").hasFocus());
}

TEST_F(WalkInUpdateTest, EmptyPickerStartsFromToday) {
    const auto& screen = Open();
    GoToRecord(screen);
    Press(Picker(screen), Qt::Key_Up);
    EXPECT_EQ(Picker(screen).Value(), DateTime::FromFields({.year = 2026, .month = 11, .day = 21}));
}

TEST_F(WalkInUpdateTest, SearchTextIsUpperCasedAndSentAsItStands) {
    const auto& screen = Open();
    Type(Box(screen, "txtSearch"), u" o'brieñ "_s);
    EXPECT_EQ(Box(screen, "txtSearch").text(), u" O'BRIEÑ "_s);
    gateway.Expect(ListWalkInCommand(u"0"_s, u" O'BRIEÑ "_s), NoWalkIns());
    Press(Box(screen, "txtSearch"), Qt::Key_Return);
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings().back().location, CursorLocation::Client);
}

TEST_F(WalkInUpdateTest, SearchByNumberSendsItsIndex) {
    const auto& screen = Open();
    Combo(screen, "cmbSearchBy").setCurrentIndex(1);
    Type(Box(screen, "txtSearch"), u"w000002"_s);
    gateway.Expect(ListWalkInCommand(u"1"_s, u"W000002"_s), NoWalkIns());
    Press(Box(screen, "txtSearch"), Qt::Key_Return);
}

TEST_F(WalkInUpdateTest, ListShowsItsColumnsAndGivesTheFocusBack) {
    const auto& screen = Open();
    List(screen);
    const FlexGrid& grid = Grid(screen);
    const std::vector<int> widths = {0, 1500, 2250, 2250, 2250};
    for (int col = 0; col < 5; ++col)
        EXPECT_EQ(grid.ColWidth(col), widths[size_t(col)]);
    const QStringList heads = {u"Hospital #"_s, u"Last Name"_s, u"First Name"_s, u"Middle Name"_s};
    for (int col = 1; col < 5; ++col)
        EXPECT_EQ(grid.Cells().TextMatrix(0, col), heads[col - 1]);
    EXPECT_EQ(grid.Cells().Rows(), 3);
    EXPECT_EQ(grid.Cells().TextMatrix(2, 3), u"BEN"_s);
    EXPECT_TRUE(grid.Redraw());
    EXPECT_TRUE(Button(screen, "cmdEdit").isEnabled());
    EXPECT_TRUE(Box(screen, "txtSearch").hasFocus());
}

TEST_F(WalkInUpdateTest, SearchWithoutAHitDisablesTheEdit) {
    const auto& screen = Open();
    List(screen);
    gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), NoWalkIns());
    Press(Box(screen, "txtSearch"), Qt::Key_Return);
    EXPECT_FALSE(Button(screen, "cmdEdit").isEnabled());
    EXPECT_EQ(Grid(screen).Cells().Rows(), 1) << "the headings alone";
    EXPECT_EQ(Grid(screen).Cells().TextMatrix(0, 1), u"Hospital #"_s);
    Press(Grid(screen), Qt::Key_Return);
    EXPECT_EQ(Tab(screen), 0);
}

TEST_F(WalkInUpdateTest, DownArrowGoesToTheList) {
    const auto& screen = Open();
    List(screen);
    Press(Box(screen, "txtSearch"), Qt::Key_Down);
    EXPECT_TRUE(Grid(screen).hasFocus());
}

TEST_F(WalkInUpdateTest, EditLoadsTheRecordOfTheCurrentRow) {
    const auto& screen = Open();
    Load(screen);
    EXPECT_EQ(Tab(screen), 1);
    const std::vector<std::pair<const char*, QString>> boxes = {
        {"txtHospNum", u"W000002"_s},
        {"txtLastName", u"CRUZ"_s},
        {"txtFirstName", u"BEN"_s},
        {"txtMiddleName", u"TAN"_s},
        {"txtAge", u"42"_s},
        {"txtAddress1", u"12 RIZAL ST."_s},
        {"txtAddress2", u"POBLACION"_s},
        {"txtAddress3", u"QUEZON CITY, METRO MANILA"_s},
        {"txtZipCode", u"1100"_s}};
    for (const auto& [name, text] : boxes)
        EXPECT_EQ(Box(screen, name).text(), text) << name;
    EXPECT_EQ(Picker(screen).Value(), DateTime::FromFields({.year = 1984, .month = 2, .day = 29}));
    EXPECT_EQ(Combo(screen, "cmbSex").currentIndex(), 0);
    EXPECT_EQ(Combo(screen, "cmbCivil").currentIndex(), 2);
    EXPECT_TRUE(Box(screen, "txtLastName").hasFocus());
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings().back().location, CursorLocation::Server) << "only the list is bound";
}

TEST_F(WalkInUpdateTest, EnterAndDoubleClickInTheListEdit) {
    const auto& screen = Open();
    List(screen);
    gateway.Expect(LoadWalkInCommand(u"W000001"_s), Record());
    Press(Grid(screen), Qt::Key_Return);
    EXPECT_EQ(Tab(screen), 1);
    Find<QTabWidget>(screen, "ssWalkIn").setCurrentIndex(0);
    gateway.Expect(LoadWalkInCommand(u"W000002"_s), Record());
    FlexGrid& grid = Grid(screen);
    DoubleClick(*grid.viewport(), grid.CellRect(2, 2).center() - grid.viewport()->pos());
    EXPECT_EQ(Tab(screen), 1);
}

TEST_F(WalkInUpdateTest, RecordThatIsGoneLeavesTheBoxesAndStillGoesToTheTab) {
    const auto& screen = Open();
    Box(screen, "txtLastName").setText(u"BEFORE"_s);
    Load(screen, Rows({u"HospNum"_s}));
    EXPECT_EQ(Tab(screen), 1);
    EXPECT_EQ(Box(screen, "txtLastName").text(), u"BEFORE"_s);
}

TEST_F(WalkInUpdateTest, EverySexButMIsFemale) {
    const auto& screen = Open();
    Load(screen, Record({{u"Sex"_s, u"X"_s}}));
    EXPECT_EQ(Combo(screen, "cmbSex").currentIndex(), 1);
}

TEST_F(WalkInUpdateTest, EmptyCivilStatusIsTheEmptyEntry) {
    const auto& screen = Open();
    Load(screen, Record({{u"CivilStatusid"_s, u""_s}}));
    EXPECT_EQ(Combo(screen, "cmbCivil").currentIndex(), 6);
}

TEST_F(WalkInUpdateTest, CivilStatusOutsideOfTheListIsAnError) {
    const auto& screen = Open();
    Load(screen, Record({{u"CivilStatusid"_s, u"7"_s}}));
    EXPECT_EQ(TakeFailure(), 380);
    EXPECT_EQ(Tab(screen), 0);
}

TEST_F(WalkInUpdateTest, NullNameIsAnError) {
    const auto& screen = Open();
    Load(screen, Record({{u"MiddleName"_s, Value()}}));
    EXPECT_EQ(TakeFailure(), 94);
}

TEST_F(WalkInUpdateTest, LoadTellsNothingOfTheAge) {
    const auto& screen = Open();
    Load(screen, Record({{u"Age"_s, u"17"_s}}));
    EXPECT_EQ(Box(screen, "txtAge").text(), u"17"_s);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(WalkInUpdateTest, CloseAsksNothingAndSavesNothing) {
    const auto& screen = Open();
    Load(screen);
    Click(Button(screen, "cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmWalkInUpdate>());
}
