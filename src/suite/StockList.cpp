#include "suite/StockList.h"

#include "gateway/CommandGateway.h"
#include "gateway/SqlText.h"
#include "suite/LastPick.h"
#include "suite/LiveConnection.h"
#include "suite/PickDialog.h"
#include "text/RunTimeError.h"
#include "toolkit/ShowModal.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kStockColumns = {
    GridColumn{u"Code", 1200, u"ItemID"}, GridColumn{u"Item", 3600, u"ItemName"},
    GridColumn{u"Generic Name", 3000, u"GenericName"}, GridColumn{u"Unit", 900, u"Unit"},
    GridColumn{u"Price", 1100, u"SellingPriceIn"}};

QString SectionCommand(const QString& section) {
    return u"SELECT ItemID, ItemName, GenericName, Unit, SellingPriceIn FROM INVENTORY..tbInvMaster WHERE SectionID = "_s +
           SqlLiteral(section);
}

QString Picked(const QString& text, const QString& code) {
    KeepPick(text, code);
    return code;
}

} // namespace

bool StockList::InitConnection(const QString& connectionString) {
    mConnection = FindLiveConnection(connectionString);
    return mConnection != nullptr;
}

/// The plain picker is never handed a connection; it works on the session's own.
CommandGateway& StockList::Connection() const {
    CommandGateway* connection = mConnection ? mConnection : LiveConnection();
    if (!connection)
        throw RunTime::Error(RunTime::kObjectNotSet);
    return *connection;
}

QString StockList::ShowList(const QString& text, bool, const QString& section) {
    ForgetPick();
    if (!text.isEmpty()) {
        const RowSet exact =
            Connection().Execute(SectionCommand(section) + u" AND ItemID = "_s + SqlLiteral(text));
        if (!exact.Eof())
            return Picked(text, exact.Fields(u"ItemID").ToText());
    }
    const auto rows = Connection().Execute(SectionCommand(section) + u" ORDER BY ItemName"_s).Data();
    PickDialog dialog(u"Stock Items"_s, kStockColumns, rows, text);
    if (!ShowModal(dialog))
        return text;
    return Picked(text, rows->Cell(dialog.PickedRow(), 0).ToText());
}
