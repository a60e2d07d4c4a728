#pragma once

#include "check/Ground.h"

// The server and the way to it.

Findings LookAtDriver(const Ground& ground);
Findings LookAtEncryption(const Ground& ground);
Findings LookAtVersion(const Ground& ground);
Findings LookAtLanguage(const Ground& ground);
Findings LookAtLogin(const Ground& ground);
Findings LookAtClock(const Ground& ground);
Findings LookAtDatabases(const Ground& ground);
Findings LookAtCollation(const Ground& ground);
Findings LookAtIsolation(const Ground& ground);
Findings LookAtChaining(const Ground& ground);
