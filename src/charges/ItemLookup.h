#pragma once

#include <QString>

class ChargeLines;
class FlexCells;

/// What the item lookup needs of the grid's editor.
class LineEditor {
  public:
    virtual ~LineEditor() = default;

    virtual QString EditorText() const = 0;
    /// Sets the editor's text and with it the current cell's.
    virtual void SetEditorText(const QString& text) = 0;
    virtual void grdTable_LeaveCell() = 0;
    virtual void grdTable_EnterCell() = 0;
    virtual void SetRedraw(bool on) = 0;
};

/// Turns the text keyed in the Code column into a line with a code, a name and a price: from the stock for
/// the stock departments, from the services for all of them, from the doctors for a fee.
class ItemLookup {
  public:
    ItemLookup(FlexCells& cells, ChargeLines& lines, LineEditor& editor);

    /// The department of the line last validated.
    QString CurrentRevenueID;
    /// Selects the out-patient price of a stock item.
    ///
    /// Kept: nothing sets it, so a stock item costs its in-patient price for everybody.
    bool UseOutPrice = false;

    /// Enter in a checked column. `isDoctorsFee` opens the Amount alone for the move that follows; it is the
    /// caller's own and is read again behind the move.
    void EnterCode(QString& code, bool& isDoctorsFee);
    /// Fills the current line by the code. False when it was not filled; a message was shown where one is
    /// due.
    bool LookupItem(QString& code);
    /// Fills the current line with a doctor. False when none was found.
    bool LookupDoctorFee(QString& code);
    /// Fills the current line with a supply of the line's own stock location. No path calls it in this
    /// release.
    bool LookupSupply(QString& code);
    /// Whether no other line than `row` has this department and code; False also after an error, which it
    /// tells.
    bool IsSupplyFree(const QString& department, const QString& code, int row) const;

  private:
    /// An item on its way into a line.
    struct Item {
        bool found = false;
        QString code;
        QString name;
        double price = 0;
        bool isFree = false;
    };

    void MoveOn();
    void SearchStock(QString& code, const QString& section, Item& item);
    void SearchServices(QString& code, Item& item);
    void TakeDrug(QString& code, Item& item) const;
    void TakeService(QString& code, Item& item) const;
    void TakeRate(Item& item) const;
    Item FindSupply(QString& code) const;
    bool WriteUnlessDuplicate(Item& item);
    bool WriteFreeSupply(const Item& item);
    void WriteItem(const Item& item);
    /// Empties the current cell and opens it again.
    void ReopenEmpty();
    bool IsDuplicate(QString& code);

    FlexCells& mCells;
    ChargeLines& mLines;
    LineEditor& mEditor;
};
