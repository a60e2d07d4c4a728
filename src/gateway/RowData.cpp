#include "gateway/RowData.h"

#include <utility>

namespace {

/// Two zeros of different signs are equal numbers and different texts.
bool IsSame(const Value& a, const Value& b) {
    return a == b && !std::holds_alternative<double>(a.Get());
}

} // namespace

std::optional<size_t> RowData::Find(QStringView column) const {
    for (size_t i = 0; i < columns.size(); ++i) {
        if (column.compare(columns[i], Qt::CaseInsensitive) == 0)
            return i;
    }
    return std::nullopt;
}

void RowData::Add(Value value) {
    Column& column = NextColumn();
    const size_t rows = column.places.Size();
    if (rows > 0 && IsSame(column.values[column.places.At(rows - 1)], value)) {
        column.places.Add(column.places.At(rows - 1));
        return;
    }
    column.places.Add(quint32(column.values.size()));
    column.values.push_back(std::move(value));
}

void RowData::AddAsIn(size_t row) {
    NarrowNumbers& places = NextColumn().places;
    places.Add(places.At(row));
}

void RowData::Set(size_t row, size_t column, Value value) {
    Column& cells = mColumns[column];
    cells.places.Set(row, quint32(cells.values.size()));
    cells.values.push_back(std::move(value));
}

RowData::Column& RowData::NextColumn() {
    mColumns.resize(columns.size());
    Column& column = mColumns[mNext];
    mNext = mNext + 1 < columns.size() ? mNext + 1 : 0;
    return column;
}
