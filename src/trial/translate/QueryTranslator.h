#pragma once

#include "trial/translate/ExpressionTranslator.h"
#include "tsql/SqlTree.h"

#include <functional>

/// A query in SQLite's language. Its columns are named c1, c2 and so on there.
struct TranslatedQuery {
    QString sql;
    std::vector<ResultColumn> columns;
    /// No more than one row can come of it.
    bool oneRow = false;
};

/// Turns queries into SQLite's language.
class QueryTranslator {
  public:
    /// What to make of the item in a column before it is selected, for instance a conversion.
    using ItemChange = std::function<Typed(size_t column, const Typed& item)>;

    QueryTranslator(TranslationState& state, const Scope* outer)
        : mState(state)
        , mOuter(outer) {}

    TranslatedQuery Translate(const Query& query, const ItemChange& change = {});
    /// Puts a table into a scope under an alias of its own; raises 208 for a table that is not there. Gives
    /// back the text for FROM.
    QString AddTable(Scope& scope, const ObjectName& name, const QString& alias);

  private:
    struct Item {
        Typed value;
        QString name;
    };
    /// One SELECT in pieces, since its items may yet change when it meets others in a UNION.
    struct Core {
        bool distinct = false;
        /// With GROUP BY or an aggregate: each row stands for several.
        bool grouped = false;
        bool oneRow = false;
        /// One row stands for all, and no item says so to SQLite.
        bool aggregateElsewhere = false;
        /// A column of the items that stands outside of every aggregate and GROUP BY key; empty for none.
        QString looseItem;
        std::vector<Item> items;
        /// From FROM to HAVING.
        QString rest;
        QString limit;
    };

    Core TranslateCore(const SelectCore& core, Scope& scope);
    /// Brings the items that stand in one column of all cores to one type.
    ResultColumn MeetInColumn(size_t column, std::vector<Core>& cores, const ItemChange& change);
    static QStringList TranslateKeys(const SelectCore& core, Scope& scope, ExpressionTranslator& expressions);
    QString TranslateTop(const Expression& rows);
    QString CoreText(const Core& core, bool inUnion);
    QString TranslateSources(const SelectCore& core, Scope& scope);
    QString AddDerivedTable(Scope& scope, const Query& rows, const QString& alias);
    std::vector<Item> TranslateItems(const SelectCore& core, const Scope& scope,
                                     ExpressionTranslator& expressions);
    void AddStar(std::vector<Item>& items, const SelectedStar& star, const Scope& scope) const;
    static Item TranslateItem(const SelectedValue& item, ExpressionTranslator& expressions);
    /// May find that the aggregate of the only core stands behind ORDER BY.
    QString TranslateOrder(const Query& query, std::vector<Core>& cores, const Scope& scope);
    QString TranslateOrderItem(const Expression& value, size_t place, std::vector<Core>& cores,
                               const Scope& scope);
    QString NewAlias() { return u't' + QString::number(++mState.aliases); }

    TranslationState& mState;
    const Scope* mOuter;
};
