#include "shell/RegisterScreens.h"

#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "maintenance/frmListCharges.h"
#include "patients/CashTarget.h"
#include "patients/FinderTarget.h"
#include "reports/frmLedger.h"
#include "toolkit/Screens.h"

using namespace Qt::StringLiterals;

void RegisterScreens() {
    RegisterFinderTarget(u"Post"_s, []() -> FinderTarget& { return Screens::Get<frmPostCharges>(); });
    RegisterFinderTarget(u"List"_s, ListChargesTarget);
    RegisterFinderTarget(u"Ledger"_s, []() -> FinderTarget& { return Screens::Get<frmLedger>(); });
    RegisterCashTarget([]() -> CashTarget& { return Screens::Get<frmAssessment>(); });
}
