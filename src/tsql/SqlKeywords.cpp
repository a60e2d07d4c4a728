#include "tsql/SqlKeywords.h"

#include <QList>

#include <algorithm>

namespace {

// In alphabetical order.
constexpr const char16_t* kKeywords =
    u"add all alter and any as asc authorization backup begin between break browse bulk by "
    u"cascade case check checkpoint close clustered coalesce collate column commit compute "
    u"constraint contains containstable continue convert create cross current current_date "
    u"current_time current_timestamp current_user cursor database dbcc deallocate declare "
    u"default delete deny desc disk distinct distributed double drop dump else end errlvl "
    u"escape except exec execute exists exit external fetch file fillfactor for foreign "
    u"freetext freetexttable from full function goto grant group having holdlock identity "
    u"identity_insert identitycol if in index inner insert intersect into is join key kill "
    u"left like lineno load merge national nocheck nonclustered not null nullif of off "
    u"offsets on open opendatasource openquery openrowset openxml option or order outer over "
    u"percent pivot plan precision primary print proc procedure public raiserror read "
    u"readtext reconfigure references replication restore restrict return revert revoke right "
    u"rollback rowcount rowguidcol rule save schema securityaudit select session_user set "
    u"setuser shutdown some statistics system_user table tablesample textsize then to top "
    u"tran transaction trigger truncate try_convert tsequal union unique unpivot update "
    u"updatetext use user values varying view waitfor when where while with writetext";

} // namespace

bool IsSqlKeyword(QStringView word) {
    static const QList<QStringView> kSorted = QStringView(kKeywords).split(u' ');
    const auto found =
        std::lower_bound(kSorted.begin(), kSorted.end(), word, [](QStringView keyword, QStringView sought) {
            return keyword.compare(sought, Qt::CaseInsensitive) < 0;
        });
    return found != kSorted.end() && word.compare(*found, Qt::CaseInsensitive) == 0;
}
