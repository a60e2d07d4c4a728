#pragma once

#include "gateway/RowSet.h"
#include "gateway/Value.h"

#include <QtGlobal>

#include <compare>
#include <cstddef>
#include <vector>

/// A run of rows, the last one excluded.
struct RowRun {
    quint32 first = 0;
    quint32 end = 0;
    std::strong_ordering operator<=>(const RowRun&) const = default;
};

/// The sums of a report's columns over runs of its rows, all added up when it is made, each cell read once.
class ReportSums {
  public:
    /// No sums at all.
    ReportSums() = default;
    /// The sums of each of the columns over each of the runs, which may lie within each other.
    ReportSums(const RowData& rows, std::vector<size_t> columns, std::vector<RowRun> runs);

    /// The sum of one of the columns over one of the runs, to the fourth decimal: what an exact decimal has
    /// behind it is cut. Null counts nothing, and a text counts as Val reads it. Raises 6 for a sum that is
    /// beyond any account.
    Value Of(size_t column, size_t firstRow, size_t endRow) const;

  private:
    /// A sum in ten-thousandths, as the server keeps money.
    struct Sum {
        qint64 units = 0;
        /// False for one that does not go into whole numbers of 64 bits.
        bool fits = true;
    };

    void AddUp(const RowData& rows, size_t column, Sum* sums) const;

    std::vector<size_t> mColumns;
    /// In order.
    std::vector<RowRun> mRuns;
    /// Of each column one for each run.
    std::vector<Sum> mSums;
};
