#pragma once

#include "catalogue/clsRevenueCode.h"
#include "charges/ChargeLines.h"
#include "charges/ItemLookup.h"

#include <QObject>

#include <memory>

class FlexGrid;
class QLineEdit;
class QWidget;

/// A charge screen's way of keying: the grid whose cells are edited through one floating text box, laid over
/// the current cell. Both charge screens have one; what tells them apart stands in their
/// ChargeGridDifferences.
class ChargeGrid : public QObject, private LineEditor {
    Q_OBJECT

  public:
    /// Makes `grdTable` and `txtEntry` inside the frame; `total` is the screen's total box.
    ChargeGrid(QWidget* frame, QLineEdit* total, const ChargeGridDifferences& differences);

    FlexGrid* Grid() const { return grdTable; }
    QLineEdit* Editor() const { return txtEntry; }
    const FlexCells& Cells() const;
    FlexCells& Cells();

    /// Columns, sizes, headers: 8 lines, whatever was keyed below them. The total follows a grid that was
    /// cut.
    void SetupGrid();
    /// The first arrival at the end of the last line moves nothing again.
    void DisarmLastRow() { mLines.LastRowArmed = false; }
    /// Hides the editor until a cell opens again, for lines that were put into the grid as a whole. The focus
    /// goes to the grid where the editor had it.
    void HideEditor();
    /// Writes the sum of the lines into the total box.
    void ComputeTotal();
    /// Whether the code stands on another line of the current line's department.
    bool Check_Code(const QString& strCode) const { return mLines.Check_Code(strCode); }
    /// Whether the last line has a department or the first one a particular; tells the clerk when neither
    /// has. Raises 30010 and its like for a grid that lacks lines or columns.
    bool HasLines() const;
    /// True where nothing stands in any line.
    bool IsEmpty() const;
    /// Off: changes of the grid do not show until it is on again.
    void SetRedraw(bool on) override;
    /// Empties the line counters; each charge screen calls it when it unloads.
    static void ResetLineCount();

    /// A line's text in a column.
    QString Text(int row, int col) const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Wire();

    QString EditorText() const override;
    void SetEditorText(const QString& text) override;
    void grdTable_LeaveCell() override;
    void grdTable_EnterCell() override;
    void grdTable_RowColChange();
    void grdTable_Click() { grdTable_EnterCell(); }
    void grdTable_GotFocus() { grdTable_EnterCell(); }
    void txtEntry_KeyPress(int& keyAscii);
    bool txtEntry_KeyDown(int keyCode, Qt::KeyboardModifiers shift);
    void txtEntry_Change(const QString& text);
    void txtEntry_GotFocus();

    /// What Enter does in a column. False when the handler ends there, without moving on.
    bool EnterInColumn();
    bool EnterInQuantity();
    /// Whether the editor's text is a quantity: neither empty nor the header's own word.
    bool CheckQuantity(int row) const;
    void MoveOnFromColumn();
    void DepartmentStep();
    void MoveToColumn(int col);
    void MoveToRow(int row);
    /// Lays the editor over the current cell, with the cell's text.
    void TakeCell();
    void PlaceEditor();
    /// Takes the editor away from a line that was cut off.
    void FollowCutGrid();
    bool IsEmptyLine(int row) const;
    /// The first line in which nothing stands; 0 where there is none.
    int FirstEmptyLine() const;
    /// Opens the Department of the first empty line, which is added where there is none.
    void OpenFirstEmptyLine();

    FlexGrid* grdTable;
    QLineEdit* txtEntry;
    QLineEdit* mTotal;
    ChargeLines mLines;
    ItemLookup mLookup;
    /// Made by the first department and kept.
    std::unique_ptr<clsRevenueCode> Revenue;
    /// The cell that the editor lies over.
    int mEditorRow = 0;
    int mEditorCol = 0;
    /// How often the editor's own line was cut off.
    int mCutLines = 0;
};
