#include "support/hospital/FreshHospital.h"

#include "hospital/HospitalScripts.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The file of this program; programs of tests have no application that could tell it.
QFileInfo ThisProgram() {
    if (QCoreApplication::instance())
        return QFileInfo(QCoreApplication::applicationFilePath());
    return QFileInfo(QFileInfo(u"/proc/self/exe"_s).canonicalFilePath());
}

} // namespace

QString FreshHospital() {
    const QFileInfo program = ThisProgram();
    const QDir folder(u"" TARVEN_BUILD_DIR "/trial-hospitals"_s);
    // Its dates go by the day on which it is made.
    const QString path = folder.filePath(u"%1-%2-%3.db"_s.arg(program.fileName())
                                             .arg(program.lastModified().toMSecsSinceEpoch())
                                             .arg(Format(Today(), u"yyyymmdd")));
    if (QFile::exists(path))
        return path;
    folder.mkpath(u"."_s);
    // Another shard of the program may have put today's there meanwhile and be copying it.
    for (const QString& old : folder.entryList({program.fileName() + u"-*.db"_s}, QDir::Files)) {
        if (folder.filePath(old) != path)
            QFile::remove(folder.filePath(old));
    }
    // Made in a folder of its own and moved into place.
    const QTemporaryDir making(folder.filePath(u"making-XXXXXX"_s));
    const QString made = making.filePath(u"hospital.db"_s);
    HospitalFile::Create(made, HospitalScripts());
    std::rename(QFile::encodeName(made).constData(), QFile::encodeName(path).constData());
    return path;
}

std::vector<QString> HospitalRows(const QString& file, const QString& command) {
    return HospitalRows(*HospitalFile::Open(file, HospitalScripts()), command);
}

std::vector<QString> HospitalRows(CommandGateway& hospital, const QString& command) {
    const auto data = hospital.Execute(command).Data();
    std::vector<QString> rows;
    for (size_t row = 0; row < data->RowCount(); ++row) {
        QStringList cells;
        for (size_t column = 0; column < data->columns.size(); ++column)
            cells << data->Cell(row, column).TextOrEmpty();
        rows.push_back(cells.join(u'|'));
    }
    return rows;
}
