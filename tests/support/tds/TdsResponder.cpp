#include "support/tds/TdsResponder.h"

#include <QDebug>

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The answer to the first message: a version, no encryption, nothing else of what could be agreed on.
QByteArray PreLoginReply() {
    return QByteArray::fromHex("00000b0006"
                               "0100110001"
                               "ff"
                               "0f0007d00000"
                               "02");
}

QByteArray LoginAcknowledged() {
    const QString name = u"Microsoft SQL Server"_s;
    TdsBytes content;
    content.Byte(1);
    content.Raw(QByteArray::fromHex("74000004"));
    content.Text(name, 1);
    content.Raw(QByteArray::fromHex("0f0007d0"));
    TdsBytes token;
    token.Byte(0xAD);
    token.Number(quint64(content.Get().size()), 2);
    token.Raw(content.Get());
    return token.Get();
}

/// A socket on a loopback port, 0 for any that is free; -1 when the port is taken.
int BindToLoopback(int port) {
    const int bound = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(quint16(port));
    if (bound >= 0 && bind(bound, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
        return bound;
    close(bound);
    return -1;
}

int PortOf(int listener) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

int ListenOnLoopback() {
    constexpr int kTries = 100;
    for (int i = 0; i < kTries; ++i) {
        const int any = BindToLoopback(0);
        const int port = PortOf(any);
        close(any);
        // Only a port that is asked for by its number stays with a socket that listens no longer.
        const int listener = BindToLoopback(port);
        if (listener >= 0 && listen(listener, SOMAXCONN) == 0)
            return listener;
        close(listener);
    }
    throw std::runtime_error("no loopback port for the responder");
}

} // namespace

TdsResponder::TdsResponder(std::function<Handler()> newSession)
    : TdsResponder([newSession = std::move(newSession)](const TdsLogin&) { return newSession(); }) {}

TdsResponder::TdsResponder(NewSession newSession)
    : mNewSession(std::move(newSession))
    , mListener(ListenOnLoopback())
    , mPort(PortOf(mListener))
    , mThread([this] { Listen(); }) {}

TdsResponder::~TdsResponder() {
    Close();
    close(mListener);
    for (const QString& problem : TakeProblems())
        qFatal("in a session of the responder: %s", qUtf8Printable(problem));
}

void TdsResponder::Close() {
    if (!mThread.joinable())
        return;
    {
        const std::lock_guard lock(mMutex);
        mClosed = true;
        for (const auto& connection : mConnections)
            connection->Shut();
    }
    // A socket that no longer listens keeps its port until the end, so that no other server can get it and be
    // taken for this one.
    shutdown(mListener, SHUT_RDWR);
    mThread.join();
    for (std::thread& session : mSessions)
        session.join();
    mSessions.clear();
    mConnections.clear();
}

void TdsResponder::Admit(const QString& user, const QString& password) {
    const std::lock_guard lock(mMutex);
    mAdmitsAll = false;
    mAdmitted = {.user = user, .password = password, .application = {}, .database = {}};
}

QStringList TdsResponder::Batches() const {
    const std::lock_guard lock(mMutex);
    return mBatches;
}

void TdsResponder::ForgetBatches() {
    const std::lock_guard lock(mMutex);
    mBatches.clear();
}

std::vector<TdsLogin> TdsResponder::Logins() const {
    const std::lock_guard lock(mMutex);
    return mLogins;
}

QStringList TdsResponder::TakeProblems() {
    const std::lock_guard lock(mMutex);
    return std::exchange(mProblems, {});
}

void TdsResponder::Keep(const QString& problem) {
    const std::lock_guard lock(mMutex);
    mProblems.append(problem);
}

void TdsResponder::Listen() {
    while (true) {
        const int socket = accept4(mListener, nullptr, nullptr, SOCK_CLOEXEC);
        const int problem = socket < 0 ? errno : 0;
        const std::lock_guard lock(mMutex);
        if (mClosed) {
            if (socket >= 0)
                close(socket);
            return;
        }
        // A signal, or a program that went away before it was let in.
        if (problem == EINTR || problem == ECONNABORTED)
            continue;
        if (socket < 0) {
            mProblems.append(u"accept: "_s + QString::fromLocal8Bit(std::strerror(problem)));
            return;
        }
        mConnections.push_back(std::make_shared<TdsConnection>(socket));
        mSessions.emplace_back([this, connection = mConnections.back()] { Serve(*connection); });
    }
}

void TdsResponder::Serve(TdsConnection& connection) {
    try {
        if (const auto login = LogIn(connection)) {
            const Handler handler = mNewSession(*login);
            TdsExchange exchange{.login = *login, .batch = {}};
            qint64 received = 0;
            qint64 sent = 0;
            while (true) {
                exchange.bytesReceived =
                    connection.BytesReceived() - std::exchange(received, connection.BytesReceived());
                exchange.bytesSent = connection.BytesSent() - std::exchange(sent, connection.BytesSent());
                Tell(exchange);
                exchange.batch = AnswerBatch(connection, handler, connection.Receive());
            }
        }
    } catch (const TdsConnection::Ended&) {
        // The program or the test has ended the connection, which ends the session.
    } catch (const std::exception& error) {
        Keep(QString::fromUtf8(error.what()));
    }
    connection.Shut();
}

std::optional<TdsLogin> TdsResponder::LogIn(TdsConnection& connection) {
    TdsMessage message = connection.Receive();
    if (message.Is(TdsPacket::PreLogin)) {
        connection.Send(PreLoginReply(), true);
        message = connection.Receive();
    }
    const TdsLogin login = message.Login();
    TdsAnswer answer(connection);
    const bool admitted = [this, &login] {
        const std::lock_guard lock(mMutex);
        mLogins.push_back(login);
        return mAdmitsAll || (login.user == mAdmitted.user && login.password == mAdmitted.password);
    }();
    if (admitted) {
        answer.DatabaseChanged(login.database.isEmpty() ? u"master"_s : login.database);
        answer.mBytes.Raw(LoginAcknowledged());
    } else {
        answer.Error(18456, u"Login failed for user '%1'."_s.arg(login.user), 14);
    }
    connection.Send(answer.Whole(), true);
    return admitted ? std::optional(login) : std::nullopt;
}

QString TdsResponder::AnswerBatch(TdsConnection& connection, const Handler& handler,
                                  const TdsMessage& message) {
    if (message.Is(TdsPacket::Attention)) {
        // The cancellation of a batch that was answered in the meantime.
        connection.Send(TdsAnswer::CancelConfirmed(), true);
        return {};
    }
    QString batch = message.BatchText();
    {
        const std::lock_guard lock(mMutex);
        mBatches.append(batch);
    }
    try {
        TdsAnswer answer(connection);
        handler(batch, answer);
        connection.Send(answer.Whole(), true);
    } catch (const TdsConnection::Cancelled&) {
        // The program has its confirmation and goes on with the next batch.
    }
    return batch;
}

void TdsResponder::Tell(const TdsExchange& exchange) const {
    if (mWatcher)
        mWatcher(exchange);
}
