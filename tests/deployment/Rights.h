#pragma once

#include "check/Grants.h"
#include "deployment/HospitalObjects.h"

#include <QString>
#include <QStringList>

/// What a command needs on the objects that it names. What it names and hospital/ does not have, or uses in a
/// way that is not known here, is told in `problems`.
QStringList RightsFor(const QString& command, const HospitalObjects& hospital, QStringList& problems);

/// What one side has and the other has not, one line each; empty when both are alike.
QStringList DifferencesBetween(const RoleRights& needed, const RoleRights& granted);
