#include "KeptHospital.h"

#include "GiveUp.h"
#include "hospital-generator/HospitalGenerator.h"
#include "hospital/HospitalScripts.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

/// What the file holds depends on the tables, on the generator, whose work the trial hospital's data show,
/// and on what is asked for.
QString Fingerprint(const KeptHospital& hospital) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const Script& script : HospitalScripts()) {
        if (!script.name.startsWith(u"procedures/"_s))
            hash.addData(script.text.toUtf8());
    }
    static_assert(std::has_unique_object_representations_v<Generator::HospitalSize>);
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(&hospital.size), sizeof hospital.size));
    hash.addData(hospital.afterwards.join(u'\n').toUtf8());
    return QString::fromLatin1(hash.result().toHex().left(10));
}

void Remove(const QString& path) {
    if (!QFile::remove(path))
        GiveUp(u"cannot remove "_s + path);
}

void Fill(const KeptHospital& hospital, const QString& path) {
    EmbeddedGateway gateway(path);
    // A file that is not finished is thrown away.
    gateway.Engine().Database().Run(u"PRAGMA synchronous = OFF; PRAGMA cache_size = -900000"_s);
    gateway.SetCommandTimeout(0);
    int statements = 0;
    Generator::GenerateHospital(hospital.size, [&](const QString&, const QString& statement) {
        gateway.ExecuteNoResult(statement);
        if (++statements % 500 == 0)
            std::fprintf(stderr, ".");
    });
    for (const QString& command : hospital.afterwards)
        gateway.ExecuteNoResult(command);
}

void Make(const KeptHospital& hospital, const QString& path) {
    std::fprintf(stderr, "making %s ", qPrintable(path));
    const QString unfinished = path + u".making"_s;
    if (QFile::exists(unfinished))
        Remove(unfinished);
    HospitalFile::Create(unfinished, HospitalStructure());
    Fill(hospital, unfinished);
    if (!QFile::rename(unfinished, path))
        GiveUp(u"cannot rename "_s + unfinished);
    std::fprintf(stderr, "\n");
}

} // namespace

QString KeptHospital::Path() const {
    const QDir folder(QCoreApplication::applicationDirPath());
    QString path = folder.filePath(u"%1-%2.db"_s.arg(name, Fingerprint(*this)));
    if (!QFile::exists(path)) {
        for (const QString& old : folder.entryList({name + u"-*.db"_s}))
            Remove(folder.filePath(old));
        Make(*this, path);
    }
    // Brings the procedures up to date.
    HospitalFile::Open(path, HospitalScripts());
    return path;
}
