#pragma once

#include "check/Ground.h"

// What stands in the hospital's databases, and what this user may do there.

Findings LookAtProcedures(const Ground& ground);
Findings LookAtAnswers(const Ground& ground);
Findings LookAtTables(const Ground& ground);
Findings LookAtRights(const Ground& ground);
