#include "suite/OdbcSource.h"

#include "odbc/OdbcGateway.h"

std::unique_ptr<CommandGateway> OdbcSource::Connect(const QString& user, const QString& password) {
    return std::make_unique<OdbcGateway>(mName, user, password);
}
