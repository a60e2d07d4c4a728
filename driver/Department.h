#pragma once

#include <QString>

/// Names the hemodialysis unit in tarvenaux.ini where a program that was never started has no such file yet
/// or an empty one; without a department the program ends with a dialogue. Answers what failed, empty for
/// nothing.
[[nodiscard]] QString ProvideDepartment();
