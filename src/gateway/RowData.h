#pragma once

#include "gateway/NarrowNumbers.h"
#include "gateway/Value.h"

#include <QStringView>

#include <deque>
#include <optional>
#include <vector>

/// The rows of one result in memory. Shared between a row set and the grids bound to it. The rows of a year
/// repeat names, codes and prices a million times: a column holds a value once for all the rows that are
/// known to share it, and a few bytes for each row.
struct RowData {
  public:
    std::vector<QString> columns;

    /// The whole rows that were added.
    size_t RowCount() const { return mColumns.empty() ? 0 : mColumns.back().places.Size(); }
    /// Stays where it is while rows are added.
    const Value& Cell(size_t row, size_t column) const {
        const Column& cells = mColumns[column];
        return cells.values[cells.places.At(row)];
    }
    /// The first column of that name, letter case aside.
    std::optional<size_t> Find(QStringView column) const;

    /// Adds the next cell, row by row. All columns must be there. Shares the value with the row before where
    /// they are the same.
    void Add(Value value);
    /// Adds the next cell with the value that its column has in an earlier row.
    void AddAsIn(size_t row);
    /// Gives a cell another value; the rows that shared the one before keep it.
    void Set(size_t row, size_t column, Value value);

  private:
    struct Column {
        /// Grows to any length, and what is there never moves.
        std::deque<Value> values;
        /// Of each row: where its value stands among them.
        NarrowNumbers places;
    };

    Column& NextColumn();

    std::vector<Column> mColumns;
    size_t mNext = 0;
};
