#include "report/output/JobRunner.h"
#include "support/ScreenTest.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// So many steps, of which one may fail or raise.
class CountedJob : public ReportJob {
  public:
    explicit CountedJob(int total)
        : ReportJob(total) {}
    ~CountedJob() override { ++destroyed; }

    bool Step() override {
        if (Done() + 1 == raising)
            throw RunTimeError(13, u"Type mismatch"_s);
        if (Done() + 1 == failing)
            return End(u"refused"_s);
        return StepIsDone();
    }

    int failing = 0;
    int raising = 0;
    static inline int destroyed = 0;
};

class JobRunnerTest : public ScreenTest {
  protected:
    JobRunnerTest() {
        CountedJob::destroyed = 0;
        runner.SetTurn(0);
    }

    void Run(std::unique_ptr<CountedJob> job) {
        runner.Run(std::move(job), [this](const ReportJob& done) {
            EXPECT_FALSE(runner.IsRunning());
            ended << u"%1 of %2 %3"_s.arg(done.Done()).arg(done.Total()).arg(done.Failure()).trimmed();
        });
    }

    void RunToTheEnd() {
        while (runner.IsRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    JobRunner runner{nullptr};
    QStringList ended;
};

} // namespace

TEST_F(JobRunnerTest, AShortJobIsDoneAtOnce) {
    Run(std::make_unique<CountedJob>(1));
    EXPECT_EQ(ended, QStringList{u"1 of 1"_s});
    EXPECT_EQ(CountedJob::destroyed, 1);
}

TEST_F(JobRunnerTest, ALongJobIsDoneBetweenOtherEvents) {
    QSignalSpy progress(&runner, &JobRunner::Progressed);
    Run(std::make_unique<CountedJob>(5));
    EXPECT_TRUE(ended.isEmpty());
    bool other = false;
    QTimer::singleShot(0, &runner, [&] { other = runner.IsRunning(); });
    RunToTheEnd();
    EXPECT_TRUE(other);
    EXPECT_EQ(ended, QStringList{u"5 of 5"_s});
    ASSERT_EQ(progress.size(), 4);
    EXPECT_EQ(progress[1], (QVariantList{2, 5}));
}

TEST_F(JobRunnerTest, AFailureEndsTheJob) {
    auto job = std::make_unique<CountedJob>(5);
    job->failing = 3;
    Run(std::move(job));
    RunToTheEnd();
    EXPECT_EQ(ended, QStringList{u"2 of 5 refused"_s});
}

TEST_F(JobRunnerTest, AStoppedJobIsUndoneAndNotHeardOf) {
    Run(std::make_unique<CountedJob>(5));
    runner.Stop();
    EXPECT_FALSE(runner.IsRunning());
    EXPECT_EQ(CountedJob::destroyed, 1);
    RunEvents();
    EXPECT_TRUE(ended.isEmpty());
}

TEST_F(JobRunnerTest, AFailureThatIsRaisedReachesTheTopOnceAndEndsTheJob) {
    auto job = std::make_unique<CountedJob>(5);
    job->raising = 3;
    Run(std::move(job));
    RunToTheEnd();
    EXPECT_EQ(TakeFailure(), 13);
    RunEvents();
    EXPECT_EQ(TakeFailure(), 0);
    EXPECT_TRUE(ended.isEmpty());
}
