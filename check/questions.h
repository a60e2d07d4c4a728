#pragma once

#include <QString>

// What a server is asked about itself. None of it writes, and none needs a right beyond those of whoever may sign
// on.

/// The session's language, the order of its dates, its isolation, and the server's clock with its distance from
/// universal time in minutes.
QString SessionQuestion();

/// Of each database that the user sees: name, collation, state, chaining, whether it is written to, owner.
QString DatabasesQuestion();

// The next ones are about the database that the connection stands in.

/// Procedures with their parameters, a row for each, in their order.
QString ParametersQuestion();
/// Procedures with the columns of their first rows, or why the server cannot tell them.
QString AnswersQuestion();
/// Tables and views with their columns and types.
QString ColumnsQuestion();
/// What the user may do with each table, column and procedure, and whether he is a member of the second role.
QString PermissionsQuestion();
