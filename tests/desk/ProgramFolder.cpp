#include "desk/ProgramFolder.h"

#include "support/hospital/FreshHospital.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

ProgramFolder::ProgramFolder() {
    QDir folder(mFolder.path());
    folder.mkdir(u"data"_s);
    folder.mkdir(u"Reports"_s);
    const QDir templates(u"" TARVEN_SOURCE_DIR "/Reports"_s);
    for (const QString& name : templates.entryList(QDir::Files))
        QFile::copy(templates.filePath(name), folder.filePath(u"Reports/"_s + name));
    // The consultation form lies beside the program.
    QFile::copy(templates.filePath(u"RadioConsultation.rpt"_s), folder.filePath(u"RadioConsultation.rpt"_s));
    QFile configuration(folder.filePath(u"tarvenaux.ini"_s));
    if (!configuration.open(QIODevice::WriteOnly) ||
        configuration.write("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n") < 0 ||
        !QFile::copy(FreshHospital(), HospitalPath()))
        throw std::runtime_error("The program's folder cannot be made.");
}

std::vector<QString> ProgramFolder::Query(const QString& command) const {
    return HospitalRows(HospitalPath(), command);
}
