#pragma once

#include "driver/SeatedUser.h"
#include "trial/EmbeddedGateway.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

/// A user signed on to a hospital of the benchmark's own, without the sign-on window.
class BenchSession : public SeatedUser {
  public:
    explicit BenchSession(std::unique_ptr<EmbeddedGateway> gateway)
        : SeatedUser(std::move(gateway), QStringLiteral("NURSE")) {}

    EmbeddedGateway& Gateway() const { return static_cast<EmbeddedGateway&>(*SQLConnection()); }
};

/// The trial hospital, made once in a temporary folder; answers the path of a fresh copy.
QString CopyOfTrialHospital(const QTemporaryDir& folder, const QString& name);

/// Opens a hospital and signs the benchmark's user on to it as the shared session.
std::shared_ptr<BenchSession> SignOnTo(const QString& hospital);

/// Makes a folder the program's own, with a department set up and its trial hospital in it.
void SetUpProgram(const QString& folder);
