#pragma once

#include "text/RunTimeError.h"
#include "trial/translate/KnownValue.h"
#include "tsql/Catalog.h"
#include "tsql/Convert.h"
#include "tsql/SqlType.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// One column of a result: its name as the server gives it and its declared type.
struct ResultColumn {
    QString name;
    SqlType type;
};

/// A parameter that a procedure declares; it is SQLite's parameter of the same number, from 1.
struct DeclaredParameter {
    /// With "@".
    QString name;
    SqlType type;
};

/// An UPDATE in pieces.
struct UpdateParts {
    /// Of the catalog.
    const Table* table = nullptr;
    QString alias;
    /// The columns that it writes, with their new values.
    std::vector<std::pair<const ColumnDefinition*, QString>> assigned;
    /// With its blank and keyword in front; empty for all rows.
    QString where;
};

/// A statement of the server's language as SQLite runs it.
struct Translation {
    QString sql;
    bool writes = false;
    /// Of a SELECT; empty for all others.
    std::vector<ResultColumn> columns;
    /// Texts of the statement itself, and the literals of a command. They are bound like parameters, so no
    /// quote of theirs can be misread. The first one is parameter `firstConstant`.
    std::vector<KnownValue> constants;
    int firstConstant = 1;
    /// A refusal: where the statement brings a row, the command fails with this.
    std::optional<RunTimeError> refusal = {};
    /// A branch: where the statement brings no row, so many of the steps behind it are passed over.
    size_t passedOver = 0;
    /// The number of the parameter that gets the present time; 0 for a statement without GETDATE().
    int clock = 0;
    /// Set for an UPDATE.
    std::optional<UpdateParts> update = {};
    /// The rows of an INSERT that holds nothing but several rows of literals: the statement runs once for
    /// each, with the row's values as its constants.
    std::vector<std::vector<KnownValue>> rows;
};

/// An expression in SQLite's language.
struct Typed {
    QString sql;
    SqlType type;
    /// A column of a table, which brings its collation along.
    bool tableColumn = false;
    /// The value, where it is known already.
    KnownValue constant = {};
    /// The name of a column that stands outside of every aggregate and of every GROUP BY key; empty for none.
    QString looseColumn = {};
    /// Of a sum or difference: its terms, for a longer sum to go on with. SQLite reads only so many
    /// parentheses inside one another. Those of ints and of a wide decimal are arguments of a function,
    /// as many as `termCount`.
    QString terms = {};
    int termCount = 0;
};
