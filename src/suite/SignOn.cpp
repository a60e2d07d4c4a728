#include "suite/SignOn.h"

#include "gateway/SqlText.h"
#include "suite/DataSource.h"
#include "suite/Passwords.h"
#include "text/Format.h"
#include "text/RunTimeError.h"
#include "tsql/ServerError.h"

using namespace Qt::StringLiterals;

namespace {

/// The user's row. Where the server proves the password its hash plays no part.
QString UserCommand(const DataSource& source, const QString& user) {
    const QString hash = source.ProvesPasswords() ? QString() : u", PasswordHash"_s;
    return u"SELECT EmployeeID, LastName, FirstName, Initial"_s + hash +
           u" FROM PASSWORD..tbPasswordMain WHERE EmployeeID = "_s + SqlLiteral(user) + u" AND Active = 1"_s;
}

QString DepartmentCommand(const QString& user, const QString& deptCode) {
    return u"SELECT DeptCode FROM PASSWORD..tbPasswordDept WHERE EmployeeID = "_s + SqlLiteral(user) +
           u" AND (DeptCode = "_s + SqlLiteral(deptCode) + u" OR DeptCode = '*')"_s;
}

/// Whether the password is the one in the user's row. Takes as long for a user who is not there.
bool IsPassword(const RowSet& userRow, const QString& password) {
    const bool known = !userRow.Eof();
    const QString hash = known ? userRow.Fields(u"PasswordHash").TextOrEmpty() : QString(kNobodysHash);
    return PasswordMatches(hash, password) && known;
}

SignOnOutcome Refused(const QString& reason) {
    return {.user = nullptr, .refusal = reason};
}

SignOnOutcome RefusedUser() {
    return Refused(u"The user or the password is wrong."_s);
}

SignOnOutcome RefusedDepartment(const QString& employee, const QString& deptCode) {
    return Refused(u"%1 may not sign on for department %2."_s.arg(employee, deptCode));
}

} // namespace

QString TextOf(const FailedSignOns& failed) {
    const QString moment = u"mm/dd/yyyy hh:mm:ss AM/PM"_s;
    return u"%1 failed %2 since %3.\nThe last one was at %4 on %5."_s.arg(
        QString::number(failed.count), failed.count == 1 ? u"sign-on"_s : u"sign-ons"_s,
        Format(failed.since, moment), failed.workstation, Format(failed.last, moment));
}

SignOnOutcome TrySignOn(DataSource& source, const QString& user, const QString& password,
                        const SignOnTry& signOn) {
    std::unique_ptr<CommandGateway> connection;
    try {
        connection =
            signOn.toReplace ? source.ConnectToReplace(user, password) : source.Connect(user, password);
    } catch (const RunTimeError& error) {
        // A server that knows the user by himself refuses him at its door.
        if (error.Number() == static_cast<int>(Fault::LoginFailed))
            return RefusedUser();
        throw;
    }
    const RowSet rows = connection->Execute(UserCommand(source, user));
    const QString employee = rows.Eof() ? QString() : rows.Fields(u"EmployeeID").ToText();
    const auto trail = source.Trail(*connection);
    if (trail) {
        const std::chrono::seconds wait = trail->Begin(employee, signOn.waited);
        if (wait.count() > 0)
            return {.user = nullptr, .wait = wait};
    }
    if (!source.ProvesPasswords() && !IsPassword(rows, password))
        return RefusedUser();
    // The server's other users are not the hospital's.
    if (rows.Eof())
        return RefusedDepartment(user, signOn.deptCode);
    if (trail)
        trail->PasswordWasRight();
    if (connection->Execute(DepartmentCommand(employee, signOn.deptCode)).Eof())
        return RefusedDepartment(employee, signOn.deptCode);
    connection->SetSessionUser(employee);
    auto signedOn = std::make_unique<SignedOnUser>();
    signedOn->userId = user;
    signedOn->employeeCode = employee;
    signedOn->employeeName =
        rows.Fields(u"FirstName").TextOrEmpty() + u' ' + rows.Fields(u"LastName").TextOrEmpty();
    signedOn->initial = rows.Fields(u"Initial").TextOrEmpty();
    signedOn->isOnTrial = source.IsTrial();
    // Who signs on to make the hospital anew is not shown what failed.
    if (trail && !signOn.toReplace)
        signedOn->failed = trail->SignedOn(employee);
    signedOn->connection = std::move(connection);
    return {.user = std::move(signedOn)};
}

std::unique_ptr<CommandGateway> LogOn(DataSource& source, const QString& user, const QString& password) {
    auto connection = source.ConnectToRead(user, password);
    if (!source.ProvesPasswords() && !IsPassword(connection->Execute(UserCommand(source, user)), password))
        throw ServerError(Fault::LoginFailed, {user});
    return connection;
}
