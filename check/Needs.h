#pragma once

#include "check/Grants.h"
#include "trial/HospitalFile.h"
#include "tsql/SqlTree.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

/// What of two types must agree, so that what the program reads and writes stays what it is.
enum class TypeFamily { Text, Whole, Fixed, Float, Date, Other };

/// The family of a type, by the server's name for it.
TypeFamily FamilyOf(const QString& typeName);
QString NameOf(TypeFamily family);

/// A column or a parameter with its family. A parameter's name has its "@".
struct NeededColumn {
    QString name;
    TypeFamily family = TypeFamily::Other;
};

struct NeededTable {
    /// "DATABASE..table", as the hospital's scripts write it.
    QString name;
    std::vector<NeededColumn> columns;
};

struct NeededProcedure {
    QString name;
    std::vector<NeededColumn> parameters;
    /// The columns of its rows; empty where it answers with none.
    QStringList answers;
};

/// What the program needs to find in a hospital, as the scripts of the trial hospital and the rights have it.
struct Needs {
    /// In the order of the scripts, as they are written there.
    QStringList databases;
    /// By "database.object" in small letters: all that stands in the scripts.
    QMap<QString, NeededTable> tables;
    QMap<QString, NeededProcedure> procedures;
    RoleRights rights;

    /// Those that the workstation's role names, by the same names and in their order.
    QStringList GrantedProcedures() const;
    /// The same for tables that are read, each once, be it whole or by columns.
    QStringList GrantedTables() const;
    /// Whether the workstation's role reads that column of the table.
    bool Reads(const QString& table, const QString& column) const;
    /// The tables whose one row holds a number that the program counts on by itself, with the column.
    std::vector<std::pair<QString, QString>> Counters() const;
};

/// The names of the columns that a query answers with; those of "*" are the tables' own.
QStringList AnswersOf(const Query& query, const Needs& needs);

/// What this version of the program needs. Raises what a script of it is refused with.
Needs NeedsOfProgram();
