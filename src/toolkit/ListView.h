#pragma once

#include "gateway/RowSet.h"
#include "toolkit/ClickTable.h"
#include "toolkit/GridColumn.h"
#include "toolkit/MousePointer.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <memory>
#include <span>
#include <vector>

/// The rows of a ListView: a result's rows, some of its columns, in a sort order of its own. Nothing is
/// copied; texts are made when they are shown, those of decimals as amounts. They read as they are.
class ListRows : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetColumns(std::span<const GridColumn> columns);
    /// The rows in the result's order, under each heading the column's field. Raises 3265 for a field that
    /// the result lacks, and shows what it showed before.
    void SetRows(std::shared_ptr<const RowData> rows);
    void ClearRows();
    /// Sorts by one column, keeping rows that are equal in their order. Dates go by time, numbers by size,
    /// all else by text. Raises 9 for a column that the rows do not have.
    void Sort(size_t column, Qt::SortOrder order);
    void SetRowIcon(const QIcon& icon) { mIcon = icon; }

    /// Raises 9 for a column that the rows do not have.
    QString Text(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void CheckColumn(size_t column) const;
    /// The selected row stays the same record when the order changes.
    void KeepPersistentIndexes(const std::vector<quint32>& before);
    Qt::Alignment AlignmentOf(size_t column) const;
    const Value& ValueAt(size_t row, size_t column) const { return mRows->Cell(row, mFields[column]); }

    std::vector<GridColumn> mColumns;
    std::shared_ptr<const RowData> mRows;
    /// Of each column, once there are rows.
    std::vector<size_t> mFields;
    std::vector<bool> mAmounts;
    std::vector<quint32> mOrder;
    QIcon mIcon;
};

class ListView;

/// The sign of a search that may take long, for as long as this lives: words in the middle of the empty list,
/// and the waiting pointer. Both are on the screen at once, since the search leaves no moment for painting.
class ListSearching {
  public:
    explicit ListSearching(ListView& list);
    ListSearching(const ListSearching&) = delete;
    ListSearching& operator=(const ListSearching&) = delete;
    ~ListSearching();

  private:
    ListView& mList;
    MousePointer mPointer;
};

/// The list control in its report view: columns with headers that can be clicked, one selected row, an icon
/// per row. The first row is selected when rows arrive.
class ListView : public ClickTable {
    Q_OBJECT

  public:
    explicit ListView(QWidget* parent = nullptr);

    /// The columns in place of any others, from the first one on; each shows its field.
    void SetColumns(std::span<const GridColumn> columns);
    void SetRowIcon(const QIcon& icon) { mModel->SetRowIcon(icon); }

    /// Shows the rows in place of any others, in the result's order unless a sort was set before. Raises 3265
    /// for a column whose field the result lacks.
    void SetRows(std::shared_ptr<const RowData> rows);
    void ClearRows();
    int RowCount() const { return mModel->rowCount(); }

    /// The current row's text in a column counted from 0. Raises 91 when no row is marked, as in an empty
    /// list, and 9 for a column that there is not.
    QString CurrentText(int column) const;

    Qt::SortOrder SortOrder() const { return mSortOrder; }
    /// Takes effect with the next SetSortKey.
    void SetSortOrder(Qt::SortOrder order) { mSortOrder = order; }
    /// Sorts by the column, counted from 0, in the sort order. Raises 9 for a column that the rows do not
    /// have; before there are rows, they raise it when they come.
    void SetSortKey(int column);

  protected:
    /// A list without a marked row marks its first one when the clerk comes to it.
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  Q_SIGNALS:
    /// A click on the header of the column with that number, counted from 1; Ctrl with that digit does the
    /// same.
    void ColumnClick(int column);

  private:
    friend class ListSearching;

    void RowsChanged();
    void AddSortKey(int column);

    ListRows* mModel;
    Qt::SortOrder mSortOrder = Qt::AscendingOrder;
    int mSortKey = -1;
    bool mIsSearching = false;
};
