#include "oracle/OracleEngines.h"

#include "odbc/OdbcGateway.h"
#include "support/smallhospital/GatewayTexts.h"
#include "trial/HospitalFile.h"
#include "tsql/ScriptParser.h"

#include <QMap>
#include <QTemporaryDir>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// One column of each type, for what is put into columns; a few rows of numbers, for what is reckoned from
// them; two tables whose equal names differ in their bytes.
const QString kScript = uR"(USE PASSWORD;
GO
CREATE TABLE dbo.oracle_columns (
    cBit bit NULL, cInt int NULL, cBigint bigint NULL, cMoney money NULL, cDecimal decimal(9,2) NULL, cFloat float NULL,
    cDate date NULL, cDatetime datetime NULL,
    cChar char(5) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    cVarchar varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    cNvarchar nvarchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    cLong varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NULL
);
CREATE TABLE dbo.oracle_keys (Id int NOT NULL PRIMARY KEY, Other int NULL);
CREATE UNIQUE INDEX oracle_other ON dbo.oracle_keys (Other);
CREATE TABLE dbo.oracle_left (Name varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NULL, Amount money NULL);
CREATE TABLE dbo.oracle_right (Name char(20) COLLATE SQL_Latin1_General_CP1_CI_AS NULL, Quantity int NULL);
CREATE TABLE dbo.oracle_numbers (
    o int NOT NULL PRIMARY KEY, t bit NULL, i int NULL, j int NULL, b bigint NULL, d decimal(5,2) NULL,
    e decimal(9,4) NULL, m money NULL, f float NULL
);
GO
INSERT INTO PASSWORD..oracle_left (Name, Amount) VALUES ('DELA CRUZ ', 10), ('Ibañez', 20.25), ('ABAD', NULL);
INSERT INTO PASSWORD..oracle_right (Name, Quantity) VALUES ('dela cruz', 3), ('IBAÑEZ', 4), ('IBANEZ', 5);
INSERT INTO PASSWORD..oracle_numbers (o, t, i, j, b, d, e, m, f) VALUES
(1, 1, 3, -2, 3000000000, 12.50, 1.2345, 100, 0.5),
(2, 0, 7, 0, -7, -0.75, 20.0001, 339.25, -2.25),
(3, 1, -100, 2147483647, 12, 999.99, -3.3333, -0.0001, 1024),
(4, 0, 0, 5, 0, 0, 0.5, 0, 0),
(5, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
GO
)"_s;

const QString kDatabase = u"PASSWORD"_s;

class EmbeddedOracle : public OracleDatabase {
  public:
    EmbeddedOracle() {
        const std::vector<Script> scripts = {{u"schema/oracle.sql"_s, kScript}};
        HospitalFile::Create(Path(), scripts);
        mGateway = HospitalFile::Open(Path(), scripts);
        mGateway->SetDefaultDatabase(kDatabase);
    }
    CommandGateway& Gateway() override { return *mGateway; }

  private:
    QString Path() const { return mFolder.filePath(u"oracle.db"_s); }

    QTemporaryDir mFolder;
    std::unique_ptr<EmbeddedGateway> mGateway;
};

/// The tables on a live server. A mark among them tells that they are the oracle's own; without it nothing is
/// dropped.
class LiveOracle : public OracleDatabase {
  public:
    explicit LiveOracle(const QString& connection) {
        QMap<QString, QString> logon;
        for (const QString& part : connection.split(u';'))
            logon[part.section(u'=', 0, 0).trimmed().toUpper()] = part.section(u'=', 1);
        mGateway = std::make_unique<OdbcGateway>(logon[u"DSN"_s], logon[u"UID"_s], logon[u"PWD"_s]);
        mGateway->SetDefaultDatabase(kDatabase);
        mGateway->SetCommandTimeout(kTurn);
        // One test at a time: each makes the same tables. The turn ends with the connection.
        mGateway->ExecuteNoResult(u"EXEC sp_getapplock 'tarven_oracle', 'Exclusive', 'Session', -1"_s);
        mGateway->ExecuteNoResult(u"USE "_s + kDatabase);
        if (Exists(kMark))
            Drop();
        for (const QString& table : kTables) {
            if (Exists(table))
                throw std::runtime_error("the server has its own table " + table.toStdString());
        }
        mGateway->ExecuteNoResult(u"CREATE TABLE dbo.%1 (Made datetime NULL)"_s.arg(kMark));
        for (const Batch& batch : SplitBatches(kScript))
            mGateway->ExecuteNoResult(batch.text.toString());
    }
    ~LiveOracle() override {
        try {
            Drop();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
    }
    CommandGateway& Gateway() override { return *mGateway; }

  private:
    /// Seconds that a test waits for its turn.
    static constexpr int kTurn = 120;

    bool Exists(const QString& table) {
        return RowTexts(*mGateway, u"SELECT OBJECT_ID('dbo.%1')"_s.arg(table)) != QStringList{u"NULL"_s};
    }
    void Drop() {
        for (const QString& table : kTables) {
            if (Exists(table))
                mGateway->ExecuteNoResult(u"DROP TABLE dbo."_s + table);
        }
        mGateway->ExecuteNoResult(u"DROP TABLE dbo."_s + kMark);
    }

    inline static const QString kMark = u"oracle_made"_s;
    inline static const QStringList kTables = {u"oracle_columns"_s, u"oracle_keys"_s, u"oracle_left"_s,
                                               u"oracle_right"_s, u"oracle_numbers"_s};

    std::unique_ptr<CommandGateway> mGateway;
};

} // namespace

std::vector<OracleEngine> OracleEngines() {
    std::vector<OracleEngine> engines = {
        {"Embedded", [] { return std::make_unique<EmbeddedOracle>(); }},
    };
    const QString live = qEnvironmentVariable("TARVEN_TEST_SQLSERVER");
    if (!live.isEmpty())
        engines.push_back({"Live", [live] { return std::make_unique<LiveOracle>(live); }});
    return engines;
}
