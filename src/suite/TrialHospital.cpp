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

void TrialHospital::MakeFolder() const {
    const QString folder = QFileInfo(mPath).path();
    if (!QDir().mkpath(folder))
        throw FileError(folder);
}

void TrialHospital::Make(const MakingProgress& progress) {
    MakeFolder();
    if (NeedsMaking())
        HospitalFile::Create(mPath, HospitalScripts(), progress);
}

void TrialHospital::MakeAnew(const MakingProgress& progress) {
    MakeFolder();
    HospitalFile::Replace(mPath, HospitalScripts(), progress);
}

std::unique_ptr<CommandGateway> TrialHospital::Connect(const QString&, const QString&) {
    // What is compared with the file, or replaced in it, is its structure alone.
    return HospitalFile::Open(mPath, HospitalStructure());
}
