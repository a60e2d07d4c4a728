#include "report/viewer/FetchThread.h"

#include <QCoreApplication>
#include <QThread>

#include <utility>
#include <vector>

namespace {

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
