#include "toolkit/ClickTable.h"

#include "toolkit/TableEar.h"
#include "toolkit/Twips.h"
#include "toolkit/WholeText.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QTimer>

#include <utility>

namespace {

/// Its headings and some lines of it: less is no use to the clerk.
constexpr QSize kLeastTwips(3000, 1500);
/// By how much a key makes a column wider or narrower.
constexpr int kStepTwips = 150;

} // namespace

ClickTable::ClickTable(QWidget* parent)
    : QTableView(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    horizontalHeader()->viewport()->installEventFilter(this);
}

QSize ClickTable::sizeHint() const {
    return mStartSize.isValid() ? QSize(TwipsToPixels(mStartSize.width()), TwipsToPixels(mStartSize.height()))
                                : QTableView::sizeHint();
}

QSize ClickTable::minimumSizeHint() const {
    return {TwipsToPixels(kLeastTwips.width()), TwipsToPixels(kLeastTwips.height())};
}

void ClickTable::keyPressEvent(QKeyEvent* event) {
    if (!ResizesColumn(*event))
        QTableView::keyPressEvent(event);
}

bool ClickTable::ResizesColumn(const QKeyEvent& event) {
    // The plus lies above the equals sign on many keyboards.
    const bool wider = event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal;
    const bool resizes =
        event.modifiers().testFlag(Qt::ControlModifier) && (wider || event.key() == Qt::Key_Minus);
    const int column = currentIndex().column();
    if (!resizes || column < 0)
        return resizes;
    const int step = TwipsToPixels(kStepTwips);
    const int width = columnWidth(column) + (wider ? step : -step);
    setColumnWidth(column, qMax(width, step));
    return true;
}

bool ClickTable::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        return ShowWholeCell(static_cast<const QHelpEvent&>(*event));
    return QTableView::viewportEvent(event);
}

bool ClickTable::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && watched == horizontalHeader()->viewport())
        return ShowWholeHeading(static_cast<const QHelpEvent&>(*event));
    return QTableView::eventFilter(watched, event);
}

bool ClickTable::ShowWholeCell(const QHelpEvent& event) {
    const QModelIndex cell = indexAt(event.pos());
    const QString text = cell.data().toString();
    const QRect place = visualRect(cell);
    const bool isCut = sizeHintForIndex(cell).width() > place.width() ||
                       place.right() >= viewport()->width() || place.left() < 0;
    ShowWholeText(*this, event, isCut ? text : QString());
    return true;
}

bool ClickTable::ShowWholeHeading(const QHelpEvent& event) {
    const int column = horizontalHeader()->logicalIndexAt(event.pos());
    const QString text =
        model() ? model()->headerData(column, Qt::Horizontal).toString().trimmed() : QString();
    const bool isCut = column >= 0 && horizontalHeader()->sectionSizeHint(column) > columnWidth(column);
    ShowWholeText(*this, event, isCut ? text : QString());
    return true;
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
