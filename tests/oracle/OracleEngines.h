#pragma once

#include "gateway/CommandGateway.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

/// The oracle's tables in some engine, with a connection to them whose default database is theirs.
class OracleDatabase {
  public:
    virtual ~OracleDatabase() = default;
    virtual CommandGateway& Gateway() = 0;
};

/// An engine that is asked.
struct OracleEngine {
    std::string name;
    std::function<std::unique_ptr<OracleDatabase>()> make;
};

/// The embedded engine, and a live server where TARVEN_TEST_SQLSERVER names one, as
/// "DSN=name;UID=user;PWD=password". On the server the oracle's tables are made in PASSWORD and dropped
/// again; all their names begin with "oracle_".
std::vector<OracleEngine> OracleEngines();
