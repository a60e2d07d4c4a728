#pragma once

#include "tsql/Catalog.h"

#include <QString>

/// A name in double quotes, as SQLite reads it.
QString QuotedName(const QString& name);

/// The CREATE TABLE that makes a table in the hospital's file.
QString CreateTableText(const Table& table);

/// The CREATE INDEX for an index of the table; raises 207 for a column that the table has not.
QString CreateIndexText(const IndexDefinition& index, const Table& table);

/// The index that holds the rows with a Null in a unique index apart, for SQLite lets them be equal; empty
/// where the index is not unique or no column of it may be Null.
QString NullKeyText(const IndexDefinition& index, const Table& table);

/// The server's name of an index of the table, out of the one that it has in the hospital's file.
QString IndexName(const QString& nameInFile, const QString& tableInFile);
