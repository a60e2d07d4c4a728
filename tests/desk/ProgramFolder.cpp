#include "desk/ProgramFolder.h"

#include "gateway/embedded/EmbeddedGateway.h"
#include "gateway/embedded/HospitalFile.h"
#include "hospital/HospitalScripts.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The trial hospital that the desks copy, made once for each build of this program, which has the scripts
/// and the engine in it. It is made in a folder of its own and moved into place, so that tests may run side
/// by side.
QString FreshHospital() {
    const QFileInfo program(QFileInfo(u"/proc/self/exe"_s).canonicalFilePath());
    const QDir folder(u"" TARVEN_BUILD_DIR "/trial-hospitals"_s);
    const QString path = folder.filePath(
        u"%1-%2.db"_s.arg(program.fileName()).arg(program.lastModified().toMSecsSinceEpoch()));
    if (QFile::exists(path))
        return path;
    folder.mkpath(u"."_s);
    for (const QString& old : folder.entryList({program.fileName() + u"-*.db"_s}, QDir::Files))
        QFile::remove(folder.filePath(old));
    const QTemporaryDir making(folder.filePath(u"making-XXXXXX"_s));
    const QString made = making.filePath(u"hospital.db"_s);
    HospitalFile::Create(made, HospitalScripts());
    std::rename(QFile::encodeName(made).constData(), QFile::encodeName(path).constData());
    return path;
}

} // namespace

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
    const auto gateway = HospitalFile::Open(HospitalPath(), HospitalScripts());
    const auto data = gateway->Execute(command).Data();
    std::vector<QString> rows;
    for (size_t row = 0; row < data->RowCount(); ++row) {
        QStringList cells;
        for (size_t column = 0; column < data->columns.size(); ++column)
            cells << data->Cell(row, column).TextOrEmpty();
        rows.push_back(cells.join(u'|'));
    }
    return rows;
}
