#pragma once

#include "text/Seam.h"

/// Begins the process anew as it was begun, in its own place: no screen is asked and nothing is closed. Comes
/// back where the system does not let it, as when the program's file is gone.
void RestartProcess();

/// How the process begins anew.
Seam<void()>& RestartProcessSeam();
