#pragma once

#include <QSettings>

/// What the program keeps for this user of the machine, the file `TARVEN/Hemodialysis.ini` among his
/// settings. It holds conveniences alone: where it cannot be read or written, the program goes on without.
QSettings UserSettings();
