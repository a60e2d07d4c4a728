#pragma once

#include "components/ReportConnector.h"
#include "report/pages/ReportDocument.h"
#include "report/pages/ReportValues.h"
#include "report/template/ReportTemplate.h"

#include <QStringList>

#include <memory>
#include <mutex>

class CommandGateway;

/// What the rows of a report are asked for with. All that it shares with the report that it comes from is the
/// template, which nobody changes, so the rows may be fetched on another thread.
struct ReportOrder {
    std::shared_ptr<const ReportTemplate> report;
    ReportValues values;
    /// A complete command for each query of the template.
    QStringList commands;
    /// Of the report's own connection. The texts are overwritten when the connection stands, or when the
    /// order goes unused.
    ReportLogOn logOn;

    ReportOrder() = default;
    ReportOrder(ReportOrder&&) noexcept = default;
    ReportOrder& operator=(ReportOrder&&) noexcept = default;
    ~ReportOrder() { logOn.Wipe(); }
};

/// The fetching of a report's rows over a connection of its own, and their way onto pages.
class ReportFetch {
  public:
    explicit ReportFetch(ReportOrder order);
    ReportFetch(const ReportFetch&) = delete;
    ReportFetch& operator=(const ReportFetch&) = delete;
    ~ReportFetch();

    /// Fetches the rows and closes the connection again; once, on any thread. Null when it was cancelled.
    /// Raises what the connection and the queries raise, and the template's error where the rows do not go
    /// with it.
    std::shared_ptr<const ReportDocument> Run();
    /// Gives the rows up, from any thread: Run comes back as soon as the database lets it.
    void Cancel();
    bool IsCancelled() const;

  private:
    void Connect();
    void Disconnect();
    QueryRows FetchRows();

    ReportOrder mOrder;
    mutable std::mutex mMutex;
    /// Both are guarded by the mutex.
    bool mCancelled = false;
    std::unique_ptr<CommandGateway> mGateway;
};
