#pragma once

#include "gateway/CommandGateway.h"
#include "odbc/OdbcHandle.h"

#include <QString>

#include <atomic>
#include <condition_variable>
#include <mutex>

/// The gateway to the hospital's server behind an ODBC data source. A text goes out as one plain batch, and
/// its answer is read to the end before the caller sees it. The driver is told to send texts as they stand;
/// what it would alter nevertheless is refused and not sent.
class OdbcGateway : public CommandGateway {
  public:
    /// Seconds after which a server that does not answer the logon is given up.
    static constexpr int kLoginTimeout = 15;

    /// Connects with a user's own logon. Raises 18456 for a logon that the server refuses, and the driver's
    /// or the driver manager's own text when the server cannot be reached.
    OdbcGateway(const QString& dataSource, const QString& user, const QString& password,
                int loginTimeout = kLoginTimeout);
    ~OdbcGateway() override;

    /// The loss of the connection is noticed by the next command alone.
    bool Connected() const override { return true; }
    QString ConnectionString() const override { return mConnectionString; }
    QString ServerVersion() const override { return mServerVersion; }
    QString DriverVersion() const override { return mDriverVersion; }
    /// Raises 911 for a database that the server has not.
    void SetDefaultDatabase(const QString& name) override;
    /// Comes back when the command that is running has ended, or after a moment when the server does not let
    /// go of it.
    void Cancel() override;

  protected:
    /// A timeout may come when twice its seconds have passed: the server has as long to confirm that it gave
    /// the command up. When it does not, the connection is lost.
    Outcome Run(const QString& command) override;

  private:
    class Running;

    Outcome RunCommand(const QString& command);
    /// Raises 102, as the server does for a text that it cannot read, when the driver tells that it would
    /// send another text than the command.
    void RefuseWhatIsAltered(const QString& command) const;
    /// Runs a statement that Cancel can reach.
    Outcome RunStatement(const OdbcHandle& statement, const QString& command);
    /// Reads every result of a statement that has been executed.
    Outcome ReadAnswer(const OdbcHandle& statement);
    /// Before each call to the driver that may wait for the server: raises HY008 when the command was given
    /// up.
    void Step();
    bool IsLost() const;

    QString mConnectionString;
    QString mServerVersion;
    QString mDriverVersion;
    OdbcEnvironment mEnvironment;
    OdbcHandle mConnection;
    bool mIgnoresNoscan = true;
    std::atomic<bool> mCancelled = false;
    /// Guards the statement that is running, which is null between two commands.
    std::mutex mMutex;
    std::condition_variable mEnded;
    const OdbcHandle* mRunning = nullptr;
    /// How many calls to the driver were begun.
    std::atomic<unsigned> mSteps = 0;
};
