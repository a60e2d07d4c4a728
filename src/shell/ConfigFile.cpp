#include "shell/ConfigFile.h"

#include "components/shared.h"
#include "text/Trim.h"
#include "toolkit/ProgramFiles.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargest = 1024 * 1024;
// Some editors put it in front of a text; in the first line it would become a part of the key.
constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";

void Open(QFile& file, QIODevice::OpenMode mode) {
    if (!file.open(mode))
        throw FileError(file.fileName(), file.errorString());
}

/// The whole text, its lines ended by "\n" alone.
QString ReadText() {
    QFile file(ResolveFile(gIniPath));
    Open(file, QIODevice::ReadOnly);
    QByteArray text = file.read(kLargest + 1);
    if (file.error() != QFileDevice::NoError)
        throw FileError(file.fileName(), file.errorString());
    if (text.size() > kLargest)
        throw FileError(file.fileName(), u"it is larger than 1 MB, which no configuration file is"_s);
    if (text.startsWith(kByteOrderMark))
        text.remove(0, kByteOrderMark.size());
    return QString::fromLatin1(text).replace("\r\n"_L1, "\n"_L1);
}

} // namespace

bool EnsureConfigFile() {
    if (!QFile::exists(ResolveFile(gIniPath)))
        ResetConfigFile();
    return true;
}

void ReadConfigValue(const QString& key, QString& value) {
    // Kept: the value starts as the number 0, so an absent key reads as the text "0".
    value = u"0"_s;
    for (const QString& line : ReadText().split(u'\n')) {
        const qsizetype equals = line.indexOf(u'=');
        if (equals >= 0 && Trim(line.left(equals)).toLower() == key.toLower()) {
            value = Trim(line.mid(equals + 1));
            return;
        }
    }
}

void ResetConfigFile() {
    QFile file(ResolveFile(gIniPath));
    Open(file, QIODevice::WriteOnly | QIODevice::Truncate);
}

void AppendConfigValue(const QString& key, const QString& value) {
    QFile file(ResolveFile(gIniPath));
    Open(file, QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
    const QByteArray line = (key + u" = "_s + value + u'\n').toLatin1();
    if (file.write(line) != line.size() || !file.flush())
        throw FileError(file.fileName(), file.errorString());
}
