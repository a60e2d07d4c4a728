#include "report/viewer/FetchThread.h"

#include "toolkit/EndProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace {

/// Enough for a server that heeds a cancellation, and short for a clerk who leaves.
constexpr std::chrono::milliseconds kMoment(300);

/// Touched on the user interface's thread only.
std::vector<QThread*> running;

void Forget(const QThread* thread) {
    std::erase(running, thread);
}

void Keep(QThread& thread) {
    // Before the toolkit goes: a thread that spreads rows over pages still needs its fonts.
    [[maybe_unused]] static const bool once = [] {
        qAddPostRoutine(WaitForFetchThreads);
        return true;
    }();
    running.push_back(&thread);
}

} // namespace

void FetchThread::Work::Run() noexcept {
    try {
        document = fetch.Run();
    } catch (...) {
        failure = std::current_exception();
    }
}

FetchThread::FetchThread(ReportOrder order, QObject* parent)
    : QObject(parent)
    , mWork(std::make_shared<Work>(std::move(order))) {
    QThread* thread = QThread::create([work = mWork] { work->Run(); });
    thread->setObjectName(QStringLiteral("ReportRows"));
    Keep(*thread);
    connect(thread, &QThread::finished, this, &FetchThread::Finished);
    connect(thread, &QThread::finished, thread, [thread] {
        Forget(thread);
        thread->deleteLater();
    });
    thread->start();
}

FetchThread::~FetchThread() {
    mWork->fetch.Cancel();
}

std::shared_ptr<const ReportDocument> FetchThread::Result() const {
    if (mWork->failure)
        std::rethrow_exception(mWork->failure);
    return mWork->document;
}

void WaitForFetchThreads() {
    for (QThread* thread : std::exchange(running, {})) {
        thread->wait();
        delete thread;
    }
}

void LeaveFetchThreads() {
    const QDeadlineTimer moment(kMoment);
    if (std::ranges::all_of(running, [&](QThread* thread) { return thread->wait(moment); }))
        return;
    // A thread that is still in its driver goes with the process, in the middle of what it does. The
    // program's own end would take the toolkit and all that outlives functions away under it: locale and
    // fonts, the connector of reports, the driver manager. Nothing is lost: its rows were given up and it
    // writes nothing; what the database has answered stands, and so do files and settings, which are whole as
    // soon as they are written.
    EndProcess();
}
