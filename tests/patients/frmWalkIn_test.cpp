#include "components/shared.h"
#include "patients/commands.h"
#include "patients/frmWalkIn.h"
#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class frmWalkInTest : public ScreenTest {
  protected:
    static frmWalkIn& Open() {
        auto& screen = Screens::Get<frmWalkIn>();
        screen.Show();
        Activate(screen);
        return screen;
    }

    static QLineEdit& Box(const Form& screen, const char* name) { return Find<QLineEdit>(screen, name); }
    static QRadioButton& Option(const Form& screen, const char* name) {
        return Find<QRadioButton>(screen, name);
    }
    static void Save(const Form& screen) { Click(Find<QPushButton>(screen, "cmdSave")); }

    /// What a save of the untouched screen sends.
    static WalkInEntry Unkeyed() {
        WalkInEntry entry;
        entry.sex = u"M"_s;
        entry.civilStatusCode = u"1"_s;
        return entry;
    }

    WalkInEntry unkeyed = Unkeyed();
};

TEST_F(frmWalkInTest, EveryBoxIsSpoken) {
    const auto& screen = Open();
    for (const QLineEdit* box : screen.findChildren<QLineEdit*>())
        EXPECT_FALSE(box->accessibleName().isEmpty()) << box->objectName().toStdString();
}

struct LengthCase {
    const char* name;
    int length;
};

class LengthTest : public frmWalkInTest, public testing::WithParamInterface<LengthCase> {};

INSTANTIATE_TEST_SUITE_P(Boxes, LengthTest,
                         testing::Values(LengthCase{"txtSname", 30}, LengthCase{"txtFname", 30},
                                         LengthCase{"txtMname", 30}, LengthCase{"txtBirth", 10},
                                         LengthCase{"txtAge", 3}, LengthCase{"txtHouse", 30},
                                         LengthCase{"txtBarangay", 30}),
                         CaseName());

TEST_P(LengthTest, TakesNoMoreThanItsLengthInUpperCase) {
    QLineEdit& box = Box(Open(), GetParam().name);
    Type(box, QString(40, u'ñ'));
    EXPECT_EQ(box.text(), QString(GetParam().length, u'Ñ'));
}

TEST_P(LengthTest, EnterMovesOn) {
    QLineEdit& box = Box(Open(), GetParam().name);
    box.setFocus();
    Press(box, Qt::Key_Return);
    EXPECT_TRUE(box.hasFocus());
    RunEvents();
    EXPECT_FALSE(box.hasFocus());
    EXPECT_EQ(box.text(), u""_s);
}

TEST_F(frmWalkInTest, BareSaveSendsMaleSingleAndNothingElse) {
    const auto& screen = Open();
    gateway.Expect(AddCashPatientCommand(unkeyed));
    Save(screen);
    EXPECT_FALSE(Screens::IsLoaded<frmWalkIn>());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmWalkInTest, SaveSendsEachBoxAtItsPlace) {
    const auto& screen = Open();
    for (const char* name : {"txtSname", "txtFname", "txtMname", "txtHouse", "txtBarangay", "txtZipCode"})
        Box(screen, name).setText(QString::fromLatin1(name) + u" "_s);
    Box(screen, "txtBirth").setText(u"not a date"_s);
    Box(screen, "txtAge").setText(u"old"_s);
    Box(screen, "txtTown").setText(u"never sent"_s);
    Option(screen, "optSex(1)").click();
    Option(screen, "optCivil(5)").click();
    gateway.Expect(AddCashPatientCommand({.lastName = u"txtSname "_s,
                                          .firstName = u"txtFname "_s,
                                          .middleName = u"txtMname "_s,
                                          .street = u"txtHouse "_s,
                                          .barangay = u"txtBarangay "_s,
                                          .townCode = u"txtZipCode "_s,
                                          .birthDate = u"not a date"_s,
                                          .age = u"old"_s,
                                          .sex = u"F"_s,
                                          .civilStatusCode = u"5"_s}));
    Save(screen);
}

TEST_F(frmWalkInTest, CivilStatusIsSentAsItsIndex) {
    for (int i = 0; i < 6; ++i) {
        const auto& screen = Open();
        Option(screen, qPrintable(u"optCivil(%1)"_s.arg(i))).click();
        unkeyed.civilStatusCode = QString::number(i);
        gateway.Expect(AddCashPatientCommand(unkeyed));
        Save(screen);
    }
}

TEST_F(frmWalkInTest, WithoutAnOptionCivilStatusIsEmptyAndTheSexFemale) {
    const auto& screen = Open();
    for (QRadioButton* option : screen.findChildren<QRadioButton*>()) {
        option->setAutoExclusive(false);
        option->setChecked(false);
    }
    unkeyed.civilStatusCode = u""_s;
    unkeyed.sex = u"F"_s;
    gateway.Expect(AddCashPatientCommand(unkeyed));
    Save(screen);
}

TEST_F(frmWalkInTest, NameWithAnApostropheBreaksTheCommandUnderTheHourglass) {
    const auto& screen = Open();
    Type(Box(screen, "txtSname"), u"o'b"_s);
    unkeyed.lastName = u"O'B"_s;
    gateway.ExpectFailure(AddCashPatientCommand(unkeyed), RunTimeError(102, u"Incorrect syntax near 'B'."_s));
    Save(screen);
    EXPECT_EQ(TakeFailure(), 102);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_TRUE(Screens::IsLoaded<frmWalkIn>());
}

TEST_F(frmWalkInTest, SaveGoesThroughTheSharedConnection) {
    const auto& screen = Open();
    user->connection = nullptr;
    gateway.Expect(AddCashPatientCommand(unkeyed));
    Save(screen);
}

TEST_F(frmWalkInTest, EnterInTheZipCodeFindsTheTownAndKeepsTheBlanksOfBothParts) {
    const auto& screen = Open();
    QLineEdit& zipCode = Box(screen, "txtZipCode");
    Type(zipCode, u"qc"_s);
    EXPECT_EQ(zipCode.text(), u"qc"_s) << "its keys are not changed";
    listing->answers = {true};
    listing->address = {u"1100"_s, u"QUEZON CITY  "_s, u" METRO MANILA "_s};
    Press(zipCode, Qt::Key_Return);
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u"qc"_s, 0, u""_s}}));
    EXPECT_EQ(Box(screen, "txtTown").text(), u"QUEZON CITY  ,  METRO MANILA "_s);
    EXPECT_EQ(zipCode.text(), u"1100"_s);
    RunEvents();
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmWalkInTest, ZipCodeThatIsNotFoundChangesNothingAndTellsNothing) {
    const auto& screen = Open();
    Box(screen, "txtZipCode").setText(u"9999"_s);
    Box(screen, "txtTown").setText(u"before"_s);
    Press(Box(screen, "txtZipCode"), Qt::Key_Return);
    Click(Find<QPushButton>(screen, "cmdAddress"));
    EXPECT_EQ(listing->searches.size(), 2U);
    EXPECT_EQ(Box(screen, "txtTown").text(), u"before"_s);
    EXPECT_EQ(Box(screen, "txtZipCode").text(), u"9999"_s);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmWalkInTest, EnterInTheZipCodeStaysThere) {
    const auto& screen = Open();
    QLineEdit& zipCode = Box(screen, "txtZipCode");
    zipCode.setFocus();
    listing->answers = {true};
    Press(zipCode, Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(zipCode.hasFocus());
}

TEST_F(frmWalkInTest, AddressButtonSearchesWithAnEmptyCode) {
    const auto& screen = Open();
    Box(screen, "txtZipCode").setText(u"9999"_s);
    listing->answers = {true};
    listing->address = {u"1100"_s, u"QUEZON CITY"_s, u"METRO MANILA"_s};
    Click(Find<QPushButton>(screen, "cmdAddress"));
    EXPECT_EQ(listing->searches, (std::vector<FakeListing::Search>{{u""_s, 0, u""_s}}));
    EXPECT_EQ(Box(screen, "txtTown").text(), u"QUEZON CITY, METRO MANILA"_s);
    EXPECT_EQ(Box(screen, "txtZipCode").text(), u"1100"_s);
}

TEST_F(frmWalkInTest, TownIsLocked) {
    const auto& screen = Open();
    Type(Box(screen, "txtTown"), u"x"_s);
    EXPECT_EQ(Box(screen, "txtTown").text(), u""_s);
}

TEST_F(frmWalkInTest, EnterInTheLockedTownMovesOn) {
    const auto& screen = Open();
    Box(screen, "txtTown").setFocus();
    Press(Box(screen, "txtTown"), Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(Find<QPushButton>(screen, "cmdSave").hasFocus());
    EXPECT_TRUE(Screens::IsLoaded<frmWalkIn>());
}

TEST_F(frmWalkInTest, CloseAsksNothingAndSavesNothing) {
    const auto& screen = Open();
    Box(screen, "txtSname").setText(u"CRUZ"_s);
    Click(Find<QPushButton>(screen, "cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmWalkIn>());
}
