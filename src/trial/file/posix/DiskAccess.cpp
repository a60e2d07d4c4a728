#include "trial/file/DiskAccess.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool MayDo(const QString& path, int what) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), what, AT_EACCESS) == 0;
}

QString SystemText() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// Makes sure that a folder knows its files after a power failure too; returns why that failed.
QString FlushFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return SystemText();
    QString failure = ::fsync(folder) == 0 ? QString() : SystemText();
    ::close(folder);
    return failure;
}

} // namespace

QByteArray FileSystemOf(const QString& path) {
    return QStorageInfo(QFileInfo(path).absolutePath()).fileSystemType();
}

bool MayRead(const QString& path) {
    return MayDo(path, R_OK);
}

bool MayWrite(const QString& path) {
    return MayDo(path, W_OK);
}

QString WhyNoFilesIn(const QString& folder) {
    if (MayDo(folder, W_OK | X_OK))
        return {};
    return errno == EROFS ? u"it lies on a read-only disk"_s : u"its folder cannot be written to"_s;
}

QString RenameForGood(const QString& from, const QString& to) {
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return SystemText();
    return FlushFolder(QFileInfo(to).absolutePath());
}
