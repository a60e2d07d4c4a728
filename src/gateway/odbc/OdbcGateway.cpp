#include "gateway/odbc/OdbcGateway.h"

#include "gateway/odbc/CommandCheck.h"
#include "gateway/odbc/OdbcError.h"
#include "gateway/odbc/OdbcRows.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

RunTimeError LostConnection() {
    return RunTimeError(kOdbcFailure, u"Communication link failure"_s, u"08S01"_s);
}

} // namespace

OdbcGateway::OdbcGateway(const QString& dataSource, const QString& user, const QString& password,
                         int loginTimeout)
    : mConnectionString(u"Provider=MSDASQL;DSN=%1;UID=%2"_s.arg(dataSource, user))
    , mConnection(SQL_HANDLE_DBC, SQL_HANDLE_ENV, mEnvironment.Get()) {
    mConnection.Check(SQLSetConnectAttrW(mConnection.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                                         OdbcNumber(qulonglong(loginTimeout)), 0));
    // User and password go as texts of their own: in a connection string some of their characters would have
    // a meaning.
    mConnection.Check(SQLConnectW(mConnection.Get(), OdbcText(dataSource), SQLSMALLINT(dataSource.size()),
                                  OdbcText(user), SQLSMALLINT(user.size()), OdbcText(password),
                                  SQLSMALLINT(password.size())));
}

OdbcGateway::~OdbcGateway() {
    SQLDisconnect(mConnection.Get());
}

void OdbcGateway::SetDefaultDatabase(const QString& name) {
    constexpr qsizetype kSize = sizeof(SQLWCHAR);
    mConnection.Check(SQLSetConnectAttrW(mConnection.Get(), SQL_ATTR_CURRENT_CATALOG, OdbcText(name),
                                         SQLINTEGER(name.size() * kSize)));
    CommandGateway::SetDefaultDatabase(name);
}

bool OdbcGateway::IsLost() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(
               SQLGetConnectAttrW(mConnection.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

CommandGateway::Outcome OdbcGateway::Run(const QString& command) {
    CheckForDrivers(command);
    const OdbcHandle statement(SQL_HANDLE_STMT, SQL_HANDLE_DBC, mConnection.Get());
    statement.Check(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT,
                                    OdbcNumber(qulonglong(CommandTimeout())), 0));
    // Only some drivers know this one; the others are why commands are checked.
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_NOSCAN, OdbcNumber(SQL_NOSCAN_ON), 0);
    try {
        const SQLRETURN result =
            SQLExecDirectW(statement.Get(), OdbcText(command), SQLINTEGER(command.size()));
        // This is how a command that touched no row is told.
        if (result != SQL_NO_DATA)
            statement.Check(result);
        const Outcome outcome = ReadAnswer(statement);
        // A driver may tell the loss by a message alone.
        if (IsLost())
            throw LostConnection();
        return outcome;
    } catch (const RunTimeError& error) {
        // What the driver says of a connection that broke under it may be no more than "Unknown error".
        if (error.State() == "HY000"_L1 && IsLost())
            throw LostConnection();
        throw;
    }
}

CommandGateway::Outcome OdbcGateway::ReadAnswer(const OdbcHandle& statement) const {
    Outcome outcome;
    SQLRETURN result = SQL_SUCCESS;
    while (result != SQL_NO_DATA) {
        SQLSMALLINT columns = 0;
        statement.Check(SQLNumResultCols(statement.Get(), &columns));
        SQLLEN touched = 0;
        if (columns == 0)
            statement.Check(SQLRowCount(statement.Get(), &touched));
        if (columns > 0 && !outcome.rows)
            outcome.rows = ReadOdbcRows(statement, columns);
        if (columns == 0 && touched >= 0)
            outcome.rowsAffected = touched;
        // The server's error may stand behind the rows.
        result = SQLMoreResults(statement.Get());
        if (result != SQL_NO_DATA)
            statement.Check(result);
    }
    return outcome;
}
