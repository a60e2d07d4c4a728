#pragma once

#include <QString>

/// The catalogue of revenue centres: validates a keyed department code against the database, lets the clerk
/// pick when the text is no code, and holds the centre that was found.
class clsRevenueCode {
  public:
    /// Validates a code. False when there is no such centre, which it tells, or when the clerk picked none;
    /// the centre held before stays then. The text is not changed; the code found is `RevenueID`.
    bool ValidateRevenue(const QString& RevenueID);
    /// The centre's code; it goes into the department column of a charge line.
    QString RevenueID() const { return mRevenueID; }
    /// The centre's name.
    QString Revenue() const { return mRevenue; }
    /// "Y" when the centre has a list of priced items.
    QString WithItems() const { return mWithItems; }
    /// Whether the centre's items come from stock.
    bool SearchInventory() const { return mSearchInventory; }
    /// The centre's stock location; empty when it has none.
    QString LocationID() const { return mLocationID; }
    /// Kept: nothing sets it; it reads as the empty text.
    QString StockCardRevenueID() const { return {}; }

  private:
    QString mRevenueID;
    QString mRevenue;
    QString mWithItems;
    bool mSearchInventory = false;
    QString mLocationID;
};
