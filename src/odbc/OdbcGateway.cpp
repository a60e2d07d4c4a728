#include "odbc/OdbcGateway.h"

#include "gateway/Boundary.h"
#include "odbc/OdbcError.h"
#include "odbc/OdbcRows.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

RunTimeError LostConnection() {
    return RunTimeError(kOdbcFailure, u"Communication link failure"_s, u"08S01"_s);
}

RunTimeError Cancelled() {
    return RunTimeError(kOdbcCancelled, u"Operation was canceled."_s, u"HY008"_s);
}

/// Raises the server's own error for a text that it cannot read.
[[noreturn]] void Refuse(QChar c) {
    constexpr int kIncorrectSyntax = 102;
    const QChar shown = c.isNull() || c.isSurrogate() ? QChar(QChar::ReplacementCharacter) : c;
    throw RunTimeError(kIncorrectSyntax, u"Incorrect syntax near '%1'."_s.arg(shown), u"42000"_s);
}

/// What the driver knows of itself and of its server since the logon; empty where it does not tell.
QString InfoOf(const OdbcHandle& connection, SQLUSMALLINT what) {
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection.Get(), what, text.data(), SQLSMALLINT(sizeof text), &length)))
        return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
}

/// Whether the driver is one that takes SQL_ATTR_NOSCAN and looks for escapes in commands all the same.
bool IgnoresNoscan(const OdbcHandle& connection) {
    const QString name = InfoOf(connection, SQL_DRIVER_NAME);
    return name.isEmpty() || name.contains("tdsodbc"_L1, Qt::CaseInsensitive);
}

} // namespace

/// The statement of one command, shown to Cancel while the command runs.
class OdbcGateway::Running {
  public:
    Running(OdbcGateway& gateway, const OdbcHandle& statement)
        : mGateway(gateway) {
        const std::lock_guard lock(mGateway.mMutex);
        mGateway.mRunning = &statement;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        {
            const std::lock_guard lock(mGateway.mMutex);
            mGateway.mRunning = nullptr;
        }
        mGateway.mEnded.notify_all();
    }

  private:
    OdbcGateway& mGateway;
};

OdbcGateway::OdbcGateway(const QString& dataSource, const QString& user, const QString& password,
                         int loginTimeout) try
    : mConnectionString(u"Provider=MSDASQL;DSN=%1;UID=%2"_s.arg(dataSource, user))
    , mConnection(SQL_HANDLE_DBC, SQL_HANDLE_ENV, mEnvironment.Get()) {
    mConnection.Check(SQLSetConnectAttrW(mConnection.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                                         OdbcNumber(qulonglong(loginTimeout)), 0));
    // User and password go as texts of their own: in a connection string some of their characters would have
    // a meaning.
    mConnection.Check(SQLConnectW(mConnection.Get(), OdbcText(dataSource), SQLSMALLINT(dataSource.size()),
                                  OdbcText(user), SQLSMALLINT(user.size()), OdbcText(password),
                                  SQLSMALLINT(password.size())));
    mIgnoresNoscan = IgnoresNoscan(mConnection);
    mServerVersion =
        u"%1 %2"_s.arg(InfoOf(mConnection, SQL_DBMS_NAME), InfoOf(mConnection, SQL_DBMS_VER)).trimmed();
    mDriverVersion =
        u"%1 %2"_s.arg(InfoOf(mConnection, SQL_DRIVER_NAME), InfoOf(mConnection, SQL_DRIVER_VER)).trimmed();
} catch (...) {
    throw FailureInHand();
}

OdbcGateway::~OdbcGateway() {
    SQLDisconnect(mConnection.Get());
}

void OdbcGateway::SetDefaultDatabase(const QString& name) {
    // The driver's own attribute for it knows no timeout, and a silent server would hold the program for
    // ever.
    QString bracketed = name;
    bracketed.replace(u']', u"]]"_s);
    Run(u"USE ["_s + bracketed + u']');
    CommandGateway::SetDefaultDatabase(name);
}

void OdbcGateway::Cancel() {
    mCancelled = true;
    // A driver that is told while its own thread is at work between two looks at the network may leave that
    // thread waiting for ever, so it is told only where it stands still: it waits for the server then. One
    // that is at work comes to the next step by itself and ends there. What is told just before the driver
    // sends the command is lost on it, so it is told again.
    constexpr int kTries = 5;
    constexpr std::chrono::milliseconds kStill(40);
    std::unique_lock lock(mMutex);
    for (int i = 0; i < kTries && mRunning; ++i) {
        const unsigned step = mSteps;
        mEnded.wait_for(lock, kStill);
        if (mRunning && step == mSteps)
            SQLCancel(mRunning->Get());
    }
    mEnded.wait_for(lock, kStill, [this] { return !mRunning; });
}

void OdbcGateway::Step() {
    if (mCancelled)
        throw Cancelled();
    ++mSteps;
}

bool OdbcGateway::IsLost() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(
               SQLGetConnectAttrW(mConnection.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

CommandGateway::Outcome OdbcGateway::Run(const QString& command) {
    return WithinBoundary([&] { return RunCommand(command); });
}

CommandGateway::Outcome OdbcGateway::RunCommand(const QString& command) {
    const OdbcHandle statement(SQL_HANDLE_STMT, SQL_HANDLE_DBC, mConnection.Get());
    statement.Check(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT,
                                    OdbcNumber(qulonglong(CommandTimeout())), 0));
    const SQLRETURN noscan = SQLSetStmtAttrW(statement.Get(), SQL_ATTR_NOSCAN, OdbcNumber(SQL_NOSCAN_ON), 0);
    if (noscan != SQL_SUCCESS || mIgnoresNoscan)
        RefuseWhatIsAltered(command);
    const Running running(*this, statement);
    try {
        Outcome outcome = RunStatement(statement, command);
        // A driver may tell the end of the rows where the cancellation cut them off.
        if (mCancelled)
            throw Cancelled();
        return outcome;
    } catch (const RunTimeError& error) {
        if (mCancelled)
            throw Cancelled();
        // What the driver says of a connection that broke under it may be no more than "Unknown error".
        if (error.State() == "HY000"_L1 && IsLost())
            throw LostConnection();
        throw;
    }
}

void OdbcGateway::RefuseWhatIsAltered(const QString& command) const {
    std::vector<SQLWCHAR> sent(size_t(command.size()) + 1);
    SQLINTEGER length = 0;
    // A driver that does not tell sends its commands unread.
    if (!SQL_SUCCEEDED(SQLNativeSqlW(mConnection.Get(), OdbcText(command), SQLINTEGER(command.size()),
                                     sent.data(), SQLINTEGER(sent.size()), &length)))
        return;
    const QStringView altered(reinterpret_cast<const char16_t*>(sent.data()),
                              std::min(qsizetype(length), command.size()));
    const auto [kept, other] = std::mismatch(command.begin(), command.end(), altered.begin(), altered.end());
    if (kept != command.end())
        Refuse(*kept);
    if (length != command.size())
        Refuse(command.isEmpty() ? QChar() : command.back());
}

CommandGateway::Outcome OdbcGateway::RunStatement(const OdbcHandle& statement, const QString& command) {
    Step();
    const SQLRETURN result = SQLExecDirectW(statement.Get(), OdbcText(command), SQLINTEGER(command.size()));
    // This is how a command that touched no row is told.
    if (result != SQL_NO_DATA)
        statement.Check(result);
    Outcome outcome = ReadAnswer(statement);
    // A driver may tell the loss by a message alone.
    if (IsLost())
        throw LostConnection();
    return outcome;
}

CommandGateway::Outcome OdbcGateway::ReadAnswer(const OdbcHandle& statement) {
    Outcome outcome;
    SQLRETURN result = SQL_SUCCESS;
    while (result != SQL_NO_DATA) {
        SQLSMALLINT columns = 0;
        statement.Check(SQLNumResultCols(statement.Get(), &columns));
        SQLLEN touched = 0;
        if (columns == 0)
            statement.Check(SQLRowCount(statement.Get(), &touched));
        if (columns > 0 && !outcome.rows)
            outcome.rows = ReadOdbcRows(statement, columns, [this] { Step(); });
        if (columns == 0 && touched >= 0)
            outcome.rowsAffected = touched;
        Step();
        // The server's error may stand behind the rows.
        result = SQLMoreResults(statement.Get());
        if (result != SQL_NO_DATA)
            statement.Check(result);
    }
    return outcome;
}
