#include "support/Files.h"

#include <QFile>

#include <stdexcept>

QString WriteFile(const QTemporaryDir& folder, const QString& name, const QByteArray& content) {
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("A file of a test cannot be written.");
    return path;
}

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
