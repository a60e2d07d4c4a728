#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class CommandGateway;

/// The logon of a report's tables.
struct ReportLogOn {
    QString server;
    QString database;
    QString user;
    QString password;

    /// Overwrites the texts and empties them. The texts must not be shared with others.
    void Wipe();
};

/// Opens a connection to the database for a report's rows, on the thread that fetches them. It must keep none
/// of the texts.
using ReportConnector = std::function<std::unique_ptr<CommandGateway>(const ReportLogOn& logOn)>;

/// Tells reports how to reach the database; the wiring of the program does it once. An empty one takes it
/// back.
void SetReportConnector(ReportConnector connector);

/// Seconds that each command of a report may take from now on, as the workstation's own commands may; nothing
/// brings back what a connection has by itself.
void SetReportTimeout(std::optional<int> seconds);

/// A connection for a report's rows. Raises 429 when no connector was set, and what the connector raises.
std::unique_ptr<CommandGateway> ConnectReport(const ReportLogOn& logOn);
