#pragma once

#include "charges/ChargeColumns.h"

#include <QString>

#include <array>

class clsRevenueCode;
class FlexCells;

/// The rules of a charge screen's lines over the cells of its grid, without a window: which columns are open,
/// where the next cell lies, what a line amounts to, which lines are duplicates.
class ChargeLines {
  public:
    ChargeLines(FlexCells& cells, const ChargeGridDifferences& differences);

    const ChargeGridDifferences& Differences() const { return mDifferences; }

    /// Creates the three column arrays afresh. A lock that was changed for a line is back to the screen's
    /// own.
    void ResetColumns();
    /// The "HC" rule of the current line, told each time the editor is to open.
    void SetAmountLock();
    /// The three below raise 9 for a column beyond the arrays, which a grid bound to a wide result has.
    bool IsLocked(int col) const { return ColLocked[Subscript(col)]; }
    void SetLocked(int col, bool locked) { ColLocked[Subscript(col)] = locked; }
    bool IsChecked(int col) const { return ColChecked[Subscript(col)]; }
    /// The key as the current column lets it through, 0 for one that it swallows.
    int FilterKey(int keyAscii) const;

    /// The current line is a doctor's fee.
    bool OnDoctorsFeeLine() const;
    /// Whether the cell the editor has just taken the focus in needs no keying.
    bool PassesOverOnFocus() const;

    /// Moves the current cell to the next open one. At the end of the last line the first call moves nothing;
    /// every later one adds a line.
    void NextCell();
    /// The first arrival at the end of the last line has been; it stays True until a screen loads.
    bool LastRowArmed = false;

    /// Writes a validated centre into the current line and answers the column to key next.
    int WriteCentre(const clsRevenueCode& centre);

    /// Amount = price x quantity of the current line, as "0.00" text.
    void ComputeAmount();
    /// The sum of the lines' amount texts, as "0.00" text.
    QString ComputeTotal() const;
    /// Rewrites the current cell as a number in the format "0.00".
    void RewriteAsAmount();

    /// Whether the code stands on another line of the current line's department. The grid's last line is not
    /// looked at.
    bool Check_Code(const QString& strCode) const;
    /// Whether the code stands on another line than `row`. `department` is compared with the current line's,
    /// not with the scanned one's. All three are the caller's own and stay as they are.
    bool CheckDuplicateExam(int& row, QString& department, QString& code) const;
    /// Whether no other line than `row` has this department and code.
    bool IsSupplyFree(const QString& department, const QString& code, int row) const;

  private:
    static size_t Subscript(int col);
    /// The first open column at or behind one; 0 when there is none.
    int FirstOpen(int from) const;

    FlexCells& mCells;
    const ChargeGridDifferences& mDifferences;
    std::array<bool, Column::kCount> ColLocked{};
    std::array<bool, Column::kCount> ColChecked{};
    std::array<ChargeInput, Column::kCount> ColInput{};
};
