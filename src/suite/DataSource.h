#pragma once

#include "gateway/CommandGateway.h"
#include "trial/file/SignOnTrail.h"

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
    /// Whether it is the trial hospital, where nothing reaches an account.
    virtual bool IsTrial() const { return false; }
    /// What the sign-on window tells under the list; empty for nothing.
    virtual QString Hint() const { return {}; }
    /// Whether the hospital has yet to be made before anyone can sign on.
    virtual bool NeedsMaking() const { return false; }
    /// Whether it can be made anew, which drops everything in it.
    virtual bool CanBeMadeAnew() const { return false; }
    /// Whether anything was keyed in it that a making anew would drop. Raises where that cannot be found out.
    virtual bool HoldsWork() const { return false; }
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
    /// The same for the rows of reports: where it is in the data source's power, nothing can be written
    /// through it. On a server the user's rights decide that.
    virtual std::unique_ptr<CommandGateway> ConnectToRead(const QString& user, const QString& password) {
        return Connect(user, password);
    }
    /// The same for a hospital that is about to be made anew, whatever version of the program has made it.
    virtual std::unique_ptr<CommandGateway> ConnectToReplace(const QString& user, const QString& password) {
        return Connect(user, password);
    }
    /// The trail of sign-ons over one of its connections; null where the server looks after them itself.
    virtual std::unique_ptr<SignOnTrail> Trail(CommandGateway&) const { return nullptr; }
};
