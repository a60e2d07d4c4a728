#pragma once

#include "gateway/RowSet.h"

/// Makes the text of each cell, as a screen that shows them would.
inline void ReadAll(const RowSet& rows) {
    if (rows.State() == RowSet::Status::Closed)
        return;
    const RowData& data = *rows.Data();
    for (size_t row = 0; row < data.RowCount(); ++row) {
        for (size_t column = 0; column < data.columns.size(); ++column)
            data.Cell(row, column).TextOrEmpty();
    }
}
