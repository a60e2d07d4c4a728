#include "trial/sqlite/FileSchema.h"

#include "tsql/ServerError.h"

using namespace Qt::StringLiterals;

namespace {

/// Only the affinity matters to SQLite; the declared types stand in the catalog.
QString StoredType(const ColumnDefinition& column) {
    if (column.identity)
        return u"INTEGER"_s;
    // "INTEGER" would make a key column SQLite's row number, which takes no part in NOT NULL.
    if (column.type.IsWhole() || (column.type.IsFixed() && !column.type.IsWide()))
        return u"INT"_s;
    if (column.type.kind == SqlType::Kind::Float)
        return u"REAL"_s;
    return column.type.IsText() ? u"TEXT COLLATE "_s + CollationName() : u"TEXT"_s;
}

QString ColumnText(const ColumnDefinition& column) {
    QString text = QuotedName(column.name) + u' ' + StoredType(column);
    if (column.identity)
        text += u" PRIMARY KEY AUTOINCREMENT"_s;
    if (!column.nullable)
        text += u" NOT NULL"_s;
    return text;
}

constexpr QStringView kNullKey = u" (NULL)";

QString NameInFile(const IndexDefinition& index, const Table& table) {
    return table.NameInFile() + u'.' + index.name;
}

const ColumnDefinition& Existing(const Table& table, const QString& column) {
    const ColumnDefinition* found = table.Find(column);
    if (!found)
        throw ServerError(Fault::InvalidColumn, {column});
    return *found;
}

} // namespace

QString QuotedName(const QString& name) {
    QString doubled = name;
    return u'"' + doubled.replace(u"\""_s, u"\"\""_s) + u'"';
}

QString CreateTableText(const Table& table) {
    QStringList parts;
    for (const ColumnDefinition& column : table.definition.columns)
        parts << ColumnText(column);
    for (const KeyDefinition& key : table.definition.keys) {
        QStringList names;
        bool identity = false;
        for (const QString& name : key.columns) {
            const ColumnDefinition& column = Existing(table, name);
            identity |= column.identity;
            names << QuotedName(column.name);
        }
        if (key.primary && identity)
            continue;
        parts << (key.primary ? u"PRIMARY KEY ("_s : u"UNIQUE ("_s) + names.join(u", "_s) + u')';
    }
    return u"CREATE TABLE "_s + QuotedName(table.NameInFile()) + u" ("_s + parts.join(u", "_s) + u')';
}

QString CreateIndexText(const IndexDefinition& index, const Table& table) {
    QStringList columns;
    for (const IndexedColumn& column : index.columns)
        columns << QuotedName(Existing(table, column.name).name) +
                       (column.descending ? u" DESC"_s : QString());
    return (index.unique ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s) +
           QuotedName(NameInFile(index, table)) + u" ON "_s + QuotedName(table.NameInFile()) + u" ("_s +
           columns.join(u", "_s) + u')';
}

QString NullKeyText(const IndexDefinition& index, const Table& table) {
    QStringList keys;
    QStringList nulls;
    for (const IndexedColumn& indexed : index.columns) {
        const ColumnDefinition& column = Existing(table, indexed.name);
        const QString name = QuotedName(column.name);
        const QString collation = column.type.IsText() ? u" COLLATE "_s + CollationName() : QString();
        if (!column.nullable) {
            keys << name;
            continue;
        }
        keys << u"ifnull("_s + name + u", 0)"_s + collation << name + u" IS NULL"_s;
        nulls << name + u" IS NULL"_s;
    }
    if (!index.unique || nulls.isEmpty())
        return {};
    return u"CREATE UNIQUE INDEX "_s + QuotedName(NameInFile(index, table) + kNullKey.toString()) +
           u" ON "_s + QuotedName(table.NameInFile()) + u" ("_s + keys.join(u", "_s) + u") WHERE "_s +
           nulls.join(u" OR "_s);
}

QString IndexName(const QString& nameInFile, const QString& tableInFile) {
    const QString name = nameInFile.sliced(tableInFile.size() + 1);
    return name.endsWith(kNullKey) ? name.chopped(kNullKey.size()) : name;
}
