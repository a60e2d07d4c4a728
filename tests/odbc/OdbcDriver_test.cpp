#include "odbc/AlteredTexts.h"
#include "odbc/OdbcServer.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

/// FreeTDS itself, without the gateway, told to send commands as they stand.
class FreeTdsTest : public OdbcServer {
  protected:
    FreeTdsTest() {
        mConnection.Check(SQLConnectW(mConnection.Get(), OdbcText(mSource), SQLSMALLINT(mSource.size()),
                                      OdbcText(mUser), SQLSMALLINT(mUser.size()), OdbcText(mUser),
                                      SQLSMALLINT(mUser.size())));
    }
    ~FreeTdsTest() override { SQLDisconnect(mConnection.Get()); }

    /// What the server gets of a command; empty when nothing.
    QString SentFor(const QString& command) {
        const OdbcHandle statement(SQL_HANDLE_STMT, SQL_HANDLE_DBC, mConnection.Get());
        statement.Check(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_NOSCAN, OdbcNumber(SQL_NOSCAN_ON), 0));
        SQLULEN noscan = SQL_NOSCAN_OFF;
        statement.Check(SQLGetStmtAttrW(statement.Get(), SQL_ATTR_NOSCAN, &noscan, 0, nullptr));
        EXPECT_EQ(noscan, SQLULEN(SQL_NOSCAN_ON)) << "the driver takes the setting";
        const qsizetype before = mServer.Batches().size();
        SQLExecDirectW(statement.Get(), OdbcText(command), SQLINTEGER(command.size()));
        const QStringList batches = mServer.Batches();
        return batches.size() > before ? batches.back() : QString();
    }

    const QString mUser = u"NURSE"_s;
    const OdbcEnvironment mEnvironment;
    const OdbcHandle mConnection{SQL_HANDLE_DBC, SQL_HANDLE_ENV, mEnvironment.Get()};
};

/// A driver that heeds what it is told, but for data sources whose names begin with "Deaf". It refuses every
/// command in the words in which a server would have got it.
class PlainDriverTest : public testing::Test {
  protected:
    explicit PlainDriverTest()
        : mGateway(Connect(u"Plain driver"_s)) {}
    ~PlainDriverTest() override { mGateway.reset(); }

    static std::unique_ptr<OdbcGateway> Connect(const QString& name) {
        TestDataSources::Instance().Add(name, u"Driver=" PLAIN_ODBC_DRIVER "\n"_s);
        auto gateway = std::make_unique<OdbcGateway>(name, u"NURSE"_s, u"nurse"_s);
        TestDataSources::Instance().Remove(name);
        return gateway;
    }

    std::unique_ptr<OdbcGateway> mGateway;
};

} // namespace

// Why commands are refused on this driver. Where one of these fails, the driver has learned to listen, and
// there is nothing to refuse any more.

TEST_F(FreeTdsTest, AltersTheseTextsAlthoughItIsToldNotTo) {
    for (const AlteredText& altered : kAlteredByFreeTds)
        EXPECT_NE(SentFor(altered.command), altered.command) << altered.command.toStdString();
}

TEST_F(FreeTdsTest, SendsNoQuestionMarkThatStandsOutsideQuotes) {
    EXPECT_EQ(SentFor(u"spX ?"_s), QString());
}

// What other drivers are trusted with.

TEST_F(PlainDriverTest, GetsEveryTextAsItStands) {
    for (const AlteredText& altered : kAlteredByFreeTds) {
        if (!altered.command.contains(QChar(u'\0'))) {
            EXPECT_EQ(FailureOf(*mGateway, altered.command).text, altered.command);
        }
    }
    for (const QString& command : {u"spX ?"_s, u"spX 'O'?'"_s, u"x }{ ?"_s})
        EXPECT_EQ(FailureOf(*mGateway, command).text, command);
}

TEST_F(PlainDriverTest, IsAskedWhatItWouldSendWhereItCannotBeTold) {
    mGateway = Connect(u"Deaf driver"_s);
    EXPECT_EQ(FailureOf(*mGateway, u"spX {d '2026-01-01'}"_s).text, u"Incorrect syntax near '{'."_s);
    EXPECT_EQ(FailureOf(*mGateway, u"spX ?"_s).text, u"spX ?"_s);
}

TEST_F(PlainDriverTest, MayPutNothingBehindATextEither) {
    mGateway = Connect(u"Adding driver"_s);
    EXPECT_EQ(FailureOf(*mGateway, u"spX 12"_s).text, u"Incorrect syntax near '2'."_s);
}
