#pragma once

#include "desk/WindowManager.h"

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

/// How a step of a way is taken.
enum class By {
    /// Keys are pressed.
    Keys,
    /// A control is double-clicked.
    DoubleClick,
    /// The program is asked to show the screen, to which no menu leads in this release.
    Class
};

/// A step of a clerk, and the window or screen that must be in front of him behind it.
struct Step {
    const char* screen;
    /// As Seat takes them.
    const char* keys = "";
    /// The control to which Tab leads before the keys are pressed, or which is double-clicked. None to press
    /// them where the focus is.
    const char* at = nullptr;
    By by = By::Keys;
};

/// The steps of a clerk from the main window to what a case is about.
struct Way {
    const char* name;
    std::vector<Step> steps;

    /// The window or screen to which it leads.
    const char* End() const { return steps.back().screen; }
};

/// The ways to every window and screen of the program, some of them by several.
const std::vector<Way>& EveryWay();

/// A longer way: the steps of one with more steps behind them. The first must be one of EveryWay.
Way Further(const char* name, const char* first, const std::vector<Step>& more);

void PrintTo(const Way& way, std::ostream* out);

/// A way that is taken under a window manager.
using WayUnder = std::tuple<WindowManager, Way>;

/// Names the cases of a test that takes ways.
struct WayName {
    std::string operator()(const testing::TestParamInfo<WayUnder>& named) const {
        return NameOf(std::get<0>(named.param)) + '_' + std::get<1>(named.param).name;
    }
};
