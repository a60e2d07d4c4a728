#pragma once

#include "trial/HospitalFile.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <vector>

/// The scripts of a hospital that is just big enough for the tests: a patient master, accounts of every type
/// of column, a counter, a print table, and procedures that read, write and fail.
std::vector<Script> SmallHospitalScripts();

/// Every row of every table of that hospital, to be compared before and after.
QStringList ContentOf(CommandGateway& gateway);

/// That hospital in a file of its own, with the first connection to it.
class SmallHospital {
  public:
    SmallHospital();

    QString Path() const { return mFolder.filePath(QStringLiteral("hospital.db")); }
    EmbeddedGateway& Gateway() { return *mGateway; }
    /// A second connection to the same file, in the same process.
    std::unique_ptr<EmbeddedGateway> Connect() const;

  private:
    QTemporaryDir mFolder;
    std::unique_ptr<EmbeddedGateway> mGateway;
};
