#pragma once

#include "gateway/RowSet.h"
#include "report/pages/BoundTemplate.h"
#include "report/pages/ReportSums.h"

#include <QString>

/// Where in the report a text stands.
struct TextPlace {
    /// The report's rows.
    const RowData& rows;
    /// With those of the rows below, where the text shows a sum.
    const ReportSums& sums;
    /// The row whose fields are shown; any number where there are no rows.
    size_t row = 0;
    /// The rows that sums and counts take in, the last one excluded.
    size_t firstRow = 0;
    size_t endRow = 0;
    int page = 1;
    int pages = 1;
};

/// The text that a cell shows at that place. Raises 6 for a sum that is beyond any account.
QString TextOf(const BoundCell& cell, const TextPlace& place);
