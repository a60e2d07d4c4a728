#include "trial/file/DiskAccess.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

#include <io.h>
#include <windows.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kReadable = 4;
constexpr int kWritable = 2;

const wchar_t* WideText(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace

QByteArray FileSystemOf(const QString& path) {
    const QStorageInfo disk(QFileInfo(path).absolutePath());
    const QString root = QDir::toNativeSeparators(disk.rootPath());
    return GetDriveTypeW(WideText(root)) == DRIVE_REMOTE ? QByteArray("remote") : disk.fileSystemType();
}

bool MayRead(const QString& path) {
    return _waccess(WideText(QDir::toNativeSeparators(path)), kReadable) == 0;
}

bool MayWrite(const QString& path) {
    return _waccess(WideText(QDir::toNativeSeparators(path)), kWritable) == 0;
}

QString WhyNoFilesIn(const QString& folder) {
    // Who may make files in a folder is known for certain to nobody who has not made one.
    QTemporaryFile file(QDir(folder).filePath(u"XXXXXX.try"_s));
    if (file.open())
        return {};
    return QStorageInfo(folder).isReadOnly() ? u"it lies on a read-only disk"_s
                                             : u"its folder cannot be written to"_s;
}

QString RenameForGood(const QString& from, const QString& to) {
    const bool isDone =
        MoveFileExW(WideText(QDir::toNativeSeparators(from)), WideText(QDir::toNativeSeparators(to)),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    return isDone ? QString() : qt_error_string(int(GetLastError()));
}
