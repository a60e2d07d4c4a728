#include "trial/translate/RowMove.h"

#include "trial/sqlite/FileSchema.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString NewValue(const UpdateParts& update, const ColumnDefinition& column) {
    const auto assigned = std::find_if(update.assigned.begin(), update.assigned.end(),
                                       [&](const auto& pair) { return pair.first == &column; });
    return assigned != update.assigned.end() ? assigned->second
                                             : update.alias + u'.' + QuotedName(column.name);
}

} // namespace

RowMove MoveOf(const UpdateParts& update) {
    QStringList values = {update.alias + u".rowid"_s};
    QStringList names;
    QStringList places;
    bool identity = false;
    for (const ColumnDefinition& column : update.table->definition.columns) {
        identity |= column.identity;
        values << NewValue(update, column);
        names << QuotedName(column.name);
        places << u'?' + QString::number(values.size());
    }
    // An identity column is the row's number.
    if (!identity) {
        names << u"rowid"_s;
        places << u"?1"_s;
    }
    const QString table = QuotedName(update.table->NameInFile());
    return {u"SELECT "_s + values.join(u", "_s) + u" FROM "_s + table + u" AS "_s + update.alias +
                update.where,
            u"DELETE FROM "_s + table + u" WHERE rowid = ?1"_s,
            u"INSERT INTO "_s + table + u" ("_s + names.join(u", "_s) + u") VALUES ("_s +
                places.join(u", "_s) + u')'};
}
