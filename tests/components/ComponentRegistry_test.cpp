#include "components/clsDiagnosisCodes.h"
#include "components/ComponentRegistry.h"
#include "support/ErrorOf.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kClass = u"TestLib.clsTest"_s;

class Plain : public Component {};

class Codes : public clsDiagnosisCodes {
  public:
    void SetActiveConnection(CommandGateway*) override {}
};

class ComponentRegistry : public testing::Test {
  protected:
    ~ComponentRegistry() override { RegisterComponent(kClass, {}); }

    template <class Contract = Component> static int ErrorOfCreating() {
        return ErrorOf([] { CreateObject<Contract>(kClass); });
    }
};

TEST_F(ComponentRegistry, AClassThatIsNotRegisteredRaises429) {
    EXPECT_EQ(ErrorOfCreating(), 429);
    try {
        CreateComponent(kClass);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Description(), u"ActiveX component can't create object"_s);
    }
}

TEST_F(ComponentRegistry, TheFactoryIsToldTheRemoteServer) {
    QString told = u"nothing"_s;
    RegisterComponent(kClass, [&told](const QString& server) {
        told = server;
        return std::make_shared<Plain>();
    });
    CreateObject<Component>(kClass, u"WARD-1"_s);
    EXPECT_EQ(told, u"WARD-1"_s);
    CreateObject<Component>(kClass);
    EXPECT_EQ(told, QString());
}

TEST_F(ComponentRegistry, EachCreationMakesANewComponent) {
    RegisterComponent(kClass, [](const QString&) { return std::make_shared<Plain>(); });
    const Ref<Component> first = CreateObject<Component>(kClass);
    const Ref<Component> second = CreateObject<Component>(kClass);
    EXPECT_NE(first.Shared(), second.Shared());
}

TEST_F(ComponentRegistry, AComponentIsHandedOutByTheContractThatItKeeps) {
    RegisterComponent(kClass, [](const QString&) { return std::make_shared<Codes>(); });
    EXPECT_TRUE(CreateObject<clsDiagnosisCodes>(kClass).IsSet());
    EXPECT_TRUE(CreateObject<Component>(kClass).IsSet());
}

TEST_F(ComponentRegistry, AComponentThatDoesNotKeepTheContractRaises13) {
    RegisterComponent(kClass, [](const QString&) { return std::make_shared<Plain>(); });
    EXPECT_EQ(ErrorOfCreating<clsDiagnosisCodes>(), 13);
}

TEST_F(ComponentRegistry, WhatTheFactoryThrowsIsTheFailure) {
    RegisterComponent(kClass, [](const QString&) -> std::shared_ptr<Component> {
        throw RunTimeError(7, u"Out of memory"_s);
    });
    EXPECT_EQ(ErrorOfCreating(), 7);
}

TEST_F(ComponentRegistry, ALaterRegistrationReplacesTheEarlierOne) {
    RegisterComponent(kClass, [](const QString&) { return std::make_shared<Plain>(); });
    RegisterComponent(kClass, [](const QString&) { return std::make_shared<Codes>(); });
    EXPECT_EQ(ErrorOfCreating<clsDiagnosisCodes>(), 0);
}

TEST_F(ComponentRegistry, AnEmptyFactoryStrikesTheNameOut) {
    RegisterComponent(kClass, [](const QString&) { return std::make_shared<Plain>(); });
    RegisterComponent(kClass, {});
    EXPECT_EQ(ErrorOfCreating(), 429);
}

} // namespace
