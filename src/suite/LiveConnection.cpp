#include "suite/LiveConnection.h"

#include "gateway/CommandGateway.h"

namespace {

CommandGateway* live = nullptr;

} // namespace

void SetLiveConnection(CommandGateway* connection) {
    live = connection;
}

CommandGateway* LiveConnection() {
    return live;
}

CommandGateway* FindLiveConnection(const QString& connectionString) {
    return live && live->ConnectionString() == connectionString ? live : nullptr;
}
