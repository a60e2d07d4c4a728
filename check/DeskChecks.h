#pragma once

#include "check/Ground.h"

// What lies on the workstation.

Findings LookAtTemplates(const Ground& ground);
Findings LookAtPrinters(const Ground& ground);
Findings LookAtConfiguration(const Ground& ground);
Findings LookAtFolders(const Ground& ground);
