#include "components/ReportConnector.h"

#include "gateway/CommandGateway.h"
#include "text/RunTimeError.h"

#include <mutex>
#include <sodium.h>

namespace {

/// Guards both.
std::mutex connectorMutex;
ReportConnector currentConnector;
std::optional<int> currentTimeout;

void WipeText(QString& text) {
    if (text.isDetached())
        sodium_memzero(text.data(), static_cast<size_t>(text.size()) * sizeof(QChar));
    text.resize(0);
}

} // namespace

void ReportLogOn::Wipe() {
    for (QString* text : {&server, &database, &user, &password})
        WipeText(*text);
}

void SetReportConnector(ReportConnector connector) {
    const std::lock_guard lock(connectorMutex);
    currentConnector = std::move(connector);
}

void SetReportTimeout(std::optional<int> seconds) {
    const std::lock_guard lock(connectorMutex);
    currentTimeout = seconds;
}

std::unique_ptr<CommandGateway> ConnectReport(const ReportLogOn& logOn) {
    ReportConnector connector;
    std::optional<int> timeout;
    {
        const std::lock_guard lock(connectorMutex);
        connector = currentConnector;
        timeout = currentTimeout;
    }
    if (!connector)
        throw RunTime::Error(RunTime::kCannotCreateObject);
    auto connection = connector(logOn);
    if (timeout)
        connection->SetCommandTimeout(*timeout);
    return connection;
}
