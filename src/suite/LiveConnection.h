#pragma once

#include <QString>

class CommandGateway;

/// The session's connection, for those components that are handed its text and not the object.
void SetLiveConnection(CommandGateway* connection);

/// The session's connection; null before the sign-on.
CommandGateway* LiveConnection();

/// The open connection with that text; null when there is none.
CommandGateway* FindLiveConnection(const QString& connectionString);
