#include "toolkit/ListView.h"

#include "text/RunTimeError.h"
#include "text/TextOrder.h"
#include "toolkit/Twips.h"

#include <QHeaderView>
#include <QPainter>
#include <QShortcut>

#include <algorithm>
#include <numeric>

namespace {

constexpr int kRowPadding = 6;
/// Ctrl+1 to Ctrl+9.
constexpr int kSortKeys = 9;

bool IsNumber(const Value& value) {
    return std::holds_alternative<qint64>(value.Get()) || std::holds_alternative<double>(value.Get()) ||
           std::holds_alternative<Decimal>(value.Get());
}

/// Whether one cell stands before another in ascending order; Null stands before everything.
bool Before(const Value& a, const Value& b) {
    const auto* textA = std::get_if<QString>(&a.Get());
    const auto* textB = std::get_if<QString>(&b.Get());
    if (textA && textB)
        return CompareText(*textA, *textB) < 0;
    const auto* dateA = std::get_if<DateTime>(&a.Get());
    const auto* dateB = std::get_if<DateTime>(&b.Get());
    if (dateA && dateB)
        return *dateA < *dateB;
    if (a.IsNull() || b.IsNull())
        return a.IsNull() && !b.IsNull();
    if (IsNumber(a) && IsNumber(b))
        return a.ToDouble() < b.ToDouble();
    return CompareText(a.ToText(), b.ToText()) < 0;
}

} // namespace

void ListRows::SetColumns(std::span<const GridColumn> columns) {
    beginResetModel();
    mColumns.assign(columns.begin(), columns.end());
    mFields.clear();
    mAmounts.clear();
    endResetModel();
}

void ListRows::SetRows(std::shared_ptr<const RowData> rows) {
    std::vector<size_t> fields = FieldNumbers(*rows, mColumns);
    beginResetModel();
    mRows = std::move(rows);
    mFields = std::move(fields);
    mAmounts.clear();
    for (const size_t field : mFields)
        mAmounts.push_back(HoldsAmounts(*mRows, field));
    mOrder.resize(mRows->RowCount());
    std::iota(mOrder.begin(), mOrder.end(), 0);
    endResetModel();
}

void ListRows::ClearRows() {
    beginResetModel();
    mRows.reset();
    mOrder.clear();
    endResetModel();
}

void ListRows::Sort(size_t column, Qt::SortOrder order) {
    if (!mRows)
        return;
    CheckColumn(column);
    Q_EMIT layoutAboutToBeChanged();
    const std::vector<quint32> before = mOrder;
    std::iota(mOrder.begin(), mOrder.end(), 0);
    std::stable_sort(mOrder.begin(), mOrder.end(), [&](quint32 a, quint32 b) {
        return order == Qt::AscendingOrder ? Before(ValueAt(a, column), ValueAt(b, column))
                                           : Before(ValueAt(b, column), ValueAt(a, column));
    });
    KeepPersistentIndexes(before);
    Q_EMIT layoutChanged();
}

void ListRows::CheckColumn(size_t column) const {
    if (column >= mFields.size())
        throw RunTime::Error(RunTime::kSubscriptOutOfRange);
}

void ListRows::KeepPersistentIndexes(const std::vector<quint32>& before) {
    std::vector<int> rowOf(mOrder.size());
    for (size_t row = 0; row < mOrder.size(); ++row)
        rowOf[mOrder[row]] = int(row);
    for (const QModelIndex& from : persistentIndexList())
        changePersistentIndex(from, index(rowOf[before[size_t(from.row())]], from.column()));
}

QString ListRows::Text(int row, int column) const {
    CheckColumn(size_t(column));
    return ValueAt(mOrder[size_t(row)], size_t(column)).TextOrEmpty();
}

int ListRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(mOrder.size());
}

int ListRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(mColumns.size());
}

Qt::Alignment ListRows::AlignmentOf(size_t column) const {
    if (mColumns[column].alignment)
        return mColumns[column].alignment;
    return column < mAmounts.size() && mAmounts[column] ? Qt::AlignRight : Qt::AlignLeft;
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
    const auto column = size_t(index.column());
    if (column >= mFields.size())
        return {};
    const Value& value = ValueAt(mOrder[size_t(index.row())], column);
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return ListText(value);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(AlignmentOf(column) | Qt::AlignVCenter);
    if (role == Qt::DecorationRole && index.column() == 0)
        return mIcon;
    return {};
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return mColumns[size_t(section)].heading.toString();
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return QVariant::fromValue(AlignmentOf(size_t(section)) | Qt::AlignVCenter);
    return {};
}

ListView::ListView(QWidget* parent)
    : ClickTable(parent)
    , mModel(new ListRows(this)) {
    setModel(mModel);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setShowGrid(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFocusPolicy(Qt::NoFocus);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int section) { Q_EMIT ColumnClick(section + 1); });
    for (int column = 1; column <= kSortKeys; ++column)
        AddSortKey(column);
    RowsChanged();
}

void ListView::AddSortKey(int column) {
    auto* key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_0 + column)), this);
    key->setContext(Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, [this, column] {
        if (column <= mModel->columnCount())
            Q_EMIT ColumnClick(column);
    });
}

void ListView::SetColumns(std::span<const GridColumn> columns) {
    mModel->SetColumns(columns);
    for (size_t i = 0; i < columns.size(); ++i) {
        if (const auto width = WidthOf(columns[i], *this))
            setColumnWidth(int(i), TwipsToPixels(*width));
    }
}

void ListView::SetRows(std::shared_ptr<const RowData> rows) {
    mModel->SetRows(std::move(rows));
    if (mSortKey >= 0)
        mModel->Sort(size_t(mSortKey), mSortOrder);
    RowsChanged();
}

void ListView::ClearRows() {
    mModel->ClearRows();
    RowsChanged();
}

void ListView::RowsChanged() {
    const bool empty = mModel->rowCount() == 0;
    // Tab passes over an empty list: there is nothing to pick in it.
    setFocusPolicy(empty ? Qt::ClickFocus : Qt::StrongFocus);
    if (!empty)
        setCurrentIndex(mModel->index(0, 0));
}

void ListView::focusInEvent(QFocusEvent* event) {
    if (!currentIndex().isValid() && RowCount() > 0)
        setCurrentIndex(mModel->index(0, 0));
    ClickTable::focusInEvent(event);
}

void ListView::paintEvent(QPaintEvent* event) {
    ClickTable::paintEvent(event);
    if (mIsSearching && RowCount() == 0)
        QPainter(viewport()).drawText(viewport()->rect(), Qt::AlignCenter, QStringLiteral("Searching..."));
}

ListSearching::ListSearching(ListView& list)
    : mList(list)
    , mPointer(CurrentMousePointer()) {
    SetMousePointer(MousePointer::Wait);
    mList.mIsSearching = true;
    mList.viewport()->repaint();
}

ListSearching::~ListSearching() {
    mList.mIsSearching = false;
    mList.viewport()->update();
    SetMousePointer(mPointer);
}

QString ListView::CurrentText(int column) const {
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        throw RunTime::Error(RunTime::kObjectNotSet);
    return mModel->Text(current.row(), column);
}

void ListView::SetSortKey(int column) {
    mModel->Sort(size_t(column), mSortOrder);
    mSortKey = column;
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(column, mSortOrder);
    scrollTo(currentIndex());
}
