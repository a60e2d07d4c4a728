#pragma once

#include <QString>
#include <QTemporaryDir>

#include <vector>

/// A folder for one program of a test: its configuration and templates, and a copy of a freshly made trial
/// hospital.
class ProgramFolder {
  public:
    ProgramFolder();

    QString Path() const { return mFolder.path(); }

    /// The rows of a command as texts, cells joined by "|". For before the program has started and after it
    /// has ended, so that nobody else has the hospital open.
    std::vector<QString> Query(const QString& command) const;

  private:
    QString HospitalPath() const { return mFolder.filePath(QStringLiteral("data/trial-hospital.db")); }

    QTemporaryDir mFolder;
};
