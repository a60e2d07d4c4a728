#include "reporting/ReportConnector.h"

#include "gateway/CommandGateway.h"
#include "text/RunTimeError.h"

#include <string.h>

namespace {

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
    currentConnector = std::move(connector);
}

std::unique_ptr<CommandGateway> ConnectReport(const ReportLogOn& logOn) {
    if (!currentConnector)
        throw RunTime::Error(RunTime::kCannotCreateObject);
    return currentConnector(logOn);
}
