#pragma once

#include "support/tds/TdsTypes.h"

#include <optional>
#include <vector>

class TdsConnection;

/// What the server answers to one batch, piece by piece in the order of the calls. Pieces are held back until
/// Send() or the end of the answer.
class TdsAnswer {
  public:
    explicit TdsAnswer(TdsConnection& connection)
        : mConnection(connection) {}

    /// Begins a result set.
    void Columns(std::vector<TdsColumn> columns);
    /// A row of the result set begun last; one value for each column.
    void Row(const std::vector<Value>& cells);
    /// The same with any bytes as content, nothing for Null; see WriteRawCell.
    void RawRow(const std::vector<std::optional<QByteArray>>& cells);
    /// The end of a statement; `rows` is what it read or wrote, -1 for a statement that does not tell.
    void Done(qint64 rows = -1);
    /// An error as the server reports it. Statements that follow it are answered on.
    /// `line` is where in the batch it arose.
    void Error(int number, const QString& text, int severity = 16, int line = 1);
    /// A message that is no error.
    void Info(int number, const QString& text);
    /// The session's database is another one now.
    void DatabaseChanged(const QString& name);

    /// Everything said, with the last statement marked as the last.
    QByteArray Whole();
    /// Says what Whole() of another answer has brought, once more.
    void Repeat(const QByteArray& whole);

    /// Sends what was said so far, though the answer is not complete.
    void Send();
    /// Waits until the program asks for a cancellation, which is then confirmed; the rest of the answer is
    /// dropped.
    void WaitForCancel();
    /// Never says anything again on this connection, whatever the program sends.
    void FallSilent();
    /// Cuts the connection behind what was sent.
    void Cut();
    /// Cuts the connection inside of the answer: behind that many hundredths of what was said, none for an
    /// answer of which nothing comes.
    void CutInside(int percent);

  private:
    friend class TdsResponder;

    static QByteArray CancelConfirmed();
    void Token(int token, const TdsBytes& content);
    void Message(int token, int number, int severity, const QString& text, int line);
    TdsConnection& mConnection;
    std::vector<TdsColumn> mColumns;
    TdsBytes mBytes;
    /// Where the status of the last Done stands; -1 before the first.
    qsizetype mLastDone = -1;
    bool mFailed = false;
};
