#include "trial/translate/QueryTranslator.h"

#include "trial/sqlite/FileSchema.h"
#include "tsql/ServerError.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

TranslatedQuery QueryTranslator::Translate(const Query& query, const ItemChange& change) {
    std::vector<Core> cores;
    Scope scope(mOuter);
    for (const SelectCore& core : query.cores) {
        scope = Scope(mOuter);
        cores.push_back(TranslateCore(core, scope));
        if (cores.back().items.size() != cores.front().items.size())
            throw ServerError(Fault::UnionLengths);
    }
    TranslatedQuery result;
    for (size_t column = 0; column < cores.front().items.size(); ++column)
        result.columns.push_back(MeetInColumn(column, cores, change));
    const QString order = TranslateOrder(query, cores, scope);
    QStringList texts;
    for (const Core& core : cores)
        texts << CoreText(core, cores.size() > 1);
    result.sql = texts.join(u" UNION ALL "_s) + order;
    if (cores.size() == 1)
        result.sql += cores.front().limit;
    result.oneRow = cores.size() == 1 && cores.front().oneRow;
    return result;
}

ResultColumn QueryTranslator::MeetInColumn(size_t column, std::vector<Core>& cores,
                                           const ItemChange& change) {
    SqlType common;
    for (const Core& core : cores)
        common = CommonType(common, core.items[column].value.type);
    ExpressionTranslator expressions(mState, nullptr);
    for (Core& core : cores) {
        Typed& value = core.items[column].value;
        value = expressions.MeetAs(value, common);
        if (change)
            value = change(column, value);
    }
    const Item& first = cores.front().items[column];
    return {first.name, change ? first.value.type : common};
}

QString QueryTranslator::CoreText(const Core& core, bool inUnion) {
    ExpressionTranslator expressions(mState, nullptr);
    QStringList items;
    for (size_t i = 0; i < core.items.size(); ++i) {
        Typed value = core.items[i].value;
        // SQLite takes HAVING and an aggregate behind ORDER BY only where an item is an aggregate.
        if (i == 0 && core.aggregateElsewhere)
            value.sql = u"CASE WHEN count(*) >= 0 THEN "_s + value.sql + u" END"_s;
        items << (core.distinct ? expressions.Collated(value) : value.sql) + u" AS c"_s +
                     QString::number(i + 1);
    }
    const QString text =
        (core.distinct ? u"SELECT DISTINCT "_s : u"SELECT "_s) + items.join(u", "_s) + core.rest;
    if (core.limit.isEmpty() || !inUnion)
        return text;
    return u"SELECT * FROM ("_s + text + core.limit + u')';
}

QueryTranslator::Core QueryTranslator::TranslateCore(const SelectCore& core, Scope& scope) {
    Core result;
    result.distinct = core.distinct;
    result.rest = TranslateSources(core, scope);
    ExpressionTranslator expressions(mState, &scope);
    if (core.where)
        result.rest += u" WHERE "_s + expressions.Translate(*core.where).sql;
    const QStringList keys = TranslateKeys(core, scope, expressions);
    if (!keys.isEmpty())
        result.rest += u" GROUP BY "_s + keys.join(u", "_s);
    expressions.aggregatesAllowed = true;
    result.items = TranslateItems(core, scope, expressions);
    const bool isAggregate = !keys.isEmpty() || expressions.sawAggregate;
    for (const Item& item : result.items)
        result.looseItem = result.looseItem.isEmpty() ? item.value.looseColumn : result.looseItem;
    QString loose = result.looseItem;
    if (core.having) {
        const Typed having = expressions.Translate(*core.having);
        result.rest += u" HAVING "_s + having.sql;
        loose = loose.isEmpty() ? having.looseColumn : loose;
    }
    result.grouped = isAggregate || core.having;
    result.aggregateElsewhere = result.grouped && !isAggregate;
    const auto* top = core.top ? core.top->As<NumberNode>() : nullptr;
    result.oneRow =
        core.sources.empty() || (result.grouped && keys.isEmpty()) || (top && top->written == "1"_L1);
    if (!loose.isEmpty() && result.grouped)
        throw ServerError(Fault::NotGrouped, {loose});
    if (core.top)
        result.limit = TranslateTop(*core.top);
    return result;
}

QStringList QueryTranslator::TranslateKeys(const SelectCore& core, Scope& scope,
                                           ExpressionTranslator& expressions) {
    QStringList keys;
    QStringList columns;
    for (const ExpressionPtr& key : core.groupBy) {
        expressions.aggregatesAllowed = true;
        const Typed value = expressions.Translate(*key);
        if (expressions.sawAggregate)
            throw ServerError(Fault::AggregateInGroupBy);
        if (value.looseColumn.isEmpty())
            throw ServerError(Fault::GroupByWithoutColumn);
        keys << expressions.Collated(value);
        columns << value.sql;
    }
    scope.groupKeys = columns;
    return keys;
}

QString QueryTranslator::TranslateTop(const Expression& rows) {
    ExpressionTranslator expressions(mState, nullptr);
    // A number stands in the statement itself, since SQLite plans by it.
    const auto literal = ExpressionTranslator::Literal(rows);
    const Typed value = literal ? expressions.Constant(literal->constant.Value(), literal->type)
                                : expressions.Translate(rows);
    const bool mayBeWhole = value.type.IsWhole() || value.type.IsText() ||
                            (value.type.kind == SqlType::Kind::Decimal && value.type.scale == 0);
    if (!mayBeWhole)
        throw ServerError(Fault::InvalidTop);
    const Typed top = expressions.ConvertTo(value, SqlType::BigInt(), ConversionPlace::Expression);
    const auto* known = top.constant ? std::get_if<qint64>(&top.constant.Value()) : nullptr;
    if (known && *known < 0)
        throw ServerError(Fault::NegativeTop);
    return u" LIMIT "_s + (known ? top.sql : u"tv_top("_s + top.sql + u')');
}

QString QueryTranslator::TranslateSources(const SelectCore& core, Scope& scope) {
    QString text;
    for (const TableSource& source : core.sources) {
        if (source.join)
            text += source.join->left ? u" LEFT JOIN "_s : u" JOIN "_s;
        else
            text += u" FROM "_s;
        const auto* name = std::get_if<ObjectName>(&source.rows);
        text += name ? AddTable(scope, *name, source.alias)
                     : AddDerivedTable(scope, *std::get<std::unique_ptr<Query>>(source.rows), source.alias);
        if (source.join)
            text += u" ON "_s + ExpressionTranslator(mState, &scope).Translate(*source.join->condition).sql;
    }
    return text;
}

QString QueryTranslator::AddTable(Scope& scope, const ObjectName& name, const QString& alias) {
    const Table* table = mState.catalog.FindTable(name, mState.database);
    if (!table)
        throw ServerError(Fault::InvalidObject, {name.written});
    ScopeSource source;
    source.exposedName = alias.isEmpty() ? table->definition.name.object : alias;
    source.tableKey = alias.isEmpty() ? ObjectKey(name, mState.database) : QString();
    source.alias = NewAlias();
    for (const ColumnDefinition& column : table->definition.columns)
        source.columns.push_back({column.name, column.type, QuotedName(column.name), true});
    const QString text = QuotedName(table->NameInFile()) + u" AS "_s + source.alias;
    scope.Add(std::move(source));
    return text;
}

QString QueryTranslator::AddDerivedTable(Scope& scope, const Query& rows, const QString& alias) {
    const TranslatedQuery query = QueryTranslator(mState, mOuter).Translate(rows);
    ScopeSource source;
    source.exposedName = alias;
    source.alias = NewAlias();
    for (size_t i = 0; i < query.columns.size(); ++i)
        source.columns.push_back(
            {query.columns[i].name, query.columns[i].type, u'c' + QString::number(i + 1), false});
    const QString text = u'(' + query.sql + u") AS "_s + source.alias;
    scope.Add(std::move(source));
    return text;
}

std::vector<QueryTranslator::Item> QueryTranslator::TranslateItems(const SelectCore& core, const Scope& scope,
                                                                   ExpressionTranslator& expressions) {
    std::vector<Item> items;
    for (const SelectItem& item : core.items) {
        if (const auto* star = std::get_if<SelectedStar>(&item))
            AddStar(items, *star, scope);
        else
            items.push_back(TranslateItem(std::get<SelectedValue>(item), expressions));
    }
    return items;
}

void QueryTranslator::AddStar(std::vector<Item>& items, const SelectedStar& star, const Scope& scope) const {
    for (const ScopeSource* source : scope.Starred(star.path, mState.database)) {
        for (const ScopeColumn& column : source->columns)
            items.push_back(
                {{source->alias + u'.' + column.nameInFile, column.type, column.tableColumn, {}, column.name},
                 column.name});
    }
}

QueryTranslator::Item QueryTranslator::TranslateItem(const SelectedValue& item,
                                                     ExpressionTranslator& expressions) {
    Item result{expressions.Translate(*item.value), item.alias};
    // The server gives no name to an expression.
    const auto* column = item.value->As<ColumnNode>();
    if (result.name.isEmpty() && column)
        result.name = column->path.last();
    return result;
}

QString QueryTranslator::TranslateOrder(const Query& query, std::vector<Core>& cores, const Scope& scope) {
    QStringList keys;
    for (const OrderItem& item : query.orderBy) {
        const auto place = static_cast<size_t>(keys.size()) + 1;
        keys << TranslateOrderItem(*item.value, place, cores, scope) +
                    (item.descending ? u" DESC"_s : QString());
    }
    return keys.isEmpty() ? QString() : u" ORDER BY "_s + keys.join(u", "_s);
}

QString QueryTranslator::TranslateOrderItem(const Expression& value, size_t place, std::vector<Core>& cores,
                                            const Scope& scope) {
    const auto& items = cores.front().items;
    const auto byPosition = [&](size_t column) {
        Typed key = items[column].value;
        key.sql = QString::number(column + 1);
        return ExpressionTranslator(mState, &scope).Collated(key);
    };
    if (const auto* column = value.As<ColumnNode>(); column && column->path.size() == 1) {
        for (size_t i = 0; i < items.size(); ++i) {
            if (items[i].name.compare(column->path.first(), Qt::CaseInsensitive) == 0)
                return byPosition(i);
        }
    }
    if (const auto* number = value.As<NumberNode>()) {
        const size_t position = number->written.toUInt();
        if (position < 1 || position > items.size())
            throw ServerError(Fault::OrderPosition, {number->written});
        return byPosition(position - 1);
    }
    if (ExpressionTranslator::Literal(value))
        throw ServerError(Fault::ConstantInOrder, {QString::number(place)});
    if (cores.size() > 1)
        throw ServerError(Fault::OrderInUnion);
    ExpressionTranslator expressions(mState, &scope);
    expressions.aggregatesAllowed = true;
    const Typed key = expressions.Translate(value);
    const bool selected =
        std::any_of(items.begin(), items.end(), [&](const Item& item) { return item.value.sql == key.sql; });
    if (cores.front().distinct && !selected)
        throw ServerError(Fault::OrderNotSelected);
    Core& core = cores.front();
    if (expressions.sawAggregate && !core.grouped) {
        if (!core.looseItem.isEmpty())
            throw ServerError(Fault::NotGrouped, {core.looseItem});
        core.grouped = core.aggregateElsewhere = true;
    }
    if (core.grouped && !key.looseColumn.isEmpty())
        throw ServerError(Fault::OrderNotGrouped, {key.looseColumn});
    return expressions.Collated(key);
}
