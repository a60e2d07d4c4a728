#pragma once

#include "support/hospital/ProgramFolder.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// tarven-report as a process, with a program folder and a trial hospital of its own.
class ReporterProcess {
  public:
    struct Run {
        int exitCode = -1;
        QString told;
        QString errors;
    };

    ReporterProcess();

    /// Runs it to its end with those words; the input is the password's line.
    Run Do(const QStringList& words, const QByteArray& input = "nurse\n") const;
    /// Runs it to its end where a display is needed and there is none.
    Run DoWithoutDisplay(const QStringList& words) const;
    /// Starts it and leaves it running.
    std::unique_ptr<QProcess> Start(const QStringList& words, const QByteArray& input = "nurse\n") const;

    QString File(const QString& name) const { return mFolder.File(name); }
    void Write(const QString& name, const QByteArray& content) const { mFolder.Write(name, content); }
    /// The commands that it has sent.
    QString TracePath() const { return File(QStringLiteral("commands.txt")); }
    /// The folder in which its trial hospital lies.
    QString DataFolder() const { return File(QStringLiteral("TARVEN/Hemodialysis")); }

  private:
    QProcessEnvironment Environment() const;
    static Run EndOf(QProcess& process);
    static void StartIn(QProcess& process, const QStringList& words, const QByteArray& input);

    ProgramFolder mFolder;
};

/// The words of a PDF as they lie on its pages. Empty where there is none.
QString WordsOfPdf(const QString& file);
