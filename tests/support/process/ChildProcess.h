#pragma once

#include <functional>

/// How a child process ended: its exit code, or minus the number of the signal that killed it.
///
/// The child runs the function and exits with what it gives back. An exception that leaves it is exit
/// code 99.
int RunInChild(const std::function<int()>& function);

/// Kills this process at once, as a power failure would.
[[noreturn]] void KillThisProcess();
