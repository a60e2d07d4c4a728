#pragma once

#include <QString>

/// The configuration file tarvenaux.ini at gIniPath: lines of key and value parted by the first "=". Its text
/// is Latin-1; a character outside it is written as "?". Nothing is cached. A file that cannot be created,
/// opened, read or written raises 75 with the path in the text.

/// The file's name; it stands in the program's folder.
inline constexpr QStringView kConfigFileName = u"tarvenaux.ini";

/// Creates the file empty if there is none. Always True: a file that cannot be created raises.
bool EnsureConfigFile();

/// Reads the value of the first line with that key, letter case aside. An absent key gives the text "0"; a
/// key with nothing behind its "=" gives the empty text.
void ReadConfigValue(const QString& key, QString& value);

/// Creates the file anew, empty.
void ResetConfigFile();

/// Adds one line at the file's end.
void AppendConfigValue(const QString& key, const QString& value);
