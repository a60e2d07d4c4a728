#include "YearHospital.h"

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

/// About nine hundred treatments on each day that the unit is open.
Generator::HospitalSize BusyUnit() {
    Generator::HospitalSize size;
    size.patients = 20000;
    size.admissions = 6000;
    size.visits = 44000;
    size.months = 12;
    size.slipsPerDay = 1040;
    size.assessments = 20000;
    return size;
}

/// What the file holds depends on the tables, on the generator, whose work the trial hospital's data show,
/// and on the hospital's size.
QString Fingerprint() {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const Script& script : HospitalScripts()) {
        if (!script.name.startsWith(u"procedures/"_s))
            hash.addData(script.text.toUtf8());
    }
    static_assert(std::has_unique_object_representations_v<Generator::HospitalSize>);
    const Generator::HospitalSize size = BusyUnit();
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(&size), sizeof size));
    return QString::fromLatin1(hash.result().toHex().left(10));
}

void Remove(const QString& path) {
    if (!QFile::remove(path))
        GiveUp(u"cannot remove "_s + path);
}

void Fill(const QString& path) {
    EmbeddedGateway gateway(path);
    // A file that is not finished is thrown away.
    gateway.Engine().Database().Run(u"PRAGMA synchronous = OFF; PRAGMA cache_size = -1000000"_s);
    gateway.SetCommandTimeout(0);
    int statements = 0;
    Generator::GenerateHospital(BusyUnit(), [&](const QString&, const QString& statement) {
        gateway.ExecuteNoResult(statement);
        if (++statements % 500 == 0)
            std::fprintf(stderr, ".");
    });
}

} // namespace

QString YearHospital() {
    const QDir folder(QCoreApplication::applicationDirPath());
    QString path = folder.filePath(u"busy-year-%1.db"_s.arg(Fingerprint()));
    if (!QFile::exists(path)) {
        for (const QString& old : folder.entryList({u"busy-year-*"_s}))
            Remove(folder.filePath(old));
        std::fprintf(stderr, "making a year of a busy unit (%s) ", qPrintable(path));
        const QString unfinished = path + u".making"_s;
        HospitalFile::Create(unfinished, HospitalStructure());
        Fill(unfinished);
        if (!QFile::rename(unfinished, path))
            GiveUp(u"cannot rename "_s + unfinished);
        std::fprintf(stderr, "\n");
    }
    // Brings the procedures up to date.
    HospitalFile::Open(path, HospitalScripts());
    return path;
}
