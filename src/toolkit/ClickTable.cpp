#include "toolkit/ClickTable.h"

#include "toolkit/TableEar.h"

#include <QTimer>

#include <utility>

ClickTable::ClickTable(QWidget* parent)
    : QTableView(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
}

void ClickTable::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    if (!std::exchange(mDoubleClicked, false))
        Q_EMIT Click();
}

void ClickTable::mouseDoubleClickEvent(QMouseEvent* event) {
    mDoubleClicked = true;
    QTableView::mouseDoubleClickEvent(event);
    Q_EMIT DblClick();
}

void ClickTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    // The table's own would tell of the cell by a number in which the hidden columns are counted.
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    SpeakCurrent();
}

void ClickTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT(bugprone-parent-virtual-call)
}

void ClickTable::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    // The window system tells of the table itself behind this event; the cell has the last word.
    if (QAccessible::isActive())
        QTimer::singleShot(0, this, &ClickTable::SpeakCurrent);
}

void ClickTable::SpeakCurrent() {
    if (!QAccessible::isActive() || !hasFocus())
        return;
    auto* ear = static_cast<TableEar*>(QAccessible::queryAccessibleInterface(this));
    QAccessibleInterface* cell = ear ? ear->Current() : nullptr;
    if (!cell)
        return;
    QAccessibleEvent event(cell, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
