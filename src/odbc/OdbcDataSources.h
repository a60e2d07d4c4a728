#pragma once

#include <QStringList>

/// The names of the data sources that this machine has for this user, in the order of their names. Left out
/// are the driver manager's own settings, which stand among the data sources as [ODBC] and [Default], and
/// names that it lists but cannot open: longer than 32 characters, or with letters beyond plain ones.
QStringList OdbcDataSources();
