#pragma once

#include "deployment/HospitalObjects.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// A right in one line, with names in small letters: "SELECT database.table", "EXECUTE database.procedure",
/// and with a column where it is one column's: "UPDATE database.table (column)".
using Right = QString;

/// The rights of the two roles, each with those who need it.
struct RoleRights {
    QMap<Right, QStringList> workstation;
    QMap<Right, QStringList> standby;
};

/// What a command needs on the objects that it names. What it names and hospital/ does not have, or uses in a
/// way that is not known here, is told in `problems`.
QStringList RightsFor(const QString& command, const HospitalObjects& hospital, QStringList& problems);

/// Reads a file of grants. A line that is neither a grant nor a part of the script around it is told in
/// `problems`. Nobody is named as needing the rights.
RoleRights ReadGrants(const QString& script, QStringList& problems);

/// What one side has and the other has not, one line each; empty when both are alike.
QStringList DifferencesBetween(const RoleRights& needed, const RoleRights& granted);
