#pragma once

#include "tsql/SqlTree.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <memory>

/// A table of the hospital as the translation of a statement needs it.
struct Table {
    TableDefinition definition;

    /// The column of that name, letter case aside; null where there is none.
    const ColumnDefinition* Find(QStringView column) const;
    /// The table's name in the hospital's file. It carries the database, so that databases cannot collide.
    QString NameInFile() const;
};

/// A stored procedure as its script has it.
struct Procedure {
    QString database;
    QString name;
    /// The CREATE PROCEDURE text.
    QString text;
};

/// What the hospital's databases hold. Names are found without regard to letter case.
class Catalog {
  public:
    /// Raises 2714 for a table that is there already.
    const Table& AddTable(TableDefinition definition);
    /// Puts a procedure in, in place of one with the same name.
    void SetProcedure(Procedure procedure);

    /// The table that a name means in a text that runs in that database; null where there is none.
    const Table* FindTable(const ObjectName& name, const QString& currentDatabase) const;
    const Procedure* FindProcedure(const ObjectName& name, const QString& currentDatabase) const;
    /// Whether there is a database of that name. One is there as soon as it holds a table or a procedure.
    bool HasDatabase(const QString& name) const;

  private:
    QHash<QString, std::shared_ptr<const Table>> mTables;
    QHash<QString, std::shared_ptr<const Procedure>> mProcedures;
    /// Folded to one letter case.
    QSet<QString> mDatabases;
};

/// One key for each object, however its name is written; empty for a name with another owner than dbo, which
/// nothing in the hospital has.
QString ObjectKey(const ObjectName& name, const QString& currentDatabase);
