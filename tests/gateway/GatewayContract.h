#pragma once

#include "gateway/CommandGateway.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

/// The small hospital behind some engine, as the contract needs it: one connection, and more on demand. Both
/// have PASSWORD as their default database.
class HospitalUnderTest {
  public:
    virtual ~HospitalUnderTest() = default;
    virtual CommandGateway& Gateway() = 0;
    /// A second connection to the same hospital, in the same process.
    virtual std::unique_ptr<CommandGateway> Connect() = 0;
};

/// An engine that the contract is checked on.
struct EngineUnderTest {
    std::string name;
    std::function<std::unique_ptr<HospitalUnderTest>()> make;
};

/// The engines to check: the embedded one, a server's wire protocol with that engine behind it, and a live
/// server where the environment names one in TARVEN_TEST_SQLSERVER, as "DSN=name;UID=user;PWD=password". In
/// its databases of the hospital the live server gets the small hospital's tables and procedures, which bear
/// names of their own, and loses them again.
std::vector<EngineUnderTest> EnginesUnderTest();

/// What every gateway must do, whatever engine stands behind it.
class GatewayContract : public testing::TestWithParam<EngineUnderTest> {
  protected:
    GatewayContract()
        : mHospital(GetParam().make()) {}

    CommandGateway& Gateway() { return mHospital->Gateway(); }
    std::unique_ptr<CommandGateway> Connect() { return mHospital->Connect(); }

    /// Everything that the tests could change, to be compared before and after.
    QStringList State();

  private:
    std::unique_ptr<HospitalUnderTest> mHospital;
};
