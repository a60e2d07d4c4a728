#pragma once

#include "text/Seam.h"

#include <QByteArray>
#include <QString>

// Where a hospital's file may lie, and who may read it. Nothing here opens the file, its log or its index: a
// handle beside SQLite's own would take SQLite's locks along when it is closed.

/// Where a file really lies: its path without links on the way or in the end. SQLite keeps the log and the
/// index there. A file that is not there yet is told by its folder.
QString RealPath(const QString& path);

/// Raises 53 where nothing bears the name, and 5171 for a folder, a pipe or a device.
void RequireOrdinaryFile(const QString& path);

/// Raises 5120 for a file on a network drive: its locks are not to be trusted, and two workstations would
/// write over each other.
void RequireLocalDisk(const QString& path);

/// Raises 5120 for a file that lies in the user's home folder itself. The print window looks into the files
/// there, and would take SQLite's locks along.
void RequireFolderOfItsOwn(const QString& path);

/// Raises 5120 for a file in a folder that the user may not write to, where its log could not be, and 3906
/// for one that he may read and not write.
void RequireWritable(const QString& path);

/// Whether a log lies beside the file, with commands that the file does not have yet.
bool HasLog(const QString& path);

/// Raises 5120 for a file whose last user was stopped and whose log is gone since: what was saved last is in
/// it.
void RequireLog(const QString& path);

/// Makes an empty file that its owner alone may read and write, whatever the process lets others do with new
/// files. Raises 5120 where that cannot be done.
void MakePrivateFile(const QString& path);

/// Takes from everybody but the owner what he may do with the file, its log and its index. What the owner
/// himself may do with them stays. What is no
/// ordinary file stays as it is, and so does a file that is another's, where the system does not let the user
/// do that.
void KeepPrivate(const QString& path);

/// Takes from everybody but the owner what he may do with the folder.
void KeepFolderPrivate(const QString& path);

/// Whether a kind of file system, by the system's name for it, lies on another machine.
bool IsNetworkFileSystem(const QByteArray& kind);

/// The system's name for the kind of file system that a path lies on.
Seam<QByteArray(const QString& path)>& FileSystemSeam();
