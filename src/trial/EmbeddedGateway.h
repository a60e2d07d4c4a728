#pragma once

#include "gateway/CommandGateway.h"

#include <QString>
#include <QStringList>

#include <memory>

class HospitalEngine;

/// The gateway to an embedded hospital, one file that answers as the hospital's server does: the same command
/// texts, the same conversions, the same errors. Several gateways, in one process or in many, may work on one
/// file.
class EmbeddedGateway : public CommandGateway {
  public:
    enum class Access {
        Full,
        /// For reports: whatever their templates say, nothing is written (3906).
        Reading,
    };

    /// Opens a hospital's file as it is; HospitalFile::Open also looks after its procedures. Raises 53 for a
    /// file that is not there, 5171 for one that is no hospital, 948 for one that this version cannot read,
    /// and 5120 for one whose log is missing or another database's. Each stays untouched.
    explicit EmbeddedGateway(const QString& path, Access access = Access::Full);
    ~EmbeddedGateway() override;

    bool Connected() const override { return true; }
    QString ConnectionString() const override { return mConnectionString; }
    QString ServerVersion() const override;
    /// Raises 911 for a database that the hospital has not.
    void SetDefaultDatabase(const QString& name) override;
    void SetCommandTimeout(int seconds) override;
    void Cancel() override;
    /// The user is given to the procedures by SUSER_SNAME(). It is nobody until a sign-on has told him.
    void SetSessionUser(const QString& user) override;

    /// How the database goes about a command, line by line: for finding out why one is slow.
    QStringList QueryPlan(const QString& command);

    HospitalEngine& Engine() { return *mEngine; }

  protected:
    Outcome Run(const QString& command) override;

  private:
    QString mConnectionString;
    std::unique_ptr<HospitalEngine> mEngine;
};
