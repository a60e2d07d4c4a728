#include "check/ObjectChecks.h"

#include "check/questions.h"
#include "text/RunTimeError.h"

#include <QSet>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The rows that the server has of each object, by "database.object" in small letters.
using ObjectRows = QMap<QString, std::vector<QStringList>>;

const QString kDeploy = u"lay it on the server, as the hospital's suite has it; docs/deployment.md"_s;
const QString kAsking = u"docs/deployment.md tells what the check asks, and what right that needs"_s;
const QString kSameScripts =
    u"the file's procedures are made from this version's scripts; the sign-on sees to that"_s;
// A database without a right of the user's need not be reached.
QStringList DatabasesWith(const QStringList& objects, const Needs& needs) {
    QStringList databases;
    for (const QString& database : needs.databases) {
        if (std::ranges::any_of(objects,
                                [&](const QString& o) { return o.startsWith(database.toLower() + u'.'); }))
            databases << database;
    }
    return databases;
}

/// Enters a database; false, with a fault, where that is refused.
bool Enter(const Ground& ground, const QString& name, const QString& database, Findings& faults) {
    try {
        ground.connection.SetDefaultDatabase(database);
        return true;
    } catch (const RunTimeError& error) {
        faults.push_back(Fails(name, u"%1: %2"_s.arg(database, error.Description()),
                               u"let %1 in to this database"_s.arg(ground.user)));
        return false;
    }
}

/// Asks one question of each database; what a database refuses becomes a fault.
ObjectRows Ask(const Ground& ground, const QString& name, const QStringList& objects,
               const QString& question, const QStringList& columns, Findings& faults) {
    ObjectRows found;
    for (const QString& database : DatabasesWith(objects, ground.needs)) {
        if (!Enter(ground, name, database, faults))
            continue;
        try {
            RowSet rows = ground.connection.Execute(question);
            for (; !rows.Eof(); rows.MoveNext()) {
                QStringList cells;
                for (const QString& column : columns)
                    cells << rows.Fields(column).TextOrEmpty();
                found[(database + u'.' + rows.Fields(u"ObjectName").ToText()).toLower()].push_back(cells);
            }
        } catch (const RunTimeError& error) {
            faults.push_back(Fails(name, u"%1: %2"_s.arg(database, error.Description()),
                                   kAsking));
        }
    }
    return found;
}

/// How the parameters of a procedure differ from those that it is called with; empty where they do not.
QString DifferenceOf(const NeededProcedure& needed, const std::vector<QStringList>& found) {
    const size_t count = found.size() == 1 && found[0][0].isEmpty() ? 0 : found.size();
    if (count != needed.parameters.size())
        return u"has %1 parameters and is called with %2"_s.arg(count).arg(needed.parameters.size());
    for (size_t i = 0; i < count; ++i) {
        const TypeFamily wanted = needed.parameters[i].family;
        if (FamilyOf(found[i][1]) != wanted)
            return u"takes %1 as %2 and is given %3"_s.arg(found[i][0], found[i][1], NameOf(wanted));
    }
    return {};
}

bool Holds(const std::vector<QStringList>& rows, const QString& name) {
    return std::ranges::any_of(
        rows, [&](const QStringList& row) { return row[0].compare(name, Qt::CaseInsensitive) == 0; });
}

QStringList FirstCellsOf(const std::vector<QStringList>& rows) {
    QStringList cells;
    for (const QStringList& row : rows)
        cells << row[0];
    return cells;
}

/// The columns that an answer lacks.
QStringList MissingOf(const QStringList& needed, const std::vector<QStringList>& found) {
    QStringList missing;
    for (const QString& column : needed) {
        if (!column.isEmpty() && !Holds(found, column))
            missing << column;
    }
    return missing;
}

void CompareTable(const QString& key, const Ground& ground, const std::vector<QStringList>& found,
                  Findings& faults) {
    const NeededTable& table = *ground.needs.tables.constFind(key);
    for (const NeededColumn& column : table.columns) {
        if (!ground.needs.Reads(key, column.name))
            continue;
        const auto row = std::ranges::find_if(found, [&](const QStringList& cells) {
            return cells[0].compare(column.name, Qt::CaseInsensitive) == 0;
        });
        if (row == found.end())
            faults.push_back(
                Fails(u"tables"_s, u"%1 has no column %2"_s.arg(table.name, column.name), kDeploy));
        else if (FamilyOf((*row)[1]) != column.family)
            faults.push_back(Fails(u"tables"_s,
                                   u"%1: %2 is %3 and must be %4"_s.arg(table.name, column.name, (*row)[1],
                                                                       NameOf(column.family)),
                                   kDeploy));
    }
}

/// The trial hospital has no catalogue to ask: its tables are read, without a row.
Findings ReadTrialTables(const Ground& ground, const QStringList& tables) {
    Findings faults;
    for (const QString& key : tables) {
        const NeededTable& table = *ground.needs.tables.constFind(key);
        QStringList missing;
        const RowSet rows = ground.connection.Execute(u"SELECT * FROM %1 WHERE 1 = 0"_s.arg(table.name));
        for (const NeededColumn& column : table.columns) {
            if (!rows.Data()->Find(column.name))
                missing << column.name;
        }
        if (!missing.isEmpty())
            faults.push_back(Fails(u"tables"_s, u"%1 lacks %2"_s.arg(table.name, missing.join(u", "_s)),
                                   u"make the trial hospital anew"_s));
    }
    return faults;
}

/// What one user may do, told as rights.sql tells it.
class Permissions {
  public:
    explicit Permissions(const ObjectRows& rows) {
        for (const auto& [object, permissions] : rows.asKeyValueRange()) {
            for (const QStringList& row : permissions) {
                const QString column = row[0].isEmpty() ? QString() : u" (%1)"_s.arg(row[0].toLower());
                mRights.insert(row[1] + u' ' + object + column);
                mIsStandby = mIsStandby || row[2] == "1"_L1;
            }
        }
    }

    /// A right to a whole table is one to each of its columns.
    bool Has(const NamedRight& right) const {
        return mRights.contains(right) || mRights.contains(right.section(u" ("_s, 0, 0));
    }

    QStringList Beyond(const RoleRights& needed) const {
        static const QSet<QString> verbs = {u"EXECUTE"_s, u"SELECT"_s, u"INSERT"_s,        u"UPDATE"_s,
                                            u"DELETE"_s,  u"ALTER"_s,  u"TAKE OWNERSHIP"_s, u"CONTROL"_s};
        QStringList beyond;
        for (const NamedRight& right : mRights) {
            const bool counts = std::ranges::any_of(
                verbs, [&](const QString& verb) { return right.startsWith(verb + u' '); });
            if (counts && !IsNeeded(right, needed.workstation) &&
                !(mIsStandby && IsNeeded(right, needed.standby)))
                beyond << right;
        }
        beyond.sort();
        return beyond;
    }

  private:
    static bool IsNeeded(const NamedRight& right, const QMap<NamedRight, QStringList>& needed) {
        return needed.contains(right) || needed.contains(right.section(u" ("_s, 0, 0));
    }

    QSet<NamedRight> mRights;
    bool mIsStandby = false;
};

/// The rights to a server or a database as a whole by which more is reached than a look at it.
QStringList Weighty(RowSet rows, const QString& of) {
    QStringList rights;
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString right = rows.Fields(u"Permission").TextOrEmpty();
        const bool isLook = right.startsWith("CONNECT"_L1) || right.startsWith("VIEW "_L1) ||
                            right == "SHOWPLAN"_L1;
        if (!isLook)
            rights << right + u' ' + of;
    }
    return rights;
}

/// What the user may do with the server and with the databases that he can enter, as wholes, when nobody has to.
QStringList RightsToWholes(const Ground& ground) {
    QStringList rights =
        Weighty(ground.connection.Execute(ServerPermissionsQuestion()), u"of the server"_s);
    Findings refused;
    for (const QString& database : ground.needs.databases) {
        if (Enter(ground, {}, database, refused))
            rights << Weighty(ground.connection.Execute(DatabasePermissionsQuestion()), u"in "_s + database);
    }
    return rights;
}

QStringList ObjectsOf(const Needs& needs) {
    return needs.GrantedProcedures() + needs.GrantedTables();
}

/// A user with too many rights has hundreds: the first are named.
QString FirstOf(const QStringList& rights) {
    constexpr qsizetype kNamed = 3;
    const QString more = rights.size() > kNamed ? u" and %1 more"_s.arg(rights.size() - kNamed) : QString();
    return rights.mid(0, kNamed).join(u", "_s) + more;
}

} // namespace

Findings LookAtProcedures(const Ground& ground) {
    const QString name = u"procedures"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, kSameScripts)};
    const QStringList needed = ground.needs.GrantedProcedures();
    Findings faults;
    const ObjectRows found =
        Ask(ground, name, needed, ParametersQuestion(), {u"ParameterName"_s, u"TypeName"_s}, faults);
    for (const QString& key : needed) {
        const NeededProcedure& procedure = *ground.needs.procedures.constFind(key);
        const QString difference =
            found.contains(key) ? DifferenceOf(procedure, found[key])
                                : u"is not there, or %1 may do nothing with it"_s.arg(ground.user);
        if (!difference.isEmpty())
            faults.push_back(Fails(name, procedure.name + u' ' + difference, kDeploy));
    }
    return FaultsOr(std::move(faults), Ok(name, u"%1 with their parameters"_s.arg(needed.size())));
}

Findings LookAtAnswers(const Ground& ground) {
    const QString name = u"answers"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, kSameScripts)};
    const QStringList needed = ground.needs.GrantedProcedures();
    Findings faults;
    const ObjectRows found =
        Ask(ground, name, needed, AnswersQuestion(), {u"ColumnName"_s, u"Reason"_s}, faults);
    Findings unknown;
    for (const QString& key : needed) {
        const NeededProcedure& procedure = *ground.needs.procedures.constFind(key);
        const auto rows = found.value(key);
        if (!rows.empty() && !rows[0][1].isEmpty()) {
            unknown.push_back(NotLookedAt(name, u"%1: %2"_s.arg(procedure.name, rows[0][1])));
            continue;
        }
        const QStringList missing = MissingOf(procedure.answers, rows);
        if (!missing.isEmpty())
            faults.push_back(
                Fails(name, u"%1 does not answer %2"_s.arg(procedure.name, missing.join(u", "_s)), kDeploy));
    }
    Findings findings = FaultsOr(
        std::move(faults), Ok(name, u"%1 procedures"_s.arg(needed.size() - qsizetype(unknown.size()))));
    findings.insert(findings.end(), unknown.begin(), unknown.end());
    return findings;
}

Findings LookAtTables(const Ground& ground) {
    const QString name = u"tables"_s;
    const QStringList needed = ground.needs.GrantedTables();
    const Finding whole = Ok(name, u"%1 with their columns"_s.arg(needed.size()));
    if (ground.isTrial)
        return FaultsOr(ReadTrialTables(ground, needed), whole);
    Findings faults;
    const ObjectRows found =
        Ask(ground, name, needed, ColumnsQuestion(), {u"ColumnName"_s, u"TypeName"_s}, faults);
    for (const QString& key : needed) {
        if (found.contains(key))
            CompareTable(key, ground, found[key], faults);
        else
            faults.push_back(Fails(name,
                                   u"%1 is not there, or %2 may do nothing with it"_s.arg(
                                       ground.needs.tables[key].name, ground.user),
                                   kDeploy));
    }
    return FaultsOr(std::move(faults), whole);
}

Findings LookAtRights(const Ground& ground) {
    const QString name = u"rights"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, u"the trial hospital has no rights below the sign-on"_s)};
    Findings faults;
    const ObjectRows found = Ask(ground, name, ObjectsOf(ground.needs), PermissionsQuestion(),
                                 {u"ColumnName"_s, u"Permission"_s, u"Standby"_s}, faults);
    const Permissions permissions(found);
    for (const NamedRight& right : ground.needs.rights.workstation.keys()) {
        if (!permissions.Has(right))
            faults.push_back(Fails(name, u"%1 lacks %2"_s.arg(ground.user, right),
                                   u"run tools/sqlserver/rights.sql and make him a member of "
                                   "tarven_hemodialysis"_s));
    }
    const QStringList beyond = RightsToWholes(ground) + permissions.Beyond(ground.needs.rights);
    if (!beyond.isEmpty())
        faults.push_back(Fails(name, u"%1 may more than is needed: %2"_s.arg(ground.user, FirstOf(beyond)),
                               u"take him out of the other roles, the owners' and administrators' above all"_s));
    return FaultsOr(std::move(faults),
                    Ok(name, u"all %1, nothing beyond"_s.arg(ground.needs.rights.workstation.size())));
}

Needs NeedsAsTold(const Ground& ground) {
    Needs told = ground.needs;
    if (ground.isTrial || !ground.connection.Connected())
        return told;
    // A database that refuses the question has its line among the answers and the tables.
    Findings refused;
    const QStringList objects = ObjectsOf(ground.needs);
    const ObjectRows answers = Ask(ground, u"answers"_s, objects, AnswersQuestion(),
                                   {u"ColumnName"_s, u"Reason"_s}, refused);
    for (const auto& [key, rows] : answers.asKeyValueRange()) {
        if (rows[0][1].isEmpty())
            told.procedures[key].answers = FirstCellsOf(rows);
    }
    const ObjectRows tables =
        Ask(ground, u"tables"_s, objects, ColumnsQuestion(), {u"ColumnName"_s}, refused);
    for (const auto& [key, rows] : tables.asKeyValueRange()) {
        told.tables[key].columns.clear();
        for (const QString& column : FirstCellsOf(rows))
            told.tables[key].columns.push_back({column});
    }
    return told;
}
