#include "BenchSession.h"

#include "gateway/embedded/HospitalFile.h"
#include "hospital/HospitalScripts.h"
#include "shell/RegisterScreens.h"
#include "shell/shared.h"
#include "suite/RegisterSuite.h"
#include "toolkit/ProgramFiles.h"

#include <QFile>

using namespace Qt::StringLiterals;

QString CopyOfTrialHospital(const QTemporaryDir& folder, const QString& name) {
    const QString original = folder.filePath(u"trial-hospital.db"_s);
    if (!QFile::exists(original))
        HospitalFile::Create(original, HospitalScripts());
    QString copy = folder.filePath(name);
    QFile::copy(original, copy);
    return copy;
}

std::shared_ptr<BenchSession> SignOnTo(const QString& hospital) {
    auto session = std::make_shared<BenchSession>(std::make_unique<EmbeddedGateway>(hospital));
    gCurrentUser = session;
    gConnection = session->SQLConnection();
    return session;
}

bool SetUpProgram(const QString& folder) {
    QFile configuration(folder + u"/tarvenaux.ini"_s);
    if (!configuration.open(QIODevice::WriteOnly))
        return false;
    configuration.write("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    configuration.close();
    SetProgramDirectory(folder);
    RegisterSuite(folder);
    RegisterScreens();
    return true;
}
