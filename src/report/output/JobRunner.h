#pragma once

#include "report/output/ReportJob.h"

#include <QObject>

#include <functional>
#include <memory>

class QTimer;

/// Does a job in turns of the event loop, so that the clerk can go on reading and can give it up.
class JobRunner : public QObject {
    Q_OBJECT

  public:
    using Ended = std::function<void(const ReportJob& job)>;

    explicit JobRunner(QObject* parent);
    ~JobRunner() override;

    /// Begins a job; one that is short comes to its end before this returns. `ended` hears of the end, failed
    /// or not, unless the job is stopped before.
    void Run(std::unique_ptr<ReportJob> job, Ended ended);
    /// Gives the job up.
    void Stop();
    bool IsRunning() const { return mJob != nullptr; }
    /// How long a turn lasts at least, in milliseconds; with 0 it is one step.
    void SetTurn(int milliseconds) { mTurn = milliseconds; }
    /// The job that is running.
    const ReportJob& Job() const { return *mJob; }

  Q_SIGNALS:
    /// Steps done and steps in all, after each turn that did not come to the end.
    void Progressed(int done, int total);

  private:
    void DoTurn();

    std::unique_ptr<ReportJob> mJob;
    Ended mEnded;
    QTimer* mTimer;
    int mTurn;
};
