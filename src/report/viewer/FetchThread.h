#pragma once

#include "report/ReportFetch.h"

#include <QObject>

#include <exception>
#include <memory>

/// Fetches a report's rows on a thread of its own, so that the window of the report stands meanwhile.
///
/// Destroying it gives the rows up without waiting for the database: the thread ends by itself, and nobody
/// hears of it any more.
class FetchThread : public QObject {
    Q_OBJECT

  public:
    /// Begins at once.
    FetchThread(ReportOrder order, QObject* parent);
    ~FetchThread() override;

    /// When Finished has come: the pages, or what the fetching raised.
    std::shared_ptr<const ReportDocument> Result() const;

  Q_SIGNALS:
    void Finished();

  private:
    /// Belongs to both threads.
    struct Work {
        explicit Work(ReportOrder order)
            : fetch(std::move(order)) {}
        void Run() noexcept;

        ReportFetch fetch;
        std::shared_ptr<const ReportDocument> document;
        std::exception_ptr failure;
    };

    std::shared_ptr<Work> mWork;
};

/// Waits until every thread has ended whose rows were given up. The end of the toolkit does it by itself.
void WaitForFetchThreads();

/// For the end of the program, when its event loop has ended and every report was given up: comes back when
/// the threads have ended. Where a server keeps one longer than a moment, the process ends here, as
/// EndProcess says.
void LeaveFetchThreads();
