#include "check/Grants.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

void GrantTo(QMap<NamedRight, QStringList>& rights, const QRegularExpressionMatch& grant,
             const QString& database) {
    const QString object = (database + u'.' + grant.captured(2)).toLower();
    for (const QString& verb : grant.captured(1).split(u", "_s)) {
        if (!grant.hasCaptured(3))
            rights.insert(verb + u' ' + object, {});
        for (const QString& column : grant.captured(3).toLower().split(u", "_s, Qt::SkipEmptyParts))
            rights.insert(u"%1 %2 (%3)"_s.arg(verb, object, column), {});
    }
}

} // namespace

RoleRights ReadGrants(const QString& script, QStringList& problems) {
    static const QRegularExpression use(u"^USE (\\w+);$"_s);
    static const QRegularExpression grant(
        u"^GRANT ((?:EXECUTE|SELECT|INSERT|UPDATE|DELETE)(?:, (?:SELECT|INSERT|UPDATE|DELETE))*)"
        " ON dbo\\.(\\w+)(?: \\((\\w+(?:, \\w+)*)\\))? TO (tarven_hemodialysis(?:_standby)?);$"_s);
    RoleRights rights;
    QString database;
    for (const QString& line : script.split(u'\n')) {
        if (line.isEmpty() || line == u"GO"_s || line.startsWith(u"--"_s))
            continue;
        if (const auto found = use.match(line); found.hasMatch())
            database = found.captured(1);
        else if (const auto granted = grant.match(line); granted.hasMatch())
            GrantTo(granted.captured(4).endsWith(u"_standby"_s) ? rights.standby : rights.workstation,
                    granted, database);
        else
            problems << u"this grants nothing that is known here: "_s + line;
    }
    return rights;
}
