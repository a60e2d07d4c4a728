#pragma once

#include "support/hospital/ProgramFolder.h"
#include "trial/EmbeddedGateway.h"

#include <QProcess>
#include <QString>

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <vector>

/// A workstation of its own for one test: a program folder with its configuration and templates, and a fresh
/// trial hospital beside it. The program runs in a child process.
class Workstation : public testing::Test {
  protected:
    /// How a child ended.
    struct Run {
        int exitCode = -1;
        bool crashed = false;
        /// What the script printed, line by line.
        std::vector<QString> told;
        /// What the program wrote to its error stream.
        QString errors;
    };

    /// Runs a script to the child's end.
    Run RunScript(const QString& script);
    /// Starts a script and leaves it running.
    std::unique_ptr<QProcess> StartScript(const QString& script);
    Run WaitForEnd(QProcess& child);
    /// Starts the program itself, as it is delivered, out of the program folder.
    std::unique_ptr<QProcess> StartProgram(const QStringList& arguments,
                                           std::map<QString, QString> settings = {});
    /// Waits until the program shows its sign-on window. False when it ends before.
    static bool ReachesTheSignOn(QProcess& program);

    QString ProgramFile(const QString& name) const { return mFolder.File(name); }
    QString HospitalPath() const { return mFolder.HospitalPath(); }
    void WriteProgramFile(const QString& name, const QByteArray& content) const {
        mFolder.Write(name, content);
    }

    /// A connection of the test's own to the hospital.
    std::unique_ptr<EmbeddedGateway> OpenHospital() const;
    /// The rows of a command as texts, cells joined by "|".
    std::vector<QString> Query(const QString& command) const;
    /// The one cell of a command.
    QString QueryOne(const QString& command) const;
    /// Every row of every table of the hospital's, for telling that nothing has changed. What the file keeps
    /// for itself, such as who signed on, plays no part, nor do the tables that are left out.
    QString HospitalContent(const QStringList& leftOut = {}) const;
    /// Whether the file is whole.
    bool HospitalIsWhole() const;

  private:
    /// `settings` are added to the child's environment.
    std::unique_ptr<QProcess> Start(const QString& program, const QStringList& arguments,
                                    const std::map<QString, QString>& settings = {});

    ProgramFolder mFolder;
};
