#pragma once

#include <QString>

/// Work on a report that may take its time, in steps short enough for the user interface to go on between
/// them. Destroying a job that has not come to its end undoes it.
class ReportJob {
  public:
    ReportJob(const ReportJob&) = delete;
    ReportJob& operator=(const ReportJob&) = delete;
    virtual ~ReportJob() = default;

    /// Does the next step; false when none is left, also when one has failed.
    virtual bool Step() = 0;
    /// What has failed, empty for nothing.
    const QString& Failure() const { return mFailure; }
    /// What the clerk is told when the job is given up now.
    virtual QString CancelledText() const { return QStringLiteral("Cancelled"); }
    /// Steps done and steps in all.
    int Done() const { return mDone; }
    int Total() const { return mTotal; }

    /// Does all steps at one go. Answers what failed, empty for nothing.
    const QString& Finish() {
        while (Step()) {
        }
        return mFailure;
    }

  protected:
    explicit ReportJob(int total)
        : mTotal(total) {}

    /// Counts the step; whether another one is left.
    bool StepIsDone() { return ++mDone < mTotal; }
    /// Ends the last step, with what has failed or with nothing.
    bool End(const QString& failure) {
        mFailure = failure;
        return false;
    }

  private:
    QString mFailure;
    int mDone = 0;
    int mTotal = 0;
};
