#include "toolkit/GridColumn.h"

#include "text/RunTimeError.h"
#include "toolkit/Twips.h"

#include <QWidget>

namespace {

constexpr int kHeadingMargin = 8;

} // namespace

std::optional<int> WidthOf(const GridColumn& column, const QWidget& control) {
    if (column.width == GridColumn::kKept)
        return std::nullopt;
    if (column.width == GridColumn::kAsHeading)
        return kTwipsPerPixel *
               (control.fontMetrics().horizontalAdvance(column.heading.toString()) + kHeadingMargin);
    return column.width;
}

std::vector<size_t> FieldNumbers(const RowData& rows, std::span<const GridColumn> columns) {
    std::vector<size_t> numbers;
    for (const GridColumn& column : columns) {
        const auto number = rows.Find(column.field);
        if (!number)
            throw RunTime::Error(RunTime::kItemNotFound);
        numbers.push_back(*number);
    }
    return numbers;
}
