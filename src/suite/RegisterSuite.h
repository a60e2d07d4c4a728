#pragma once

#include "gateway/odbc/OdbcDataSources.h"

#include <QString>

#include <functional>

/// Lists the names of the hospital's servers that this machine knows.
using DataSourceList = std::function<QStringList()>;

/// Enters the suite's components under their class names, and the way in which reports reach the database.
/// `dataFolder` is where the trial hospital lies. When the list fails, the trial hospital alone is offered.
void RegisterSuite(const QString& dataFolder, const DataSourceList& list = OdbcDataSources);
