#pragma once

#include "desk/OwnProcess.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <string>

/// Who places the windows on a display and hands the focus round.
enum class WindowManager { None, Openbox, Xfwm4 };

inline constexpr std::array kWindowManagers = {WindowManager::None, WindowManager::Openbox,
                                               WindowManager::Xfwm4};

inline std::string NameOf(WindowManager manager) {
    switch (manager) {
    case WindowManager::Openbox:
        return "Openbox";
    case WindowManager::Xfwm4:
        return "Xfwm4";
    default:
        return "NoManager";
    }
}

inline void PrintTo(WindowManager manager, std::ostream* out) {
    *out << NameOf(manager);
}

/// Names the cases of a test that is done under each window manager.
struct WindowManagerName {
    std::string operator()(const testing::TestParamInfo<WindowManager>& named) const {
        return NameOf(named.param);
    }
};

/// A window manager that runs while this lives, with what it needs beside it. It may not be ready yet when it
/// has been started; Seat::WindowManagerAnswers tells.
class RunningWindowManager {
  public:
    /// `settings` is the environment, with the display and a home folder.
    RunningWindowManager(WindowManager manager, QProcessEnvironment settings);

    /// From here on it hears nobody, until it goes on.
    void Pause();
    void GoOn();

  private:
    /// What keeps its settings, and the bus over which they come.
    std::optional<OwnProcess> mBus;
    std::optional<OwnProcess> mSettings;
    std::optional<OwnProcess> mManager;
};
