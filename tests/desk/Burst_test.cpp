#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// Keys at the speed of a scanner, into windows that are still on their way.

namespace {

constexpr int kTimes = 10;

class Burst : public AnyDesk {};

TEST_P(Burst, IntoAModalScreen) {
    StartSignedOn(GetParam());
    for (int i = 0; i < kTimes; ++i) {
        ExpectScreen(u"frmMain"_s);
        Desk::Burst(u"{Control+a}{Tab}cruz"_s);
        ExpectScreen(u"frmAssessment"_s);
        ASSERT_EQ(Text(u"txtSname"_s).toUpper().toStdString(), "CRUZ") << "at try " << i;
        Key(u"{Control+w}{Return}"_s);
        ExpectNoScreen(u"frmAssessment"_s);
    }
}

TEST_P(Burst, ThroughAPickerIntoTheCellsBehindIt) {
    StartSignedOn(GetParam());
    OpenCharges(u"de guz"_s);
    TabTo(u"txtEntry"_s);
    // The name opens the stock's list; Enter takes its first row, and the quantity follows at once.
    Desk::Burst(u"hb{Return}epoetin alfa 4{Return}{Return}3{Return}{Return}{Return}"
                "md{Return}D003{Return}1500{Return}"_s);
    WaitFor([](const State& state) { return state.focus == u"txtEntry"; }, u"the editor"_s);
    EXPECT_EQ(Text(u"txtTAmount"_s), u"4551.00"_s);
}

INSTANTIATE_TEST_SUITE_P(Under, Burst, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
