#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "maintenance/frmListCharges.h"
#include "patients/CashTarget.h"
#include "patients/FinderTarget.h"
#include "reports/frmLedger.h"
#include "shell/RegisterScreens.h"
#include "support/ScreenTest.h"
#include "toolkit/Screens.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

using RegisterScreensTest = ScreenTest;

TEST_F(RegisterScreensTest, ThePostingScreenWaitsInModePost) {
    RegisterScreens();
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>()) << "registering touches no screen";
    EXPECT_EQ(FinderTargetOf(u"Post"_s), static_cast<FinderTarget*>(&Screens::Get<frmPostCharges>()));
}

TEST_F(RegisterScreensTest, TheListOfChargesWaitsInModeList) {
    RegisterScreens();
    EXPECT_FALSE(Screens::IsLoaded<frmListCharges>()) << "registering touches no screen";
    EXPECT_EQ(FinderTargetOf(u"List"_s), &ListChargesTarget());
}

TEST_F(RegisterScreensTest, TheLedgerWaitsInModeLedger) {
    RegisterScreens();
    EXPECT_FALSE(Screens::IsLoaded<frmLedger>()) << "registering touches no screen";
    EXPECT_EQ(FinderTargetOf(u"Ledger"_s), static_cast<FinderTarget*>(&Screens::Get<frmLedger>()));
}

TEST_F(RegisterScreensTest, TheAssessmentWaitsForACashPatient) {
    RegisterScreens();
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>()) << "registering touches no screen";
    EXPECT_EQ(&WaitingCashTarget(), static_cast<CashTarget*>(&Screens::Get<frmAssessment>()));
}

TEST_F(RegisterScreensTest, NoScreenWaitsInAnotherMode) {
    RegisterScreens();
    EXPECT_EQ(FinderTargetOf(u"post"_s), nullptr);
    EXPECT_EQ(FinderTargetOf(QString()), nullptr);
}

} // namespace
