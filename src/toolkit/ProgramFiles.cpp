#include "toolkit/ProgramFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The entry of the folder with that name, in any letter case. The folder ends with a slash; the empty one is
/// the working directory.
QString FindEntry(const QString& folder, const QString& name) {
    QString exact = folder + name;
    if (QFileInfo::exists(exact))
        return exact;
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return folder + entry;
    }
    return exact;
}

/// Whether a path leads into the program's own directory, and not into one whose name merely begins alike.
bool IsBelowProgramDirectory(const QString& path) {
    const QString directory = ProgramDirectory();
    return path.startsWith(directory + u'/') || path.startsWith(directory + u'\\');
}

/// The program's own folder, unless the environment names that of another department on the same machine.
QString DepartmentsFolder() {
    const QString named = qEnvironmentVariable("TARVEN_FOLDER");
    return named.isEmpty() ? QCoreApplication::applicationDirPath() : QDir(named).absolutePath();
}

} // namespace

QString ProgramDirectory() {
    return ProgramDirectorySeam()();
}

Seam<QString()>& ProgramDirectorySeam() {
    static Seam<QString()> seam(DepartmentsFolder);
    return seam;
}

QString ResolveFile(const QString& path) {
    QString slashed = path;
    slashed.replace(u'\\', u'/');
    if (QFileInfo::exists(slashed))
        return slashed;
    QString folder = slashed.startsWith(u'/') ? u"/"_s : QString();
    QString rest = slashed;
    // The program's own directory may itself bear a backslash; only what follows it is in the system's words.
    if (IsBelowProgramDirectory(path)) {
        folder = ProgramDirectory() + u'/';
        rest = slashed.sliced(folder.size());
    }
    QString found = folder;
    for (const QString& name : rest.split(u'/', Qt::SkipEmptyParts)) {
        found = FindEntry(folder, name);
        folder = found + u'/';
    }
    return found;
}

RunTimeError FileError(const QString& path, const QString& reason) {
    QString text = RunTime::TextOf(RunTime::kPathFileAccess) + u": "_s + path;
    if (!reason.isEmpty())
        text += u" ("_s + reason + u')';
    return RunTimeError(RunTime::kPathFileAccess, text);
}
