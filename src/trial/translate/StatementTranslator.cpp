#include "trial/translate/StatementTranslator.h"

#include "trial/sqlite/FileSchema.h"
#include "trial/translate/QueryTranslator.h"
#include "tsql/ServerError.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool IsClock(const Expression& expression) {
    const auto* call = expression.As<CallNode>();
    return call && call->name == "GETDATE"_L1;
}

} // namespace

StatementTranslator::StatementTranslator(const Catalog& catalog, QString database,
                                         const std::vector<DeclaredParameter>& parameters)
    : mCatalog(catalog)
    , mDatabase(std::move(database))
    , mParameters(parameters)
    , mState{mCatalog, mDatabase, mParameters, mOut} {}

Translation StatementTranslator::Translate(const Statement& statement) {
    mOut = Translation();
    mState.textNumbers.clear();
    mState.composed = 0;
    mOut.firstConstant = static_cast<int>(mParameters.size()) + 2;
    std::visit([this](const auto& kind) { Make(kind); }, statement);
    return std::move(mOut);
}

const Table& StatementTranslator::Find(const ObjectName& name) const {
    const Table* table = mCatalog.FindTable(name, mDatabase);
    if (!table)
        throw ServerError(Fault::InvalidObject, {name.written});
    return *table;
}

void StatementTranslator::Make(const SelectStatement& select) {
    TranslatedQuery query = QueryTranslator(mState, nullptr).Translate(select.query);
    mOut.sql = query.sql;
    mOut.columns = std::move(query.columns);
}

void StatementTranslator::Make(const InsertStatement& insert) {
    const Table& table = Find(insert.table);
    const std::vector<Target> targets = Targets(insert, table);
    const std::vector<Target> defaults = DefaultTargets(targets, table);
    QStringList names;
    for (const Target target : targets)
        names << QuotedName(target->name);
    for (const Target target : defaults)
        names << QuotedName(target->name);
    mOut.writes = true;
    const QString head =
        u"INSERT INTO "_s + QuotedName(table.NameInFile()) + u" ("_s + names.join(u", "_s) + u") "_s;
    const auto* rows = std::get_if<ValueRows>(&insert.source);
    if (!rows)
        mOut.sql = head + SelectText(std::get<Query>(insert.source), targets, defaults);
    else if (!TakeLiteralRows(*rows, targets, defaults, head))
        mOut.sql = head + ValuesText(insert, targets, defaults);
}

std::vector<StatementTranslator::Target> StatementTranslator::Targets(const InsertStatement& insert,
                                                                      const Table& table) const {
    std::vector<Target> targets;
    if (insert.columns.isEmpty()) {
        for (const ColumnDefinition& column : table.definition.columns) {
            if (!column.identity)
                targets.push_back(&column);
        }
    }
    for (const QString& name : insert.columns) {
        const Target column = table.Find(name);
        if (!column)
            throw ServerError(Fault::InvalidColumn, {name});
        if (column->identity)
            throw ServerError(Fault::IdentityInsert, {table.definition.name.object});
        if (std::find(targets.begin(), targets.end(), column) != targets.end())
            throw ServerError(Fault::DuplicateColumn, {name});
        targets.push_back(column);
    }
    return targets;
}

std::vector<StatementTranslator::Target>
StatementTranslator::DefaultTargets(const std::vector<Target>& written, const Table& table) const {
    std::vector<Target> defaults;
    for (const ColumnDefinition& column : table.definition.columns) {
        if (column.defaultValue && std::find(written.begin(), written.end(), &column) == written.end())
            defaults.push_back(&column);
    }
    return defaults;
}

bool StatementTranslator::TakeLiteralRows(const ValueRows& valueRows, const std::vector<Target>& targets,
                                          const std::vector<Target>& defaults, const QString& head) {
    ExpressionTranslator expressions(mState, nullptr);
    std::vector<std::vector<KnownValue>> rows;
    const auto take = [&](const Expression& expression, Target target, std::vector<KnownValue>& row) {
        const auto literal = ExpressionTranslator::Literal(expression);
        if (!literal)
            return false;
        RequireConvertible(literal->type, target->type, false);
        row.push_back(literal->constant.Converted(literal->type, target->type, ConversionPlace::Column));
        return true;
    };
    for (const auto& values : valueRows) {
        if (values.size() != targets.size())
            return false;
        auto& row = rows.emplace_back();
        row.reserve(targets.size() + defaults.size());
        for (size_t i = 0; i < values.size(); ++i) {
            if (!take(*values[i], targets[i], row))
                return false;
        }
        for (const Target target : defaults) {
            if (!IsClock(*target->defaultValue) && !take(*target->defaultValue, target, row))
                return false;
        }
    }
    QStringList places;
    int next = mOut.firstConstant;
    for (size_t i = 0; i < targets.size(); ++i)
        places << u'?' + QString::number(next++);
    for (const Target target : defaults) {
        if (IsClock(*target->defaultValue))
            places << Assigned(expressions, expressions.Clock(), target).sql;
        else
            places << u'?' + QString::number(next++);
    }
    mOut.sql = head + u"VALUES ("_s + places.join(u", "_s) + u')';
    if (rows.size() == 1)
        mOut.constants = std::move(rows.front());
    else
        mOut.rows = std::move(rows);
    return true;
}

QString StatementTranslator::ValuesText(const InsertStatement& insert, const std::vector<Target>& targets,
                                        const std::vector<Target>& defaults) {
    ExpressionTranslator expressions(mState, nullptr);
    QStringList rows;
    for (const auto& values : std::get<ValueRows>(insert.source)) {
        if (values.size() != targets.size()) {
            if (insert.columns.isEmpty())
                throw ServerError(Fault::ValueListLength);
            throw ServerError(values.size() < targets.size() ? Fault::FewerValuesThanColumns
                                                             : Fault::MoreValuesThanColumns);
        }
        QStringList texts;
        for (size_t i = 0; i < values.size(); ++i)
            texts << Assigned(expressions, expressions.Translate(*values[i]), targets[i]).sql;
        for (const Target target : defaults)
            texts << Assigned(expressions, expressions.Translate(*target->defaultValue), target).sql;
        rows << u'(' + texts.join(u", "_s) + u')';
    }
    return u"VALUES "_s + rows.join(u", "_s);
}

QString StatementTranslator::SelectText(const Query& source, const std::vector<Target>& targets,
                                        const std::vector<Target>& defaults) {
    ExpressionTranslator expressions(mState, nullptr);
    const TranslatedQuery query =
        QueryTranslator(mState, nullptr).Translate(source, [&](size_t column, const Typed& item) {
            return column < targets.size() ? Assigned(expressions, item, targets[column]) : item;
        });
    if (query.columns.size() != targets.size())
        throw ServerError(query.columns.size() < targets.size() ? Fault::FewerSelectedThanColumns
                                                                : Fault::MoreSelectedThanColumns);
    if (defaults.empty())
        return query.sql;
    QString text = u"SELECT q.*"_s;
    for (const Target target : defaults)
        text += u", "_s + Assigned(expressions, expressions.Translate(*target->defaultValue), target).sql;
    return text + u" FROM ("_s + query.sql + u") AS q"_s;
}

Typed StatementTranslator::Assigned(ExpressionTranslator& expressions, const Typed& value,
                                    Target target) const {
    RequireConvertible(value.type, target->type, false);
    return expressions.ConvertTo(value, target->type, ConversionPlace::Column);
}

QString StatementTranslator::WhereText(const ExpressionPtr& where, const Scope& scope) {
    return where ? u" WHERE "_s + ExpressionTranslator(mState, &scope).Translate(*where).sql : QString();
}

void StatementTranslator::Make(const UpdateStatement& update) {
    const Table& table = Find(update.table);
    Scope scope;
    const QString target = QueryTranslator(mState, nullptr).AddTable(scope, update.table, {});
    ExpressionTranslator expressions(mState, &scope);
    QStringList assignments;
    UpdateParts parts{&table, scope.Sources().front().alias, {}, {}};
    std::vector<Target> written;
    for (const Assignment& assignment : update.assignments) {
        const Target column = table.Find(assignment.column);
        if (!column)
            throw ServerError(Fault::InvalidColumn, {assignment.column});
        if (column->identity)
            throw ServerError(Fault::IdentityUpdate, {column->name});
        if (std::find(written.begin(), written.end(), column) != written.end())
            throw ServerError(Fault::DuplicateColumn, {column->name});
        written.push_back(column);
        const Typed value = Assigned(expressions, expressions.Translate(*assignment.value), column);
        assignments << QuotedName(column->name) + u" = "_s + value.sql;
        parts.assigned.emplace_back(column, value.sql);
    }
    parts.where = WhereText(update.where, scope);
    mOut.writes = true;
    mOut.sql = u"UPDATE "_s + target + u" SET "_s + assignments.join(u", "_s) + parts.where;
    mOut.update = std::move(parts);
}

void StatementTranslator::Make(const DeleteStatement& erase) {
    Scope scope;
    const QString target = QueryTranslator(mState, nullptr).AddTable(scope, erase.table, {});
    mOut.writes = true;
    mOut.sql = u"DELETE FROM "_s + target + WhereText(erase.where, scope);
}

void StatementTranslator::Make(const RefusalStatement& refusal) {
    mOut.sql = u"SELECT 1"_s + WhereText(refusal.condition, Scope());
    mOut.refusal = RunTimeError(refusal.number, refusal.text, u"42000"_s);
}

void StatementTranslator::Make(const BranchStatement& branch) {
    mOut.sql =
        branch.condition ? u"SELECT 1"_s + WhereText(branch.condition, Scope()) : u"SELECT 1 WHERE 0"_s;
    mOut.passedOver = branch.passedOver;
}
