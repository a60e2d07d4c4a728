#pragma once

#include "tsql/Catalog.h"

#include <QString>

/// A name in double quotes, as SQLite reads it.
QString QuotedName(const QString& name);

/// The CREATE TABLE that makes a table in the hospital's file.
QString CreateTableText(const Table& table);

/// The CREATE INDEX for an index of the table; raises 207 for a column that the table has not.
QString CreateIndexText(const IndexDefinition& index, const Table& table);
