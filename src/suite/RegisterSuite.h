#pragma once

#include "odbc/OdbcDataSources.h"
#include "suite/DataSources.h"

#include <QString>

/// Enters the suite's components under their class names, and the way in which reports reach the database.
/// `dataFolder` is where the trial hospital lies. When the list fails, the trial hospital alone is offered.
void RegisterSuite(const QString& dataFolder, const DataSourceList& list = OdbcDataSources);
