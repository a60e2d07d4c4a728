#include "reporting/ReportConnector.h"

#include "gateway/CommandGateway.h"
#include "text/RunTimeError.h"

#include <mutex>
#include <string.h>

namespace {

std::mutex connectorMutex;
ReportConnector currentConnector;

void WipeText(QString& text) {
    if (text.isDetached())
        explicit_bzero(text.data(), static_cast<size_t>(text.size()) * sizeof(QChar));
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

std::unique_ptr<CommandGateway> ConnectReport(const ReportLogOn& logOn) {
    ReportConnector connector;
    {
        const std::lock_guard lock(connectorMutex);
        connector = currentConnector;
    }
    if (!connector)
        throw RunTime::Error(RunTime::kCannotCreateObject);
    return connector(logOn);
}
