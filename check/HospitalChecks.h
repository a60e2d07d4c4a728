#pragma once

#include "check/Ground.h"

// What the hospital's tables hold, and how fast they answer.

Findings LookAtRecord(const Ground& ground);
Findings LookAtCounters(const Ground& ground);
Findings LookAtDepartment(const Ground& ground);
Findings LookAtRoundTrip(const Ground& ground);
