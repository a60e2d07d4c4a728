#include "trial/file/HospitalPlace.h"

#include "trial/file/DiskAccess.h"
#include "tsql/ServerError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions kOwnersFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions kOwnersFolder = kOwnersFile | QFile::ExeOwner;
constexpr QFile::Permissions kOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                       QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

/// What the owner may not do with it stays so: a file that somebody has made read-only is not opened up.
void Narrow(const QString& path, QFile::Permissions most) {
    const QFile::Permissions found = QFile::permissions(path);
    if (found & kOthers)
        QFile::setPermissions(path, found & most);
}

} // namespace

QString RealPath(const QString& path) {
    const QFileInfo file(path);
    if (file.exists())
        return file.canonicalFilePath();
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? path : folder + u'/' + file.fileName();
}

void RequireOrdinaryFile(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists())
        throw RunTimeError(RunTime::kFileNotFound, RunTime::TextOf(RunTime::kFileNotFound) + u": "_s + path);
    if (!file.isFile())
        throw ServerError(Fault::NoHospital, {path, u"it is a folder, a pipe or a device"_s});
}

bool IsNetworkFileSystem(const QByteArray& kind) {
    // Folders of the host in a virtual machine (vboxsf, prl_fs, vmhgfs) count too, and disks that several
    // machines share. virtiofs and 9p do not: virtual machines and containers have their own disks on them.
    static constexpr std::array kNames = {"nfs",    "nfs4",  "cifs",     "smbfs",     "smb3",   "smb2",
                                          "ncpfs",  "ncp",   "afs",      "coda",      "ceph",   "gpfs",
                                          "lustre", "pvfs2", "orangefs", "beegfs",    "vboxsf", "prl_fs",
                                          "gfs2",   "ocfs2", "vmhgfs",   "glusterfs", "remote"};
    // What a program serves may be anything, and mostly is another machine's.
    if (kind.startsWith("fuse."))
        return kind != "fuse.fuse-overlayfs";
    return std::any_of(kNames.begin(), kNames.end(), [&kind](const char* name) { return kind == name; });
}

void RequireLocalDisk(const QString& path) {
    const QByteArray kind = FileSystemSeam()(path);
    if (IsNetworkFileSystem(kind))
        throw ServerError(
            Fault::CannotOpen,
            {path, u"it lies on a network drive (%1), where the locks that keep workstations "
                   "from writing over each other cannot be trusted"_s.arg(QString::fromLatin1(kind))});
}

void RequireFolderOfItsOwn(const QString& path) {
    if (QFileInfo(path).absolutePath() == QDir(QDir::homePath()).canonicalPath())
        throw ServerError(Fault::CannotOpen,
                          {path, u"it lies in your home folder itself, where other windows "
                                 "look into it; it needs a folder of its own"_s});
}

void RequireWritable(const QString& path) {
    const QString reason = WhyNoFilesIn(QFileInfo(path).absolutePath());
    if (!reason.isEmpty())
        throw ServerError(Fault::CannotOpen, {path, reason});
    // One that cannot even be read is told by the system when it is opened.
    if (MayRead(path) && !MayWrite(path))
        throw ServerError(Fault::ReadOnly, {path});
}

bool HasLog(const QString& path) {
    return QFileInfo(path + u"-wal"_s).size() > 0;
}

void RequireLog(const QString& path) {
    const QString log = path + u"-wal"_s;
    const QString index = path + u"-shm"_s;
    // Who opens the file makes the log first, and who closes it removes the index first: an index without a
    // log is left over from somebody who did neither. One that begins between the two looks shows its log at
    // the last.
    if (QFile::exists(log) || !QFile::exists(index) || QFile::exists(log))
        return;
    throw ServerError(Fault::CannotOpen,
                      {path, u"its log %1 with what was saved last is missing; put it back, or "
                             "remove %2 to work without it"_s.arg(log, index)});
}

void MakePrivateFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kOwnersFile))
        throw ServerError(Fault::CannotOpen, {path, file.errorString()});
}

void KeepPrivate(const QString& path) {
    for (const QString& suffix : {QString(), u"-wal"_s, u"-shm"_s}) {
        if (QFileInfo(path + suffix).isFile())
            Narrow(path + suffix, kOwnersFile);
    }
}

void KeepFolderPrivate(const QString& path) {
    Narrow(path, kOwnersFolder);
}

Seam<QByteArray(const QString&)>& FileSystemSeam() {
    static Seam<QByteArray(const QString&)> seam(FileSystemOf);
    return seam;
}
