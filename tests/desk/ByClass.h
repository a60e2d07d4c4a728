#pragma once

#include <QString>

/// Shows a screen to which no menu leads in this release. Raises std::runtime_error for a class that it does
/// not know.
void OpenByClass(const QString& name);
