#include "toolkit/GridColumn.h"

#include "text/Format.h"
#include "text/RunTimeError.h"
#include "toolkit/Twips.h"

#include <QWidget>

namespace {

constexpr int kHeadingMargin = 8;

bool HasDecimals(const Value& value) {
    const auto* decimal = std::get_if<Decimal>(&value.Get());
    return decimal && decimal->text.contains(u'.');
}

} // namespace

std::optional<int> WidthOf(const GridColumn& column, const QWidget& control) {
    if (column.width == GridColumn::kKept)
        return std::nullopt;
    if (column.width == GridColumn::kAsHeading)
        return kTwipsPerPixel *
               (control.fontMetrics().horizontalAdvance(column.heading.toString()) + kHeadingMargin);
    return column.width;
}

bool HoldsAmounts(const RowData& rows, size_t field) {
    size_t row = 0;
    while (row < rows.RowCount() && rows.Cell(row, field).IsNull())
        ++row;
    if (row == rows.RowCount())
        return false;
    const Value& value = rows.Cell(row, field);
    return HasDecimals(value) || std::holds_alternative<double>(value.Get());
}

QString ListText(const Value& value) {
    return HasDecimals(value) ? Format(value.ToDouble(), u"#,##0.00") : value.TextOrEmpty();
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
