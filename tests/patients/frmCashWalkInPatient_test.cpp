#include "patients/CashWalkInGround.h"
#include "patients/frmCashWalkInPatient.h"
#include "support/CaseName.h"
#include "toolkit/DatePicker.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const Message kNoSuchCode{.text = u"Code not exist!"_s};
const Message kNoName{.text = u"Please enter the Patient`s lastname and firstname!"_s, .title = u"Message"_s};
const Message kClose{.text = u"Are you sure to close this program?"_s,
                     .icon = MsgIcon::Question,
                     .title = u"OPD Registration System"_s,
                     .buttons = MsgButtons::OkCancel};

} // namespace

class frmCashWalkInPatientTest : public CashWalkInGround {
  protected:
    static frmCashWalkInPatient& Open() {
        auto& screen = Screens::Get<frmCashWalkInPatient>();
        screen.Show();
        Activate(screen);
        return screen;
    }

    static QLineEdit& Info(const Form& screen, int index) {
        return Find<QLineEdit>(screen, qPrintable(u"txtInfo(%1)"_s.arg(index)));
    }
    static DatePicker& Birth(const Form& screen) { return Find<DatePicker>(screen, "mskBirth"); }
    static QPushButton& Button(const Form& screen, const char* name) {
        return Find<QPushButton>(screen, name);
    }

    /// Presses Enter in a box that has the focus, and answers whether the focus moved on.
    static bool EnterMovesOn(QLineEdit& box) {
        box.setFocus();
        Press(box, Qt::Key_Return);
        EXPECT_TRUE(box.hasFocus()) << "the tab key comes after the handler";
        RunEvents();
        return !box.hasFocus();
    }

    /// Saves and answers the steps of the list that then opens with nobody in it.
    void Save(const Form& screen, const WalkInEntry& entry) {
        gateway.Expect(EarCareAddCashPatientCommand(entry));
        ExpectList(Info(screen, 0).text().trimmed(), u"1"_s, {});
        bool back = false;
        WhileModal([&back](Form& list) { back = dynamic_cast<frmCashWalkIn*>(&list) != nullptr; });
        Click(Button(screen, "cmdOption(0)"));
        EXPECT_TRUE(back);
    }
};

TEST_F(frmCashWalkInPatientTest, OpensEmptyWithMaleChosen) {
    const auto& screen = Open();
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(Info(screen, i).text(), u""_s);
    EXPECT_EQ(Birth(screen).Text(), u"  /  /    "_s);
    const auto& sex = Find<QComboBox>(screen, "cboSex");
    EXPECT_EQ(sex.currentText(), u"Male"_s);
    EXPECT_EQ(sex.itemText(1), u"Female"_s);
    EXPECT_EQ(sex.count(), 2);
}

class PlainBoxTest : public frmCashWalkInPatientTest, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(Boxes, PlainBoxTest, testing::Values(0, 1, 2, 4, 5));

TEST_P(PlainBoxTest, EnterMovesOnAndOtherKeysStayAsTyped) {
    const auto& screen = Open();
    QLineEdit& box = Info(screen, GetParam());
    Type(box, u"Peña o'B"_s);
    EXPECT_EQ(box.text(), u"Peña o'B"_s);
    EXPECT_TRUE(EnterMovesOn(box));
    EXPECT_TRUE(listing->searches.empty());
}

TEST_F(frmCashWalkInPatientTest, EnterGoesDownTheOrderOfWork) {
    const auto& screen = Open();
    EXPECT_TRUE(EnterMovesOn(Info(screen, 2)));
    EXPECT_TRUE(Birth(screen).hasFocus());
    EXPECT_TRUE(EnterMovesOn(Birth(screen)));
    EXPECT_TRUE(Info(screen, 3).hasFocus());
    EXPECT_TRUE(EnterMovesOn(Info(screen, 3)));
    EXPECT_TRUE(Info(screen, 4).hasFocus());
}

struct AgeKeyCase {
    const char* name;
    QString keys;
    QString text;
    bool movesOn;
};

class AgeKeyTest : public frmCashWalkInPatientTest, public testing::WithParamInterface<AgeKeyCase> {};

INSTANTIATE_TEST_SUITE_P(
    Keys, AgeKeyTest,
    testing::Values(AgeKeyCase{"Digits", u"42"_s, u"42"_s, false},
                    AgeKeyCase{"ThirdDigit", u"421"_s, u"42"_s, false},
                    AgeKeyCase{"Nine", u"9"_s, u"9"_s, false}, AgeKeyCase{"Zero", u"0"_s, u"0"_s, false},
                    AgeKeyCase{"Point", u"."_s, u"."_s, false}, AgeKeyCase{"Slash", u"/"_s, u"/"_s, false},
                    AgeKeyCase{"Letter", u"4x"_s, u"4"_s, true}, AgeKeyCase{"Minus", u"-"_s, u""_s, true},
                    AgeKeyCase{"Colon", u":"_s, u""_s, true}, AgeKeyCase{"Blank", u" "_s, u""_s, true}),
    CaseName());

TEST_P(AgeKeyTest, DigitsPointAndSlashAreTakenAndAnyOtherKeyMovesOn) {
    const auto& screen = Open();
    QLineEdit& age = Info(screen, 3);
    age.setFocus();
    Type(age, GetParam().keys);
    RunEvents();
    EXPECT_EQ(age.text(), GetParam().text);
    EXPECT_EQ(age.hasFocus(), !GetParam().movesOn);
}

TEST_F(frmCashWalkInPatientTest, BackspaceCorrectsTheAge) {
    const auto& screen = Open();
    QLineEdit& age = Info(screen, 3);
    age.setFocus();
    Type(age, u"42"_s);
    Press(age, Qt::Key_Backspace);
    RunEvents();
    EXPECT_EQ(age.text(), u"4"_s);
    EXPECT_TRUE(age.hasFocus());
}

// The clock stands on 11/21/2026.
struct AgeCase {
    const char* name;
    QString birthDate;
    QString age;
};

class AgeTest : public frmCashWalkInPatientTest, public testing::WithParamInterface<AgeCase> {};

INSTANTIATE_TEST_SUITE_P(
    BirthDates, AgeTest,
    testing::Values(AgeCase{"Today", u"11/21/2026"_s, u"0"_s}, AgeCase{"Yesterday", u"11/20/2026"_s, u"0"_s},
                    AgeCase{"DayBefore365", u"11/22/2025"_s, u"0"_s},
                    AgeCase{"DayOf365", u"11/21/2025"_s, u"1"_s},
                    // 40 years hold ten leap days, so the age turns ten days before the birthday.
                    AgeCase{"TurnsBeforeTheBirthday", u"12/01/1986"_s, u"40"_s},
                    AgeCase{"NotYetTurned", u"12/02/1986"_s, u"39"_s},
                    AgeCase{"LeapDay", u"02/29/1984"_s, u"42"_s},
                    AgeCase{"FutureWithinAYear", u"11/20/2027"_s, u"0"_s},
                    AgeCase{"FutureOfAYear", u"11/21/2027"_s, u"-1"_s},
                    AgeCase{"FutureOfTwoYears", u"11/20/2028"_s, u"-2"_s}),
    CaseName());

TEST_P(AgeTest, EnterInTheBirthDateCountsWholeYearsOf365Days) {
    const auto& screen = Open();
    Birth(screen).setFocus();
    Type(Birth(screen), GetParam().birthDate);
    EXPECT_TRUE(EnterMovesOn(Birth(screen)));
    EXPECT_EQ(Info(screen, 3).text(), GetParam().age);
}

TEST_F(frmCashWalkInPatientTest, AgeBoxKeepsTwoCharactersOfAnAge) {
    const auto& screen = Open();
    Birth(screen).setText(u"01/01/1916"_s);
    Press(Birth(screen), Qt::Key_Return);
    EXPECT_EQ(Info(screen, 3).text(), u"11"_s);
}

TEST_F(frmCashWalkInPatientTest, EnterInAnEmptyBirthDateMovesOnAndLeavesTheAge) {
    const auto& screen = Open();
    Info(screen, 3).setText(u"7"_s);
    EXPECT_TRUE(EnterMovesOn(Birth(screen)));
    EXPECT_EQ(Info(screen, 3).text(), u"7"_s);
}

TEST_F(frmCashWalkInPatientTest, LeavingTheBirthDateByTabLeavesTheAge) {
    const auto& screen = Open();
    Birth(screen).setFocus();
    Birth(screen).setText(u"02/29/1984"_s);
    Press(Birth(screen), Qt::Key_Tab);
    RunEvents();
    EXPECT_FALSE(Birth(screen).hasFocus());
    EXPECT_EQ(Info(screen, 3).text(), u""_s);
}

TEST_F(frmCashWalkInPatientTest, BirthDateThatIsNoDateFaults) {
    const auto& screen = Open();
    for (const QString& text : {u"02/30/1984"_s, u"13/45/1984"_s, u"1"_s, u"02/29"_s}) {
        Info(screen, 2).setFocus();
        Birth(screen).setFocus();
        Type(Birth(screen), text);
        Press(Birth(screen), Qt::Key_Return);
        EXPECT_EQ(TakeFailure(), RunTime::kTypeMismatch) << text.toStdString();
        EXPECT_EQ(Info(screen, 3).text(), u""_s);
    }
}

// What is keyed into the birth date, and what goes to the hospital of it.
struct BirthCase {
    const char* name;
    QString keyed;
    QString sent;
    bool isWrong;
};

class BirthTest : public frmCashWalkInPatientTest, public testing::WithParamInterface<BirthCase> {};

INSTANTIATE_TEST_SUITE_P(Texts, BirthTest,
                         testing::Values(BirthCase{"Nothing", u""_s, u"/  /"_s, false},
                                         BirthCase{"WithZeros", u"08/01/1990"_s, u"08/01/1990"_s, false},
                                         BirthCase{"WithoutZeros", u"8/1/1990"_s, u"08/01/1990"_s, false},
                                         BirthCase{"DigitsAlone", u"08011990"_s, u"08/01/1990"_s, false},
                                         BirthCase{"NoSuchDay", u"02/30/1990"_s, u"02/30/1990"_s, true},
                                         BirthCase{"HalfADate", u"022"_s, u"02/2 /"_s, true},
                                         BirthCase{"TwoDigitsOfTheYear", u"08/01/90"_s, u"08/01/90"_s, true}),
                         CaseName());

TEST_P(BirthTest, IsSentAsItsMaskHasItAndMarkedWhereItIsNoDate) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"CRUZ"_s);
    Birth(screen).setFocus();
    Type(Birth(screen), GetParam().keyed);
    Press(Birth(screen), Qt::Key_Tab);
    EXPECT_TRUE(Info(screen, 3).hasFocus()) << "one tab stop";
    EXPECT_EQ(Birth(screen).property("wrong").toBool(), GetParam().isWrong);
    WalkInEntry entry = NameAlone(u"CRUZ"_s);
    entry.birthDate = GetParam().sent;
    Save(screen, entry);
}

TEST_F(frmCashWalkInPatientTest, EnterBeforeTheBirthDateLeadsToItsFirstPlace) {
    const auto& screen = Open();
    EXPECT_TRUE(EnterMovesOn(Info(screen, 2)));
    Type(Birth(screen), u"2/29/1984"_s);
    EXPECT_TRUE(EnterMovesOn(Birth(screen)));
    EXPECT_EQ(Birth(screen).text(), u"02/29/1984"_s);
    EXPECT_EQ(Info(screen, 3).text(), u"42"_s);
}

TEST_F(frmCashWalkInPatientTest, ClickIntoTheEmptyBirthDateLeadsToItsFirstPlace) {
    const auto& screen = Open();
    Click(Birth(screen));
    Type(Birth(screen), u"02291984"_s);
    EXPECT_EQ(Birth(screen).Text(), u"02/29/1984"_s);
}

TEST_F(frmCashWalkInPatientTest, TownButtonLooksUpTheTextOfTheBox) {
    const auto& screen = Open();
    Info(screen, 6).setText(u"1100"_s);
    listing->answers = {true};
    listing->address = {u"1100"_s, u" QUEZON CITY  "_s, u" METRO MANILA "_s};
    Click(Button(screen, "cmdTown"));
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u"1100"_s, 0, u""_s}}));
    EXPECT_EQ(Info(screen, 6).text(), u"QUEZON CITY, METRO MANILA"_s);
    RunEvents();
    EXPECT_TRUE(Info(screen, 7).hasFocus()) << "the tab key moves on from the button";
}

TEST_F(frmCashWalkInPatientTest, CivilStatusButtonLooksUpAnEmptyCode) {
    const auto& screen = Open();
    Info(screen, 7).setText(u"S"_s);
    listing->answers = {true};
    listing->civilStatus = {u"1"_s, u"SINGLE "_s};
    Click(Button(screen, "cmdCivil"));
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u""_s, 13, u""_s}}));
    EXPECT_EQ(Info(screen, 7).text(), u"SINGLE "_s);
    RunEvents();
    EXPECT_TRUE(Find<QComboBox>(screen, "cboSex").hasFocus());
}

struct LookupCase {
    const char* name;
    int index;
    int kind;
    const char* button;
    /// Where Enter goes on after a hit: the picker is no stop on the way.
    const char* next;
    QString shown;
    /// What a save sends after a hit, and nothing after none.
    QString WalkInEntry::*field;
    QString saved;
};

class LookupTest : public frmCashWalkInPatientTest, public testing::WithParamInterface<LookupCase> {
  protected:
    LookupTest() {
        listing->address = {u"1100"_s, u"QUEZON CITY "_s, u"METRO MANILA "_s};
        listing->civilStatus = {u"2"_s, u"MARRIED"_s};
    }
};

INSTANTIATE_TEST_SUITE_P(Boxes, LookupTest,
                         testing::Values(LookupCase{"Town", 6, 0, "cmdTown", "txtInfo(7)",
                                                    u"QUEZON CITY, METRO MANILA"_s, &WalkInEntry::townCode,
                                                    u"1100"_s},
                                         LookupCase{"CivilStatus", 7, 13, "cmdCivil", "cboSex", u"MARRIED"_s,
                                                    &WalkInEntry::civilStatusCode, u"2"_s}),
                         CaseName());

TEST_P(LookupTest, EnterLooksUpTheTextOfTheBoxAndMovesOn) {
    const auto& screen = Open();
    QLineEdit& box = Info(screen, GetParam().index);
    Type(box, u"ab 1"_s);
    EXPECT_EQ(box.text(), u"ab 1"_s);
    listing->answers = {true};
    EXPECT_TRUE(EnterMovesOn(box));
    EXPECT_TRUE(Find<QWidget>(screen, GetParam().next).hasFocus());
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u"ab 1"_s, GetParam().kind, u""_s}}));
    EXPECT_EQ(box.text(), GetParam().shown);
}

TEST_P(LookupTest, EnterOnAnUnknownCodeTellsSoAndStays) {
    const auto& screen = Open();
    QLineEdit& box = Info(screen, GetParam().index);
    box.setText(u"99"_s);
    messages.Expect(kNoSuchCode);
    EXPECT_FALSE(EnterMovesOn(box));
    EXPECT_EQ(box.text(), u"99"_s);
}

TEST_P(LookupTest, ButtonOnAnUnknownCodeTellsSo) {
    const auto& screen = Open();
    Info(screen, GetParam().index).setText(u"99"_s);
    messages.Expect(kNoSuchCode);
    Click(Button(screen, GetParam().button));
    EXPECT_EQ(Info(screen, GetParam().index).text(), u"99"_s);
}

TEST_P(LookupTest, FailureUnderAKeyIsTrappedAndCountsAsUnknown) {
    const auto& screen = Open();
    QLineEdit& box = Info(screen, GetParam().index);
    box.setText(u"99"_s);
    listing->failure = RunTimeError(105, u"Unclosed quotation mark"_s);
    messages.Expect(kNoSuchCode);
    EXPECT_FALSE(EnterMovesOn(box));
    EXPECT_EQ(TakeFailure(), 0);
}

TEST_P(LookupTest, FailureUnderTheButtonIsNotTrapped) {
    const auto& screen = Open();
    listing->failure = RunTimeError(105, u"Unclosed quotation mark"_s);
    Click(Button(screen, GetParam().button));
    EXPECT_EQ(TakeFailure(), 105);
}

TEST_P(LookupTest, SaveSendsTheCodeOfTheLastHit) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"CRUZ"_s);
    listing->answers = {true};
    Press(Info(screen, GetParam().index), Qt::Key_Return);
    // What is keyed later and not found leaves the code.
    Info(screen, GetParam().index).setText(u"99"_s);
    messages.Expect(kNoSuchCode);
    Press(Info(screen, GetParam().index), Qt::Key_Return);
    WalkInEntry entry = NameAlone(u"CRUZ"_s);
    entry.*GetParam().field = GetParam().saved;
    Save(screen, entry);
}

TEST_P(LookupTest, SaveWithoutALookupSendsAnEmptyCodeWhateverStandsInTheBox) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"CRUZ"_s);
    Info(screen, GetParam().index).setText(u"1100"_s);
    Save(screen, NameAlone(u"CRUZ"_s));
}

TEST_F(frmCashWalkInPatientTest, SaveSendsEveryBoxAtItsPlaceAsItStands) {
    const auto& screen = Open();
    const std::vector<QString> texts = {u" Cruz "_s, u"Ana "_s,         u"Sy"_s,
                                        u"42"_s,     u"12 Rizal St."_s, u" Uno"_s};
    for (int i = 0; i < 6; ++i)
        Info(screen, i).setText(texts[size_t(i)]);
    Birth(screen).setText(u"02/29/1984"_s);
    Find<QComboBox>(screen, "cboSex").setCurrentIndex(1);
    listing->answers = {true, true};
    listing->address.ResultCode = u"1100"_s;
    listing->civilStatus.ResultCode = u"2"_s;
    Press(Info(screen, 6), Qt::Key_Return);
    Press(Info(screen, 7), Qt::Key_Return);
    Save(screen, {.lastName = u" Cruz "_s,
                  .firstName = u"Ana "_s,
                  .middleName = u"Sy"_s,
                  .street = u"12 Rizal St."_s,
                  .barangay = u" Uno"_s,
                  .townCode = u"1100"_s,
                  .birthDate = u"02/29/1984"_s,
                  .age = u"42"_s,
                  .sex = u"F"_s,
                  .civilStatusCode = u"2"_s});
}

TEST_F(frmCashWalkInPatientTest, SaveWithoutANameIsRefused) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"  "_s);
    Info(screen, 1).setText(u" "_s);
    Info(screen, 2).setText(u"SY"_s);
    Button(screen, "cmdOption(0)").setFocus();
    messages.Expect(kNoName);
    Click(Button(screen, "cmdOption(0)"));
    EXPECT_TRUE(Info(screen, 0).hasFocus());
    EXPECT_TRUE(Screens::IsLoaded<frmCashWalkInPatient>());
}

TEST_F(frmCashWalkInPatientTest, LastNameAloneSaves) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"CRUZ"_s);
    Save(screen, NameAlone(u"CRUZ"_s));
}

TEST_F(frmCashWalkInPatientTest, SexIsReadWithoutItsBlanks) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"CRUZ"_s);
    auto& sex = Find<QComboBox>(screen, "cboSex");
    sex.setItemText(0, u" Male "_s);
    sex.setCurrentIndex(0);
    Save(screen, NameAlone(u"CRUZ"_s));
}

TEST_F(frmCashWalkInPatientTest, FirstNameAloneSaves) {
    const auto& screen = Open();
    Info(screen, 1).setText(u"ANA"_s);
    WalkInEntry entry = NameAlone(u""_s);
    entry.firstName = u"ANA"_s;
    Save(screen, entry);
    EXPECT_EQ(gCashSearchText, u""_s);
}

TEST_F(frmCashWalkInPatientTest, SaveGoesThroughTheConnectionOfTheSession) {
    const auto& screen = Open();
    gConnection = nullptr;
    Info(screen, 0).setText(u"CRUZ"_s);
    Save(screen, NameAlone(u"CRUZ"_s));
}

TEST_F(frmCashWalkInPatientTest, NameWithAnApostropheBreaksTheCommandAndTheScreenStays) {
    const auto& screen = Open();
    gPatientType = u"I"_s;
    Info(screen, 0).setText(u"O'Brien"_s);
    gateway.ExpectFailure(EarCareAddCashPatientCommand(NameAlone(u"O'Brien"_s)),
                          RunTimeError(102, u"Incorrect syntax near 'Brien'."_s));
    Click(Button(screen, "cmdOption(0)"));
    EXPECT_EQ(TakeFailure(), 102);
    EXPECT_TRUE(Screens::IsLoaded<frmCashWalkInPatient>());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(gPatientType, u"I"_s);
    EXPECT_EQ(gCashSearchText, u"CRUZ"_s);
}

TEST_F(frmCashWalkInPatientTest, SaveGoesBackToTheListWithTheNewName) {
    assessment.typeOn = 2;
    const auto& screen = Open();
    Info(screen, 0).setText(u" Lim "_s);
    gateway.Expect(EarCareAddCashPatientCommand(NameAlone(u" Lim "_s)));
    ExpectList(u"Lim"_s, u"3"_s, {{u""_s, u"W000026"_s, u"Lim,"_s}});
    WhileModal([&](Form& list) {
        ASSERT_NE(dynamic_cast<frmCashWalkIn*>(&list), nullptr);
        EXPECT_TRUE(list.IsModal());
        EXPECT_FALSE(Screens::IsLoaded<frmCashWalkInPatient>());
        EXPECT_EQ(gPatientType, u"W"_s);
        EXPECT_EQ(gCashSearchText, u" Lim "_s);
        DoubleClickRow(list, 1);
    });
    Click(Button(screen, "cmdOption(0)"));
    EXPECT_EQ(assessment.boxes[u"txtSname"_s], u"Lim,"_s);
    EXPECT_EQ(assessment.boxes[u"txtHospNum"_s], u"W000026"_s);
    EXPECT_EQ(gRoomClass, u"A"_s);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmCashWalkInPatientTest, OptionOfTheAssessmentDecidesTheListThatComesBack) {
    assessment.typeOn = 1;
    const auto& screen = Open();
    Info(screen, 0).setText(u"Lim"_s);
    gateway.Expect(EarCareAddCashPatientCommand(NameAlone(u"Lim"_s)));
    ExpectList(u"Lim"_s, u"2"_s, {});
    bool seen = false;
    WhileModal([&](Form&) {
        seen = true;
        EXPECT_EQ(gPatientType, u"O"_s);
    });
    Click(Button(screen, "cmdOption(0)"));
    EXPECT_TRUE(seen);
}

TEST_F(frmCashWalkInPatientTest, WithoutAnOptionOfTheAssessmentTheListThatComesBackShowsWalkIns) {
    assessment.typeOn = -1;
    gPatientType = u"I"_s;
    const auto& screen = Open();
    Info(screen, 0).setText(u"Lim"_s);
    gateway.Expect(EarCareAddCashPatientCommand(NameAlone(u"Lim"_s)));
    ExpectList(u"Lim"_s, u"3"_s, {});
    WhileModal([](Form&) {});
    Click(Button(screen, "cmdOption(0)"));
    EXPECT_EQ(gPatientType, u"W"_s);
}

TEST_F(frmCashWalkInPatientTest, CancelAsksAndClosesWithoutTheList) {
    const auto& screen = Open();
    messages.Expect(kClose, MsgAnswer::Ok);
    Click(Button(screen, "cmdOption(1)"));
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkInPatient>());
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
}

TEST_F(frmCashWalkInPatientTest, CancelThatIsCancelledKeepsTheScreen) {
    const auto& screen = Open();
    Info(screen, 0).setText(u"CRUZ"_s);
    messages.Expect(kClose, MsgAnswer::Cancel);
    Click(Button(screen, "cmdOption(1)"));
    EXPECT_TRUE(Screens::IsLoaded<frmCashWalkInPatient>());
    EXPECT_EQ(Info(screen, 0).text(), u"CRUZ"_s);
}
