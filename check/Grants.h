#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// A right in one line, with names in small letters: "SELECT database.table", "EXECUTE database.procedure",
/// and with a column where it is one column's: "UPDATE database.table (column)".
using NamedRight = QString;

/// The rights of the two roles, each with those who need it.
struct RoleRights {
    QMap<NamedRight, QStringList> workstation;
    QMap<NamedRight, QStringList> standby;
};

/// Reads a file of grants. A line that is neither a grant nor a part of the script around it is told in
/// `problems`. Nobody is named as needing the rights.
RoleRights ReadGrants(const QString& script, QStringList& problems);
