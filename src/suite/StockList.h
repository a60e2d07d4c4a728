#pragma once

#include "components/clsStockList.h"

class CommandGateway;

/// The stock picker over the hospital's inventory.
class StockList : public clsStockList {
  public:
    bool InitConnection(const QString& connectionString) override;
    // The section given to ShowList decides what is listed.
    void SetDrugsORCSR(bool) override {}
    QString ShowList(const QString& text, bool flag, const QString& section) override;

  private:
    CommandGateway& Connection() const;

    CommandGateway* mConnection = nullptr;
};
