#pragma once

#include "trial/HospitalFile.h"
#include "tsql/SqlTree.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A stored procedure of the hospital as the engine reads it.
struct ProcedureTree {
    QString database;
    ProcedureDefinition definition;
    /// How each statement of the body begins, in its order and with what frames a transaction: "set
    /// xact_abort", "begin transaction", "if", "insert".
    QStringList steps;

    /// The name by which a command text calls it.
    QString FullName() const { return database + QStringLiteral("..") + definition.name.object; }
    bool Writes() const;
};

/// The procedures of the scripts.
std::vector<ProcedureTree> ProcedureTrees(const std::vector<Script>& scripts);
/// What one script creates, which sets its database first.
ProcedureTree ReadProcedure(const QString& script);

/// The key of the table that a statement writes; empty for one that writes none.
QString TableWritten(const Statement& statement);
/// The keys of the tables that the statement's queries read: a query that is inserted, a subquery, one in a
/// condition. The table that an UPDATE or a DELETE changes is not among them by itself.
QSet<QString> TablesRead(const Statement& statement);
/// Calls the function with each expression of the statement, the parts of each one included.
void VisitExpressions(const Statement& statement, const std::function<void(const Expression&)>& visit);

/// One key for each table, however its name is written.
QString TableKey(const QString& database, const QString& table);
