#include "gateway/CommandGateway.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EchoingGateway : public CommandGateway {
  public:
    bool Connected() const override { return true; }
    QString ConnectionString() const override { return {}; }
    QString sent;
    bool bringsRows = true;

  protected:
    Outcome Run(const QString& command) override {
        sent = command;
        auto data = std::make_shared<RowData>();
        data->columns = {u"a"_s};
        data->Add(1);
        return {bringsRows ? data : nullptr, 0};
    }
};

} // namespace

TEST(CommandGatewayTest, SendsTheTextUnchanged) {
    EchoingGateway gateway;
    const QString text = u" CLINICAL_AREA..spEarCare_GetCashPatient  'O'Brien  ' "_s;
    gateway.Execute(text);
    EXPECT_EQ(gateway.sent, text);
    gateway.ExecuteNoResult(text);
    EXPECT_EQ(gateway.sent, text);
    gateway.Open(text, CursorType::Dynamic, LockType::Optimistic);
    EXPECT_EQ(gateway.sent, text);
}

TEST(CommandGatewayTest, CommandWithoutRowsGivesAClosedRowSet) {
    EchoingGateway gateway;
    gateway.bringsRows = false;
    EXPECT_EQ(gateway.Execute(u"x"_s).State(), RowSet::Status::Closed);
}

TEST(CommandGatewayTest, RecordCountIsKnownAtTheClientAndForStaticCursors) {
    EchoingGateway gateway;
    const auto count = [&](CursorType cursor, CursorLocation location) {
        return gateway.Open(u"x"_s, cursor, LockType::ReadOnly, location).RecordCount();
    };
    EXPECT_EQ(count(CursorType::Dynamic, CursorLocation::Client), 1);
    EXPECT_EQ(count(CursorType::Static, CursorLocation::Server), 1);
    EXPECT_EQ(count(CursorType::Dynamic, CursorLocation::Server), -1);
    EXPECT_EQ(count(CursorType::ForwardOnly, CursorLocation::Server), -1);
    EXPECT_EQ(count(CursorType::Unspecified, CursorLocation::Server), -1);
    EXPECT_EQ(gateway.Execute(u"x"_s).RecordCount(), -1);
}

TEST(CommandGatewayTest, KeepsDatabaseAndTimeout) {
    EchoingGateway gateway;
    EXPECT_EQ(gateway.CommandTimeout(), 30);
    gateway.SetCommandTimeout(120);
    gateway.SetDefaultDatabase(u"PASSWORD"_s);
    EXPECT_EQ(gateway.CommandTimeout(), 120);
    EXPECT_EQ(gateway.DefaultDatabase(), u"PASSWORD"_s);
}
