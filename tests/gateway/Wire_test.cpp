#include "odbc/OdbcGateway.h"
#include "support/golden/GoldenCommands.h"
#include "support/PrintQt.h"
#include "support/tds/TdsResponder.h"
#include "support/tds/TestDataSources.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// What the driver manager and the driver do to a text has to be nothing, whatever stands in it.
TEST(Wire, CarriesEveryGoldenCommandByteForByte) {
    TdsResponder server([]() -> TdsResponder::Handler { return [](const QString&, TdsAnswer&) {}; });
    OdbcGateway gateway(TestDataSources::Instance().Add(server.Port()), u"NURSE"_s, u"nurse"_s);
    ASSERT_FALSE(GoldenCommands().empty());
    for (const auto& [name, golden] : GoldenCommands()) {
        for (const ArgumentOf& argument : GoldenArguments()) {
            const QString text = WithArguments(golden, argument);
            server.ForgetBatches();
            gateway.ExecuteNoResult(text);
            EXPECT_EQ(server.Batches(), QStringList(text)) << name;
        }
    }
}
