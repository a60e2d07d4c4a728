#pragma once

#include "tsql/Convert.h"
#include "tsql/SqlType.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// A command text once it is read: statements, queries and expressions as trees. They own their texts.

struct Expression;
struct Query;
using ExpressionPtr = std::unique_ptr<Expression>;

/// A table or procedure as a command names it.
struct ObjectName {
    /// Database and owner are empty where the text leaves them out.
    QString database;
    QString owner;
    QString object;
    /// As written, for error texts.
    QString written;
};

// The nodes of an expression. Each owns its parts; a part that is always written is never null.

/// The literal NULL.
struct NullNode {};

/// A text in quotes.
struct TextNode {
    QString text;
    /// N'…'.
    bool national = false;
    /// Which literal of a command it is, as the piece that it was read from (Token); -1 for one that is none.
    int literal = -1;
};

/// A number as written, without a sign.
struct NumberNode {
    QString written;
    /// As that of a text.
    int literal = -1;
};

struct ParameterNode {
    /// With "@".
    QString name;
};

struct ColumnNode {
    /// The name's parts, the column last.
    QStringList path;
};

struct NegationNode {
    ExpressionPtr operand;
};

struct ArithmeticNode {
    /// One of + - * / %.
    QChar sign;
    ExpressionPtr left;
    ExpressionPtr right;
};

/// A call of a function, an aggregate included.
struct CallNode {
    /// In capitals.
    QString name;
    /// Of DATEADD and DATEDIFF, as written; empty for all others.
    QString datePart;
    /// With DISTINCT in front of the arguments.
    bool distinct = false;
    /// With "*" in place of arguments.
    bool star = false;
    std::vector<ExpressionPtr> arguments;
};

/// CAST and CONVERT.
struct CastNode {
    ExpressionPtr value;
    SqlType type;
    int style = kDefaultStyle;
};

struct CaseBranch {
    /// A condition, or a value to compare the operand with.
    ExpressionPtr when;
    ExpressionPtr then;
};

struct CaseNode {
    /// Null where the branches have conditions.
    ExpressionPtr operand;
    std::vector<CaseBranch> branches;
    /// Null without ELSE.
    ExpressionPtr otherwise;
};

/// A query that stands for one value.
struct SubqueryNode {
    std::unique_ptr<Query> query;
};

// Conditions from here on. Those with `negated` have a NOT of their own, as in NOT LIKE and IS NOT NULL.

struct ComparisonNode {
    /// One of = <> < <= > >=.
    QString sign;
    ExpressionPtr left;
    ExpressionPtr right;
};

struct AndNode {
    ExpressionPtr left;
    ExpressionPtr right;
};

struct OrNode {
    ExpressionPtr left;
    ExpressionPtr right;
};

struct NotNode {
    ExpressionPtr condition;
};

struct IsNullNode {
    ExpressionPtr value;
    bool negated = false;
};

struct LikeNode {
    ExpressionPtr text;
    ExpressionPtr pattern;
    bool negated = false;
};

struct BetweenNode {
    ExpressionPtr value;
    ExpressionPtr low;
    ExpressionPtr high;
    bool negated = false;
};

struct InListNode {
    ExpressionPtr value;
    std::vector<ExpressionPtr> list;
    bool negated = false;
};

struct InQueryNode {
    ExpressionPtr value;
    std::unique_ptr<Query> query;
    bool negated = false;
};

struct ExistsNode {
    std::unique_ptr<Query> query;
};

/// An expression or a condition: one of the nodes.
struct Expression {
    using Node =
        std::variant<NullNode, TextNode, NumberNode, ParameterNode, ColumnNode, NegationNode, ArithmeticNode,
                     CallNode, CastNode, CaseNode, SubqueryNode, ComparisonNode, AndNode, OrNode, NotNode,
                     IsNullNode, LikeNode, BetweenNode, InListNode, InQueryNode, ExistsNode>;

    Node node;
    /// Of the tree, queries inside it left out: 1 for a node without parts.
    int height = 1;

    /// The node, if it is of that kind; else null.
    template <class Kind> const Kind* As() const { return std::get_if<Kind>(&node); }
    bool IsCondition() const {
        return IsOneOf<ComparisonNode, AndNode, OrNode, NotNode, IsNullNode, LikeNode, BetweenNode,
                       InListNode, InQueryNode, ExistsNode>();
    }

  private:
    template <class... Kinds> bool IsOneOf() const { return (std::holds_alternative<Kinds>(node) || ...); }
};

/// NULL as it is written.
inline bool IsNullLiteral(const ExpressionPtr& expression) {
    return expression->As<NullNode>() != nullptr;
}

/// "*" or "alias.*" in a select list.
struct SelectedStar {
    /// The alias in front of ".*"; empty for all sources.
    QStringList path;
};

/// A value in a select list.
struct SelectedValue {
    ExpressionPtr value;
    /// Empty where the text gives it no name.
    QString alias;
};

using SelectItem = std::variant<SelectedValue, SelectedStar>;

/// How a source is joined to those in front of it.
struct Join {
    bool left = false;
    ExpressionPtr condition;
};

/// A table or derived table in FROM.
struct TableSource {
    std::variant<ObjectName, std::unique_ptr<Query>> rows;
    /// Empty for a table that keeps its own name.
    QString alias;
    /// Nothing for the first source.
    std::optional<Join> join;
};

/// One SELECT, without the ORDER BY behind it.
struct SelectCore {
    bool distinct = false;
    ExpressionPtr top;
    std::vector<SelectItem> items;
    std::vector<TableSource> sources;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
};

struct OrderItem {
    ExpressionPtr value;
    bool descending = false;
};

/// One or more SELECTs joined by UNION ALL, and their order.
struct Query {
    std::vector<SelectCore> cores;
    std::vector<OrderItem> orderBy;
};

struct SelectStatement {
    Query query;
};

/// The rows behind VALUES.
using ValueRows = std::vector<std::vector<ExpressionPtr>>;

struct InsertStatement {
    ObjectName table;
    /// Empty where the text names no columns.
    QStringList columns;
    std::variant<ValueRows, Query> source;
};

struct Assignment {
    QString column;
    ExpressionPtr value;
};

struct UpdateStatement {
    ObjectName table;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct DeleteStatement {
    ObjectName table;
    ExpressionPtr where;
};

/// IF condition THROW number, 'text', state: a procedure that refuses to go on. What it has done so far is
/// undone.
struct RefusalStatement {
    ExpressionPtr condition;
    int number = 0;
    QString text;
};

/// What stands before the SELECT of an IF or an ELSE: where the condition does not hold, so many of the
/// statements behind it are passed over. Without a condition they always are.
struct BranchStatement {
    ExpressionPtr condition;
    size_t passedOver = 0;
};

using Statement = std::variant<SelectStatement, InsertStatement, UpdateStatement, DeleteStatement,
                               RefusalStatement, BranchStatement>;

/// One argument of a procedure call: a literal, by position or by name.
struct CallArgument {
    /// With "@"; empty for an argument by position.
    QString name;
    ExpressionPtr value;
};

struct ProcedureCall {
    ObjectName procedure;
    std::vector<CallArgument> arguments;
};

/// What a command text may be: nothing, a call or a statement.
using Command = std::variant<std::monostate, ProcedureCall, Statement>;

struct ColumnDefinition {
    QString name;
    SqlType type;
    bool nullable = true;
    bool identity = false;
    /// A literal or GETDATE(); null for a column without default.
    std::shared_ptr<const Expression> defaultValue;
};

/// A PRIMARY KEY or UNIQUE over some columns.
struct KeyDefinition {
    bool primary = false;
    QStringList columns;
};

struct TableDefinition {
    ObjectName name;
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
};

struct IndexedColumn {
    QString name;
    bool descending = false;
};

struct IndexDefinition {
    QString name;
    ObjectName table;
    bool unique = false;
    std::vector<IndexedColumn> columns;
};

struct ParameterDefinition {
    /// With "@".
    QString name;
    SqlType type;
    /// A literal; null for a parameter that every call must supply.
    ExpressionPtr defaultValue;
};

struct ProcedureDefinition {
    ObjectName name;
    std::vector<ParameterDefinition> parameters;
    std::vector<Statement> body;
};

/// USE: the database of all that follows in the script.
struct UseDatabase {
    QString database;
};

/// What a script may hold besides plain statements.
using ScriptStatement =
    std::variant<UseDatabase, TableDefinition, IndexDefinition, ProcedureDefinition, Statement>;
