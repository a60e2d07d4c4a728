#include "suite/DataSource.h"
#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A hospital's server, which a workstation cannot make.
class Server : public DataSource {
  public:
    QString Name() const override { return u"San Roque"_s; }
    std::unique_ptr<CommandGateway> Connect(const QString&, const QString&) override { return nullptr; }
};

TEST(DataSource, ThatStandsNeedsNoMakingAndCannotBeMade) {
    Server server;
    EXPECT_FALSE(server.NeedsMaking());
    EXPECT_FALSE(server.CanBeMadeAnew());
    EXPECT_EQ(server.Hint(), QString());
    try {
        server.Make({});
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 75);
        EXPECT_EQ(error.Description(), u"San Roque cannot be made here."_s);
    }
}

} // namespace
