#pragma once

#include "gateway/CommandGateway.h"
#include "trial/file/SignOnTrail.h"

#include <QString>

#include <chrono>
#include <memory>
#include <optional>

class DataSource;

/// A user who has signed on, with the open connection.
struct SignedOnUser {
    /// As he typed it, for another logon in his name.
    QString userId;
    QString employeeCode;
    QString employeeName;
    QString initial;
    bool isOnTrial = false;
    std::unique_ptr<CommandGateway> connection;
    /// What failed in his name since he last signed on, where the hospital keeps that.
    std::optional<FailedSignOns> failed = {};
};

/// What a user is told who signs on: if it was not he who failed, somebody else has tried his name.
QString TextOf(const FailedSignOns& failed);

/// What one try to sign on brought: a user, a text that says why not, or a time to wait before the password
/// is looked at.
struct SignOnOutcome {
    std::unique_ptr<SignedOnUser> user;
    QString refusal = {};
    std::chrono::seconds wait{0};
};

/// How a try to sign on came about.
struct SignOnTry {
    QString deptCode;
    /// Whether the wait that an earlier outcome asked for is over. What failed at other workstations
    /// meanwhile does not make it longer, so that nobody can keep a user out from there.
    bool waited = false;
    /// Whether the hospital is to be made anew, for which any version of it will do.
    bool toReplace = false;
};

/// Tries to sign a user on for a department: connects, looks the user up, checks the password and that the
/// user may work for the department. A wrong user and a wrong password give the same refusal. Raises when the
/// data source cannot be reached.
SignOnOutcome TrySignOn(DataSource& source, const QString& user, const QString& password,
                        const SignOnTry& signOn);

/// Connects a user who has signed on before, to read the tables of a report. Raises 18456 for a wrong
/// password.
std::unique_ptr<CommandGateway> LogOn(DataSource& source, const QString& user, const QString& password);
