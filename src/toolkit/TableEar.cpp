#include "toolkit/TableEar.h"

#include "toolkit/ClickTable.h"

#include <QHeaderView>
#include <QPointer>

#include <algorithm>

namespace {

/// A heading or a cell.
class CellEar : public QAccessibleInterface, public QAccessibleTableCellInterface {
  public:
    CellEar(const TableEar& ear, int row, int column)
        : mTable(&ear.Table())
        , mRow(row)
        , mColumn(column) {}

    int Row() const { return mRow; }
    int Column() const { return mColumn; }

    bool isValid() const override {
        const TableEar* ear = Ear();
        return ear && mRow < ear->rowCount() && mColumn < ear->columnCount();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? Ear()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return mTable ? QAccessible::queryAccessibleInterface(mTable) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text what) const override {
        if (what != QAccessible::Name || !isValid())
            return {};
        return IsHeading() ? Ear()->columnDescription(mColumn)
                           : mTable->model()->data(Index(), Qt::DisplayRole).toString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        if (!isValid())
            return {};
        const QWidget* shownOn = mTable->viewport();
        QRect place = IsHeading() ? QRect() : mTable->visualRect(Index());
        if (IsHeading()) {
            const QHeaderView* header = mTable->horizontalHeader();
            const int column = Ear()->LogicalColumn(mColumn);
            place = QRect(header->sectionViewportPosition(column), 0, header->sectionSize(column),
                          header->height());
            shownOn = header->viewport();
        }
        return {shownOn->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::Role role() const override {
        return IsHeading() ? QAccessible::ColumnHeader : QAccessible::Cell;
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.readOnly = true;
        state.disabled = !mTable->isEnabled();
        state.invisible = !mTable->isVisible();
        if (IsHeading())
            return state;
        state.selectable = true;
        state.focusable = true;
        state.selected = isSelected();
        state.focused = mTable->hasFocus() && Ear()->Current() == this;
        state.offscreen = !mTable->viewport()->rect().intersects(mTable->visualRect(Index()));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override {
        return isValid() && !IsHeading() && mTable->selectionModel()->isSelected(Index());
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        QAccessibleInterface* heading = isValid() && !IsHeading() ? Ear()->At(-1, mColumn) : nullptr;
        return heading ? QList{heading} : QList<QAccessibleInterface*>();
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return mColumn; }
    int rowIndex() const override { return std::max(0, mRow); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

  private:
    bool IsHeading() const { return mRow < 0; }
    TableEar* Ear() const { return static_cast<TableEar*>(parent()); }
    QModelIndex Index() const { return mTable->model()->index(mRow, Ear()->LogicalColumn(mColumn)); }

    QPointer<ClickTable> mTable;
    int mRow;
    int mColumn;
};

} // namespace

TableEar::TableEar(ClickTable& table)
    : QAccessibleWidget(&table, QAccessible::Table) {}

TableEar::~TableEar() {
    Forget();
}

ClickTable& TableEar::Table() const {
    return *static_cast<ClickTable*>(widget());
}

std::vector<int> TableEar::ShownColumns() const {
    std::vector<int> shown;
    for (int column = 0; column < Table().model()->columnCount(); ++column) {
        if (!Table().isColumnHidden(column))
            shown.push_back(column);
    }
    return shown;
}

bool TableEar::HasHeadings() const {
    return !Table().horizontalHeader()->isHidden();
}

QAccessibleInterface* TableEar::At(int row, int column) const {
    const int first = HasHeadings() ? -1 : 0;
    if (row < first || row >= rowCount() || column < 0 || column >= columnCount())
        return nullptr;
    const std::pair place(row, column);
    if (const auto known = mCells.constFind(place); known != mCells.constEnd())
        return QAccessible::accessibleInterface(*known);
    auto* cell = new CellEar(*this, row, column);
    mCells.insert(place, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QAccessibleInterface* TableEar::Current() const {
    const QModelIndex current = Table().currentIndex();
    const std::vector<int> shown = ShownColumns();
    if (!current.isValid() || shown.empty())
        return nullptr;
    const auto found = std::find(shown.begin(), shown.end(), current.column());
    return At(current.row(), found == shown.end() ? 0 : int(found - shown.begin()));
}

void TableEar::Forget() {
    for (const QAccessible::Id cell : std::as_const(mCells))
        QAccessible::deleteAccessibleInterface(cell);
    mCells.clear();
}

void* TableEar::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int TableEar::childCount() const {
    return (rowCount() + int(HasHeadings())) * columnCount();
}

QAccessibleInterface* TableEar::child(int index) const {
    const int columns = columnCount();
    if (index < 0 || columns == 0)
        return nullptr;
    return At(index / columns - int(HasHeadings()), index % columns);
}

int TableEar::indexOfChild(const QAccessibleInterface* child) const {
    if (!child || child->parent() != this)
        return -1;
    const auto* cell = static_cast<const CellEar*>(child);
    return (cell->Row() + int(HasHeadings())) * columnCount() + cell->Column();
}

QAccessibleInterface* TableEar::childAt(int x, int y) const {
    const QModelIndex hit = Table().indexAt(Table().viewport()->mapFromGlobal(QPoint(x, y)));
    const std::vector<int> shown = ShownColumns();
    const auto found = std::find(shown.begin(), shown.end(), hit.column());
    return hit.isValid() && found != shown.end() ? At(hit.row(), int(found - shown.begin())) : nullptr;
}

QAccessibleInterface* TableEar::focusChild() const {
    return Table().hasFocus() ? Current() : nullptr;
}

QAccessibleInterface* TableEar::cellAt(int row, int column) const {
    return row < 0 ? nullptr : At(row, column);
}

QString TableEar::columnDescription(int column) const {
    if (column < 0 || column >= columnCount())
        return {};
    return Table().model()->headerData(LogicalColumn(column), Qt::Horizontal, Qt::DisplayRole).toString();
}

int TableEar::columnCount() const {
    return int(ShownColumns().size());
}

int TableEar::rowCount() const {
    return Table().model()->rowCount();
}

int TableEar::selectedCellCount() const {
    return int(selectedCells().size());
}

QList<QAccessibleInterface*> TableEar::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    const std::vector<int> shown = ShownColumns();
    for (const QModelIndex& index : Table().selectionModel()->selectedIndexes()) {
        const auto found = std::find(shown.begin(), shown.end(), index.column());
        if (found != shown.end())
            cells << At(index.row(), int(found - shown.begin()));
    }
    return cells;
}

int TableEar::selectedRowCount() const {
    return int(selectedRows().size());
}

QList<int> TableEar::selectedRows() const {
    QList<int> rows;
    for (const QModelIndex& index : Table().selectionModel()->selectedRows())
        rows << index.row();
    return rows;
}

bool TableEar::isRowSelected(int row) const {
    return Table().selectionModel()->isRowSelected(row, {});
}

bool TableEar::selectRow(int row) {
    if (row < 0 || row >= rowCount())
        return false;
    Table().selectRow(row);
    return true;
}

void TableEar::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    // Each cell reads what stands in its place; only those whose places are gone are in the way.
    const int columns = columnCount();
    const int rows = rowCount();
    const auto isGone = [columns, rows](const std::pair<int, int>& place) {
        return place.first >= rows || place.second >= columns;
    };
    for (auto cell = mCells.begin(); cell != mCells.end();) {
        if (isGone(cell.key())) {
            QAccessible::deleteAccessibleInterface(cell.value());
            cell = mCells.erase(cell);
        } else {
            ++cell;
        }
    }
}
