#pragma once

#include "check/Ground.h"

#include <functional>

/// Looks at everything, in the order in which one thing rests upon another. A check that fails is a fault with
/// the failure's text, and the next ones go on. `tell` hears each line as soon as it is known.
Findings LookAtEverything(const Ground& ground, const std::function<void(const Finding&)>& tell);

/// Whether any of them is a fault.
bool HasFaults(const Findings& findings);
