#include "suite/TrialHospital.h"

#include "gateway/embedded/HospitalFile.h"
#include "hospital/HospitalScripts.h"
#include "toolkit/ProgramFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString kFileName = u"trial-hospital.db"_s;

void RemoveOrRaise(const QString& path) {
    QFile file(path);
    if (file.exists() && !file.remove())
        throw FileError(path, file.errorString());
}

} // namespace

TrialHospital::TrialHospital(const QString& folder)
    : mPath(folder + u'/' + kFileName) {}

QString TrialHospital::Name() const {
    return u"Trial hospital"_s;
}

QString TrialHospital::Hint() const {
    return u"In the trial hospital sign on as NURSE with the password nurse, as CLERK with clerk, or as "
           u"ADMIN with "
           "admin."_s;
}

bool TrialHospital::NeedsMaking() const {
    return !QFile::exists(mPath);
}

void TrialHospital::Make(const MakingProgress& progress) {
    const QString folder = QFileInfo(mPath).path();
    if (!QDir().mkpath(folder))
        throw FileError(folder);
    // The journal goes first: left behind, it would be taken for the new file's.
    for (const QString& ending : {u"-wal"_s, u"-shm"_s, QString()})
        RemoveOrRaise(mPath + ending);
    HospitalFile::Create(mPath, HospitalScripts(), progress);
}

std::unique_ptr<CommandGateway> TrialHospital::Connect(const QString&, const QString&) {
    return HospitalFile::Open(mPath, HospitalScripts());
}
