#pragma once

#include "support/tds/TdsResponder.h"
#include "torture/DeskRecord.h"

#include <QHash>

#include <atomic>
#include <chrono>
#include <map>
#include <mutex>

/// A server that answers as one was recorded to. Two things it knows by itself, since desks get into each
/// other's way there: the slips' counter, and whose lines stand in the print table that all of them share.
/// It counts what goes over the wire.
class DeskServer {
  public:
    /// So many exchanges of one kind, with their bytes.
    struct Traffic {
        qint64 exchanges = 0;
        qint64 received = 0;
        qint64 sent = 0;

        void Take(const TdsExchange& exchange);
    };

    /// Each answer is held back for so long, as by a net and a server that have to work.
    explicit DeskServer(const DeskRecord& record, std::chrono::milliseconds delay = {});

    int Port() const { return mServer.Port(); }
    /// From here on it counts; what was sent before is forgotten.
    void BeginToCount() { mCounts = true; }
    /// Ends the connections; what is told below is whole then.
    void Close() { mServer.Close(); }

    /// By the kind of work; a text that several works send is counted for the first of them.
    const std::map<DeskWork, Traffic>& ByWork() const { return mByWork; }
    const Traffic& Logons() const { return mLogons; }
    /// How often each text came. The writes of the counter are one text, KeyOf.
    const QHash<QString, qint64>& ByText() const { return mByText; }
    static QString KeyOf(const QString& text);
    /// The processor time that the server's sessions have taken, in nanoseconds.
    qint64 ProcessorTime() const { return mProcessorTime; }
    /// The slips that were read for printing, and those of them that were not whole, or held another desk's
    /// lines.
    int SlipsRead() const { return mSlipsRead; }
    int SlipsSpoilt() const { return mSlipsSpoilt; }
    /// What it was asked and had no answer to.
    QStringList TakeProblems() { return mServer.TakeProblems(); }

  private:
    void Answer(const QString& user, const QString& batch, TdsAnswer& answer);
    /// Answers what the counter's read or write brings; false for another text.
    bool AnswerCounter(const QString& batch, TdsAnswer& answer);
    /// Notes what a text does to the print table.
    void Print(const QString& user, const QString& batch);
    void Count(const TdsExchange& exchange);

    const DeskRecord& mRecord;
    const std::chrono::milliseconds mDelay;
    /// The lines of a slip.
    const qsizetype mLines;
    std::mutex mMutex;
    std::atomic<bool> mCounts = false;
    qint64 mCounter = 1;
    /// Who has written each line.
    QStringList mPrintTable;
    int mSlipsRead = 0;
    int mSlipsSpoilt = 0;
    std::map<DeskWork, Traffic> mByWork;
    Traffic mLogons;
    QHash<QString, qint64> mByText;
    qint64 mProcessorTime = 0;
    TdsResponder mServer;
};
