#pragma once

#include "support/hospital/ProgramFolder.h"
#include "torture/RandomShift.h"

#include <QProcess>

#include <memory>

/// A workstation in a process of its own, with a clerk at the keys. It dies with the torture.
class ShiftProcess {
  public:
    /// Starts it in the folder; its journal lies in the folder `journals` there.
    ShiftProcess(const ProgramFolder& folder, const QString& name, const ShiftPlan& plan);
    ShiftProcess(const ShiftProcess&) = delete;
    ShiftProcess& operator=(const ShiftProcess&) = delete;
    ~ShiftProcess();

    /// Whether it has ended, by itself or killed.
    bool HasEnded() { return mProcess.state() == QProcess::NotRunning || mProcess.waitForFinished(0); }
    /// Waits for its end. False when it works on behind that many milliseconds.
    bool Ends(int milliseconds) { return HasEnded() || mProcess.waitForFinished(milliseconds); }
    /// Kills it at once, as a power failure would.
    void Kill();
    bool WasKilled() const { return mKilled; }

    /// How much the journal holds, in bytes.
    qint64 JournalSize() const;
    ReadJournal Journal() const { return JournalIn(mJournal); }
    /// What is wrong with the way in which it has ended; nothing where the clerk has left, somebody has
    /// killed it, or another desk was faster at a counter.
    QStringList ProblemsOfEnd();

    static QString JournalFolder(const ProgramFolder& folder) {
        return folder.File(QStringLiteral("journals"));
    }

  private:
    QProcess mProcess;
    QString mJournal;
    bool mKilled = false;
};
