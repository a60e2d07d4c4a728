#include "BenchSession.h"

#include "components/shared.h"
#include "driver/Department.h"
#include "GiveUp.h"
#include "hospital/HospitalScripts.h"
#include "shell/RegisterScreens.h"
#include "suite/RegisterSuite.h"
#include "toolkit/ProgramFiles.h"
#include "trial/HospitalFile.h"

#include <QFile>

using namespace Qt::StringLiterals;

QString CopyOfTrialHospital(const QTemporaryDir& folder, const QString& name) {
    const QString original = folder.filePath(u"trial-hospital.db"_s);
    if (!QFile::exists(original))
        HospitalFile::Create(original, HospitalScripts());
    QString copy = folder.filePath(name);
    if (!QFile::copy(original, copy))
        GiveUp(u"cannot copy the trial hospital to "_s + copy);
    return copy;
}

std::shared_ptr<BenchSession> SignOnTo(const QString& hospital) {
    auto session = std::make_shared<BenchSession>(std::make_unique<EmbeddedGateway>(hospital));
    session->SQLConnection()->SetSessionUser(session->EmployeeCode());
    gCurrentUser = session;
    gConnection = session->SQLConnection();
    return session;
}

void SetUpProgram(const QString& folder) {
    // Stands to the end of the process.
    static const auto directory = ProgramDirectorySeam().Replace([folder] { return folder; });
    if (const QString failure = ProvideDepartment(); !failure.isEmpty())
        GiveUp(failure);
    RegisterSuite(folder);
    RegisterScreens();
}
