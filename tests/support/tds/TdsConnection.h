#pragma once

#include <QByteArray>
#include <QString>

/// The logon that a program has sent.
struct TdsLogin {
    QString user;
    QString password;
    QString application;
    QString database;
};

/// The kinds of packets that matter here.
enum class TdsPacket { Batch = 0x01, Reply = 0x04, Attention = 0x06, Login = 0x10, PreLogin = 0x12 };

/// A message that a program has sent: its packets in one.
struct TdsMessage {
    int kind = 0;
    QByteArray content;

    bool Is(TdsPacket packet) const { return kind == static_cast<int>(packet); }
    /// The text of a batch.
    QString BatchText() const;
    TdsLogin Login() const;
};

/// One connection of a program, on the socket level: messages in, packets out.
class TdsConnection {
  public:
    /// Raised when the connection is no more; whoever answers stops there.
    struct Ended {};
    /// Raised when the program has cancelled its batch and the cancellation is confirmed.
    struct Cancelled {};

    /// Takes the socket over.
    explicit TdsConnection(int socket);
    TdsConnection(const TdsConnection&) = delete;
    TdsConnection& operator=(const TdsConnection&) = delete;
    ~TdsConnection();

    TdsMessage Receive();
    /// Sends a part of a message, or its end.
    void Send(const QByteArray& content, bool last);
    /// How many bytes have come and gone so far, packet headers included; asked by the thread that receives
    /// and sends.
    qint64 BytesReceived() const { return mBytesReceived; }
    qint64 BytesSent() const { return mBytesSent; }
    /// Ends the connection from any thread; a Receive that waits comes back with Ended.
    void Shut();

  private:
    QByteArray Read(qsizetype size);

    int mSocket;
    int mPacketNumber = 0;
    qint64 mBytesReceived = 0;
    qint64 mBytesSent = 0;
};
