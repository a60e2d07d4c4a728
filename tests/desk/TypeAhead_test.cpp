#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// Keys that come before the program is ready for them, as from a scanner.

namespace {

/// A key that gets lost does so in one try of ten or so.
constexpr int kTries = 8;

class TypeAhead : public AnyDesk {
  protected:
    /// Takes the way, presses all the keys at once and waits for the text in a box of the screen that they
    /// open; then again.
    void ExpectInBox(const QString& keys, const QString& screen, const QString& box, const char* text) {
        for (int i = 0; i < kTries; ++i) {
            Burst(keys);
            ExpectScreen(screen);
            EXPECT_EQ(Text(box).toStdString(), text) << "at try " << i + 1;
            Key(u"{Escape}"_s);
            ExpectNoScreen(screen);
        }
    }
};

TEST_P(TypeAhead, FromTheMenuReachesTheLastName) {
    StartSignedOn(GetParam());
    ExpectInBox(u"{Alt+q}{Down}{Return}de guz"_s, u"frmPostCharges"_s, u"txtLastName"_s, "DE GUZ");
}

TEST_P(TypeAhead, FromTheGridReachesThePicker) {
    StartSignedOn(GetParam());
    Go(Further("", "ChargesOfAPatient", {{"frmPostCharges", "hb{Return}", "txtEntry"}}).steps);
    ExpectInBox(u"epo{Return}darbe"_s, u"PickDialog"_s, u"txtPick"_s, "DARBE");
}

TEST_P(TypeAhead, OfTwoKeysInTheExaminationsTheSecondPicks) {
    StartSignedOn(GetParam());
    Go({{.screen = "frmSearcher", .by = By::Class}});
    ExpectFocus(u"txtSearchStr"_s);
    Burst(u"ab"_s);
    ExpectNoScreen(u"frmSearcher"_s);
}

INSTANTIATE_TEST_SUITE_P(Under, TypeAhead, testing::ValuesIn(kWindowManagers), WindowManagerName());

} // namespace
