#pragma once

#include "tsql/Convert.h"

class SqliteDatabase;
struct sqlite3_value;

/// Gives a database the hospital's collation and the functions that translated statements call. Their names
/// begin with "tv_".
void AddSqlFunctions(SqliteDatabase& database);

/// A value of SQLite's.
Cell ReadCell(sqlite3_value* value);
