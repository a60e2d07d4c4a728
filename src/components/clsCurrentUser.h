#pragma once

#include "components/Component.h"

#include <QString>
#include <QWidget>

class CommandGateway;

/// The session component, TARVEN_User.clsCurrentUser: signs a user on, opens the one connection and owns it.
class clsCurrentUser : public Component {
  public:
    /// The department that signs on.
    virtual void SetPasswordDeptCode(const QString& deptCode) = 0;
    /// The window that owns the sign-on dialogue.
    virtual void SethwndParentForm(WId window) = 0;
    /// Runs the sign-on dialogue, modally, and opens the connection on success. It shows its own messages.
    virtual void ShowMain() = 0;
    /// True when the sign-on succeeded and the connection is open.
    virtual bool Connected() const = 0;
    /// The open connection; null before the sign-on.
    virtual CommandGateway* SQLConnection() const = 0;

    /// The user signed on.
    virtual QString Initial() const = 0;
    virtual QString EmployeeName() const = 0;
    virtual QString EmployeeCode() const = 0;
    /// Whether he works in the trial hospital, where nothing reaches an account.
    virtual bool IsOnTrial() const = 0;

    /// The logon that report tables receive. The program keeps none of the four beyond its run; the session
    /// itself may remember the server's name for the next sign-on.
    virtual QString ServerName() const = 0;
    virtual QString Database() const = 0;
    virtual QString UserId() const = 0;
    virtual QString serverpassword() const = 0;
};
