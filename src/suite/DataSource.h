#pragma once

#include "gateway/CommandGateway.h"

#include <QString>

#include <functional>
#include <memory>

/// Tells how far the making of a hospital has come: steps done, steps in all, what is being done. No steps in
/// all while nobody can tell.
using MakingProgress = std::function<void(int done, int total, const QString& what)>;

/// One hospital that a user can sign on to.
class DataSource {
  public:
    virtual ~DataSource() = default;

    /// The name in the list of data sources; it serves as the server's name too.
    virtual QString Name() const = 0;
    /// What the sign-on window tells under the list; empty for nothing.
    virtual QString Hint() const { return {}; }
    /// Whether the hospital has yet to be made before anyone can sign on.
    virtual bool NeedsMaking() const { return false; }
    /// Whether it can be made anew, which drops everything in it.
    virtual bool CanBeMadeAnew() const { return false; }
    /// Makes a hospital that has yet to be made; one that another workstation has made meanwhile stays.
    /// Raises with a clear text when it cannot.
    virtual void Make(const MakingProgress& progress);
    /// Makes the hospital in place of the one that stands. Raises with a clear text when it cannot, which
    /// leaves that one as it is.
    virtual void MakeAnew(const MakingProgress& progress);
    /// Whether a connection that was opened proves the password, as a server's own logon does. Where it does
    /// not, the password is checked against the hospital's hash.
    virtual bool ProvesPasswords() const { return false; }
    /// Opens a connection for that user. Raises with the database's text when it cannot, 18456 for a password
    /// that it refuses.
    virtual std::unique_ptr<CommandGateway> Connect(const QString& user, const QString& password) = 0;
};
