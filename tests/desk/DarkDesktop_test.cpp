#include "desk/Desk.h"

#include <QFile>

using namespace Qt::StringLiterals;

// The program on a desktop whose windows are dark.

namespace {

class DarkDesktop : public Desk {
  protected:
    /// A desktop that tells its colours in a file of its settings.
    QProcessEnvironment DesktopOf(const QByteArray& ground, const QByteArray& text) {
        QFile colors(Folder().Path() + u"/kdeglobals"_s);
        EXPECT_TRUE(colors.open(QIODevice::WriteOnly));
        for (const char* kind : {"Window", "View", "Button"})
            colors.write(QByteArray("[Colors:") + kind + "]\nBackgroundNormal=" + ground +
                         "\nForegroundNormal=" + text + '\n');
        QProcessEnvironment desktop;
        desktop.insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
        desktop.insert(u"KDE_SESSION_VERSION"_s, u"5"_s);
        desktop.insert(u"KDE_FULL_SESSION"_s, u"true"_s);
        return desktop;
    }

    /// The colour of the sign-on window beside its controls.
    QColor Ground() {
        const QRect place = WindowOf(u"SignOnDialog"_s).place;
        Now();
        return Picture(u"sign-on"_s).pixelColor(place.topLeft() + QPoint(3, 3));
    }
};

TEST_F(DarkDesktop, HasTheProgramDark) {
    StartProgramOn({1280, 1024}, WindowManager::None, DesktopOf("40,44,52", "230,230,230"));
    EXPECT_LT(Ground().lightness(), 60);
    ExpectNothingCut(u"SignOnDialog"_s);
    ExpectEachFocusIsSeen();
}

TEST_F(DarkDesktop, IsNoneWithLightWindows) {
    StartProgramOn({1280, 1024}, WindowManager::None, DesktopOf("239,240,241", "35,38,41"));
    EXPECT_GT(Ground().lightness(), 200);
}

} // namespace
