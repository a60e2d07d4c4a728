#pragma once

#include "components/Component.h"

#include <QString>

#include <optional>

/// The two selling prices of a stock item.
struct StockPrices {
    double SellingPriceOut = 0;
    double SellingPriceIn = 0;
};

/// One entry of a stock card, with the 26 positions of the component's call in their order. A position that
/// nobody in the hospital can tell the meaning of bears its number. One without a value is left out of the
/// call, which is not the same as empty.
struct StockCardEntry {
    QString hospitalNumber = {};
    /// Admission or visit number.
    QString idNumber = {};
    QString itemID = {};
    /// "mm/dd/yyyy hh:mm:ss AM/PM".
    QString moment = {};
    /// The slip or assessment under which the item goes.
    QString referenceNumber = {};
    double quantity = 0;
    qint16 position7 = 0;
    double amount = 0;
    QString userCode = {};
    QString position10 = {};
    QString position11 = {};
    /// The line of the account that a cancelled issue takes back.
    QString chargeLine = {};
    QString position13 = {};
    QString room = {};
    qint16 position15 = 1;
    /// "CS" or "PH", twice.
    QString position16 = {};
    QString position17 = {};
    std::optional<QString> position18 = {};
    /// "C" takes an issue back; without it the entry is an issue.
    std::optional<QString> recordType = {};
    std::optional<QString> position20 = {};
    std::optional<QString> position21 = {};
    /// "I" or "O".
    QString patientType = {};
    std::optional<QString> position23 = {};
    std::optional<QString> position24 = {};
    std::optional<QString> position25 = {};
    qint16 position26 = 0;
};

/// The stock item that a StockItem component stands on.
class StockDrug {
  public:
    virtual ~StockDrug() = default;

    /// Stands on the item of the stock section with exactly that code. False when there is none; the item
    /// stood on before is kept then.
    virtual bool SearchDrug(const QString& text, const QString& section) = 0;
    /// The code of the item stood on; empty before the first.
    virtual QString DrugCode() const = 0;
    /// Its name, likewise.
    virtual QString DrugName() const = 0;
    /// Its prices, likewise 0 before the first.
    virtual StockPrices Invent() const = 0;

    /// Writes one entry on a stock card. Independent of the item stood on. A component may change the entry's
    /// item, reference number, quantity, amount and charge line, which it is handed by reference.
    virtual void AppendStockCard(StockCardEntry& entry) = 0;
};

/// The stock item component, StockItemLib.clsStockItem.
class clsStockItem : public Component {
  public:
    /// Takes the connection by its text. False when no such connection is open.
    virtual bool InitConnect(const QString& connectionString) = 0;
    /// The item that the component stands on. Raises 91, where it reads, when no connection was taken.
    virtual StockDrug& Drug() = 0;
};
