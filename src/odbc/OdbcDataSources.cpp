#include "odbc/OdbcDataSources.h"

#include "odbc/OdbcHandle.h"

#include <algorithm>
#include <array>
#include <sql.h>
#include <sqlext.h>

using namespace Qt::StringLiterals;

namespace {

bool CanBeOpened(const QString& name) {
    if (name.size() > SQL_MAX_DSN_LENGTH)
        return false;
    return std::all_of(name.begin(), name.end(), [](QChar c) { return c.unicode() < 0x80; });
}

bool IsOfTheDriverManager(const QString& name) {
    return name.compare("ODBC"_L1, Qt::CaseInsensitive) == 0 ||
           name.compare("Default"_L1, Qt::CaseInsensitive) == 0;
}

} // namespace

QStringList OdbcDataSources() {
    const OdbcEnvironment environment;
    std::array<SQLWCHAR, 512> name{};
    std::array<SQLWCHAR, 512> description{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT descriptionLength = 0;
    const auto next = [&](SQLUSMALLINT direction) {
        return SQLDataSourcesW(environment.Get(), direction, name.data(), SQLSMALLINT(name.size()),
                               &nameLength, description.data(), SQLSMALLINT(description.size()),
                               &descriptionLength);
    };
    QStringList names;
    SQLRETURN result = next(SQL_FETCH_FIRST);
    for (; result != SQL_NO_DATA; result = next(SQL_FETCH_NEXT)) {
        environment.Check(result);
        const QString found = QString::fromUtf16(reinterpret_cast<const char16_t*>(name.data()));
        if (CanBeOpened(found) && !IsOfTheDriverManager(found))
            names.append(found);
    }
    names.removeDuplicates();
    names.sort();
    return names;
}
