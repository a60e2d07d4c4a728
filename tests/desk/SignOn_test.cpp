#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// The sign-on window as it stands before the clerk.

namespace {

/// The window's own frame and the main window's shift it a little.
constexpr int kOff = 60;

class SignOnWindow : public AnyDesk {};

TEST_P(SignOnWindow, StandsInTheMiddleAndCutsNothing) {
    StartProgram(GetParam());
    const QRect frame = WindowOf(u"SignOnDialog"_s).frame;
    const QPoint off = frame.center() - Clerk().WorkArea().center();
    EXPECT_LE(std::abs(off.x()), kOff) << off.x();
    EXPECT_LE(std::abs(off.y()), kOff) << off.y();
    ExpectNothingCut(u"SignOnDialog"_s);
    ExpectInside(u"SignOnDialog"_s);
}

TEST_P(SignOnWindow, ShowsTheFocusOnEachControl) {
    StartProgram(GetParam());
    ExpectFocus(u"txtUser"_s);
    ExpectEachFocusIsSeen();
}

TEST_P(SignOnWindow, LeadsByKeysToTheFocusInTheMainWindow) {
    StartProgram(GetParam());
    ExpectFocus(u"txtUser"_s);
    Key(u"NURSE{Tab}"_s);
    ExpectFocus(u"txtPassword"_s);
    Key(u"nurse{Return}"_s);
    ExpectScreen(u"frmMain"_s);
    ExpectAFocus();
    ExpectFocusIsSeen();
}

TEST_P(SignOnWindow, AsksBeforeTheHospitalIsMadeAnew) {
    StartProgram(GetParam());
    Key(u"{Alt+a}"_s);
    ExpectScreen(u"MsgBox"_s);
    ExpectNothingCut(u"MsgBox"_s);
    ExpectInside(u"MsgBox"_s);
    ExpectRoomForTitle(u"MsgBox"_s);
    ExpectFocusIsSeen();
}

TEST_P(SignOnWindow, CutsNothingWhenItRefuses) {
    StartProgram(GetParam());
    ExpectFocus(u"txtUser"_s);
    Key(u"NURSE{Tab}wrong{Return}"_s);
    EXPECT_EQ(Text(u"lblProblem"_s), u"The user or the password is wrong. Two tries are left."_s);
    ExpectNothingCut(u"SignOnDialog"_s);
    ExpectInside(u"SignOnDialog"_s);
    ExpectFocusIsSeen();
}

INSTANTIATE_TEST_SUITE_P(Under, SignOnWindow, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
