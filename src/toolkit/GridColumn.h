#pragma once

#include "gateway/RowSet.h"

#include <QStringView>
#include <Qt>

#include <optional>
#include <span>
#include <vector>

class QWidget;

/// One column of a grid or of a list. A screen tells its columns once, as a table at the head of its file; a
/// grid's table begins with the fixed column. The texts are literals and outlive every control.
struct GridColumn {
    /// A width: the column keeps the one that it has, at first the control's usual one.
    static constexpr int kKept = -1;
    /// A width: the heading fits in, its blanks included.
    static constexpr int kAsHeading = -2;

    /// What stands above the column. Where there is none (not even an empty one), what stands there stays; in
    /// a grid that is bound to a result this is the field's own name.
    QStringView heading = {};
    /// In twips; 0 hides a grid's column.
    int width = kKept;
    /// The result's column that it shows, letter case aside. Empty where the rows come in by their order.
    QStringView field = {};
    /// Without one texts stand on the left and amounts on the right. The heading stands as its column.
    Qt::Alignment alignment = {};
};

/// The width in twips, as the control's font has it for one that goes by its heading; none for one that is
/// kept.
std::optional<int> WidthOf(const GridColumn& column, const QWidget& control);

/// Whether a field of a result holds numbers with decimals, as its first value that is not Null tells. A
/// hospital's number may be a decimal without any.
bool HoldsAmounts(const RowData& rows, size_t field);

/// What a list shows of a value: a decimal with decimals as an amount, "1,250.50", anything else as the
/// run-time's text.
QString ListText(const Value& value);

/// The numbers of the columns' fields in a result. A field that the result lacks raises 3265.
std::vector<size_t> FieldNumbers(const RowData& rows, std::span<const GridColumn> columns);
