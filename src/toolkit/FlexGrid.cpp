#include "toolkit/FlexGrid.h"

#include "toolkit/Focus.h"
#include "toolkit/Twips.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace {

/// The width of a column whose width nobody has set, in twips.
constexpr int kDefaultWidth = 960;
/// As wide as such a column grows with what stands in it, and how many of its lines are measured for that.
constexpr int kWidestUnset = 4800;
constexpr int kMeasuredLines = 50;
constexpr int kGridRowPadding = 6;

/// Leaves the mark away from a blank row, on which there is nothing to pick.
class BlankRowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto* grid = static_cast<const FlexGrid*>(parent());
        const bool isMarked = (option->state & QStyle::State_Selected) != 0;
        if (isMarked && grid->selectionBehavior() == QAbstractItemView::SelectRows &&
            grid->Cells().IsBlank(index.row() + 1))
            option->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    }
};

} // namespace

FlexGrid::FlexGrid(QWidget* parent)
    : ClickTable(parent)
    , mCells(new FlexCells(this)) {
    setModel(mCells);
    setItemDelegate(new BlankRowDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setFocusPolicy(Qt::TabFocus);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setFocusPolicy(Qt::NoFocus);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kGridRowPadding);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setFocusPolicy(Qt::NoFocus);
    connect(mCells, &QAbstractItemModel::modelReset, this, &FlexGrid::ApplyWidths);
    // A reset takes the mark from the view; left without one, the view would move to its first cell with the
    // focus.
    connect(mCells, &QAbstractItemModel::modelReset, this, &FlexGrid::FollowCells);
    connect(mCells, &FlexCells::CurrentMoved, this, &FlexGrid::FollowCells);
    connect(mCells, &QAbstractItemModel::headerDataChanged, this, &FlexGrid::ShowHeaders);
    connect(mCells, &QAbstractItemModel::dataChanged, this, &FlexGrid::ShowHeaders);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int pixels) { KeepClerksWidth(section + 1, pixels); });
    ApplyWidths();
    FollowCells();
}

void FlexGrid::SetColumns(std::span<const GridColumn> columns) {
    mCells->SetColumns(columns);
    for (size_t i = 0; i < columns.size(); ++i) {
        if (const auto width = WidthOf(columns[i], *this))
            KeepWidth(int(i), *width);
    }
    ApplyWidths();
}

void FlexGrid::SetColWidth(int col, int twips) {
    KeepWidth(col, twips);
    ApplyWidths();
}

void FlexGrid::KeepWidth(int col, int twips) {
    if (size_t(col) >= mWidths.size())
        mWidths.resize(size_t(col) + 1, kDefaultWidth);
    mWidths[size_t(col)] = twips;
    mClerksWidths.remove(col);
}

/// What the clerk has drawn out stays when other rows come.
void FlexGrid::KeepClerksWidth(int col, int pixels) {
    if (!mApplies && pixels > 0)
        mClerksWidths[col] = pixels;
}

int FlexGrid::ColWidth(int col) const {
    return size_t(col) < mWidths.size() ? mWidths[size_t(col)] : kDefaultWidth;
}

int FlexGrid::ShownWidth(int col) const {
    const int twips = ColWidth(col);
    if (twips != 0 && mClerksWidths.contains(col))
        return mClerksWidths.value(col);
    return twips == kDefaultWidth ? FittingWidth(col) : TwipsToPixels(twips);
}

/// A column of the usual width grows with its heading, which is a field's name that nobody has measured, and
/// with what stands in its first lines.
int FlexGrid::FittingWidth(int col) const {
    const QString heading = mCells->TextMatrix(0, col);
    const int least =
        qMax(kDefaultWidth, *WidthOf({.heading = heading, .width = GridColumn::kAsHeading}, *this));
    int content = 0;
    for (int line = 0; line < qMin(mCells->rowCount(), kMeasuredLines); ++line)
        content = qMax(content, sizeHintForIndex(mCells->index(line, col - 1)).width());
    return qMax(TwipsToPixels(least), qMin(content + 1, TwipsToPixels(kWidestUnset)));
}

void FlexGrid::ApplyWidths() {
    const QScopedValueRollback applies(mApplies, true);
    verticalHeader()->setFixedWidth(TwipsToPixels(ColWidth(0)));
    ShowHeaders();
    for (int col = 1; col < mCells->Cols(); ++col) {
        const int width = ShownWidth(col);
        setColumnHidden(col - 1, width == 0);
        if (width > 0)
            setColumnWidth(col - 1, width);
    }
}

void FlexGrid::ShowHeaders() {
    const bool isUnfilled = mCells->IsUnfilled();
    horizontalHeader()->setVisible(!isUnfilled);
    verticalHeader()->setVisible(!isUnfilled && ColWidth(0) > 0);
}

int FlexGrid::TopRow() const {
    const int row = rowAt(0);
    return row < 0 ? 1 : row + 1;
}

QRect FlexGrid::CellRect(int row, int col) const {
    return visualRect(mCells->index(row - 1, col - 1)).translated(viewport()->pos());
}

void FlexGrid::Reveal(int row, int col) {
    scrollTo(mCells->index(row - 1, col - 1));
}

void FlexGrid::SetRedraw(bool on) {
    viewport()->setUpdatesEnabled(on);
}

bool FlexGrid::Redraw() const {
    return viewport()->updatesEnabled();
}

void FlexGrid::Uncover(const QRect& part) {
    if (Redraw())
        return;
    // Not by setUpdatesEnabled, which would paint the whole grid.
    viewport()->setAttribute(Qt::WA_UpdatesDisabled, false);
    viewport()->repaint(part.translated(-viewport()->pos()));
    viewport()->setAttribute(Qt::WA_UpdatesDisabled);
}

void FlexGrid::SetRowSelect(bool whole) {
    setSelectionBehavior(whole ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
    FollowCells();
}

void FlexGrid::FollowCells() {
    if (mFollowing)
        return;
    mFollowing = true;
    setCurrentIndex(mCells->index(mCells->Row() - 1, mCells->Col() - 1));
    mFollowing = false;
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    ClickTable::currentChanged(current, previous);
    if (mFollowing || !current.isValid())
        return;
    Q_EMIT LeaveCell();
    mFollowing = true;
    mCells->SetCell(current.row() + 1, current.column() + 1);
    mFollowing = false;
    Q_EMIT EnterCell();
    Q_EMIT RowColChange();
}

void FlexGrid::StepOutOfHiddenColumn() {
    const QModelIndex current = currentIndex();
    const int shown = horizontalHeader()->logicalIndexAt(0);
    if (!current.isValid() || !isColumnHidden(current.column()) || shown < 0)
        return;
    mFollowing = true;
    setCurrentIndex(current.siblingAtColumn(shown));
    mFollowing = false;
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    // The view knows no way up or down in a hidden column, and a bound list begins in its first one.
    StepOutOfHiddenColumn();
    ClickTable::keyPressEvent(event);
    FollowCells();
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    HeldGotFocus ownFocus(this);
    setFocus(Qt::MouseFocusReason);
    ClickTable::mousePressEvent(event);
    // The view marks where the mouse was, a handler may have sent the current cell elsewhere.
    FollowCells();
    ownFocus.Release();
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
    // Dragging over the grid would walk the current cell through it; a click means one cell.
    event->accept();
}

void FlexGrid::paintEvent(QPaintEvent* event) {
    if (!mCells->IsUnfilled())
        ClickTable::paintEvent(event);
}
