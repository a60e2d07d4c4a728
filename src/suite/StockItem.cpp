#include "suite/StockItem.h"

#include "gateway/CommandGateway.h"
#include "gateway/SqlText.h"
#include "suite/LiveConnection.h"
#include "text/RunTimeError.h"

#include <QStringList>

using namespace Qt::StringLiterals;

bool StockItem::InitConnect(const QString& connectionString) {
    mConnection = FindLiveConnection(connectionString);
    return mConnection != nullptr;
}

CommandGateway& StockItem::Connection() const {
    if (!mConnection)
        throw RunTime::Error(RunTime::kObjectNotSet);
    return *mConnection;
}

bool StockItem::SearchDrug(const QString& text, const QString& section) {
    const RowSet item = Connection().Execute(
        u"SELECT ItemID, ItemName, SellingPriceOut, SellingPriceIn FROM INVENTORY..tbInvMaster WHERE SectionID = "_s +
        SqlLiteral(section) + u" AND ItemID = "_s + SqlLiteral(text));
    if (item.Eof())
        return false;
    mCode = item.Fields(u"ItemID").ToText();
    mName = item.Fields(u"ItemName").ToText();
    mPrices = {item.Fields(u"SellingPriceOut").ToDouble(), item.Fields(u"SellingPriceIn").ToDouble()};
    return true;
}

void StockItem::AppendStockCard(StockCardEntry& entry) {
    // What the procedure has no parameter for is of no use to this inventory.
    QStringList arguments;
    for (const Value& value : std::initializer_list<Value>{
             entry.hospitalNumber, entry.idNumber, entry.itemID, entry.moment, entry.referenceNumber,
             entry.quantity, entry.amount, entry.userCode, entry.chargeLine, entry.room,
             entry.recordType.value_or(QString()), entry.patientType})
        arguments << SqlLiteral(value);
    Connection().ExecuteNoResult(u"INVENTORY..spStock_AppendStockCard "_s + arguments.join(u", "_s));
}
