#pragma once

#include <QStringView>

/// Raises 102, as the server does for a text that it cannot read, when drivers would send a command other
/// than as it stands: braces, which they replace as their own escapes, and question marks, which they take
/// for parameters, where they stand neither in quotes nor in a comment; a zero character and half a surrogate
/// pair, which they drop wherever they stand.
void CheckForDrivers(QStringView command);
