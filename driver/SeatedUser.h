#pragma once

#include "components/clsCurrentUser.h"
#include "gateway/CommandGateway.h"

#include <memory>
#include <utility>

/// A user who sits at the program without having come through the sign-on window: for figures and for desks
/// whose screens are worked without keys.
class SeatedUser : public clsCurrentUser {
  public:
    SeatedUser(std::unique_ptr<CommandGateway> connection, QString employeeCode)
        : mConnection(std::move(connection))
        , mEmployeeCode(std::move(employeeCode)) {}

    void SetPasswordDeptCode(const QString&) override {}
    void SethwndParentForm(WId) override {}
    void ShowMain() override {}
    bool Connected() const override { return true; }
    CommandGateway* SQLConnection() const override { return mConnection.get(); }
    QString Initial() const override { return QStringLiteral("ABR"); }
    QString EmployeeName() const override { return QStringLiteral("ANA REYES"); }
    QString EmployeeCode() const override { return mEmployeeCode; }
    bool IsOnTrial() const override { return true; }
    QString ServerName() const override { return {}; }
    QString Database() const override { return {}; }
    QString UserId() const override { return {}; }
    QString serverpassword() const override { return {}; }

  private:
    std::unique_ptr<CommandGateway> mConnection;
    QString mEmployeeCode;
};
