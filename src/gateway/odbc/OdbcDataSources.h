#pragma once

#include <QStringList>

/// The names of the data sources that this machine has for this user, in the order of their names.
QStringList OdbcDataSources();
