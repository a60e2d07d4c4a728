#pragma once

#include "toolkit/ClickTable.h"
#include "toolkit/FlexCells.h"

/// The grid control: the view of a FlexCells, moved by code or by the clerk.
///
/// A grid that nobody has filled yet looks empty, whatever its size, and in a list from which a row is picked
/// a blank row bears no mark.
///
/// Moves by the clerk (mouse, arrow keys) raise LeaveCell, EnterCell and RowColChange in this order; moves by
/// code raise none of them, since the code calls what it needs by name. A click takes the focus first, then
/// moves, then raises GotFocus unless a handler has passed the focus on, and Click when the button goes up.
class FlexGrid : public ClickTable {
    Q_OBJECT

  public:
    explicit FlexGrid(QWidget* parent = nullptr);

    /// The texts and the current cell, which the view follows.
    FlexCells& Cells() { return *mCells; }
    const FlexCells& Cells() const { return *mCells; }

    /// The columns from the fixed one on: their headings and alignments as FlexCells has them, and their
    /// widths. All of them outlive a binding.
    void SetColumns(std::span<const GridColumn> columns);
    /// The current row's text in a column, as FlexCells has it.
    QString CurrentText(int col) const { return mCells->CurrentText(col); }

    /// The width of one column in twips, for a column that no table knows; 0 hides it.
    void SetColWidth(int col, int twips);
    /// 960 for a column whose width nobody has set.
    int ColWidth(int col) const;

    /// The first row in sight, counted with the fixed one.
    int TopRow() const;
    /// The cell's place in this control's own coordinates.
    QRect CellRect(int row, int col) const;
    /// Scrolls until the cell is in sight.
    void Reveal(int row, int col);
    /// Off: changes do not show until it is on again.
    void SetRedraw(bool on);
    /// Whether changes show at once.
    bool Redraw() const;
    /// Paints a part anew though redraw is off, in this control's own coordinates. For what lay over it and
    /// has gone: it would stand there as a ghost.
    void Uncover(const QRect& part);
    /// Marks the whole current row instead of one cell, for lists from which a row is picked.
    void SetRowSelect(bool whole);

  Q_SIGNALS:
    /// The clerk leaves the current cell, which is still the old one.
    void LeaveCell();
    /// The clerk has come to another cell, which is the current one now.
    void EnterCell();
    /// Behind EnterCell, once for each move.
    void RowColChange();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void FollowCells();
    void KeepWidth(int col, int twips);
    void KeepClerksWidth(int col, int pixels);
    int ShownWidth(int col) const;
    int FittingWidth(int col) const;
    void ApplyWidths();
    void ShowHeaders();
    void StepOutOfHiddenColumn();

    FlexCells* mCells;
    std::vector<int> mWidths;
    /// In pixels, of the columns that the clerk has made wider or narrower.
    QHash<int, int> mClerksWidths;
    bool mApplies = false;
    bool mFollowing = false;
};
