#include "odbc/OdbcHandle.h"

#include "odbc/OdbcError.h"

#include <sql.h>
#include <sqlext.h>

namespace {

SQLHANDLE Allocate(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent) {
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle)))
        throw OdbcErrorOf(parentKind, parent);
    return handle;
}

} // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent)
    : mKind(kind)
    , mHandle(Allocate(kind, parentKind, parent)) {}

OdbcHandle::~OdbcHandle() {
    SQLFreeHandle(mKind, mHandle);
}

void OdbcHandle::Check(SQLRETURN result) const {
    if (!SQL_SUCCEEDED(result))
        throw OdbcErrorOf(mKind, mHandle);
}

OdbcEnvironment::OdbcEnvironment()
    : OdbcHandle(SQL_HANDLE_ENV, SQL_HANDLE_ENV, nullptr) {
    Check(SQLSetEnvAttr(Get(), SQL_ATTR_ODBC_VERSION, OdbcNumber(SQL_OV_ODBC3), 0));
}

SQLWCHAR* OdbcText(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<ushort*>(text.utf16()));
}

SQLPOINTER OdbcNumber(qulonglong number) {
    // The interface has it so.
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr)
}
