#include "shell/ConfigFile.h"

#include "gateway/RunTimeError.h"
#include "shell/shared.h"
#include "toolkit/ProgramFiles.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void RaiseFileError(const QFile& file) {
    throw RunTimeError(
        RunTime::kPathFileAccess,
        u"%1: %2 (%3)"_s.arg(RunTime::TextOf(RunTime::kPathFileAccess), file.fileName(), file.errorString()));
}

/// The text without its blanks at both ends; a tab is no blank.
QString TrimBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

void Open(QFile& file, QIODevice::OpenMode mode) {
    if (!file.open(mode | QIODevice::Text))
        RaiseFileError(file);
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
    QFile file(ResolveFile(gIniPath));
    Open(file, QIODevice::ReadOnly);
    while (!file.atEnd()) {
        QString line = QString::fromLatin1(file.readLine());
        if (line.endsWith(u'\n'))
            line.chop(1);
        const qsizetype equals = line.indexOf(u'=');
        if (equals >= 0 && TrimBlanks(line.left(equals)).toLower() == key.toLower()) {
            value = TrimBlanks(line.mid(equals + 1));
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
    Open(file, QIODevice::WriteOnly | QIODevice::Append);
    const QByteArray line = (key + u" = "_s + value + u'\n').toLatin1();
    if (file.write(line) != line.size() || !file.flush())
        RaiseFileError(file);
}
