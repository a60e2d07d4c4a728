#include "desk/Desk.h"

#include <cmath>

using namespace Qt::StringLiterals;

// How large the program is drawn on displays of several sizes.

namespace {

constexpr QSize kFullHd(1920, 1080);

class DisplaySizes : public Desk {
  protected:
    /// How wide the sign-on window is on the screen, in percent of its width where nothing is scaled.
    int Percent() {
        const double width = WindowOf(u"SignOnDialog"_s).place.width();
        return int(std::lround(width * 100 / kWidth));
    }

    void Choose(const QString& keys) {
        TabTo(u"cmbDisplaySize"_s);
        Key(u"{Down}"_s + keys);
        KeyToBeginAnew(u"{Return}"_s);
    }

    static QProcessEnvironment Desktop(const QString& scale) {
        QProcessEnvironment desktop;
        desktop.insert(u"QT_SCALE_FACTOR"_s, scale);
        return desktop;
    }

    static constexpr int kWidth = 417;
};

TEST_F(DisplaySizes, AreTheScreensOwnOnASmallDisplay) {
    StartProgramOn({1024, 768}, WindowManager::None);
    EXPECT_EQ(Percent(), 100);
}

TEST_F(DisplaySizes, GrowWithTheDisplay) {
    StartProgramOn(kFullHd, WindowManager::None);
    EXPECT_EQ(Percent(), 150);
    ExpectNothingCut(u"SignOnDialog"_s);
    ExpectFocusIsSeen();
}

TEST_F(DisplaySizes, StandBesideTheDesktopsOwnScale) {
    StartProgramOn({2560, 1440}, WindowManager::None, Desktop(u"1.25"_s));
    EXPECT_EQ(Percent(), 188) << "150 % of what is left at 125 %";
}

TEST_F(DisplaySizes, AreChosenInTheSignOnWindowAndKept) {
    StartProgramOn(kFullHd, WindowManager::Openbox, Desktop(u"1.25"_s));
    EXPECT_EQ(Percent(), 125) << "the desktop's own; the largest screen fits no better";
    Choose(u"{Down}{Down}{Down}"_s);
    EXPECT_EQ(Percent(), 188) << "150 % of the desktop's 125 %";
    Choose(u"{Home}{Down}{Down}"_s);
    EXPECT_EQ(Percent(), 156) << "the desktop's scale counts once, however often the program begins anew";
    ExpectNothingCut(u"SignOnDialog"_s);
    SignOn();
}

} // namespace
