#pragma once

#include "components/clsCurrentUser.h"
#include "suite/SignOn.h"

#include <QString>

#include <memory>
#include <vector>

class DataSource;

/// The session component: shows the sign-on window over the hospital's data sources, keeps the connection
/// and, in memory alone, the logon for the reports. Of the logon only the data source's name outlives the
/// run: it is remembered for the next sign-on.
class CurrentUser : public clsCurrentUser {
  public:
    explicit CurrentUser(std::vector<std::unique_ptr<DataSource>> sources);
    ~CurrentUser() override;

    void SetPasswordDeptCode(const QString& deptCode) override { mDeptCode = deptCode; }
    void SethwndParentForm(WId window) override { mParentWindow = window; }
    void ShowMain() override;
    bool Connected() const override;
    CommandGateway* SQLConnection() const override;

    QString Initial() const override;
    QString EmployeeName() const override;
    QString EmployeeCode() const override;
    bool IsOnTrial() const override { return mUser && mUser->isOnTrial; }

    QString ServerName() const override { return mSourceName; }
    QString Database() const override;
    QString UserId() const override;
    QString serverpassword() const override { return mPassword; }

  private:
    std::vector<std::unique_ptr<DataSource>> mSources;
    QString mDeptCode;
    WId mParentWindow = 0;
    std::unique_ptr<SignedOnUser> mUser;
    QString mSourceName;
    QString mPassword;
};
