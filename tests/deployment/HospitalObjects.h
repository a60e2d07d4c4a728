#pragma once

#include "gateway/SqlLexer.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <vector>

/// A table or procedure that a command names with its database.
struct NamedObject {
    /// "database.object" in small letters, as everything of the hospital is named here.
    QString name;
    /// The token with which the name begins.
    size_t first;
};

/// What a command names with two dots, or with dbo between them, in its order.
std::vector<NamedObject> ObjectsNamedIn(const std::vector<Token>& tokens);

/// What stands in hospital/.
struct HospitalObjects {
    QSet<QString> procedures;
    /// Each with its columns, in small letters too.
    QMap<QString, QStringList> tables;
    /// What procedures use of other tables and procedures.
    QSet<QString> usedByProcedures;
};

/// Reads hospital/schema and hospital/procedures.
HospitalObjects ReadHospital();
