#pragma once

#include "check/Ground.h"

#include <functional>

/// Hears of each line as soon as it is known.
using Hear = std::function<void(const Finding&)>;

/// Looks at everything, in the order in which one thing rests upon another; without a connection at what lies on
/// the workstation. A check that fails is a fault with the failure's text, and the next ones go on.
Findings LookAtEverything(const Ground& ground, const Hear& hear);

/// Whether any of them is a fault.
bool HasFaults(const Findings& findings);
