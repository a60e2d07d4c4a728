#pragma once

#include <QString>

// What a server is asked about itself. None of it writes, and none needs a right beyond those of whoever may sign
// on: a server shows everybody his own session, the database that he stands in, and of the objects there those
// with which he may do something. Catalogue names are written in small letters, as a database that heeds letter
// case has them, and nothing is asked that version 11 (2012) does not know.

/// The session's language, the order of its dates, its isolation, its login, and the server's clock with its
/// distance from universal time in minutes.
QString SessionQuestion();

/// What the user may do with the server as a whole.
QString ServerPermissionsQuestion();

// The next ones are about the database that the connection stands in: of others a server may show nothing.

/// Its collation, whether it and others use each other, whether it is read alone, its owner.
QString DatabaseQuestion();

/// Procedures with their parameters, a row for each, in their order.
QString ParametersQuestion();
/// Procedures with the columns of their first rows, or why the server cannot tell them.
QString AnswersQuestion();
/// Tables and views with their columns and types.
QString ColumnsQuestion();
/// What the user may do with each table, column and procedure, and whether he is a member of the second role.
QString PermissionsQuestion();
/// What the user may do with the database as a whole.
QString DatabasePermissionsQuestion();
