#pragma once

#include "check/Finding.h"
#include "text/RunTimeError.h"

#include <QStringList>

/// The line of a sign-on that failed, with what an administrator does about it. `sources` are those that the
/// sign-on window offers on this machine.
Finding SignOnFault(const RunTimeError& error, const QStringList& sources);
