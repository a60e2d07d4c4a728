#pragma once

#include <QString>

/// Whether some process holds a hospital's file open, as SQLite shows it to other processes: by a lock on the
/// file that stands as long as a connection does. It is asked in a child process, so that nothing of this one
/// comes near the file.
bool IsHeldOpen(const QString& path);
