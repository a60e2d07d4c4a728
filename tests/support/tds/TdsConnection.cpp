#include "support/tds/TdsConnection.h"

#include "support/tds/TdsTypes.h"

#include <algorithm>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr qsizetype kHeader = 8;
constexpr qsizetype kPacket = 4096;
constexpr int kEndOfMessage = 1;

int Word(const QByteArray& bytes, qsizetype at) {
    return uchar(bytes[at]) | uchar(bytes[at + 1]) << 8;
}

/// The text that a place of the logon record tells the offset and the length of.
QByteArray Field(const QByteArray& login, qsizetype at) {
    return login.mid(Word(login, at), 2 * qsizetype(Word(login, at + 2)));
}

/// The logon record carries the password with its half-bytes swapped and some bits turned.
QByteArray Unveiled(QByteArray password) {
    constexpr int kTurned = 0xA5;
    for (char& c : password) {
        const int byte = uchar(c) ^ kTurned;
        c = static_cast<char>(byte << 4 | byte >> 4);
    }
    return password;
}

} // namespace

QString TdsMessage::BatchText() const {
    // A batch begins with headers for transactions and notifications, behind their length.
    const qsizetype headers = Word(content, 0) | Word(content, 2) << 16;
    return WideText(content.mid(headers));
}

TdsLogin TdsMessage::Login() const {
    constexpr qsizetype kUser = 40;
    constexpr qsizetype kPassword = 44;
    constexpr qsizetype kApplication = 48;
    constexpr qsizetype kDatabase = 68;
    return {.user = WideText(Field(content, kUser)),
            .password = WideText(Unveiled(Field(content, kPassword))),
            .application = WideText(Field(content, kApplication)),
            .database = WideText(Field(content, kDatabase))};
}

TdsConnection::TdsConnection(int socket)
    : mSocket(socket) {
    // A small packet would wait until the client has confirmed the one before.
    const int on = 1;
    setsockopt(mSocket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

TdsConnection::~TdsConnection() {
    close(mSocket);
}

QByteArray TdsConnection::Read(qsizetype size) {
    QByteArray bytes(size, '\0');
    qsizetype have = 0;
    while (have < size) {
        const ssize_t got = recv(mSocket, bytes.data() + have, size_t(size - have), 0);
        if (got <= 0)
            throw Ended{};
        have += got;
    }
    mBytesReceived += size;
    return bytes;
}

TdsMessage TdsConnection::Receive() {
    TdsMessage message;
    bool last = false;
    while (!last) {
        const QByteArray header = Read(kHeader);
        const qsizetype size = uchar(header[2]) << 8 | uchar(header[3]);
        message.kind = uchar(header[0]);
        last = (header[1] & kEndOfMessage) != 0;
        message.content += Read(size - kHeader);
    }
    return message;
}

void TdsConnection::Send(const QByteArray& content, bool last) {
    for (qsizetype at = 0; at < content.size() || (last && at == 0); at += kPacket - kHeader) {
        const QByteArray part = content.mid(at, kPacket - kHeader);
        const bool end = last && at + part.size() == content.size();
        const auto size = static_cast<int>(part.size() + kHeader);
        TdsBytes packet;
        packet.Byte(static_cast<int>(TdsPacket::Reply));
        packet.Byte(end ? kEndOfMessage : 0);
        packet.Byte(size >> 8);
        packet.Byte(size & 0xFF);
        packet.Number(0, 2);
        packet.Byte(++mPacketNumber & 0xFF);
        packet.Byte(0);
        packet.Raw(part);
        const QByteArray bytes = packet.Get();
        if (send(mSocket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) != bytes.size())
            throw Ended{};
        mBytesSent += bytes.size();
    }
}

void TdsConnection::Shut() {
    shutdown(mSocket, SHUT_RDWR);
}
