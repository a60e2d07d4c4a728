#pragma once

#include "check/Ground.h"

// What stands in the hospital's databases, and what this user may do there.

Findings LookAtProcedures(const Ground& ground);
Findings LookAtAnswers(const Ground& ground);
Findings LookAtTables(const Ground& ground);
Findings LookAtRights(const Ground& ground);

/// The needs with the columns that the server itself tells of its procedures and tables, those that the program
/// does not know included: a hospital's own templates may show more. The trial hospital's, and those of a server that
/// is not connected, are the needs.
Needs NeedsAsTold(const Ground& ground);
