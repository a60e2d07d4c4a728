#include "torture/DeskServer.h"

#include "charges/commands.h"
#include "torture/Commands.h"

#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QString kAddToPrint = u"Clinical_Area..spEarCare_SaveChargePrint "_s;
const QString kReadPrint = u"FROM Clinical_Area.dbo.tbEarCareChargePrint "_s;

bool IsAddedToPrint(const QString& text) {
    return text.startsWith(kAddToPrint);
}

/// Whether the exchange that the thread's session is in came after the counting had begun. A session has its
/// thread to itself, and what it has answered is told only when the desk may have gone on already.
thread_local bool isCounted = false;

qsizetype LinesOfTheSlip(const DeskRecord& record) {
    const QStringList texts = record.answers.keys();
    return std::ranges::count_if(texts, IsAddedToPrint);
}

/// What the thread has taken of the processor since it was last asked.
qint64 ProcessorTimeSince() {
    constexpr qint64 kSecond = 1000000000;
    thread_local qint64 before = 0;
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    const qint64 now = time.tv_sec * kSecond + time.tv_nsec;
    return now - std::exchange(before, now);
}

} // namespace

void DeskServer::Traffic::Take(const TdsExchange& exchange) {
    ++exchanges;
    received += exchange.bytesReceived;
    sent += exchange.bytesSent;
}

DeskServer::DeskServer(const DeskRecord& record, std::chrono::milliseconds delay)
    : mRecord(record)
    , mDelay(delay)
    , mLines(LinesOfTheSlip(record))
    , mServer([this](const TdsLogin& login) -> TdsResponder::Handler {
        isCounted = mCounts;
        return [this, user = login.user](const QString& batch, TdsAnswer& answer) {
            isCounted = mCounts;
            Answer(user, batch, answer);
        };
    }) {
    mServer.Watch([this](const TdsExchange& exchange) { Count(exchange); });
}

QString DeskServer::KeyOf(const QString& text) {
    return TakeApart(text).kind == SentCommand::Kind::TakeSlip ? u"UPDATE of the counter"_s : text;
}

void DeskServer::Answer(const QString& user, const QString& batch, TdsAnswer& answer) {
    std::this_thread::sleep_for(mDelay);
    const std::lock_guard lock(mMutex);
    if (AnswerCounter(batch, answer))
        return;
    Print(user, batch);
    const auto recorded = mRecord.answers.find(batch);
    if (recorded == mRecord.answers.end())
        throw std::runtime_error("nothing was recorded for " + batch.toStdString());
    answer.Repeat(*recorded);
}

bool DeskServer::AnswerCounter(const QString& batch, TdsAnswer& answer) {
    if (batch == ChargeSlipCounterCommand()) {
        answer.Columns({{.name = u"ChargeSlip"_s, .type = TdsType::Int}});
        answer.Row({mCounter});
        answer.Done(1);
        return true;
    }
    const SentCommand write = TakeApart(batch);
    if (write.kind != SentCommand::Kind::TakeSlip)
        return false;
    const bool stands = write.arguments[0].toLongLong() == mCounter;
    mCounter += stands ? 1 : 0;
    answer.Done(stands ? 1 : 0);
    return true;
}

void DeskServer::Print(const QString& user, const QString& batch) {
    if (batch == ClearChargePrintCommand()) {
        mPrintTable.clear();
    } else if (IsAddedToPrint(batch)) {
        mPrintTable << user;
    } else if (batch.contains(kReadPrint)) {
        ++mSlipsRead;
        mSlipsSpoilt += mPrintTable.count(user) == mLines && mPrintTable.size() == mLines ? 0 : 1;
    }
}

void DeskServer::Count(const TdsExchange& exchange) {
    const qint64 taken = ProcessorTimeSince();
    if (!isCounted)
        return;
    const std::lock_guard lock(mMutex);
    mProcessorTime += taken;
    if (exchange.batch.isNull()) {
        mLogons.Take(exchange);
        return;
    }
    ++mByText[KeyOf(exchange.batch)];
    // The counter's write was recorded with the number of that day.
    mByWork[mRecord.workOf.value(exchange.batch, DeskWork::Save)].Take(exchange);
}
