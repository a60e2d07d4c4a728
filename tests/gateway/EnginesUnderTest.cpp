#include "gateway/embedded/ScriptParser.h"
#include "gateway/GatewayContract.h"
#include "gateway/odbc/OdbcGateway.h"
#include "gateway/SmallHospital.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"

#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

class EmbeddedUnderTest : public HospitalUnderTest {
  public:
    CommandGateway& Gateway() override { return mHospital.Gateway(); }
    std::unique_ptr<CommandGateway> Connect() override { return mHospital.Connect(); }

  private:
    SmallHospital mHospital;
};

std::unique_ptr<CommandGateway> ConnectTo(const QString& dataSource, const QString& user,
                                          const QString& password) {
    auto gateway = std::make_unique<OdbcGateway>(dataSource, user, password);
    gateway->SetDefaultDatabase(u"PASSWORD"_s);
    return gateway;
}

class OdbcUnderTest : public HospitalUnderTest {
  public:
    CommandGateway& Gateway() override { return *mGateway; }
    std::unique_ptr<CommandGateway> Connect() override { return ConnectTo(mSource, u"u"_s, u"p"_s); }

  private:
    SmallHospital mHospital;
    TdsResponder mServer{EngineSessions(mHospital.Path())};
    QString mSource = TestDataSources::Instance().Add(mServer.Port());
    std::unique_ptr<CommandGateway> mGateway = Connect();
};

/// The small hospital on a live server, made for the test and dropped after it.
class LiveUnderTest : public HospitalUnderTest {
  public:
    explicit LiveUnderTest(const QString& connection) {
        for (const QString& part : connection.split(u';'))
            mLogon[part.section(u'=', 0, 0).trimmed().toUpper()] = part.section(u'=', 1);
        mGateway = Connect();
        Drop();
        for (const Script& script : SmallHospitalScripts()) {
            for (const Batch& batch : SplitBatches(script.text))
                mGateway->ExecuteNoResult(batch.text.toString());
        }
        mGateway->SetDefaultDatabase(u"PASSWORD"_s);
    }
    ~LiveUnderTest() override {
        try {
            Drop();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
    }

    CommandGateway& Gateway() override { return *mGateway; }
    std::unique_ptr<CommandGateway> Connect() override {
        return ConnectTo(mLogon[u"DSN"_s], mLogon[u"UID"_s], mLogon[u"PWD"_s]);
    }

  private:
    void Drop() {
        static const QRegularExpression made(u"USE (\\w+);|CREATE (TABLE|PROCEDURE) dbo\\.(\\w+)"_s);
        for (const Script& script : SmallHospitalScripts()) {
            QString database;
            for (auto found = made.globalMatch(script.text); found.hasNext();) {
                const auto match = found.next();
                if (match.hasCaptured(1)) {
                    database = match.captured(1);
                    continue;
                }
                mGateway->ExecuteNoResult(u"USE "_s + database);
                mGateway->ExecuteNoResult(u"IF OBJECT_ID('dbo.%2') IS NOT NULL DROP %1 dbo.%2"_s.arg(
                    match.captured(2), match.captured(3)));
            }
        }
    }

    QMap<QString, QString> mLogon;
    std::unique_ptr<CommandGateway> mGateway;
};

} // namespace

std::vector<EngineUnderTest> EnginesUnderTest() {
    std::vector<EngineUnderTest> engines = {
        {"Embedded", [] { return std::make_unique<EmbeddedUnderTest>(); }},
        {"Odbc", [] { return std::make_unique<OdbcUnderTest>(); }},
    };
    const QString live = qEnvironmentVariable("TARVEN_TEST_SQLSERVER");
    if (!live.isEmpty())
        engines.push_back({"Live", [live] { return std::make_unique<LiveUnderTest>(live); }});
    return engines;
}
