#pragma once

#include "components/Component.h"

#include <QString>

/// The two selling prices of a stock item.
struct StockPrices {
    double SellingPriceOut = 0;
    double SellingPriceIn = 0;
};

/// The stock item that a StockItem component stands on.
class StockDrug {
  public:
    virtual ~StockDrug() = default;

    /// Stands on the item of the stock section with exactly that code. False when there is none; the item
    /// stood on before is kept then.
    virtual bool SearchDrug(const QString& text, const QString& section) = 0;
    virtual QString DrugCode() const = 0;
    virtual QString DrugName() const = 0;
    virtual StockPrices Invent() const = 0;
};

/// The stock item component, StockItemLib.clsStockItem.
class clsStockItem : public Component {
  public:
    /// Takes the connection by its text. False when no such connection is open.
    virtual bool InitConnect(const QString& connectionString) = 0;
    virtual StockDrug& Drug() = 0;
};
