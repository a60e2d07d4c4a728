#include "catalogue/clsRevenueCode.h"

#include "catalogue/commands.h"
#include "catalogue/frmSearch.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"

using namespace Qt::StringLiterals;

namespace {

RowSet OpenRevenue(const QString& command) {
    return gConnection->Open(command, CursorType::Dynamic, LockType::Optimistic, CursorLocation::Client);
}

/// Lets the clerk pick a centre. False when none was picked.
bool PickRevenue(const QString& text) {
    frmSearch::SearchCaption = u"Revenue Codes"_s;
    frmSearch::Criteria = text;
    frmSearch::Query = RevenueListQuery();
    Screens::Get<frmSearch>().ShowModal();
    return frmSearch::Valid();
}

} // namespace

bool clsRevenueCode::ValidateRevenue(const QString& RevenueID) {
    RowSet rows = OpenRevenue(ExactRevenueCommand(RevenueID));
    if (rows.RecordCount() != 1) {
        rows.Close();
        rows = OpenRevenue(PartialRevenueCommand(RevenueID));
        const bool none = rows.RecordCount() == 0;
        rows.Close();
        if (none) {
            MsgBox({.text = u"Item does not exists."_s, .icon = MsgIcon::Exclamation});
            return false;
        }
        // A single partial hit is offered too: the clerk keyed no code.
        if (!PickRevenue(RevenueID))
            return false;
        rows = OpenRevenue(ExactRevenueCommand(frmSearch::ResultCode()));
    }
    mRevenueID = rows.Fields(u"RevenueID").ToText();
    mRevenue = rows.Fields(u"Revenue").ToText();
    mWithItems = rows.Fields(u"WithItems").ToText();
    mSearchInventory = rows.Fields(u"SearchInventory").ToBoolean();
    mLocationID = rows.Fields(u"LocationID").TextOrEmpty();
    rows.Close();
    return true;
}
