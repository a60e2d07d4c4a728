#pragma once

#include "check/Finding.h"

#include <QByteArray>

/// The line of a finding: its verdict in words ("ok", "FAULT", "n/a"), its name, what was seen, and below a
/// fault what to do. `colored` gives the verdict a colour, as terminals take it.
QString LineOf(const Finding& finding, bool colored);

/// All findings as one JSON object: {"ok": false, "findings": [{"name", "verdict", "seen", "toDo"}, ...]}.
QByteArray JsonOf(const Findings& findings);
