#pragma once

#include "gateway/CommandGateway.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

/// The small hospital behind some engine, as the contract needs it: one connection, and more on demand. Both
/// have PASSWORD as their default database.
class HospitalUnderTest {
  public:
    virtual ~HospitalUnderTest() = default;
    virtual CommandGateway& Gateway() = 0;
    /// A second connection to the same hospital, as another workstation has it.
    virtual std::unique_ptr<CommandGateway> Connect() = 0;
};

/// An engine that the contract is checked on.
struct EngineUnderTest {
    std::string name;
    std::function<std::unique_ptr<HospitalUnderTest>()> make;
};

/// What every gateway must do, whatever engine stands behind it. Instantiate with the engine to check it.
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
