#pragma once

#include "suite/DataSource.h"

#include <QString>

/// The hospital's own server behind an ODBC data source of this machine. Every user has a logon of his own
/// there, which bears his employee code.
class OdbcSource : public DataSource {
  public:
    explicit OdbcSource(const QString& name)
        : mName(name) {}

    QString Name() const override { return mName; }
    bool ProvesPasswords() const override { return true; }
    std::unique_ptr<CommandGateway> Connect(const QString& user, const QString& password) override;

  private:
    QString mName;
};
