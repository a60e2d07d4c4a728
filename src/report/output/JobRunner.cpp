#include "report/output/JobRunner.h"

#include <QElapsedTimer>
#include <QTimer>

#include <utility>

namespace {

/// Milliseconds of work between two looks at the clerk's keys.
constexpr int kTurn = 30;

} // namespace

JobRunner::JobRunner(QObject* parent)
    : QObject(parent)
    , mTimer(new QTimer(this))
    , mTurn(kTurn) {
    connect(mTimer, &QTimer::timeout, this, &JobRunner::DoTurn);
}

JobRunner::~JobRunner() = default;

void JobRunner::Run(std::unique_ptr<ReportJob> job, Ended ended) {
    mJob = std::move(job);
    mEnded = std::move(ended);
    DoTurn();
}

void JobRunner::Stop() {
    mTimer->stop();
    mEnded = {};
    mJob.reset();
}

void JobRunner::DoTurn() {
    // A job that raises a failure is not tried again.
    auto job = std::move(mJob);
    mTimer->stop();
    QElapsedTimer turn;
    turn.start();
    bool isLeft = job->Step();
    while (isLeft && turn.elapsed() < mTurn)
        isLeft = job->Step();
    if (!isLeft) {
        const auto ended = std::exchange(mEnded, {});
        return ended(*job);
    }
    mJob = std::move(job);
    mTimer->start(0);
    Q_EMIT Progressed(mJob->Done(), mJob->Total());
}
