#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// Keys that come before the program is ready for them, as from a scanner.

namespace {

/// A key that gets lost does so in one try of ten or so.
constexpr int kTries = 8;

class TypeAhead : public AnyDesk {
  protected:
    /// Presses all the keys at once and waits for the text in a box of the screen that they open; then again.
    void ExpectInBox(const QString& keys, const QString& screen, const QString& box, const QString& text) {
        for (int i = 0; i < kTries; ++i) {
            Burst(keys);
            ExpectScreen(screen);
            ExpectText(box, text);
            Key(u"{Escape}"_s);
            ExpectNoScreen(screen);
        }
    }

    /// Holds Enter down until the screen that it opens stands, and on for a while; it has to stand still
    /// then.
    void HoldEnterTo(const QString& screen) {
        Clerk().Hold(u"{Return}"_s);
        ExpectScreen(screen);
        for (int i = 0; i < kTries; ++i) {
            Clerk().Repeat(u"{Return}"_s);
            Now();
        }
        Clerk().Release(u"{Return}"_s);
        ExpectScreen(screen);
    }
};

TEST_P(TypeAhead, FromTheMenuReachesTheLastName) {
    StartSignedOn(GetParam());
    ExpectInBox(u"{Alt+q}{Down}{Return}de guz"_s, u"frmPostCharges"_s, u"txtLastName"_s, u"DE GUZ"_s);
}

TEST_P(TypeAhead, FromTheGridReachesThePicker) {
    StartSignedOn(GetParam());
    Go(Further("", "ChargesOfAPatient", {{"frmPostCharges", "hc{Return}", "txtEntry"}}).steps);
    // What an earlier try has left in the cell is keyed over.
    ExpectInBox(u"{Home}{Shift+End}hemo{Return}treat"_s, u"PickDialog"_s, u"txtPick"_s, u"TREAT"_s);
}

TEST_P(TypeAhead, OfTwoKeysInTheExaminationsTheSecondPicks) {
    StartSignedOn(GetParam());
    Go({{.screen = "frmSearcher", .by = By::Class}});
    ExpectFocus(u"txtSearchStr"_s);
    Burst(u"ab"_s);
    ExpectNoScreen(u"frmSearcher"_s);
}

TEST_P(TypeAhead, FromAKeyReachesAModalScreen) {
    StartSignedOn(GetParam());
    for (int i = 0; i < kTries; ++i) {
        ExpectScreen(u"frmMain"_s);
        Burst(u"{Control+a}{Tab}cruz"_s);
        ExpectScreen(u"frmAssessment"_s);
        ExpectText(u"txtSname"_s, u"CRUZ"_s);
        Key(u"{Control+w}{Return}"_s);
        ExpectNoScreen(u"frmAssessment"_s);
    }
}

TEST_P(TypeAhead, TheSecondEnterThatComesEarlyPicksThePatient) {
    StartSignedOn(GetParam());
    Burst(u"{Alt+q}{Down}{Return}de guz{Return}{Return}"_s);
    ExpectNoScreen(u"frmSearchPatient"_s);
    ExpectText(u"txtLastName"_s, u"DE GUZMAN"_s);
}

TEST_P(TypeAhead, ThroughAPickerReachesTheCellsBehindIt) {
    StartSignedOn(GetParam());
    Go(Further("", "PatientFinder", {{"frmPostCharges", "{Return}"}}).steps);
    TabTo(u"txtEntry"_s);
    // The name opens the stock's list; Enter takes its first row, and the quantity follows at once.
    Burst(u"hb{Return}epoetin alfa 4{Return}{Return}3{Return}{Return}{Return}"
          "md{Return}D003{Return}1500{Return}"_s);
    ExpectText(u"txtTAmount"_s, u"4551.00"_s);
}

TEST_P(TypeAhead, AKeyThatIsHeldDownPicksNoPatientFromTheListThatItHasOpened) {
    StartSignedOn(GetParam());
    Go({{"frmPostCharges", "{Alt+q}{Down}{Return}"}});
    Key(u"de"_s);
    HoldEnterTo(u"frmSearchPatient"_s);
    EXPECT_EQ(Text(u"txtFirstName"_s).toStdString(), "") << "nobody was taken meanwhile";
    Key(u"{Return}"_s);
    ExpectNoScreen(u"frmSearchPatient"_s);
}

TEST_P(TypeAhead, AKeyThatIsHeldDownAnswersNoQuestionThatItHasOpened) {
    StartSignedOn(GetParam());
    Go({{"frmAssessStatus", "{Alt+q}{Right}{Right}{Return}"}});
    TabTo(u"grdTable"_s);
    HoldEnterTo(u"MsgBox"_s);
    EXPECT_EQ(Text(u"qt_msgbox_label"_s).toStdString(), "Are you sure to revoke?");
    Key(u"{Return}"_s);
    ExpectText(u"qt_msgbox_label"_s, u"Assessment has been revoked."_s);
}

class BusyManager : public Desk {};

TEST_F(BusyManager, AKeyThatComesWhileNoWindowHasTheFocusIsNotLost) {
    StartSignedOn(WindowManager::Openbox);
    ExpectControl(u"Image1"_s);
    // By now the sign-on has long gone: a window that closes asks for the focus by itself.
    Go({{"frmCensus", "{Alt+p}{Up}{Up}{Return}"}, {"frmReportRange", "{Alt+p}{Return}"}});
    Clerk().PointAt(ControlOf(u"frmMain"_s).place.center());
    Desktop().Pause();
    Clerk().TakeFocusAway();
    WaitFor([](const State& state) { return !state.Window(u"frmMain"_s)->isActive; }, u"the focus to go"_s);
    Clerk().Press(u"{F6}"_s);
    WaitFor([](const State& state) { return state.Window(u"frmNursingRequest"_s) != nullptr; },
            u"the queue of the requests"_s);
    Desktop().GoOn();
    ExpectScreen(u"frmNursingRequest"_s);
}

INSTANTIATE_TEST_SUITE_P(Under, TypeAhead, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
