#pragma once

#include "gateway/RowSet.h"

#include <array>
#include <map>

/// The sums of a report's columns over runs of its rows. Each is added up once: a page that is painted again
/// asks for its sums again, and those of a long report take in all its rows.
class ReportSums {
  public:
    /// The sum of a column over rows, the last one excluded, to the fourth decimal: what an exact decimal has
    /// behind it is cut. Null counts nothing, and a text counts as Val reads it. Raises 6 for a sum that is
    /// beyond any account. The rows must be the same at every call.
    const Value& Of(const RowData& rows, size_t column, size_t firstRow, size_t endRow);

  private:
    /// By column, first row and end row.
    std::map<std::array<size_t, 3>, Value> mKnown;
};
