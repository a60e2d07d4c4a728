#pragma once

#include <QString>

/// Empties the print table, which all workstations share, for the slip of an assessment and for a duplicate.
// Kept: a posting empties the same table with a text of its own, which begins with a capital; both are what
// the server has always been sent.
QString EmptyChargePrintCommand();
