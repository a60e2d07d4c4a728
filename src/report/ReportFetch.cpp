#include "report/ReportFetch.h"

#include "gateway/CommandGateway.h"
#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

ReportFetch::ReportFetch(ReportOrder order)
    : mOrder(std::move(order)) {}

ReportFetch::~ReportFetch() = default;

void ReportFetch::Cancel() {
    const std::lock_guard lock(mMutex);
    mCancelled = true;
    if (mGateway)
        mGateway->Cancel();
}

bool ReportFetch::IsCancelled() const {
    const std::lock_guard lock(mMutex);
    return mCancelled;
}

std::shared_ptr<const ReportDocument> ReportFetch::Run() {
    QueryRows queries;
    try {
        queries = FetchRows();
    } catch (...) {
        // What a command says that was given up is no failure of the report.
        if (IsCancelled())
            return nullptr;
        throw;
    }
    if (IsCancelled())
        return nullptr;
    return std::make_shared<const ReportDocument>(mOrder.report, mOrder.values, queries);
}

QueryRows ReportFetch::FetchRows() {
    QueryRows queries;
    if (IsCancelled())
        return queries;
    Connect();
    const auto closed = qScopeGuard([this] { Disconnect(); });
    for (qsizetype i = 0; i < mOrder.commands.size() && !IsCancelled(); ++i) {
        const RowSet rows = mGateway->Execute(mOrder.commands[i]);
        if (rows.State() == RowSet::Status::Closed)
            throw TemplateError(mOrder.report->file, mOrder.report->queries[static_cast<size_t>(i)].line,
                                u"The query gives no rows at all."_s);
        queries.push_back(rows.Data());
    }
    return queries;
}

void ReportFetch::Connect() {
    const auto forget = qScopeGuard([this] { mOrder.logOn.Wipe(); });
    auto gateway = ConnectReport(mOrder.logOn);
    const std::lock_guard lock(mMutex);
    mGateway = std::move(gateway);
    // The clerk may have given up while the connection was being made.
    if (mCancelled)
        mGateway->Cancel();
}

void ReportFetch::Disconnect() {
    std::unique_ptr<CommandGateway> closing;
    const std::lock_guard lock(mMutex);
    closing = std::exchange(mGateway, nullptr);
}
