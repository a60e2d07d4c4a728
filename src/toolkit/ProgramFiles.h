#pragma once

#include "text/RunTimeError.h"
#include "text/Seam.h"

#include <QString>

/// The directory of the program file, or the one that TARVEN_FOLDER names, without a slash at its end.
/// tarvenaux.ini and Reports/ stand in it.
QString ProgramDirectory();

/// Which directory that is.
Seam<QString()>& ProgramDirectorySeam();

/// The file that a path of the system names. The system's paths are written with either slash and in any
/// letter case: both slashes part folders, and where no file bears the name to the letter, one that differs
/// in letter case alone is found. A file that does not exist keeps the name that was asked for, a path from
/// the working directory included.
QString ResolveFile(const QString& path);

/// The run-time's error 75 for a file or folder, with its path and the system's reason in the text.
RunTimeError FileError(const QString& path, const QString& reason = {});
