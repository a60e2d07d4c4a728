#include "hospital/HospitalScripts.h"

#include "text/RunTimeError.h"

#include <QDirIterator>
#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// The scripts of one folder and of those inside it, in the order of their paths.
void Append(std::vector<Script>& scripts, const QString& folder) {
    const QString root = u":/hospital/"_s;
    QStringList paths;
    for (QDirIterator it(root + folder, {u"*.sql"_s}, QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();)
        paths.push_back(it.next());
    paths.sort();
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw RunTimeError(RunTime::kPathFileAccess, RunTime::TextOf(RunTime::kPathFileAccess) + u": "_s +
                                                             path + u" ("_s + file.errorString() + u')');
        scripts.push_back({path.mid(root.size()), QString::fromUtf8(file.readAll())});
    }
}

} // namespace

std::vector<Script> HospitalStructure() {
    std::vector<Script> scripts;
    Append(scripts, u"schema"_s);
    Append(scripts, u"procedures"_s);
    return scripts;
}

std::vector<Script> HospitalScripts() {
    std::vector<Script> scripts = HospitalStructure();
    Append(scripts, u"demo"_s);
    return scripts;
}
