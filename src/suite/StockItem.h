#pragma once

#include "components/clsStockItem.h"

class CommandGateway;

/// The stock item component over the hospital's inventory.
class StockItem : public clsStockItem, private StockDrug {
  public:
    bool InitConnect(const QString& connectionString) override;
    StockDrug& Drug() override { return *this; }

  private:
    bool SearchDrug(const QString& text, const QString& section) override;
    QString DrugCode() const override { return mCode; }
    QString DrugName() const override { return mName; }
    StockPrices Invent() const override { return mPrices; }
    void AppendStockCard(StockCardEntry& entry) override;

    /// The connection; raises 91 when none was taken.
    CommandGateway& Connection() const;

    CommandGateway* mConnection = nullptr;
    QString mCode;
    QString mName;
    StockPrices mPrices;
};
