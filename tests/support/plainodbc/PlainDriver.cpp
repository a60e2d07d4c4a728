#include <algorithm>
#include <array>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
#include <string>
#include <string_view>

// An ODBC driver of the tests' own that reaches no server: it refuses every command, and the text of its
// error is the command as a server would have got it. Braces are escapes to it and are taken out, unless it
// was told not to look for them. On a data source whose name begins with "Deaf" it cannot be told; on one
// that begins with "Adding" it cannot be told either, and puts a remark behind every command.

namespace {

using Text = std::u16string;

struct Connection {
    bool deaf = false;
    bool adding = false;
};

struct Statement {
    explicit Statement(Connection* parent)
        : connection(parent) {}

    Connection* connection;
    bool noscan = false;
    Text refused;
    /// The descriptors that the driver manager asks for and hands back.
    std::array<char, 4> descriptors{};
};

Text TextOf(const SQLWCHAR* text, SQLINTEGER length) {
    const auto* letters = reinterpret_cast<const char16_t*>(text);
    return length == SQL_NTS ? Text(letters) : Text(letters, size_t(length));
}

Text WithoutBraces(Text command) {
    std::erase(command, u'{');
    std::erase(command, u'}');
    return command;
}

/// Writes a text with its zero into a buffer of so many characters; answers the text's length.
int Write(std::u16string_view text, SQLWCHAR* buffer, int size) {
    const size_t length = size > 0 ? std::min(text.size(), size_t(size) - 1) : 0;
    if (buffer && size > 0)
        *std::copy_n(text.begin(), length, reinterpret_cast<char16_t*>(buffer)) = 0;
    return int(text.size());
}

} // namespace

extern "C" {

SQLRETURN SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* handle) {
    if (kind == SQL_HANDLE_ENV)
        *handle = new int;
    else if (kind == SQL_HANDLE_DBC)
        *handle = new Connection;
    else
        *handle = new Statement(static_cast<Connection*>(parent));
    return SQL_SUCCESS;
}

SQLRETURN SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
    if (kind == SQL_HANDLE_ENV)
        delete static_cast<int*>(handle);
    else if (kind == SQL_HANDLE_DBC)
        delete static_cast<Connection*>(handle);
    else
        delete static_cast<Statement*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
    return SQL_SUCCESS;
}

SQLRETURN SQLSetConnectAttrW(SQLHDBC, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
    return SQL_SUCCESS;
}

SQLRETURN SQLGetConnectAttrW(SQLHDBC, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
    *static_cast<SQLUINTEGER*>(value) = 0;
    return SQL_SUCCESS;
}

SQLRETURN SQLConnectW(SQLHDBC connection, SQLWCHAR* name, SQLSMALLINT length, SQLWCHAR*, SQLSMALLINT,
                      SQLWCHAR*, SQLSMALLINT) {
    auto& opened = *static_cast<Connection*>(connection);
    opened.adding = TextOf(name, length).starts_with(u"Adding");
    opened.deaf = opened.adding || TextOf(name, length).starts_with(u"Deaf");
    return SQL_SUCCESS;
}

SQLRETURN SQLDisconnect(SQLHDBC) {
    return SQL_SUCCESS;
}

SQLRETURN SQLGetInfoW(SQLHDBC, SQLUSMALLINT kind, SQLPOINTER value, SQLSMALLINT size, SQLSMALLINT* length) {
    const std::u16string_view text = kind == SQL_DRIVER_NAME ? u"libplainodbc.so" : u"03.00";
    const int letters = Write(text, static_cast<SQLWCHAR*>(value), size / int(sizeof(SQLWCHAR)));
    if (length)
        *length = SQLSMALLINT(letters * int(sizeof(SQLWCHAR)));
    return SQL_SUCCESS;
}

SQLRETURN SQLSetStmtAttrW(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    auto& told = *static_cast<Statement*>(statement);
    if (attribute == SQL_ATTR_NOSCAN && told.connection->deaf)
        return SQL_ERROR;
    if (attribute == SQL_ATTR_NOSCAN)
        told.noscan = reinterpret_cast<SQLULEN>(value) == SQL_NOSCAN_ON;
    return SQL_SUCCESS;
}

SQLRETURN SQLGetStmtAttrW(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER,
                          SQLINTEGER*) {
    auto& asked = *static_cast<Statement*>(statement);
    if (attribute >= SQL_ATTR_APP_ROW_DESC && attribute <= SQL_ATTR_IMP_PARAM_DESC)
        *static_cast<SQLHANDLE*>(value) = &asked.descriptors[size_t(attribute - SQL_ATTR_APP_ROW_DESC)];
    return SQL_SUCCESS;
}

SQLRETURN SQLNativeSqlW(SQLHDBC connection, SQLWCHAR* command, SQLINTEGER length, SQLWCHAR* sent,
                        SQLINTEGER size, SQLINTEGER* sentLength) {
    Text whole = WithoutBraces(TextOf(command, length));
    if (static_cast<Connection*>(connection)->adding)
        whole += u" --";
    *sentLength = Write(whole, sent, size);
    return SQL_SUCCESS;
}

SQLRETURN SQLExecDirectW(SQLHSTMT statement, SQLWCHAR* command, SQLINTEGER length) {
    auto& run = *static_cast<Statement*>(statement);
    const Text whole = TextOf(command, length);
    run.refused = run.noscan ? whole : WithoutBraces(whole);
    return SQL_ERROR;
}

SQLRETURN SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state,
                         SQLINTEGER* number, SQLWCHAR* text, SQLSMALLINT size, SQLSMALLINT* length) {
    if (kind != SQL_HANDLE_STMT || record != 1)
        return SQL_NO_DATA;
    Write(u"42000", state, SQL_SQLSTATE_SIZE + 1);
    *number = 102;
    *length = SQLSMALLINT(Write(static_cast<Statement*>(handle)->refused, text, size));
    return SQL_SUCCESS;
}

/// The driver manager wants it to be there, and does without what it answers.
SQLRETURN SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER, SQLSMALLINT,
                           SQLSMALLINT*) {
    return SQL_ERROR;
}

} // extern "C"
