#include "desk/Desk.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

// F1 at a desk: the manual beside the screen in hand.

namespace {

class HelpAtADesk : public WayDesk {
  protected:
    /// Waits until the manual is in front, with its page.
    void ExpectManual() {
        ExpectScreen(u"HelpWindow"_s);
        ExpectFocus(u"brwPage"_s);
    }

    QString PageTitle() { return Now().Window(u"HelpWindow"_s)->title; }
};

TEST_P(HelpAtADesk, OpensWithF1AndClosesWithEscape) {
    const QString screen = GoThere();
    const QString before = Now().focus;
    Key(u"{F1}"_s);
    ExpectManual();
    Picture(u"manual"_s);
    EXPECT_TRUE(PageTitle().startsWith(u"Manual - "_s));
    Burst(u"{Control+f}escape"_s);
    ExpectText(u"txtSearchManual"_s, u"escape"_s);
    Picture(u"found"_s);
    Key(u"{Escape}"_s);
    ExpectNoScreen(u"HelpWindow"_s);
    ExpectScreen(screen);
    if (!before.isEmpty())
        ExpectFocus(before);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, HelpAtADesk,
                         testing::Combine(testing::Values(WindowManager::Openbox),
                                          testing::ValuesIn(EveryWay())),
                         WayName());

class HelpInALine : public AnyDesk {};

/// The charge screen cuts its grid to eight lines when it is activated, and passes over cells that get the
/// focus.
TEST_P(HelpInALine, LeavesTheLinesAndTheCellAsTheyAre) {
    StartSignedOn(GetParam());
    Go(Further("", "ChargesOfAPatient", {{"frmPostCharges", "hc{Return}HC001{Return}2{Return}", "txtEntry"}})
           .steps);
    EXPECT_EQ(Text(u"txtEntry"_s), ControlOf(u"txtEntry"_s).text);
    const QRect price = ControlOf(u"txtEntry"_s).place;
    Key(u"{F1}"_s);
    ExpectScreen(u"HelpWindow"_s);
    Key(u"{Escape}"_s);
    ExpectNoScreen(u"HelpWindow"_s);
    ExpectFocus(u"txtEntry"_s);
    EXPECT_EQ(ControlOf(u"txtEntry"_s).place, price);
    EXPECT_EQ(Text(u"txtTAmount"_s), u"6720.00"_s);
}

INSTANTIATE_TEST_SUITE_P(Under, HelpInALine, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
