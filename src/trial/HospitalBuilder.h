#pragma once

#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"

/// Runs the hospital's scripts into a file. A failure is raised with the script's name and line in front.
class HospitalBuilder {
  public:
    explicit HospitalBuilder(HospitalEngine& engine)
        : mEngine(engine) {}

    void Run(const Script& script);

  private:
    void RunBatch(const Script& script, QStringView text, int firstLine);
    void RunStatement(const ScriptStatement& statement, const QString& text);

    HospitalEngine& mEngine;
    /// The database that the last USE named.
    QString mDatabase;
};
