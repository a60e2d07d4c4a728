#include "support/tds/TdsAnswer.h"

#include "support/tds/TdsConnection.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumns = 0x81;
constexpr int kRow = 0xD1;
constexpr int kDone = 0xFD;
constexpr int kError = 0xAA;
constexpr int kInfo = 0xAB;
constexpr int kEnvironment = 0xE3;

constexpr int kMore = 0x01;
constexpr int kFailed = 0x02;
constexpr int kCounted = 0x10;
constexpr int kCancelled = 0x20;

constexpr int kNullable = 0x09;

/// What follows the token of a Done.
constexpr int kDoneBehindToken = 12;

QByteArray DoneToken(int status, quint64 rows) {
    TdsBytes done;
    done.Byte(kDone);
    done.Number(quint64(status), 2);
    done.Number(0, 2);
    done.Number(rows, 8);
    return done.Get();
}

} // namespace

QByteArray TdsAnswer::CancelConfirmed() {
    return DoneToken(kCancelled, 0);
}

void TdsAnswer::Columns(std::vector<TdsColumn> columns) {
    mColumns = std::move(columns);
    mBytes.Byte(kColumns);
    mBytes.Number(mColumns.size(), 2);
    for (const TdsColumn& column : mColumns) {
        mBytes.Number(0, 4);
        mBytes.Number(kNullable, 2);
        WriteType(mBytes, column);
        mBytes.Text(column.name, 1);
    }
}

void TdsAnswer::Row(const std::vector<Value>& cells) {
    mBytes.Byte(kRow);
    for (size_t i = 0; i < mColumns.size(); ++i)
        WriteCell(mBytes, mColumns[i], cells[i]);
}

void TdsAnswer::RawRow(const std::vector<std::optional<QByteArray>>& cells) {
    mBytes.Byte(kRow);
    for (size_t i = 0; i < mColumns.size(); ++i)
        WriteRawCell(mBytes, mColumns[i], cells[i]);
}

void TdsAnswer::Done(qint64 rows) {
    mLastDone = mBytes.Get().size() + 1;
    const int status = kMore | (rows >= 0 ? kCounted : 0) | (std::exchange(mFailed, false) ? kFailed : 0);
    mBytes.Raw(DoneToken(status, rows >= 0 ? quint64(rows) : 0));
}

void TdsAnswer::Token(int token, const TdsBytes& content) {
    mBytes.Byte(token);
    mBytes.Number(quint64(content.Get().size()), 2);
    mBytes.Raw(content.Get());
}

void TdsAnswer::Message(int token, int number, int severity, const QString& text, int line) {
    TdsBytes content;
    content.Number(quint64(number), 4);
    content.Byte(1);
    content.Byte(severity);
    content.Text(text, 2);
    content.Text(u"RESPONDER"_s, 1);
    content.Text(QString(), 1);
    content.Number(quint64(line), 4);
    Token(token, content);
}

void TdsAnswer::Error(int number, const QString& text, int severity, int line) {
    Message(kError, number, severity, text, line);
    mFailed = true;
    Done();
}

void TdsAnswer::Info(int number, const QString& text) {
    Message(kInfo, number, 0, text, 1);
}

void TdsAnswer::DatabaseChanged(const QString& name) {
    constexpr int kDatabase = 1;
    TdsBytes content;
    content.Byte(kDatabase);
    content.Text(name, 1);
    content.Text(QString(), 1);
    Token(kEnvironment, content);
    Info(5701, u"Changed database context to '%1'."_s.arg(name));
}

void TdsAnswer::Repeat(const QByteArray& whole) {
    mBytes.Raw(whole);
    mLastDone = mBytes.Get().size() - kDoneBehindToken;
}

void TdsAnswer::Send() {
    mConnection.Send(std::exchange(mBytes, {}).Get(), false);
    mLastDone = -1;
}

void TdsAnswer::WaitForCancel() {
    Send();
    while (!mConnection.Receive().Is(TdsPacket::Attention)) {
    }
    mConnection.Send(CancelConfirmed(), true);
    throw TdsConnection::Cancelled{};
}

void TdsAnswer::FallSilent() {
    Send();
    while (true)
        mConnection.Receive();
}

void TdsAnswer::Cut() {
    Send();
    mConnection.Shut();
    throw TdsConnection::Ended{};
}

void TdsAnswer::CutInside(int percent) {
    const QByteArray bytes = Whole();
    const QByteArray begun = bytes.first(bytes.size() * percent / 100);
    if (!begun.isEmpty())
        mConnection.Send(begun, false);
    mConnection.Shut();
    throw TdsConnection::Ended{};
}

QByteArray TdsAnswer::Whole() {
    if (mLastDone < 0)
        Done();
    QByteArray bytes = mBytes.Get();
    bytes[mLastDone] = static_cast<char>(bytes[mLastDone] & ~kMore);
    return bytes;
}
