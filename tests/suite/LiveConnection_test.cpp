#include "suite/LiveConnection.h"
#include "support/ScriptedGateway.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(LiveConnection, IsFoundByItsTextAlone) {
    ScriptedGateway gateway;
    SetLiveConnection(&gateway);
    EXPECT_EQ(LiveConnection(), &gateway);
    EXPECT_EQ(FindLiveConnection(gateway.ConnectionString()), &gateway);
    EXPECT_EQ(FindLiveConnection(u"another"_s), nullptr);
    EXPECT_EQ(FindLiveConnection(QString()), nullptr);
    SetLiveConnection(nullptr);
}

TEST(LiveConnection, IsNoneBeforeTheSignOn) {
    EXPECT_EQ(LiveConnection(), nullptr);
    EXPECT_EQ(FindLiveConnection(u"scripted"_s), nullptr);
    EXPECT_EQ(FindLiveConnection(QString()), nullptr);
}

} // namespace
