#include "tsql/Catalog.h"

#include "tsql/ServerError.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

QString ObjectKey(const ObjectName& name, const QString& currentDatabase) {
    if (!name.owner.isEmpty() && name.owner.compare("dbo"_L1, Qt::CaseInsensitive) != 0)
        return {};
    const QString& database = name.database.isEmpty() ? currentDatabase : name.database;
    return database.toCaseFolded() + u".."_s + name.object.toCaseFolded();
}

const ColumnDefinition* Table::Find(QStringView column) const {
    const auto& columns = definition.columns;
    const auto found = std::find_if(columns.begin(), columns.end(), [column](const ColumnDefinition& c) {
        return column.compare(c.name, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? nullptr : &*found;
}

QString Table::NameInFile() const {
    return definition.name.database + u".."_s + definition.name.object;
}

const Table& Catalog::AddTable(TableDefinition definition) {
    for (const KeyDefinition& key : definition.keys) {
        for (ColumnDefinition& column : definition.columns) {
            if (key.primary && key.columns.contains(column.name, Qt::CaseInsensitive))
                column.nullable = false;
        }
    }
    const QString key = ObjectKey(definition.name, definition.name.database);
    if (mTables.contains(key))
        throw ServerError(Fault::ObjectExists, {definition.name.object});
    mDatabases.insert(definition.name.database.toCaseFolded());
    return **mTables.insert(key, std::make_shared<const Table>(Table{std::move(definition)}));
}

void Catalog::SetProcedure(Procedure procedure) {
    const QString key = ObjectKey({{}, {}, procedure.name, {}}, procedure.database);
    mDatabases.insert(procedure.database.toCaseFolded());
    mProcedures.insert(key, std::make_shared<const Procedure>(std::move(procedure)));
}

const Table* Catalog::FindTable(const ObjectName& name, const QString& currentDatabase) const {
    return mTables.value(ObjectKey(name, currentDatabase)).get();
}

const Procedure* Catalog::FindProcedure(const ObjectName& name, const QString& currentDatabase) const {
    return mProcedures.value(ObjectKey(name, currentDatabase)).get();
}

bool Catalog::HasDatabase(const QString& name) const {
    return mDatabases.contains(name.toCaseFolded());
}
