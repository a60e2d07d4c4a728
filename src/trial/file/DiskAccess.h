#pragma once

#include <QByteArray>
#include <QString>

/// What the operating system tells of a disk and its files, and does to them.

/// The kind of the file system on which a path lies, by the system's name; "remote" for any other machine's
/// where the system does not tell which.
QByteArray FileSystemOf(const QString& path);

/// Whether the system lets this user read a file, and write to it.
bool MayRead(const QString& path);
bool MayWrite(const QString& path);

/// Why the system lets this user make no files in a folder, as "it lies on a read-only disk"; empty where it
/// does.
QString WhyNoFilesIn(const QString& folder);

/// Gives a file another's name in one step, in the place of what bears it. From then on the folder knows it
/// after a power failure too. Returns why that failed, empty for success.
QString RenameForGood(const QString& from, const QString& to);
