#include "toolkit/ProgramFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString replacedDirectory;

/// The entry of the folder with that name, in any letter case.
QString FindEntry(const QString& folder, const QString& name) {
    const QString exact = folder + u'/' + name;
    if (QFileInfo::exists(exact))
        return exact;
    const QStringList entries =
        QDir(folder.isEmpty() ? QString(u'/') : folder)
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return folder + u'/' + entry;
    }
    return exact;
}

} // namespace

QString ProgramDirectory() {
    return replacedDirectory.isEmpty() ? QCoreApplication::applicationDirPath() : replacedDirectory;
}

void SetProgramDirectory(const QString& directory) {
    replacedDirectory = directory;
}

QString ResolveFile(const QString& path) {
    QString slashed = path;
    slashed.replace(u'\\', u'/');
    if (QFileInfo::exists(slashed))
        return slashed;
    // The program's own directory may itself bear a backslash; only what follows it is in the system's words.
    QString found;
    QString rest = slashed;
    if (path.startsWith(ProgramDirectory())) {
        found = ProgramDirectory();
        rest = slashed.mid(found.size());
    }
    const QStringList names = rest.split(u'/', Qt::SkipEmptyParts);
    for (const QString& name : names)
        found = FindEntry(found, name);
    return found;
}

RunTimeError FileError(const QString& path, const QString& reason) {
    QString text = RunTime::TextOf(RunTime::kPathFileAccess) + u": "_s + path;
    if (!reason.isEmpty())
        text += u" ("_s + reason + u')';
    return RunTimeError(RunTime::kPathFileAccess, text);
}
