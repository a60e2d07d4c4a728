#pragma once

#include "text/Seam.h"

/// Ends the process at once with exit code 0, as one that has nothing more to do: no screen is asked, nothing
/// is closed, and none of the program's code runs any more.
[[noreturn]] void EndProcess();

/// How the process ends. What stands in for it has to raise something.
Seam<void()>& EndProcessSeam();
