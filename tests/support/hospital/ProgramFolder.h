#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

#include <vector>

/// A folder for one program of a test: its configuration and templates, and a copy of a freshly made trial
/// hospital.
class ProgramFolder {
  public:
    /// Its name begins with that. Raises std::runtime_error when it cannot be made.
    explicit ProgramFolder(const QString& beginning = QStringLiteral("tarven"));

    QString Path() const { return mFolder.path(); }
    QString File(const QString& name) const { return mFolder.filePath(name); }
    QString HospitalPath() const { return File(QStringLiteral("data/trial-hospital.db")); }

    /// What a program that runs in the folder gets for its environment: no settings of the developer's own,
    /// and no display.
    QProcessEnvironment Environment() const;

    /// Writes a file of the folder, in place of one that stands. Raises std::runtime_error when it cannot.
    void Write(const QString& name, const QByteArray& content) const;

    /// The rows of a command as texts, cells joined by "|".
    std::vector<QString> Query(const QString& command) const;

  private:
    QTemporaryDir mFolder;
};
