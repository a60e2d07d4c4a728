#include "desk/Desk.h"

#include <QSettings>

#include <algorithm>
#include <iterator>
#include <set>

using namespace Qt::StringLiterals;

// Each window and screen on small displays and on large ones, drawn at the sizes that a clerk chooses.

namespace {

struct Display {
    QSize pixels;
    int percent;
    WindowManager manager = WindowManager::None;
};

/// The tightest, in which the work area has 819x614 and 1092x614 of the screens' own pixels, and the one for
/// which the screens were drawn.
constexpr std::array kTight = {Display{{1024, 768}, 125}, Display{{1366, 768}, 125},
                               Display{{1024, 768}, 100}};
constexpr std::array kWide = {Display{{1366, 768}, 100}, Display{{1920, 1080}, 100},
                              Display{{1920, 1080}, 125}, Display{{1920, 1080}, 150}};
/// Under managers, whose frames take room of their own.
constexpr std::array kFramed = {
    Display{{1366, 768}, 100, WindowManager::Openbox}, Display{{1366, 768}, 100, WindowManager::Xfwm4},
    Display{{1920, 1080}, 150, WindowManager::Openbox}, Display{{1920, 1080}, 150, WindowManager::Xfwm4}};

/// One screen of each kind: with a place and a list, with a size that does not change, modal, a window of its
/// own.
std::vector<Way> WaysOfEachKind() {
    const std::set<std::string> kinds = {"ChargesListed", "PatientFinder", "AssessmentOfAPatient",
                                         "ChargeSlip"};
    std::vector<Way> ways;
    std::copy_if(EveryWay().begin(), EveryWay().end(), std::back_inserter(ways),
                 [&kinds](const Way& way) { return kinds.contains(way.name); });
    return ways;
}

class EverySize : public Desk, public testing::WithParamInterface<std::tuple<Display, Way>> {
  protected:
    /// Signs on with the display size chosen before, and takes the way.
    QString GoThere() {
        const auto& [display, way] = GetParam();
        QSettings(Folder().Path() + u"/TARVEN/Hemodialysis.ini"_s, QSettings::IniFormat)
            .setValue("DisplaySize", display.percent);
        StartProgramOn(display.pixels, display.manager);
        SignOn();
        Go(way.steps);
        return QString::fromLatin1(way.End());
    }

    /// What of the display belongs to a window or screen: the area inside the main window, or all of it.
    QRect RoomOf(const QString& window) {
        const QRect area = WindowOf(window).area;
        return area.isEmpty() ? Clerk().WorkArea() : area;
    }

    /// Tab brings each control into reach, whatever lies beyond the edge of the room before.
    void ExpectEachStopInReach(const QString& window) {
        const QRect room = RoomOf(window);
        const QString first = ExpectAFocus().focus;
        for (int i = 0; i < kMostStops; ++i) {
            const State state = Now();
            EXPECT_TRUE(IsInReach(state.focusPlace, room))
                << state.focus.toStdString() << " lies out of reach in " << window.toStdString();
            Key(u"{Tab}"_s);
            if (Now().focus == first)
                return;
        }
    }

    /// Each button stands whole on its window, those too that are disabled and on which Tab does not stop;
    /// and the window begins inside its room, so that the bars of the area lead to all of it.
    void ExpectEachButtonWhole(const QString& window) {
        const ShownWindow shown = WindowOf(window);
        EXPECT_TRUE(RoomOf(window).contains(shown.frame.topLeft())) << window.toStdString();
        for (const Control& control : Controls(window)) {
            const bool isButton = control.kind == "QPushButton"_L1 || control.kind == "QRadioButton"_L1 ||
                                  control.kind == "QCheckBox"_L1;
            EXPECT_TRUE(!isButton || control.bounds.contains(control.place))
                << control.name.toStdString() << " is cut in " << window.toStdString();
        }
    }

  private:
    static constexpr int kMostStops = 60;

    /// A list that is larger than the room shows its beginning.
    static bool IsInReach(const QRect& control, const QRect& room) {
        const bool hasRoom = control.width() <= room.width() && control.height() <= room.height();
        return hasRoom ? room.contains(control) : room.contains(control.topLeft());
    }
};

TEST_P(EverySize, LeavesNothingOutOfReachAndCutsNothing) {
    const QString screen = GoThere();
    Picture(u"first-"_s + screen);
    ExpectNothingCut(screen);
    ExpectEachButtonWhole(screen);
    ExpectEachStopInReach(screen);
}

struct SizeName {
    std::string operator()(const testing::TestParamInfo<std::tuple<Display, Way>>& named) const {
        const auto& [display, way] = named.param;
        const std::string manager =
            display.manager == WindowManager::None ? "" : NameOf(display.manager) + '_';
        return std::to_string(display.pixels.width()) + "At" + std::to_string(display.percent) + '_' +
               manager + way.name;
    }
};

INSTANTIATE_TEST_SUITE_P(Tight, EverySize,
                         testing::Combine(testing::ValuesIn(kTight), testing::ValuesIn(EveryWay())),
                         SizeName());
INSTANTIATE_TEST_SUITE_P(Framed, EverySize,
                         testing::Combine(testing::ValuesIn(kFramed), testing::ValuesIn(WaysOfEachKind())),
                         SizeName());
/// Where everything has room: by command.
INSTANTIATE_TEST_SUITE_P(DISABLED_Wide, EverySize,
                         testing::Combine(testing::ValuesIn(kWide), testing::ValuesIn(EveryWay())),
                         SizeName());

} // namespace
