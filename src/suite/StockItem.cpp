#include "suite/StockItem.h"

#include "gateway/CommandGateway.h"
#include "gateway/RunTimeError.h"
#include "gateway/SqlText.h"
#include "suite/LiveConnection.h"

using namespace Qt::StringLiterals;

bool StockItem::InitConnect(const QString& connectionString) {
    mConnection = FindLiveConnection(connectionString);
    return mConnection != nullptr;
}

bool StockItem::SearchDrug(const QString& text, const QString& section) {
    if (!mConnection)
        throw RunTime::Error(RunTime::kObjectNotSet);
    const RowSet item = mConnection->Execute(
        u"SELECT ItemID, ItemName, SellingPriceOut, SellingPriceIn FROM INVENTORY..tbInvMaster WHERE SectionID = "_s +
        SqlLiteral(section) + u" AND ItemID = "_s + SqlLiteral(text));
    if (item.Eof())
        return false;
    mCode = item.Fields(u"ItemID").ToText();
    mName = item.Fields(u"ItemName").ToText();
    mPrices = {item.Fields(u"SellingPriceOut").ToDouble(), item.Fields(u"SellingPriceIn").ToDouble()};
    return true;
}
