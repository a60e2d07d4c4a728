#pragma once

#include "components/clsCurrentUser.h"
#include "trial/EmbeddedGateway.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

/// A user signed on to a hospital of the benchmark's own, without the sign-on window.
class BenchSession : public clsCurrentUser {
  public:
    explicit BenchSession(std::unique_ptr<EmbeddedGateway> gateway)
        : mGateway(std::move(gateway)) {}

    void SetPasswordDeptCode(const QString&) override {}
    void SethwndParentForm(WId) override {}
    void ShowMain() override {}
    bool Connected() const override { return true; }
    CommandGateway* SQLConnection() const override { return mGateway.get(); }
    QString Initial() const override { return QStringLiteral("ABR"); }
    QString EmployeeName() const override { return QStringLiteral("ANA REYES"); }
    QString EmployeeCode() const override { return QStringLiteral("NURSE"); }
    QString ServerName() const override { return {}; }
    QString Database() const override { return {}; }
    QString UserId() const override { return {}; }
    QString serverpassword() const override { return {}; }

    EmbeddedGateway& Gateway() const { return *mGateway; }

  private:
    std::unique_ptr<EmbeddedGateway> mGateway;
};

/// The trial hospital, made once in a temporary folder; answers the path of a fresh copy.
QString CopyOfTrialHospital(const QTemporaryDir& folder, const QString& name);

/// Opens a hospital and signs the benchmark's user on to it as the shared session.
std::shared_ptr<BenchSession> SignOnTo(const QString& hospital);

/// Makes a folder the program's own, with a department set up and its trial hospital in it.
void SetUpProgram(const QString& folder);
