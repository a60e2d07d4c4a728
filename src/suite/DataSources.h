#pragma once

#include "suite/DataSource.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// Lists the names of the hospital's servers that this machine knows.
using DataSourceList = std::function<QStringList()>;

/// The hospitals that a user can sign on to: the trial hospital in that folder, then the servers of the list.
/// When the list fails, the trial hospital alone.
std::vector<std::unique_ptr<DataSource>> DataSources(const QString& dataFolder, const DataSourceList& list);

/// The one of that name; a name that is not the trial hospital's is a server's.
std::unique_ptr<DataSource> DataSourceNamed(const QString& dataFolder, const QString& name);
