#include "gateway/GatewayContract.h"
#include "odbc/OdbcGateway.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"
#include "tsql/ScriptParser.h"

#include <QMap>
#include <QRegularExpression>

#include <stdexcept>

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
        mGateway->SetCommandTimeout(kTurn);
        // One case at a time: each makes the same tables. The turn ends with the connection.
        mGateway->ExecuteNoResult(u"EXEC sp_getapplock 'tarven_contract', 'Exclusive', 'Session', -1"_s);
        ClaimNames();
        for (const Script& script : SmallHospitalScripts()) {
            for (const Batch& batch : SplitBatches(script.text))
                mGateway->ExecuteNoResult(batch.text.toString());
        }
        mGateway->SetDefaultDatabase(u"PASSWORD"_s);
    }
    ~LiveUnderTest() override {
        try {
            if (mIsClaimed)
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
    /// Seconds that a case waits for its turn.
    static constexpr int kTurn = 120;

    /// Calls with each object of the small hospital: its database, its kind and its name.
    template <class Call> static void ForEachObject(const Call& call) {
        static const QRegularExpression made(u"USE (\\w+);|CREATE (TABLE|PROCEDURE) dbo\\.(\\w+)"_s);
        for (const Script& script : SmallHospitalScripts()) {
            QString database;
            for (auto found = made.globalMatch(script.text); found.hasNext();) {
                const auto match = found.next();
                if (match.hasCaptured(1)) {
                    database = match.captured(1);
                    continue;
                }
                call(database, match.captured(2), match.captured(3));
            }
        }
    }

    /// Drops what an earlier case left. The mark tells that the objects are the contract's; without it a
    /// server's own ones of these names stand there, which are left alone.
    void ClaimNames() {
        if (Exists(u"PASSWORD.dbo."_s + kMark)) {
            Drop();
        } else {
            ForEachObject([this](const QString& database, const QString&, const QString& name) {
                if (Exists(database + u".dbo."_s + name))
                    throw std::runtime_error("the server has its own " +
                                             (database + u".dbo."_s + name).toStdString());
            });
        }
        RunInPassword(u"CREATE TABLE dbo.%1 (Made datetime NOT NULL DEFAULT GETDATE())"_s);
        mIsClaimed = true;
    }

    bool Exists(const QString& object) {
        return RowTexts(*mGateway, u"SELECT OBJECT_ID('%1')"_s.arg(object)) != QStringList{u"NULL"_s};
    }

    void Drop() {
        ForEachObject([this](const QString& database, const QString& kind, const QString& name) {
            mGateway->ExecuteNoResult(u"USE "_s + database);
            mGateway->ExecuteNoResult(u"IF OBJECT_ID('dbo.%2') IS NOT NULL DROP %1 dbo.%2"_s.arg(kind, name));
        });
        RunInPassword(u"DROP TABLE dbo.%1"_s);
    }

    /// Runs a statement about the mark in its own database: not every server makes or drops what lies in
    /// another one.
    void RunInPassword(const QString& statement) {
        mGateway->ExecuteNoResult(u"USE PASSWORD"_s);
        mGateway->ExecuteNoResult(statement.arg(kMark));
    }

    inline static const QString kMark = u"tarven_contract"_s;

    QMap<QString, QString> mLogon;
    bool mIsClaimed = false;
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
