#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// The message boxes on the clerk's ways, in the frames that the window managers draw.

namespace {

class MessageBoxAtADesk : public AnyDesk {
  protected:
    void ExpectBox(const QString& title, const QString& name = u"MsgBox"_s) {
        EXPECT_EQ(ExpectScreen(name).Window(name)->title.toStdString(), title.toStdString());
        ExpectNothingCut(name);
        ExpectInside(name);
        ExpectRoomForTitle(name);
        ExpectFocusIsSeen();
    }
};

TEST_P(MessageBoxAtADesk, ThatAsksBeforeTheHospitalIsMadeAnew) {
    StartProgram(GetParam());
    Key(u"{Alt+a}"_s);
    ExpectBox(u"Sign On"_s);
}

TEST_P(MessageBoxAtADesk, ThatAsksBeforeTheAssessmentsAreLeft) {
    StartSignedOn(GetParam());
    Key(u"{Alt+q}{Right}{Right}{Return}"_s);
    ExpectScreen(u"frmAssessStatus"_s);
    Key(u"{Escape}"_s);
    ExpectBox(u"OPD Registration System"_s);
}

TEST_P(MessageBoxAtADesk, ThatMissesThePatientsName) {
    StartSignedOn(GetParam());
    Key(u"{Alt+q}a"_s);
    ExpectScreen(u"frmAssessment"_s);
    Key(u"{Alt+s}"_s);
    ExpectBox(u"Assessment"_s);
}

TEST_P(MessageBoxAtADesk, ThatMissesTheQuantity) {
    StartSignedOn(GetParam());
    OpenCharges(u"de guz"_s);
    TabTo(u"txtEntry"_s);
    Key(u"hc{Return}HC001{Return}{BackSpace}{Return}"_s);
    ExpectBox(u"TARVEN"_s);
}

TEST_P(MessageBoxAtADesk, ThatMissesTheLines) {
    StartSignedOn(GetParam());
    OpenCharges(u"de guz"_s);
    TabTo(u"cmdPrint"_s);
    Key(u"{Return}"_s);
    ExpectBox(u"Assessment"_s);
}

TEST_P(MessageBoxAtADesk, ThatRefusesThePeriod) {
    StartSignedOn(GetParam());
    Key(u"{Alt+p}{Return}"_s);
    ExpectScreen(u"frmReportRange"_s);
    TabTo(u"dtpEndDate"_s);
    // The year, which no other part of the date holds back.
    Key(u"{End}{Down}"_s);
    TabTo(u"cmdView"_s);
    Key(u"{Return}"_s);
    ExpectBox(u"TARVEN"_s);
}

TEST_P(MessageBoxAtADesk, ThatTellsAFailure) {
    StartSignedOn(GetParam());
    Key(u"{Alt+q}{Down}{Return}"_s);
    ExpectFocus(u"txtLastName"_s);
    Key(u"O'BRIEN{Return}"_s);
    ExpectBox(u"TARVEN"_s, u"Failure"_s);
}

INSTANTIATE_TEST_SUITE_P(Under, MessageBoxAtADesk, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
