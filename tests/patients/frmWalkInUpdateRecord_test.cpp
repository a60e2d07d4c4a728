#include "patients/WalkInUpdateGround.h"
#include "support/FixedClock.h"
#include "text/RunTimeError.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

// The record on the second tab.

namespace {

/// What the update of the record as it was loaded sends.
QString Update(const QString& birthDate = u"02/29/1984"_s, const QString& age = u"42"_s,
               const QString& sex = u"M"_s, const QString& civil = u"2"_s, const QString& zip = u"1100"_s) {
    return UpdateWalkInCommand(u"W000002"_s, {.lastName = u"CRUZ"_s,
                                              .firstName = u"BEN"_s,
                                              .middleName = u"TAN"_s,
                                              .street = u"12 RIZAL ST."_s,
                                              .barangay = u"POBLACION"_s,
                                              .townCode = zip,
                                              .birthDate = birthDate,
                                              .age = age,
                                              .sex = sex,
                                              .civilStatusCode = civil});
}

Message Updated() {
    return {.text = u"Patient's information has been updated."_s, .icon = MsgIcon::Information};
}

} // namespace

class WalkInRecordTest : public WalkInUpdateTest {
  protected:
    /// Saves and expects the list to be redone.
    void Save(const Form& screen, const QString& command) {
        gateway.Expect(command);
        messages.Expect(Updated());
        gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), NoWalkIns());
        Click(Button(screen, "cmdSave"));
    }

    /// Loads a record with a birth date of 1984 and keys another decade into its year.
    void KeyDecade(const Form& screen) {
        Load(screen, Record({{u"BirthDate"_s, *DateTime::FromFields({.year = 1984, .month = 5, .day = 5})}}));
        Picker(screen).setFocus();
        Picker(screen).setCursorPosition(8);
        Type(Picker(screen), u"9"_s);
    }
};

/// The same over real message boxes, which are answered as they come.
class WalkInRecordBoxesTest : public WalkInRecordTest {
  protected:
    WalkInRecordBoxesTest() {
        QObject::connect(&answering, &QTimer::timeout, &answering, [this] { Answer(); });
        answering.start();
    }

    /// Presses the mouse on the save and lets it go, at the latest when a box stands before the screen.
    void SaveByTheMouse(const Form& screen) {
        const QPushButton& save = Button(screen, "cmdSave");
        const QPoint place = save.mapTo(save.window(), save.rect().center());
        QWindow* window = save.window()->windowHandle();
        release = [window, place] { QTest::mouseRelease(window, Qt::LeftButton, {}, place); };
        QTest::mousePress(window, Qt::LeftButton, {}, place);
        LetGo();
        RunEvents();
    }

    /// The texts of the boxes.
    QStringList told;

  private:
    void LetGo() {
        if (const auto step = std::exchange(release, nullptr))
            step();
    }
    void Answer() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        LetGo();
        told << box->text();
        box->accept();
    }

    const Seam<MsgAnswer(const Message&)>::Replacement mBoxes = MessageSeam().Replace(MessageSeam().Own());
    QTimer answering;
    std::function<void()> release;
};

TEST_F(WalkInRecordTest, SaveSendsElevenArgumentsAndTellsSo) {
    const auto& screen = Open();
    Load(screen);
    Save(screen, Update());
    EXPECT_EQ(messages.Shown().size(), 1U);
}

TEST_F(WalkInRecordTest, SaveClearsTheRecordAndRedoesTheList) {
    const auto& screen = Open();
    Load(screen);
    gateway.Expect(Update());
    messages.Expect(Updated());
    gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), TwoWalkIns());
    Click(Button(screen, "cmdSave"));
    EXPECT_EQ(Tab(screen), 0);
    EXPECT_TRUE(Box(screen, "txtSearch").hasFocus());
    EXPECT_TRUE(Button(screen, "cmdEdit").isEnabled());
    for (const char* name : {"txtHospNum", "txtLastName", "txtFirstName", "txtMiddleName", "txtAge",
                             "txtAddress1", "txtAddress2", "txtAddress3", "txtZipCode"})
        EXPECT_EQ(Box(screen, name).text(), u""_s) << name;
    EXPECT_EQ(Picker(screen).Value(), std::nullopt);
    EXPECT_EQ(Combo(screen, "cmbSex").currentText(), u""_s);
    EXPECT_EQ(Combo(screen, "cmbCivil").currentText(), u""_s);
    EXPECT_EQ(Box(screen, "txtSearch").text(), u"CRUZ"_s);
}

TEST_F(WalkInRecordTest, UpdateGoesThroughTheConnectionOfTheSession) {
    const auto& screen = Open();
    Load(screen);
    ScriptedGateway session;
    user->connection = &session;
    session.Expect(Update());
    messages.Expect(Updated());
    gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), NoWalkIns());
    Click(Button(screen, "cmdSave"));
    EXPECT_TRUE(session.IsDone());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(WalkInRecordTest, NullBirthDateIsAnEmptyPickerAndAnEmptyArgument) {
    const auto& screen = Open();
    Load(screen, Record({{u"BirthDate"_s, Value()}}));
    EXPECT_EQ(Picker(screen).Value(), std::nullopt);
    Save(screen, Update(u""_s));
}

TEST_F(WalkInRecordTest, EmptyCivilStatusSendsSix) {
    const auto& screen = Open();
    Load(screen, Record({{u"CivilStatusid"_s, u""_s}}));
    Save(screen, Update(u"02/29/1984"_s, u"42"_s, u"M"_s, u"6"_s));
}

TEST_F(WalkInRecordTest, SexIsSentByItsFirstLetter) {
    const auto& screen = Open();
    Load(screen);
    Combo(screen, "cmbSex").setCurrentIndex(1);
    Save(screen, Update(u"02/29/1984"_s, u"42"_s, u"F"_s));
}

TEST_F(WalkInRecordTest, SaveChecksNothing) {
    const auto& screen = Open();
    GoToRecord(screen);
    WalkInEntry nobody;
    nobody.civilStatusCode = u"-1"_s;
    gateway.Expect(UpdateWalkInCommand({}, nobody));
    messages.Expect(Updated());
    gateway.Expect(ListWalkInCommand(u"0"_s, u""_s), NoWalkIns());
    Click(Button(screen, "cmdSave"));
}

TEST_F(WalkInRecordTest, FailingSaveTellsNothingAndKeepsTheRecord) {
    const auto& screen = Open();
    Load(screen);
    gateway.ExpectFailure(Update(), RunTimeError(102, u"Incorrect syntax near 'x'."_s));
    Click(Button(screen, "cmdSave"));
    EXPECT_EQ(TakeFailure(), 102);
    EXPECT_EQ(Box(screen, "txtLastName").text(), u"CRUZ"_s);
}

TEST_F(WalkInRecordTest, NamesAndAddressesAreUpperCasedAsTheyAreKeyed) {
    const auto& screen = Open();
    GoToRecord(screen);
    for (const char* name :
         {"txtLastName", "txtFirstName", "txtMiddleName", "txtAddress1", "txtAddress2", "txtAddress3"}) {
        Type(Box(screen, name), u"dela peña"_s);
        EXPECT_EQ(Box(screen, name).text(), u"DELA PEÑA"_s) << name;
    }
    Type(Box(screen, "txtZipCode"), u"a1"_s);
    EXPECT_EQ(Box(screen, "txtZipCode").text(), u"a1"_s) << "no name and no address";
}

TEST_F(WalkInRecordTest, EnterMovesAlongTheChain) {
    const auto& screen = Open();
    GoToRecord(screen);
    const std::vector<const char*> chain = {"txtLastName",  "txtFirstName", "txtMiddleName",
                                            "dtpBirthDate", "cmbSex",       "cmbCivil",
                                            "txtAddress1",  "txtAddress2",  "txtZipCode"};
    Find<QWidget>(screen, chain[0]).setFocus();
    for (size_t i = 1; i < chain.size(); ++i) {
        Press(Find<QWidget>(screen, chain[i - 1]), Qt::Key_Return);
        EXPECT_TRUE(Find<QWidget>(screen, chain[i]).hasFocus()) << chain[i];
    }
}

TEST_F(WalkInRecordTest, AgeAndHospitalNumberAreNoPartOfTheChain) {
    const auto& screen = Open();
    GoToRecord(screen);
    for (const char* name : {"txtAge", "txtHospNum", "txtAddress3"}) {
        Box(screen, name).setFocus();
        Press(Box(screen, name), Qt::Key_Return);
        EXPECT_TRUE(Box(screen, name).hasFocus()) << name;
    }
}

TEST_F(WalkInRecordTest, NewBirthDateBringsTheAgeByCalendarYears) {
    const auto& screen = Open();
    Load(screen);
    Picker(screen).setFocus();
    // The birthday of this year is still to come.
    Type(Picker(screen), u"1225199"_s);
    EXPECT_TRUE(messages.Shown().empty());
    messages.Expect({.text = u"The patient's age will be updated to 36."_s});
    Type(Picker(screen), u"0"_s);
    EXPECT_EQ(Box(screen, "txtAge").text(), u"36"_s);
    Press(Picker(screen), Qt::Key_Return);
    EXPECT_EQ(Box(screen, "txtAge").text(), u"36"_s);
    EXPECT_TRUE(Combo(screen, "cmbSex").hasFocus());
}

TEST_F(WalkInRecordTest, InfantOfAFewWeeksIsOneYearOldInJanuary) {
    const auto clock = FixedClock(*DateTime::FromFields({.year = 2027, .month = 1, .day = 4}));
    const auto& screen = Open();
    GoToRecord(screen);
    Picker(screen).setFocus();
    messages.Expect({.text = u"The patient's age will be updated to 1."_s});
    Type(Picker(screen), u"12202026"_s);
    EXPECT_EQ(Box(screen, "txtAge").text(), u"1"_s);
}

TEST_F(WalkInRecordTest, SaveByItsKeyRightAfterTheDateWasKeyedSendsTheNewAge) {
    const auto& screen = Open();
    KeyDecade(screen);
    messages.Expect({.text = u"The patient's age will be updated to 32."_s});
    gateway.Expect(Update(u"05/05/1994"_s, u"32"_s));
    messages.Expect(Updated());
    gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), NoWalkIns());
    Press(Picker(screen), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return gateway.IsDone(); }));
    EXPECT_EQ(messages.Shown().size(), 2U);
}

TEST_F(WalkInRecordBoxesTest, SaveByTheMouseRightAfterADateWasKeyedTakesOneClick) {
    for (const bool isWhole : {false, true}) {
        told.clear();
        const auto& screen = Open();
        KeyDecade(screen);
        if (isWhole)
            Type(Picker(screen), u"4"_s);
        EXPECT_EQ(told.size(), isWhole ? 1 : 0);
        gateway.Expect(Update(u"05/05/1994"_s, u"32"_s));
        gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), NoWalkIns());
        SaveByTheMouse(screen);
        EXPECT_TRUE(gateway.IsDone());
        EXPECT_FALSE(Button(screen, "cmdSave").isDown());
        EXPECT_EQ(told, QStringList({u"The patient's age will be updated to 32."_s,
                                     u"Patient's information has been updated."_s}));
        Screens::Clear();
    }
}

TEST_F(WalkInRecordBoxesTest, CloseByTheMouseRightAfterADateWasKeyedTellsNothing) {
    const auto& screen = Open();
    KeyDecade(screen);
    Click(Button(screen, "cmdClose"));
    RunEvents();
    EXPECT_FALSE(Screens::IsLoaded<frmWalkInUpdate>());
    EXPECT_EQ(told, QStringList());
}

TEST_F(WalkInRecordTest, DigitsBehindTheChainsEnterMakeTheBirthDate) {
    const auto& screen = Open();
    for (const bool isEmpty : {false, true}) {
        Load(screen, isEmpty ? Record({{u"BirthDate"_s, Value()}}) : Record());
        Box(screen, "txtMiddleName").setFocus();
        Press(Box(screen, "txtMiddleName"), Qt::Key_Return);
        EXPECT_EQ(Picker(screen).cursorPosition(), 0);
        messages.Expect({.text = u"The patient's age will be updated to 36."_s});
        Type(Picker(screen), u"8/1/1990"_s);
        Press(Picker(screen), Qt::Key_Return);
        EXPECT_TRUE(Combo(screen, "cmbSex").hasFocus());
        EXPECT_EQ(Picker(screen).text(), u"08/01/1990"_s);
        Find<QTabWidget>(screen, "ssWalkIn").setCurrentIndex(0);
    }
    EXPECT_EQ(messages.Shown().size(), 2U) << "one for each record";
}

TEST_F(WalkInRecordTest, BirthDateThatIsNoDateIsMarkedTellsNoAgeAndIsNotSaved) {
    const auto& screen = Open();
    for (const QString& text : {u"8/1/90"_s, u"08/01"_s, u"02/30/1990"_s, u"12/31/1752"_s}) {
        Load(screen);
        Picker(screen).setFocus();
        Type(Picker(screen), text);
        Press(Picker(screen), Qt::Key_Return);
        EXPECT_TRUE(Combo(screen, "cmbSex").hasFocus()) << "the chain goes on";
        EXPECT_EQ(Picker(screen).text(), text);
        EXPECT_TRUE(Picker(screen).property("wrong").toBool()) << text.toStdString();
        Click(Button(screen, "cmdSave"));
        EXPECT_TRUE(Picker(screen).hasFocus());
        EXPECT_EQ(Box(screen, "txtAge").text(), u"42"_s);
        Find<QTabWidget>(screen, "ssWalkIn").setCurrentIndex(0);
    }
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(WalkInRecordTest, BirthDateThatIsMendedIsSaved) {
    const auto& screen = Open();
    Load(screen);
    Picker(screen).setFocus();
    Type(Picker(screen), u"8/1/84"_s);
    Press(Picker(screen), Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Picker(screen).property("wrong").toBool(); }));
    Type(Picker(screen), u"8/1/1984"_s);
    Save(screen, Update(u"08/01/1984"_s));
}

TEST_F(WalkInRecordTest, AnotherRecordTakesTheMarkAway) {
    const auto& screen = Open();
    Load(screen);
    Picker(screen).setFocus();
    Type(Picker(screen), u"8/1"_s);
    Find<QTabWidget>(screen, "ssWalkIn").setCurrentIndex(0);
    Load(screen);
    EXPECT_EQ(Picker(screen).text(), u"02/29/1984"_s);
    EXPECT_FALSE(Picker(screen).property("wrong").toBool());
}

TEST_F(WalkInRecordTest, CloseByItsKeyRightAfterADateWasKeyedTellsNothing) {
    const auto& screen = Open();
    KeyDecade(screen);
    Press(Picker(screen), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return !Screens::IsLoaded<frmWalkInUpdate>(); }));
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(WalkInRecordTest, DayPickedInTheCalendarBringsTheAge) {
    const auto& screen = Open();
    Load(screen);
    Picker(screen).setFocus();
    Press(Picker(screen), Qt::Key_F4);
    QWidget* calendar = QApplication::activePopupWidget();
    ASSERT_TRUE(calendar);
    messages.Expect({.text = u"The patient's age will be updated to 41."_s});
    for (int month = 0; month < 12; ++month)
        Press(*calendar->focusWidget(), Qt::Key_PageDown);
    Press(*calendar->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Picker(screen).text(), u"02/28/1985"_s);
    EXPECT_EQ(Box(screen, "txtAge").text(), u"41"_s);
}

TEST_F(WalkInRecordTest, AgeThatBeginsWithTheYearsStands) {
    const auto& screen = Open();
    Load(screen, Record({{u"Age"_s, u"36 YRS"_s}}));
    Picker(screen).setFocus();
    Type(Picker(screen), u"05051990"_s);
    Press(Picker(screen), Qt::Key_Return);
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_EQ(Box(screen, "txtAge").text(), u"36 YRS"_s);
}

TEST_F(WalkInRecordTest, BirthDateThatIsTakenOutLeavesTheAge) {
    const auto& screen = Open();
    Load(screen);
    Picker(screen).setFocus();
    Press(Picker(screen), Qt::Key_Delete);
    Press(Picker(screen), Qt::Key_Return);
    EXPECT_EQ(Picker(screen).Value(), std::nullopt);
    EXPECT_EQ(Box(screen, "txtAge").text(), u"42"_s);
    Save(screen, Update(u""_s));
}

TEST_F(WalkInRecordTest, EnterInTheZipCodeTakesItsTownAndGoesToTheSave) {
    const auto& screen = Open();
    Load(screen);
    listing->answers = {true};
    listing->address = {u"1200"_s, u" MAKATI "_s, u" METRO MANILA "_s};
    Box(screen, "txtZipCode").setFocus();
    Box(screen, "txtZipCode").setText(u"12"_s);
    Press(Box(screen, "txtZipCode"), Qt::Key_Return);
    EXPECT_TRUE(listing->searchMode);
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u"12"_s, 0, u""_s}}));
    EXPECT_EQ(Box(screen, "txtZipCode").text(), u"1200"_s);
    EXPECT_EQ(Box(screen, "txtAddress3").text(), u" MAKATI ,  METRO MANILA "_s);
    EXPECT_TRUE(Button(screen, "cmdSave").hasFocus()) << "and nothing has been saved yet";
    Save(screen, Update(u"02/29/1984"_s, u"42"_s, u"M"_s, u"2"_s, u"1200"_s));
}

TEST_F(WalkInRecordTest, TownButtonSearchesWithAnEmptyCode) {
    const auto& screen = Open();
    Load(screen);
    listing->answers = {true};
    listing->address = {u"1200"_s, u" MAKATI "_s, u" METRO MANILA "_s};
    Click(Button(screen, "cmdZipCode"));
    EXPECT_TRUE(listing->searchMode);
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u""_s, 0, u""_s}}));
    EXPECT_EQ(Box(screen, "txtAddress3").text(), u" MAKATI ,  METRO MANILA "_s);
    EXPECT_TRUE(Button(screen, "cmdSave").hasFocus());
}

TEST_F(WalkInRecordTest, ZipCodeThatIsNotFoundChangesNothingAndTellsNothing) {
    const auto& screen = Open();
    Load(screen);
    Box(screen, "txtZipCode").setFocus();
    Box(screen, "txtZipCode").setText(u"9999"_s);
    Press(Box(screen, "txtZipCode"), Qt::Key_Return);
    EXPECT_EQ(Box(screen, "txtZipCode").text(), u"9999"_s);
    EXPECT_EQ(Box(screen, "txtAddress3").text(), u"QUEZON CITY, METRO MANILA"_s);
    EXPECT_TRUE(Box(screen, "txtZipCode").hasFocus());
}
