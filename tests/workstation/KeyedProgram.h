#pragma once

#include "driver/Driver.h"

#include <QString>

#include <functional>

/// The program as main.cpp starts it, with a clerk at the keys. What its save window would ask for goes to a
/// free name in the program's folder. `registerSuite` enters the suite's components.
///
/// Answers the program's exit code when the program has ended by itself. When the script comes to its end
/// first, the process ends there with 0; where it cannot go on, with kScriptFailed and the reason on standard
/// error.
int RunKeyedProgram(const QString& programFolder, const std::function<void()>& registerSuite,
                    const std::function<void(Driver&)>& script);

inline constexpr int kScriptFailed = 70;
