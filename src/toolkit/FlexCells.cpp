#include "toolkit/FlexCells.h"

#include "text/RunTimeError.h"

#include <QFont>

using namespace Qt::StringLiterals;

namespace {

/// The last column with a heading or an alignment; -1 for none.
int LastTold(std::span<const GridColumn> columns) {
    int last = int(columns.size()) - 1;
    while (last >= 0 && columns[size_t(last)].heading.isNull() && !columns[size_t(last)].alignment)
        --last;
    return last;
}

} // namespace

FlexCells::FlexCells(QObject* parent)
    : QAbstractTableModel(parent)
    , mTexts(4)
    , mColumns(2) {}

void FlexCells::CheckRow(int row) const {
    if (row < 0 || row >= mRows)
        throw RunTime::Error(RunTime::kInvalidRow);
}

void FlexCells::CheckCol(int col) const {
    if (col < 0 || col >= mCols)
        throw RunTime::Error(RunTime::kInvalidCol);
}

void FlexCells::SetRows(int rows) {
    if (rows < 1)
        throw RunTime::Error(RunTime::kInvalidRow);
    if (rows > mRows && !mBound)
        AppendRows(rows);
    else if (rows != mRows)
        Resize(rows, mCols);
}

void FlexCells::SetCols(int cols) {
    if (cols < 1)
        throw RunTime::Error(RunTime::kInvalidCol);
    if (cols != mCols)
        Resize(mRows, cols);
}

void FlexCells::AppendRows(int rows) {
    beginInsertRows({}, mRows - 1, rows - 2);
    mTexts.resize(size_t(rows) * size_t(mCols));
    mRows = rows;
    endInsertRows();
}

void FlexCells::Resize(int rows, int cols) {
    beginResetModel();
    OwnTexts();
    std::vector<QString> texts(size_t(rows) * size_t(cols));
    for (int row = 0; row < qMin(rows, mRows); ++row) {
        for (int col = 0; col < qMin(cols, mCols); ++col)
            texts[size_t(row) * size_t(cols) + size_t(col)] = std::move(mTexts[At(row, col)]);
    }
    mTexts = std::move(texts);
    mRows = rows;
    mCols = cols;
    mColumns.resize(size_t(cols));
    endResetModel();
    ClampCurrent();
}

void FlexCells::ClampCurrent() {
    mRow = qMin(mRow, mRows - 1);
    mCol = qMin(mCol, mCols - 1);
    Q_EMIT CurrentMoved();
}

void FlexCells::SetRow(int row) {
    SetCell(row, mCol);
}

void FlexCells::SetCol(int col) {
    SetCell(mRow, col);
}

void FlexCells::SetCell(int row, int col) {
    CheckRow(row);
    CheckCol(col);
    mRow = row;
    mCol = col;
    Q_EMIT CurrentMoved();
}

QString FlexCells::TextMatrix(int row, int col) const {
    CheckRow(row);
    CheckCol(col);
    if (!mBound)
        return mTexts[At(row, col)];
    if (row > 0)
        return col == 0 ? QString() : mBound->Cell(size_t(row) - 1, size_t(col) - 1).TextOrEmpty();
    const Column& column = mColumns[size_t(col)];
    if (column.hasHeading)
        return column.heading;
    return col == 0 ? QString() : mBound->columns[size_t(col) - 1];
}

void FlexCells::SetTextMatrix(int row, int col, const QString& text) {
    CheckRow(row);
    CheckCol(col);
    OwnTexts();
    mTexts[At(row, col)] = text;
    mIsFilled = mIsFilled || !text.isEmpty();
    if (row == 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, qMax(col - 1, 0), qMax(col - 1, 0));
    else if (col == 0)
        Q_EMIT headerDataChanged(Qt::Vertical, row - 1, row - 1);
    else
        Q_EMIT dataChanged(index(row - 1, col - 1), index(row - 1, col - 1));
}

bool FlexCells::IsBlank(int row) const {
    for (int col = 1; col < mCols; ++col) {
        if (!TextMatrix(row, col).isEmpty())
            return false;
    }
    return true;
}

void FlexCells::OwnTexts() {
    if (!mBound)
        return;
    std::vector<QString> texts;
    texts.reserve(size_t(mRows) * size_t(mCols));
    for (int row = 0; row < mRows; ++row) {
        for (int col = 0; col < mCols; ++col)
            texts.push_back(TextMatrix(row, col));
    }
    mTexts = std::move(texts);
    mBound.reset();
}

void FlexCells::Clear() {
    beginResetModel();
    mBound.reset();
    mIsFilled = false;
    mTexts.assign(size_t(mRows) * size_t(mCols), QString());
    endResetModel();
}

void FlexCells::Bind(std::shared_ptr<const RowData> rows) {
    beginResetModel();
    mRows = int(rows->RowCount()) + 1;
    mCols = int(rows->columns.size()) + 1;
    mColumns.resize(size_t(mCols));
    mTexts.clear();
    mAmounts.assign(1, false);
    for (size_t field = 0; field < rows->columns.size(); ++field)
        mAmounts.push_back(HoldsAmounts(*rows, field));
    mBound = std::move(rows);
    mIsFilled = true;
    mRow = qMin(1, mRows - 1);
    mCol = qMin(1, mCols - 1);
    endResetModel();
    Q_EMIT CurrentMoved();
}

void FlexCells::SetColumns(std::span<const GridColumn> columns) {
    if (!mBound)
        SetCols(qMax(mCols, LastTold(columns) + 1));
    for (size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].heading.isNull())
            SetHeading(int(i), columns[i].heading.toString());
        if (columns[i].alignment)
            SetAlignment(int(i), columns[i].alignment);
    }
}

void FlexCells::SetHeading(int col, const QString& heading) {
    CheckCol(col);
    mColumns[size_t(col)].heading = heading;
    mColumns[size_t(col)].hasHeading = true;
    if (mBound)
        Q_EMIT headerDataChanged(Qt::Horizontal, qMax(col - 1, 0), qMax(col - 1, 0));
    else
        SetTextMatrix(0, col, heading);
}

void FlexCells::SetHeaderBold(int col, bool bold) {
    CheckCol(col);
    mColumns[size_t(col)].headerBold = bold;
    Q_EMIT headerDataChanged(Qt::Horizontal, qMax(col - 1, 0), qMax(col - 1, 0));
}

void FlexCells::SetAlignment(int col, Qt::Alignment alignment) {
    CheckCol(col);
    mColumns[size_t(col)].alignment = alignment;
    Q_EMIT headerDataChanged(Qt::Horizontal, qMax(col - 1, 0), qMax(col - 1, 0));
    if (col > 0 && mRows > 1)
        Q_EMIT dataChanged(index(0, col - 1), index(mRows - 2, col - 1), {Qt::TextAlignmentRole});
}

Qt::Alignment FlexCells::AlignmentOf(int col) const {
    if (mColumns[size_t(col)].alignment)
        return mColumns[size_t(col)].alignment;
    return mBound && mAmounts[size_t(col)] ? Qt::AlignRight : Qt::AlignLeft;
}

QString FlexCells::ShownText(int row, int col) const {
    return mBound ? ListText(mBound->Cell(size_t(row) - 1, size_t(col) - 1)) : TextMatrix(row, col);
}

int FlexCells::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : mRows - 1;
}

int FlexCells::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : mCols - 1;
}

QVariant FlexCells::data(const QModelIndex& index, int role) const {
    const int row = index.row() + 1;
    const int col = index.column() + 1;
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return ShownText(row, col);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(AlignmentOf(col) | Qt::AlignVCenter);
    return {};
}

QVariant FlexCells::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? TextMatrix(section + 1, 0) : QVariant();
    const int col = section + 1;
    if (role == Qt::DisplayRole)
        return TextMatrix(0, col);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(AlignmentOf(col) | Qt::AlignVCenter);
    if (role == Qt::FontRole && mColumns[size_t(col)].headerBold) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}
