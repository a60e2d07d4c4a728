#include "Benches.h"
#include "BenchTable.h"
#include "odbc/OdbcGateway.h"
#include "support/tds/TdsResponder.h"
#include "support/tds/TestDataSources.h"

#include <array>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kChecks = 3000;
constexpr int kColumns = 6;
const QString kPending = u"RADIOLOGY..spRadio_CheckPending 'HC'"_s;

constexpr int kMostRows = 10000;

/// As a report has them: slips of five lines, each slip with a patient of its own.
std::vector<std::vector<Value>> ChargeRows() {
    constexpr int kLinesOfASlip = 5;
    const DateTime moment = *DateTime::FromFields({2026, 11, 21, 10, 30, 15, 0});
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < kMostRows; ++i) {
        const QString slip = QString::number(100000 + i / kLinesOfASlip);
        rows.push_back({slip, u'H' + slip + u'C', u"DE GUZMAN, CARMELITA PEÑA "_s + slip, moment,
                        Decimal{QString::number(100 + i) + u".5000"_s}, i});
    }
    return rows;
}

void AnswerCharges(TdsAnswer& answer, const std::vector<std::vector<Value>>& rows, int count) {
    answer.Columns({{.name = u"HospNum"_s, .type = TdsType::VarChar},
                    {.name = u"RefNum"_s, .type = TdsType::VarChar},
                    {.name = u"Patient"_s, .type = TdsType::NVarChar},
                    {.name = u"Moment"_s, .type = TdsType::DateTime},
                    {.name = u"Amount"_s, .type = TdsType::Money},
                    {.name = u"Number"_s, .type = TdsType::Int}});
    for (int i = 0; i < count; ++i)
        answer.Row(rows[size_t(i)]);
    answer.Done(count);
}

TdsResponder::Handler AnswerByNumber() {
    return [rows = ChargeRows()](const QString& batch, TdsAnswer& answer) {
        if (batch == kPending) {
            answer.Columns({{.name = u"Pending"_s, .type = TdsType::Int}});
            answer.Row({0});
            answer.Done(1);
            return;
        }
        AnswerCharges(answer, rows, batch.toInt());
    };
}

/// The same calls as the gateway's, with every cell read into one buffer and forgotten.
class BareOdbc {
  public:
    explicit BareOdbc(const QString& source)
        : mConnection(SQL_HANDLE_DBC, SQL_HANDLE_ENV, mEnvironment.Get()) {
        const QString user = u"u"_s;
        mConnection.Check(SQLConnectW(mConnection.Get(), OdbcText(source), SQLSMALLINT(source.size()),
                                      OdbcText(user), 1, OdbcText(user), 1));
    }
    BareOdbc(const BareOdbc&) = delete;
    BareOdbc& operator=(const BareOdbc&) = delete;
    ~BareOdbc() { SQLDisconnect(mConnection.Get()); }

    void Read(const QString& command) const {
        static constexpr std::array<SQLSMALLINT, kColumns> kTypes = {
            SQL_C_WCHAR, SQL_C_WCHAR, SQL_C_WCHAR, SQL_C_TYPE_TIMESTAMP, SQL_C_WCHAR, SQL_C_SBIGINT};
        const OdbcHandle statement(SQL_HANDLE_STMT, SQL_HANDLE_DBC, mConnection.Get());
        SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, OdbcNumber(30), 0);
        statement.Check(SQLExecDirectW(statement.Get(), OdbcText(command), SQLINTEGER(command.size())));
        SQLSMALLINT columns = 0;
        statement.Check(SQLNumResultCols(statement.Get(), &columns));
        std::array<char16_t, 256> cell{};
        SQLLEN size = 0;
        for (SQLSMALLINT i = 0; i < columns; ++i) {
            SQLSMALLINT length = 0;
            SQLSMALLINT type = 0;
            SQLULEN width = 0;
            SQLSMALLINT digits = 0;
            SQLSMALLINT nullable = 0;
            SQLDescribeColW(statement.Get(), SQLUSMALLINT(i + 1), reinterpret_cast<SQLWCHAR*>(cell.data()),
                            SQLSMALLINT(cell.size()), &length, &type, &width, &digits, &nullable);
        }
        SQLRETURN outcome = SQL_SUCCESS;
        while ((outcome = SQLFetch(statement.Get())) != SQL_NO_DATA) {
            statement.Check(outcome);
            for (SQLSMALLINT i = 0; i < columns; ++i)
                statement.Check(SQLGetData(statement.Get(), SQLUSMALLINT(i + 1), kTypes.at(size_t(i)),
                                           cell.data(), sizeof cell, &size));
        }
        while ((outcome = SQLMoreResults(statement.Get())) != SQL_NO_DATA)
            statement.Check(outcome);
    }

  private:
    OdbcEnvironment mEnvironment;
    OdbcHandle mConnection;
};

/// Which core wakes for the server's answer changes from moment to moment, so a turn is short and there are
/// many.
void Compare(BenchTable& table, const QString& what, int times, const std::function<void()>& ours,
             const std::function<void()>& bare) {
    const auto timed = [times](const std::function<void()>& once) -> TimedRun {
        return [times, &once] {
            return Milliseconds([&] {
                for (int i = 0; i < times; ++i)
                    once();
            });
        };
    };
    constexpr TurnLimits kManyShortTurns{.fewest = 51, .most = 2001};
    constexpr double kPromised = 1.15;
    table.Add(what, InTurns(timed(ours), timed(bare), kManyShortTurns), u"ms"_s, kPromised);
}

} // namespace

void BenchOdbc(BenchTable& table) {
    TdsResponder server(AnswerByNumber);
    const QString source = TestDataSources::Instance().Add(server.Port());
    OdbcGateway gateway(source, u"u"_s, u"p"_s);
    const BareOdbc bare(source);
    Compare(
        table, u"ten commands of one row through the driver, against bare ODBC calls"_s, 10,
        [&] { gateway.Execute(u"1"_s); }, [&] { bare.Read(u"1"_s); });
    Compare(
        table, u"10,000 rows through the driver, against bare ODBC calls"_s, 1,
        [&] { gateway.Execute(QString::number(kMostRows)); }, [&] { bare.Read(QString::number(kMostRows)); });
    // The check of the wards' requests comes every 250 ms.
    constexpr double kHundredthOfItsInterval = 2.5;
    table.AddLimit(u"one check of the wards' requests through the driver"_s,
                   MedianMilliseconds(kChecks, [&] { gateway.Execute(kPending); }), kHundredthOfItsInterval,
                   u"ms"_s);
}
