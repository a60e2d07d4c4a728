#include "toolkit/ClickTable.h"

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
