#pragma once

#include "gateway/Value.h"

#include <QString>
#include <QStringView>

#include <optional>

/// A value as a literal of the server's language: quotes doubled, dates as 'yyyymmdd hh:mm:ss.fff', NULL.
/// Only for texts that the gateway or a report composes by itself; what a screen sends is never rewritten.
QString SqlLiteral(const Value& value);

/// A column's name in brackets.
QString SqlName(QStringView name);

/// The table behind a plain "select columns from table [where …]", as it is written there; nothing for a
/// procedure, a join, a grouping or any other text whose rows stand for no single row of a table.
std::optional<QString> BaseTableOf(QStringView command);
