#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// Several screens stand open inside the main window.

namespace {

class SwitchingScreens : public AnyDesk {};

TEST_P(SwitchingScreens, CtrlTabGoesToTheNextAndWithShiftBack) {
    StartSignedOn(GetParam());
    Go(Further("", "Ledger", {{"frmLedger", ""}}).steps);
    Go(Further("", "Census", {{"frmCensus", ""}}).steps);
    Key(u"{Control+Tab}"_s);
    ExpectScreen(u"frmLedger"_s);
    Key(u"{Control+Shift+Tab}"_s);
    ExpectScreen(u"frmCensus"_s);
}

TEST_P(SwitchingScreens, ALetterThatNothingIsMarkedWithLeavesTheClerkWhereHeIs) {
    StartSignedOn(GetParam());
    Go(Further("", "Ledger", {{"frmLedger", ""}}).steps);
    const State before = ExpectAFocus();
    for (const QChar letter : u"bgjknruwz"_s) {
        Key(u"{Alt+%1}"_s.arg(letter));
        ExpectFocus(before.focus);
    }
    ExpectFocusIsSeen();
}

INSTANTIATE_TEST_SUITE_P(Under, SwitchingScreens, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
