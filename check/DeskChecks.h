#pragma once

#include "check/Ground.h"

#include <QStringList>

// What lies on the workstation.

/// The templates that the program opens, as their files are found, each once.
QStringList TemplatesOfProgram();

Findings LookAtTemplates(const Ground& ground);
Findings LookAtPrinters(const Ground& ground);
Findings LookAtConfiguration(const Ground& ground);
Findings LookAtFolders(const Ground& ground);
