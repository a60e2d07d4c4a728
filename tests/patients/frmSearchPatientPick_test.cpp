#include "patients/SearchPatientGround.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

// What a click, a double click and a key in the finder's list do.

namespace {

const Message kClosed{
    .text = u"Patient's Account has already been closed, If you have charges to adjust, pls. notify "
            "the billing for further instructions."_s,
    .icon = MsgIcon::Exclamation,
    .title = u"Message"_s};

} // namespace

class PickTest : public SearchPatientGround {};

class PickInModeTest : public PickTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Modes, PickInModeTest, testing::Values("Post", "List", "Ledger"),
                         [](const auto& mode) { return std::string(mode.param); });

TEST_P(PickInModeTest, ClosedAccountIsRefused) {
    const auto& finder =
        Open(QString::fromLatin1(GetParam()), {{u"300"_s, u"A3"_s, u"CRUZ"_s, Value(), u"x"_s}});
    FakeFinderTarget& target = targets[QString::fromLatin1(GetParam())];
    ExpectList(target.finderText, {});
    messages.Expect(kClosed);
    DoubleClickRow(finder, 0);
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_TRUE(target.boxes.empty());
    EXPECT_EQ(target.picked, 0);
    EXPECT_EQ(gHospitalNumber, u"300"_s);
    EXPECT_EQ(gIDNumber, u"A3"_s);
    EXPECT_TRUE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(finder.isVisible());
    EXPECT_EQ(Names(finder), std::vector<QString>{u"CRUZ"_s});
}

TEST_P(PickInModeTest, PickLoadsIntoTheWaitingScreenAndClosesTheFinder) {
    const auto& finder = Open(QString::fromLatin1(GetParam()), three);
    FakeFinderTarget& target = targets[QString::fromLatin1(GetParam())];
    ExpectList(target.finderText, three);
    ExpectLoad(u"A1"_s);
    DoubleClickRow(finder, 1);
    EXPECT_EQ(target.boxes[u"txtLastName"_s], u"DELA CRUZ"_s);
    EXPECT_EQ(target.boxes.contains(u"txtIDNum"_s), GetParam() == std::string("Ledger"));
    EXPECT_EQ(target.picked, 1);
    EXPECT_EQ(gHospitalNumber, u"100"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_FALSE(LedgerItemIsEnabled());
}

TEST_P(PickInModeTest, PatientNotFoundGivesNoMessageAndTheWaitingScreenIsShownAllTheSame) {
    personFinder->hasAdmission = false;
    const auto& finder = Open(QString::fromLatin1(GetParam()), three);
    FakeFinderTarget& target = targets[QString::fromLatin1(GetParam())];
    ExpectList(target.finderText, three);
    ExpectLoad(u"A1"_s);
    DoubleClickRow(finder, 1);
    EXPECT_TRUE(target.boxes.empty());
    EXPECT_EQ(target.picked, 1);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(PickTest, PickInAnUnknownModeFaultsOnTheClosedRows) {
    const auto& finder = Open(u"Census"_s, {});
    Find<QLineEdit>(finder, "txtLastName").setText(u"C"_s);
    ExpectList(u"C"_s, three);
    Click(Find<QPushButton>(finder, "cmdSearch"));
    DoubleClickRow(finder, 0);
    EXPECT_EQ(TakeFailure(), RunTime::kObjectClosed);
}

TEST_F(PickTest, PickGoesByTheModeOfItsMoment) {
    const auto& finder = Open(u"Post"_s, three);
    gChargeMode = u"List"_s;
    ExpectList(u"List text"_s, three);
    ExpectLoad(u"A1"_s);
    DoubleClickRow(finder, 1);
    EXPECT_EQ(targets[u"List"_s].picked, 1);
    EXPECT_TRUE(targets[u"Post"_s].boxes.empty());
}

TEST_F(PickTest, WaitingScreenIsAskedForAfreshAtThePick) {
    const auto& finder = Open(u"Post"_s, three);
    // The screen that opened the finder was closed meanwhile; a fresh one has an empty field.
    FakeFinderTarget fresh(u"Post"_s);
    RegisterFinderTarget(u"Post"_s, [&fresh]() -> FinderTarget& { return fresh; });
    ExpectList(u""_s, three);
    ExpectLoad(u"A1"_s);
    DoubleClickRow(finder, 1);
    EXPECT_EQ(fresh.boxes[u"txtLastName"_s], u"DELA CRUZ"_s);
    EXPECT_TRUE(targets[u"Post"_s].boxes.empty());
}

TEST_F(PickTest, PickAfterASortTakesTheRowThatIsShown) {
    const auto& finder = Open(u"Post"_s, three);
    ClickHeader(finder, 2);
    ClickRow(finder, 2);
    EXPECT_EQ(gIDNumber, u"A2"_s);
}

TEST_F(PickTest, RowClickTakesTheNumbersAndEnablesTheLedgerItem) {
    const auto& finder = Open(u"Post"_s, three);
    ClickRow(finder, 2);
    EXPECT_EQ(gHospitalNumber, u"200"_s);
    EXPECT_EQ(gIDNumber, u"A2"_s);
    EXPECT_TRUE(LedgerItemIsEnabled());
    EXPECT_TRUE(targets[u"Post"_s].boxes.empty());
}

TEST_F(PickTest, RowClickInAnEmptyListFaults) {
    const auto& finder = Open(u"Post"_s, {});
    QTest::mouseClick(List(finder).viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
}

TEST_F(PickTest, AnyKeyInAnEmptyListFaults) {
    const auto& finder = Open(u"Post"_s, {});
    Type(List(finder), u"x"_s);
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
}

TEST_F(PickTest, UnloadingDisablesTheLedgerItem) {
    auto& finder = Open(u"Post"_s, three);
    ClickRow(finder, 0);
    EXPECT_TRUE(LedgerItemIsEnabled());
    finder.Unload();
    EXPECT_FALSE(LedgerItemIsEnabled());
}

TEST_F(PickTest, PickRepeatsTheCommandOfTheWaitingScreenBeforeAnythingElse) {
    const auto& finder = Open(u"Post"_s, {{u"300"_s, u"A3"_s, u"CRUZ"_s, Value(), u"x"_s}});
    targets[u"Post"_s].finderText = u"O'BRIEN"_s;
    gateway.ExpectFailure(GetPatientCommand(u"I"_s, u"O'BRIEN"_s),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    DoubleClickRow(finder, 0);
    EXPECT_EQ(TakeFailure(), 105);
    EXPECT_EQ(gIDNumber, u"A3"_s);
    EXPECT_TRUE(targets[u"Post"_s].boxes.empty());
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::Optimistic);
}

TEST_F(PickTest, RepeatedCommandGoesOutWithWhateverLetterStandsThen) {
    const auto& finder = Open(u"Post"_s, three);
    gPatientType = u"W"_s;
    gateway.Expect(GetPatientCommand(u"W"_s, u"Post text"_s), Patients({}));
    ExpectLoad(u"A3"_s);
    DoubleClickRow(finder, 0);
    EXPECT_EQ(personFinder->opened.size(), 1U);
}

TEST_F(PickTest, EscapeLeavesTheListAndPicksNothing) {
    const auto& finder = Open(u"Post"_s, three);
    List(finder).selectRow(1);
    Press(List(finder), Qt::Key_Escape);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_EQ(targets[u"Post"_s].picked, 0);
}

class AnyKeyTest : public PickTest, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(Keys, AnyKeyTest,
                         testing::Values(Qt::Key_Return, Qt::Key_Space, Qt::Key_X, Qt::Key_Backspace));

TEST_P(AnyKeyTest, PicksTheSelectedRow) {
    const auto& finder = Open(u"Post"_s, three);
    List(finder).selectRow(1);
    ExpectList(u"Post text"_s, three);
    ExpectLoad(u"A1"_s);
    QTest::keyClick(&List(finder), static_cast<Qt::Key>(GetParam()));
    EXPECT_EQ(gHospitalNumber, u"100"_s);
    EXPECT_EQ(targets[u"Post"_s].picked, 1);
}

TEST_F(PickTest, PickByAKeyLeavesTheLedgerItemAlone) {
    const auto& finder = Open(u"Post"_s, {{u"300"_s, u"A3"_s, u"CRUZ"_s, Value(), u"x"_s}});
    List(finder).selectRow(0);
    ExpectList(u"Post text"_s, {});
    messages.Expect(kClosed);
    Press(List(finder), Qt::Key_Return);
    EXPECT_EQ(gIDNumber, u"A3"_s);
    EXPECT_TRUE(workspace.menuItems.empty());
}

TEST_F(PickTest, PickGoesThroughTheConnectionOfTheSession) {
    const auto& finder = Open(u"Post"_s, three);
    gConnection = nullptr;
    ExpectList(u"Post text"_s, three);
    ExpectLoad(u"A1"_s);
    DoubleClickRow(finder, 1);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(targets[u"Post"_s].picked, 1);
}

TEST_F(PickTest, ArrowKeysMoveAndPickNothing) {
    const auto& finder = Open(u"Post"_s, three);
    QTest::keyClick(&List(finder), Qt::Key_Down);
    EXPECT_EQ(List(finder).CurrentText(0), u"100"_s);
    EXPECT_EQ(targets[u"Post"_s].picked, 0);
}

TEST_F(PickTest, AfterTheMessageAnotherRowCanBePicked) {
    const auto& finder = Open(u"Post"_s, {{u"300"_s, u"A3"_s, u"CRUZ"_s, Value(), u"11/1/2026"_s},
                                          {u"100"_s, u"A1"_s, u"SANTOS"_s}});
    ExpectList(u"Post text"_s, {});
    messages.Expect(kClosed);
    DoubleClickRow(finder, 0);
    ClickRow(finder, 1);
    ExpectList(u"Post text"_s, {});
    ExpectLoad(u"A1"_s);
    DoubleClickRow(finder, 1);
    EXPECT_EQ(targets[u"Post"_s].picked, 1);
}

TEST_F(PickTest, EmptyBillingDateIsNoClosedAccount) {
    const auto& finder = Open(u"Post"_s, {{u"300"_s, u"A3"_s, u"CRUZ"_s, Value(), u""_s}});
    ExpectList(u"Post text"_s, {});
    ExpectLoad(u"A3"_s);
    DoubleClickRow(finder, 0);
    EXPECT_EQ(targets[u"Post"_s].picked, 1);
}

TEST_F(PickTest, ReaderOfTheOptionsAfterAPickMeetsAFreshHiddenFinderThatSaysOutPatient) {
    const auto& finder = Open(u"Post"_s, three);
    ExpectList(u"Post text"_s, three);
    ExpectLoad(u"A3"_s);
    DoubleClickRow(finder, 0);
    EXPECT_TRUE(finder.optPatientType[0]->isChecked());
    // The fresh instance opens as any other: the first fill is sent once more.
    ExpectList(u"Post text"_s, three);
    const auto& fresh = Screens::Get<frmSearchPatient>();
    EXPECT_FALSE(fresh.optPatientType[0]->isChecked());
    EXPECT_FALSE(fresh.isVisible());
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(List(fresh).model()->columnCount(), 5);
}
