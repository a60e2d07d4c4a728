#include "suite/TrialHospital.h"

#include "hospital/HospitalScripts.h"
#include "toolkit/ProgramFiles.h"
#include "trial/file/HospitalPlace.h"
#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"
#include "tsql/ServerError.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

const QString kFileName = u"trial-hospital.db"_s;

} // namespace

TrialHospital::TrialHospital(const QString& folder)
    : mFolder(folder)
    , mPath(RealPath(folder + u'/' + kFileName)) {}

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

bool TrialHospital::HoldsWork() const {
    if (NeedsMaking())
        return false;
    try {
        return !EmbeddedGateway(mPath, EmbeddedGateway::Access::Reading).Engine().Store().IsFresh();
    } catch (const RunTimeError& error) {
        // What is no hospital, or no longer one, holds nothing that anybody could sign on to.
        const auto fault = static_cast<Fault>(error.Number());
        if (fault != Fault::NoHospital && fault != Fault::Damaged)
            throw;
        return false;
    }
}

void TrialHospital::MakeFolder() const {
    if (!QDir().mkpath(mFolder))
        throw FileError(mFolder);
    KeepFolderPrivate(mFolder);
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

void TrialHospital::BackUp(const QString& copy) const {
    HospitalFile::BackUp(mPath, copy, HospitalStructure());
}

void TrialHospital::Restore(const QString& copy) const {
    MakeFolder();
    HospitalFile::Restore(mPath, copy, HospitalStructure());
}

std::unique_ptr<CommandGateway> TrialHospital::Connect(const QString&, const QString&) {
    KeepFolderPrivate(mFolder);
    // What is compared with the file, or replaced in it, is its structure alone.
    return HospitalFile::Open(mPath, HospitalStructure());
}

std::unique_ptr<CommandGateway> TrialHospital::ConnectToRead(const QString&, const QString&) {
    return std::make_unique<EmbeddedGateway>(mPath, EmbeddedGateway::Access::Reading);
}

std::unique_ptr<CommandGateway> TrialHospital::ConnectToReplace(const QString&, const QString&) {
    return std::make_unique<EmbeddedGateway>(mPath);
}

std::unique_ptr<SignOnTrail> TrialHospital::Trail(CommandGateway& connection) const {
    auto& embedded = static_cast<EmbeddedGateway&>(connection);
    return std::make_unique<SignOnTrail>(embedded.Engine().Database(), QSysInfo::machineHostName());
}
