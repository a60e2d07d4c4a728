#pragma once

#include "gateway/CommandGateway.h"

#include <QString>

#include <memory>

class DataSource;

/// A user who has signed on, with the open connection.
struct SignedOnUser {
    /// As he typed it, for another logon in his name.
    QString userId;
    QString employeeCode;
    QString employeeName;
    QString initial;
    std::unique_ptr<CommandGateway> connection;
};

/// What one try to sign on brought: a user, or a text that says why not.
struct SignOnOutcome {
    std::unique_ptr<SignedOnUser> user;
    QString refusal;
};

/// Tries to sign a user on for a department: connects, looks the user up, checks the password and that the
/// user may work for the department. A wrong user and a wrong password give the same refusal. Raises when the
/// data source cannot be reached.
SignOnOutcome TrySignOn(DataSource& source, const QString& user, const QString& password,
                        const QString& deptCode);

/// Connects a user who has signed on before, for the tables of a report. Raises 18456 for a wrong password.
std::unique_ptr<CommandGateway> LogOn(DataSource& source, const QString& user, const QString& password);
