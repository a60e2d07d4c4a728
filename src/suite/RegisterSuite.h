#pragma once

#include <QString>

/// Enters the suite's components under their class names, and the way in which reports reach the database.
/// `dataFolder` is where the trial hospital lies.
void RegisterSuite(const QString& dataFolder);
