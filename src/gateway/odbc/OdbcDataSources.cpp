#include "gateway/odbc/OdbcDataSources.h"

#include "gateway/odbc/OdbcHandle.h"

#include <array>
#include <sql.h>
#include <sqlext.h>

QStringList OdbcDataSources() {
    const OdbcEnvironment environment;
    std::array<SQLCHAR, 512> name{};
    std::array<SQLCHAR, 512> description{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT descriptionLength = 0;
    const auto next = [&](SQLUSMALLINT direction) {
        return SQLDataSources(environment.Get(), direction, name.data(), SQLSMALLINT(name.size()),
                              &nameLength, description.data(), SQLSMALLINT(description.size()),
                              &descriptionLength);
    };
    QStringList names;
    SQLRETURN result = next(SQL_FETCH_FIRST);
    for (; result != SQL_NO_DATA; result = next(SQL_FETCH_NEXT)) {
        environment.Check(result);
        names.append(QString::fromUtf8(reinterpret_cast<const char*>(name.data())));
    }
    names.removeDuplicates();
    names.sort();
    return names;
}
