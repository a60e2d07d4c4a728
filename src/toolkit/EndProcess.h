#pragma once

#include <functional>

/// Ends the process at once with exit code 0, as one that has nothing more to do: no screen is asked, nothing
/// is closed, and none of the program's code runs any more.
[[noreturn]] void EndProcess();

/// Takes the end in place of the process's own, for tests; it has to raise something. Empty brings the real
/// end back.
void SetEndOfProcess(std::function<void()> end);
