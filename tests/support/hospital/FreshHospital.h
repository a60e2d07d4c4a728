#pragma once

#include "gateway/CommandGateway.h"

#include <QString>

#include <vector>

/// The path of the trial hospital as it is made on the day that the clock shows, for tests that copy it. It
/// is made once for each day and each build of the test program, which has the scripts and the engine in it,
/// so tests may run side by side, and each in a process of its own.
QString FreshHospital();

/// The rows that a command brings from the hospital in that file, each as its cells joined by "|".
std::vector<QString> HospitalRows(const QString& file, const QString& command);

/// The same over a connection that stands.
std::vector<QString> HospitalRows(CommandGateway& hospital, const QString& command);
