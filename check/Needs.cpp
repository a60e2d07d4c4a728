#include "check/Needs.h"

#include "hospital/HospitalScripts.h"
#include "toolkit/ProgramFiles.h"
#include "tsql/ScriptParser.h"

#include <QFile>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Key(const QString& database, const QString& object) {
    return (database + u'.' + object).toLower();
}

QString Shown(const QString& database, const QString& object) {
    return database + u".."_s + object;
}

QStringList ColumnsOf(const TableSource& source, const Needs& needs) {
    if (const auto* name = std::get_if<ObjectName>(&source.rows)) {
        QStringList columns;
        const auto table = needs.tables.constFind(Key(name->database, name->object));
        if (table != needs.tables.constEnd()) {
            for (const NeededColumn& column : table->columns)
                columns << column.name;
        }
        return columns;
    }
    return AnswersOf(*std::get<std::unique_ptr<Query>>(source.rows), needs);
}

QString AliasOf(const TableSource& source) {
    const auto* name = std::get_if<ObjectName>(&source.rows);
    return source.alias.isEmpty() && name ? name->object : source.alias;
}

QStringList StarOf(const SelectedStar& star, const SelectCore& core, const Needs& needs) {
    QStringList columns;
    for (const TableSource& source : core.sources) {
        if (star.path.isEmpty() || star.path.back().compare(AliasOf(source), Qt::CaseInsensitive) == 0)
            columns << ColumnsOf(source, needs);
    }
    return columns;
}

QString NameOf(const SelectedValue& selected) {
    const auto* column = selected.value->As<ColumnNode>();
    return selected.alias.isEmpty() && column ? column->path.back() : selected.alias;
}

/// Reads the scripts of the hospital one after the other.
class ScriptsReader {
  public:
    explicit ScriptsReader(Needs& needs)
        : mNeeds(needs) {}

    void Read(const Script& script) {
        for (const Batch& batch : SplitBatches(script.text)) {
            TokenCursor cursor(batch.text);
            ScriptParser parser(cursor);
            while (!parser.AtEnd())
                Take(parser.ParseNext());
        }
    }

  private:
    void Take(const ScriptStatement& statement) {
        if (const auto* use = std::get_if<UseDatabase>(&statement))
            Enter(use->database);
        else if (const auto* table = std::get_if<TableDefinition>(&statement))
            Take(*table);
        else if (const auto* procedure = std::get_if<ProcedureDefinition>(&statement))
            Take(*procedure);
    }

    void Enter(const QString& database) {
        mDatabase = database;
        if (!mNeeds.databases.contains(database, Qt::CaseInsensitive))
            mNeeds.databases << database;
    }

    void Take(const TableDefinition& table) {
        NeededTable needed{Shown(mDatabase, table.name.object), {}};
        for (const ColumnDefinition& column : table.columns)
            needed.columns.push_back({column.name, FamilyOf(column.type.Name())});
        mNeeds.tables.insert(Key(mDatabase, table.name.object), needed);
    }

    void Take(const ProcedureDefinition& procedure) {
        NeededProcedure needed{Shown(mDatabase, procedure.name.object), {}, {}};
        for (const ParameterDefinition& parameter : procedure.parameters)
            needed.parameters.push_back({parameter.name, FamilyOf(parameter.type.Name())});
        for (const Statement& statement : procedure.body) {
            const auto* select = std::get_if<SelectStatement>(&statement);
            if (select && needed.answers.isEmpty())
                needed.answers = AnswersOf(select->query, mNeeds);
        }
        mNeeds.procedures.insert(Key(mDatabase, procedure.name.object), needed);
    }

    Needs& mNeeds;
    QString mDatabase;
};

RoleRights GrantsOfProgram() {
    QFile file(u":/rights/rights.sql"_s);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(file.fileName(), file.errorString());
    QStringList problems;
    return ReadGrants(QString::fromUtf8(file.readAll()), problems);
}

/// The objects of the rights with one of the verbs, each once.
QStringList ObjectsWith(const QMap<NamedRight, QStringList>& rights, const QString& verb) {
    QStringList objects;
    for (const NamedRight& right : rights.keys()) {
        if (right.section(u' ', 0, 0) == verb)
            objects << right.section(u' ', 1, 1);
    }
    objects.removeDuplicates();
    return objects;
}

} // namespace

TypeFamily FamilyOf(const QString& typeName) {
    static const QMap<QString, TypeFamily> families = {
        {u"char"_s, TypeFamily::Text},          {u"varchar"_s, TypeFamily::Text},
        {u"nchar"_s, TypeFamily::Text},         {u"nvarchar"_s, TypeFamily::Text},
        {u"text"_s, TypeFamily::Text},          {u"ntext"_s, TypeFamily::Text},
        {u"sysname"_s, TypeFamily::Text},       {u"bit"_s, TypeFamily::Whole},
        {u"tinyint"_s, TypeFamily::Whole},      {u"smallint"_s, TypeFamily::Whole},
        {u"int"_s, TypeFamily::Whole},          {u"bigint"_s, TypeFamily::Whole},
        {u"money"_s, TypeFamily::Fixed},        {u"smallmoney"_s, TypeFamily::Fixed},
        {u"decimal"_s, TypeFamily::Fixed},      {u"numeric"_s, TypeFamily::Fixed},
        {u"float"_s, TypeFamily::Float},        {u"real"_s, TypeFamily::Float},
        {u"date"_s, TypeFamily::Date},          {u"datetime"_s, TypeFamily::Date},
        {u"smalldatetime"_s, TypeFamily::Date}, {u"datetime2"_s, TypeFamily::Date}};
    return families.value(typeName.toLower(), TypeFamily::Other);
}

QString NameOf(TypeFamily family) {
    switch (family) {
    case TypeFamily::Text:
        return u"a text"_s;
    case TypeFamily::Whole:
        return u"a whole number"_s;
    case TypeFamily::Fixed:
        return u"an amount"_s;
    case TypeFamily::Float:
        return u"a float"_s;
    case TypeFamily::Date:
        return u"a date"_s;
    default:
        return u"of another kind"_s;
    }
}

QStringList Needs::GrantedProcedures() const {
    return ObjectsWith(rights.workstation, u"EXECUTE"_s);
}

QStringList Needs::GrantedTables() const {
    return ObjectsWith(rights.workstation, u"SELECT"_s);
}

bool Needs::Reads(const QString& table, const QString& column) const {
    return rights.workstation.contains(u"SELECT "_s + table) ||
           rights.workstation.contains(u"SELECT %1 (%2)"_s.arg(table, column.toLower()));
}

std::vector<std::pair<QString, QString>> Needs::Counters() const {
    std::vector<std::pair<QString, QString>> counters;
    for (const NamedRight& right : rights.workstation.keys()) {
        if (right.startsWith(u"UPDATE "_s))
            counters.emplace_back(right.section(u' ', 1, 1), right.section(u'(', 1).chopped(1));
    }
    return counters;
}

QStringList AnswersOf(const Query& query, const Needs& needs) {
    const SelectCore& core = query.cores.front();
    QStringList columns;
    for (const SelectItem& item : core.items) {
        if (const auto* star = std::get_if<SelectedStar>(&item))
            columns << StarOf(*star, core, needs);
        else
            columns << NameOf(std::get<SelectedValue>(item));
    }
    return columns;
}

Needs NeedsOfProgram() {
    Needs needs;
    ScriptsReader reader(needs);
    for (const Script& script : HospitalStructure())
        reader.Read(script);
    needs.rights = GrantsOfProgram();
    return needs;
}
