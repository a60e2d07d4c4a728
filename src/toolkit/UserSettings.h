#pragma once

#include <QSettings>

/// What the program keeps for this user of the machine, the file `TARVEN/Hemodialysis.ini` among his
/// settings. What stands nowhere in it is read from the file of the same name among those of the machine
/// (`/etc/xdg`), where an administrator says with what every user begins. It holds conveniences alone: where
/// it cannot be read or written, the program goes on without.
QSettings UserSettings();
