#include "support/hospital/ProgramFolder.h"

#include "support/hospital/FreshHospital.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

ProgramFolder::ProgramFolder(const QString& beginning)
    : mFolder(QDir::temp().filePath(beginning + u"-XXXXXX"_s)) {
    QDir folder(mFolder.path());
    folder.mkdir(u"data"_s);
    folder.mkdir(u"Reports"_s);
    const QDir templates(u"" TARVEN_SOURCE_DIR "/Reports"_s);
    for (const QString& name : templates.entryList(QDir::Files))
        QFile::copy(templates.filePath(name), File(u"Reports/"_s + name));
    // The consultation form lies beside the program.
    QFile::copy(templates.filePath(u"RadioConsultation.rpt"_s), File(u"RadioConsultation.rpt"_s));
    Write(u"tarvenaux.ini"_s, "DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    if (!QFile::copy(FreshHospital(), HospitalPath()))
        throw std::runtime_error("The program's folder cannot be made.");
}

QProcessEnvironment ProgramFolder::Environment() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // What the session remembers of its settings goes here too.
    for (const QString& name : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s})
        environment.insert(name, Path());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    return environment;
}

void ProgramFolder::Write(const QString& name, const QByteArray& content) const {
    QFile file(File(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
        throw std::runtime_error(("cannot write "_L1 + file.fileName()).toStdString());
}

std::vector<QString> ProgramFolder::Query(const QString& command) const {
    return HospitalRows(HospitalPath(), command);
}
