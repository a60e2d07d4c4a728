#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include <utility>
#include <vector>

class ClickTable;

/// A table as screen readers hear it: its headings and cells, in the columns that are shown. Rows and columns
/// are counted from 0 and without the headings; the headings are row -1.
class TableEar : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit TableEar(ClickTable& table);
    ~TableEar() override;

    /// The heading or the cell; null outside the table.
    QAccessibleInterface* At(int row, int column) const;
    /// The cell in which the clerk is; null for none, and where it stands in a column that is not shown the
    /// row's first one.
    QAccessibleInterface* Current() const;
    ClickTable& Table() const;
    /// The table's own number of a column that is shown.
    int LogicalColumn(int column) const { return ShownColumns()[size_t(column)]; }

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int /*row*/) const override { return {}; }
    int columnCount() const override;
    int rowCount() const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    // A list has one row marked, always.
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

  private:
    std::vector<int> ShownColumns() const;
    /// Whether the headings are a row of their own.
    bool HasHeadings() const;
    void Forget();

    /// Those that have been asked for, by row and column.
    mutable QHash<std::pair<int, int>, QAccessible::Id> mCells;
};
