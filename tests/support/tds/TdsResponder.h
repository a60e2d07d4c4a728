#pragma once

#include "support/tds/TdsAnswer.h"
#include "support/tds/TdsConnection.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// One message of a program with its answer, as they went over the wire: a logon, or a batch.
struct TdsExchange {
    TdsLogin login;
    /// Null for the logon itself.
    QString batch;
    qint64 bytesReceived = 0;
    qint64 bytesSent = 0;
};

/// A server of the tests' own on a loopback port. It speaks as much of the TDS 7.4 protocol as a client needs
/// for plain batches: a logon without encryption, batches, result sets, errors, messages, cancellation. What
/// it answers is the test's choice; it records what it was sent.
class TdsResponder {
  public:
    /// Answers one batch. It runs in a thread of its own for each connection.
    using Handler = std::function<void(const QString& batch, TdsAnswer& answer)>;

    /// Makes the handler of one session, in the session's thread.
    using NewSession = std::function<Handler(const TdsLogin& login)>;

    /// Listens, and answers every session with a handler of its own.
    explicit TdsResponder(NewSession newSession);
    /// The same where the login plays no part.
    explicit TdsResponder(std::function<Handler()> newSession);
    TdsResponder(const TdsResponder&) = delete;
    TdsResponder& operator=(const TdsResponder&) = delete;
    ~TdsResponder();

    int Port() const { return mPort; }
    /// Is told of every exchange that has come to its end, in the thread of its session. To be called before
    /// the first logon.
    void Watch(std::function<void(const TdsExchange&)> watcher) { mWatcher = std::move(watcher); }
    /// Logons other than this one are refused with 18456. Without a call everybody is let in.
    void Admit(const QString& user, const QString& password);

    /// The batches so far as they stood on the wire, in their order.
    QStringList Batches() const;
    void ForgetBatches();
    std::vector<TdsLogin> Logins() const;

    /// Ends every connection and listens no longer, as a server that is switched off. The port stays taken.
    void Close();

    /// What went wrong in the answering so far, which is then forgotten. What is left of it at the end ends
    /// the program, since no test or measurement is worth anything then.
    QStringList TakeProblems();

  private:
    void Listen();
    void Keep(const QString& problem);
    void Serve(TdsConnection& connection);
    std::optional<TdsLogin> LogIn(TdsConnection& connection);
    /// Answers one message; hands back the text of the batch, null for a cancellation.
    QString AnswerBatch(TdsConnection& connection, const Handler& handler, const TdsMessage& message);
    void Tell(const TdsExchange& exchange) const;

    NewSession mNewSession;
    std::function<void(const TdsExchange&)> mWatcher;
    int mListener = -1;
    int mPort = 0;
    mutable std::mutex mMutex;
    bool mClosed = false;
    bool mAdmitsAll = true;
    TdsLogin mAdmitted;
    QStringList mBatches;
    QStringList mProblems;
    std::vector<TdsLogin> mLogins;
    std::vector<std::shared_ptr<TdsConnection>> mConnections;
    std::vector<std::thread> mSessions;
    std::thread mThread;
};
