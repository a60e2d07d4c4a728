#pragma once

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

/// An expression or a condition. `arguments` are its parts in the order in which they are written.
struct Expression {
    enum class Kind {
        Null,
        /// `text` is the content.
        Text,
        /// `text` is the number as written.
        Number,
        /// `text` is the name with "@".
        Parameter,
        /// `path` is the name's parts, the column last.
        Column,
        Negate,
        /// `text` is one of + - * / %.
        Arithmetic,
        /// A function; `text` is its name in capitals.
        Call,
        /// CAST and CONVERT to `type`, with `style`.
        Cast,
        /// CASE: condition and value by turns; with `hasElse`, the value of ELSE last. With `hasOperand`, the
        /// operand comes first and values to compare it with stand for the conditions.
        Case,
        /// A query that stands for one value.
        Subquery,
        // Conditions from here on.
        /// `text` is one of = <> < <= > >=.
        Comparison,
        And,
        Or,
        Not,
        IsNull,
        Like,
        Between,
        /// A value in a list of values, or in the rows of a query.
        In,
        Exists,
    };

    Kind kind = Kind::Null;
    QString text;
    QStringList path;
    std::vector<ExpressionPtr> arguments;
    std::unique_ptr<Query> query;
    SqlType type;
    int style = -1;
    bool hasElse = false;
    bool hasOperand = false;
    /// NOT in front of LIKE, BETWEEN, IN or behind IS; DISTINCT in an aggregate.
    bool negated = false;
    bool distinct = false;
    /// COUNT(*).
    bool star = false;
    /// N'…'.
    bool national = false;
    /// The height of the tree.
    int depth = 1;

    bool IsCondition() const { return kind >= Kind::Comparison; }
};

/// One item of a select list: a value with or without a name, or "*", or "alias.*".
struct SelectItem {
    ExpressionPtr value;
    QString alias;
    bool star = false;
    /// The alias in front of ".*".
    QStringList path;
};

/// A table or derived table in FROM.
struct TableSource {
    ObjectName name;
    std::unique_ptr<Query> query;
    QString alias;
    bool leftJoin = false;
    /// The condition of a join; null for the first source.
    ExpressionPtr on;
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

struct InsertStatement {
    ObjectName table;
    /// Empty where the text names no columns.
    QStringList columns;
    /// The rows of VALUES, or a query.
    std::vector<std::vector<ExpressionPtr>> rows;
    std::unique_ptr<Query> query;
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

using Statement =
    std::variant<SelectStatement, InsertStatement, UpdateStatement, DeleteStatement, RefusalStatement>;

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
