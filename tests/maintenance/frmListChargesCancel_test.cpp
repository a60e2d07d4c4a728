#include "maintenance/ListChargesGround.h"
#include "patients/commands.h"
#include "patients/frmSearchPatient.h"
#include "support/CaseName.h"
#include "support/FakeWorkspace.h"
#include "toolkit/ListView.h"

#include <QTest>

using namespace Qt::StringLiterals;

class CancelChargeTest : public ListChargesGround {
  protected:
    void ExpectVerify(const ChargedLine& line, const std::vector<std::vector<Value>>& left) {
        gateway.Expect(VerifyChargesCommand(u"104233"_s, line.item, line.slip, line.department),
                       Rows({u"Amount"_s}, left));
    }
    void ExpectQuestion(MsgAnswer answer) {
        messages.Expect({.text = u"Are you sure you want to Cancel this Charge?"_s,
                         .icon = MsgIcon::Question,
                         .buttons = MsgButtons::YesNo},
                        answer);
    }
    void ExpectRefusal() {
        messages.Expect({.text = u"Can't Cancel this Charges. The Total Amount is already Zero!"_s,
                         .icon = MsgIcon::Critical,
                         .title = u"Message"_s});
    }
    /// The line stands and the clerk means it.
    void ExpectYes(const ChargedLine& line) {
        ExpectVerify(line, {{Decimal{line.amount}}});
        ExpectQuestion(MsgAnswer::Yes);
    }
    /// The stock branch asks the finder, which is closed and made anew.
    void ExpectFreshFinder(const QString& type = QStringLiteral("I")) {
        gateway.Expect(GetPatientCommand(type, u" CRUZ "_s),
                       Rows({u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s,
                             u"Billing Date"_s}));
    }
    static void DoubleClickRow(int row) { DoubleClick(*Grid().viewport(), PlaceOf(row)); }

    /// What the cancellation of the in-patient's service sends.
    ChargeCancellation sent = {.hospitalNumber = u"100085"_s,
                               .idNumber = u"104233"_s,
                               .itemID = u"HC001"_s,
                               .amount = u"2800"_s,
                               .quantity = u"1"_s,
                               .moment = u"11/21/2026 10:30:15 AM"_s,
                               .department = u"HC"_s,
                               .userCode = u"NURSE"_s,
                               .patientType = u"I"_s,
                               .room = u"301-A"_s,
                               .slipNumber = u"H1042C"_s};
};

TEST_F(CancelChargeTest, ServiceOfAnInPatientIsUpdatedWithThirteenArguments) {
    OpenList({service});
    ExpectYes(service);
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({service, {u"HC"_s, u"HC001"_s, u"-1"_s, u"-2800.0000"_s}});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_TRUE(stockItem->entries.empty());
    EXPECT_EQ(Cells().Rows(), 3);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(CancelChargeTest, FeeIsUpdatedTooWithItsEmptyQuantity) {
    const ChargedLine fee = {u"MD"_s, u"D003"_s, u""_s, u"1500.0000"_s};
    OpenList({service, fee});
    ExpectYes(fee);
    sent.itemID = u"D003"_s;
    sent.amount = u"1500"_s;
    sent.quantity = u""_s;
    sent.department = u"MD"_s;
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({service});
    DoubleClickRow(2);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_TRUE(stockItem->entries.empty());
}

TEST_F(CancelChargeTest, SlipNumberAndItemOfAServiceGoAsTheListShowsThem) {
    const ChargedLine line = {u"HC"_s, u" X1 "_s, u"1"_s, u"10.0000"_s, u" H1043C "_s};
    OpenList({line});
    ExpectYes(line);
    sent.itemID = u" X1 "_s;
    sent.amount = u"10"_s;
    sent.slipNumber = u" H1043C "_s;
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, SlipNumberAndItemOfAStockItemGoAsTheListShowsThem) {
    const ChargedLine line = {u"HB"_s, u" X1 "_s, u"1"_s, u"10.0000"_s, u" H1043C "_s};
    OpenList({line});
    ExpectYes(line);
    ExpectFreshFinder();
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].itemID, u" X1 "_s);
    EXPECT_EQ(stockItem->entries[0].referenceNumber, u" H1043C "_s);
}

TEST_F(CancelChargeTest, AmountOfAServiceGoesWithTheSignThatTheListShows) {
    const ChargedLine reversal = {u"HC"_s, u"HC001"_s, u"-1"_s, u"-2800.0000"_s};
    OpenList({reversal});
    ExpectVerify(reversal, {{Decimal{u"1.0000"_s}}});
    ExpectQuestion(MsgAnswer::Yes);
    sent.amount = u"-2800"_s;
    sent.quantity = u"-1"_s;
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, OutPatientChosenAfterTheListChangesTypeAndRoomOfTheServiceWithoutAnyRefresh) {
    OpenList({service});
    Click(PatientType(1));
    EXPECT_TRUE(gateway.IsDone());
    ExpectYes(service);
    sent.patientType = u"O"_s;
    sent.room = u"OPD/ER"_s;
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, ServiceTakesTheSharedPatientTypeAndTheRoomByTheScreensChoice) {
    OpenList({service});
    gPatientType = u"O"_s;
    ExpectYes(service);
    sent.patientType = u"O"_s;
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, ServiceOfAnInPatientWithoutARoomRecordFails) {
    personFinder->admission.Room = {};
    OpenList({service});
    ExpectYes(service);
    Click(Cancel());
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
}

TEST_F(CancelChargeTest, StockItemIsWrittenOnItsCardWithTwentySixPositions) {
    OpenList({medicine});
    ExpectYes(medicine);
    ExpectFreshFinder();
    ExpectList({medicine, {u"HB"_s, u"M0002"_s, u"-2"_s, u"-2034.5000"_s}});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    const StockCardEntry& entry = stockItem->entries[0];
    EXPECT_EQ(entry.hospitalNumber, u"100085"_s);
    EXPECT_EQ(entry.idNumber, u"104233"_s);
    EXPECT_EQ(entry.itemID, u"M0002"_s);
    EXPECT_EQ(entry.moment, u"11/21/2026 10:30:15 AM"_s);
    EXPECT_EQ(entry.referenceNumber, u"H1042C"_s);
    EXPECT_EQ(entry.quantity, 2);
    EXPECT_EQ(entry.position7, 0);
    EXPECT_EQ(entry.amount, -2034.5);
    EXPECT_EQ(entry.userCode, u"NURSE"_s);
    EXPECT_EQ(entry.position10, u""_s);
    EXPECT_EQ(entry.position11, u""_s);
    EXPECT_EQ(entry.chargeLine, u"LINE7"_s);
    EXPECT_EQ(entry.position13, u""_s);
    EXPECT_EQ(entry.room, u"ROOM SHOWN"_s);
    EXPECT_EQ(entry.position15, 1);
    EXPECT_EQ(entry.position16, u"PH"_s);
    EXPECT_EQ(entry.position17, u"PH"_s);
    EXPECT_EQ(entry.position18, std::nullopt);
    EXPECT_EQ(entry.recordType, u"C"_s);
    EXPECT_EQ(entry.position20, std::nullopt);
    EXPECT_EQ(entry.position21, std::nullopt);
    EXPECT_EQ(entry.patientType, u"O"_s) << "the finder that is made anew has no option on";
    EXPECT_EQ(entry.position23, std::nullopt);
    EXPECT_EQ(entry.position24, std::nullopt);
    EXPECT_EQ(entry.position25, std::nullopt);
    EXPECT_EQ(entry.position26, 0);
    EXPECT_EQ(Cells().Rows(), 3);
}

TEST_F(CancelChargeTest, AmountOfAStockItemGoesThroughItsText) {
    // The text of a number has fifteen digits.
    const ChargedLine dear = {u"HB"_s, u"M0002"_s, u"1"_s, u"123456789012.3456"_s};
    OpenList({dear});
    ExpectYes(dear);
    ExpectFreshFinder();
    ExpectList({});
    Click(Cancel());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].amount, -123456789012.346);
}

TEST_F(CancelChargeTest, NoLeavesAStockItemAsItIs) {
    OpenList({medicine});
    ExpectVerify(medicine, {{Decimal{medicine.amount}}});
    ExpectQuestion(MsgAnswer::No);
    Click(Cancel());
    EXPECT_TRUE(stockItem->entries.empty());
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(gateway.IsDone()) << "the list is not refreshed";
    EXPECT_EQ(Cells().TextMatrix(1, 2), u"M0002"_s);
}

TEST_F(CancelChargeTest, ListThatIsEmptyAfterwardsHidesItselfAndTheButtonsAndLeavesThemEnabled) {
    OpenList({service});
    ExpectYes(service);
    gateway.Expect(UpdateChargingCommand(sent));
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(Find<QWidget>(Screens::Get<frmListCharges>(), "txtMessage").isVisible());
    EXPECT_FALSE(Grid().isVisible());
    EXPECT_TRUE(NoOptionIsShown());
    EXPECT_TRUE(OptionsAreEnabled());
}

TEST_F(CancelChargeTest, FailingVerificationAsksNothingAndHasBroughtTheButtonsBack) {
    OpenList({});
    List({service});
    ASSERT_TRUE(NoOptionIsShown());
    gateway.ExpectFailure(VerifyChargesCommand(u"104233"_s, u"HC001"_s, u"H1042C"_s, u"HC"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    DoubleClickRow(1);
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_TRUE(OptionsAreShown());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, StockItemTakesThePatientTypeOfAnOpenFinderAndTheRoomShown) {
    OpenList({medicine});
    Click(PatientType(1));
    ExpectFreshFinder(u"O"_s);
    Screens::Get<frmSearchPatient>().optPatientType[0]->setChecked(true);
    ExpectYes(medicine);
    ExpectList({});
    Click(Cancel());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].patientType, u"I"_s);
    EXPECT_EQ(stockItem->entries[0].room, u"ROOM SHOWN"_s);
}

TEST_F(CancelChargeTest, FinderOfAStockItemIsGoneAndTheNextPatientIsLookedForAfresh) {
    FakeWorkspace workspace;
    workspace.show();
    OpenList({medicine});
    ExpectYes(medicine);
    const std::vector<QString> columns = {u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s,
                                          u"admission date"_s, u"Billing Date"_s};
    gateway.Expect(GetPatientCommand(u"I"_s, u" CRUZ "_s),
                   Rows(columns, {{u"100085"_s, u"104233"_s, u"CRUZ, JUAN"_s, Value(), Value()}}));
    ExpectList({});
    workspace.menuItems.clear();
    Click(Cancel());
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(workspace.menuItems.empty()) << "nobody has closed it: the menu stays as it is";
    Box("txtLastName").setText(u"REYES"_s);
    gateway.Expect(GetPatientCommand(u"I"_s, u"REYES"_s),
                   Rows(columns, {{u"100090"_s, u"104300"_s, u"REYES, ANA"_s, Value(), Value()}}));
    Press(Box("txtLastName"), Qt::Key_Return);
    EXPECT_TRUE(gateway.IsDone());
    const ListView& hits = Find<ListView>(Screens::Get<frmSearchPatient>(), "ListView1");
    ASSERT_EQ(hits.model()->rowCount(), 1);
    EXPECT_EQ(hits.model()->index(0, 2).data().toString(), u"REYES, ANA"_s);
}

TEST_F(CancelChargeTest, ApostropheInTheNameEndsAStockCancellationBeforeAnythingIsWritten) {
    OpenList({medicine});
    Box("txtLastName").setText(u"O'BRIEN"_s);
    ExpectYes(medicine);
    gateway.ExpectFailure(GetPatientCommand(u"I"_s, u"O'BRIEN"_s),
                          RunTimeError(102, u"Incorrect syntax near 'BRIEN'."_s));
    Click(Cancel());
    EXPECT_EQ(TakeFailure(), 102);
    EXPECT_EQ(messages.Shown().size(), 1U) << "after the question";
    EXPECT_TRUE(stockItem->entries.empty());
    EXPECT_TRUE(gateway.IsDone());
}

struct DepartmentCase {
    const char* name;
    QString department;
};

class NotAServiceTest : public CancelChargeTest, public testing::WithParamInterface<DepartmentCase> {};

INSTANTIATE_TEST_SUITE_P(Texts, NotAServiceTest,
                         testing::Values(DepartmentCase{"LowerCase", u"hc"_s},
                                         DepartmentCase{"BlankBehind", u"HC "_s},
                                         DepartmentCase{"BlankBefore", u" MD"_s},
                                         DepartmentCase{"Supplies", u"HD"_s},
                                         DepartmentCase{"Nothing", u""_s}),
                         CaseName());

TEST_P(NotAServiceTest, IsCancelledAsAStockItem) {
    const ChargedLine line = {GetParam().department, u"X1"_s, u"1"_s, u"10.0000"_s};
    OpenList({line});
    ExpectYes(line);
    ExpectFreshFinder();
    ExpectList({});
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].position16, u"PH"_s);
}

TEST_F(CancelChargeTest, VerificationIsOpenedForwardOnlyAndOptimistic) {
    OpenList({service});
    ExpectVerify(service, {});
    ExpectQuestion(MsgAnswer::No);
    Click(Cancel());
    ASSERT_EQ(gateway.Openings().size(), 2U);
    EXPECT_EQ(gateway.Openings()[1].cursor, CursorType::ForwardOnly);
    EXPECT_EQ(gateway.Openings()[1].lock, LockType::Optimistic);
}

struct LeftCase {
    const char* name;
    std::vector<std::vector<Value>> left;
    bool refused;
};

class LeftTest : public CancelChargeTest, public testing::WithParamInterface<LeftCase> {};

INSTANTIATE_TEST_SUITE_P(
    Amounts, LeftTest,
    testing::Values(LeftCase{"Zero", {{Decimal{u"0.0000"_s}}}, true},
                    LeftCase{"LessThanZero", {{Decimal{u"-0.0100"_s}}}, true},
                    LeftCase{"Something", {{Decimal{u"0.0100"_s}}}, false}, LeftCase{"NoRow", {}, false},
                    LeftCase{"FirstRowOfTwo", {{Decimal{u"5.0000"_s}}, {Decimal{u"0.0000"_s}}}, false}),
    CaseName());

TEST_P(LeftTest, DecidesWhetherTheClerkIsAsked) {
    OpenList({service});
    ExpectVerify(service, GetParam().left);
    if (GetParam().refused)
        ExpectRefusal();
    else
        ExpectQuestion(MsgAnswer::No);
    Click(Cancel());
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_TRUE(gateway.IsDone()) << "nothing is written and the list is not refreshed";
    EXPECT_TRUE(stockItem->entries.empty());
    EXPECT_EQ(Cells().TextMatrix(1, 2), u"HC001"_s);
}

TEST_F(CancelChargeTest, NullLeftOfALineFails) {
    OpenList({service});
    ExpectVerify(service, {{Value()}});
    Click(Cancel());
    EXPECT_EQ(TakeFailure(), RunTime::kInvalidUseOfNull);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(CancelChargeTest, DoubleClickCancelsTheRowUnderIt) {
    OpenList({service, medicine});
    ExpectYes(medicine);
    ExpectFreshFinder();
    ExpectList({service});
    DoubleClickRow(2);
    EXPECT_TRUE(gateway.IsDone());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].itemID, u"M0002"_s);
}

TEST_F(CancelChargeTest, DoubleClickCancelsBeforeTheButtonsAreEnabled) {
    auto& screen = Open();
    ExpectList({service});
    screen.Get_Charges();
    EXPECT_TRUE(OptionsAreEnabled()) << "a list that has lines does so by itself";
    Reprint().setEnabled(false);
    Cancel().setEnabled(false);
    ExpectVerify(service, {});
    ExpectQuestion(MsgAnswer::No);
    DoubleClickRow(1);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(Cancel().isEnabled());
}

TEST_F(CancelChargeTest, AfterAPickTheBlankCellsAreVerifiedAndGoToTheStockCard) {
    Open();
    List({service});
    ListChargesTarget().Picked();
    gateway.Expect(VerifyChargesCommand(u"104233"_s, u""_s, u""_s, u""_s), Rows({u"Amount"_s}));
    ExpectQuestion(MsgAnswer::Yes);
    ExpectFreshFinder();
    ExpectList({});
    DoubleClickRow(1);
    EXPECT_TRUE(gateway.IsDone());
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].itemID, u""_s);
    EXPECT_EQ(stockItem->entries[0].quantity, 0);
    EXPECT_EQ(stockItem->entries[0].amount, 0);
}

TEST_F(CancelChargeTest, AfterAPickWithoutAnyListTheBlankCellsAreTheSame) {
    Open();
    ListChargesTarget().Picked();
    gateway.Expect(VerifyChargesCommand(u"104233"_s, u""_s, u""_s, u""_s), Rows({u"Amount"_s}));
    ExpectQuestion(MsgAnswer::Yes);
    ExpectFreshFinder();
    ExpectList({});
    DoubleClickRow(1);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(stockItem->entries.size(), 1U);
}

TEST_F(CancelChargeTest, ButtonAfterAPickWorksOnTheBlankHeaderRow) {
    Open();
    List({service});
    ListChargesTarget().Picked();
    ASSERT_EQ(Cells().Row(), 0);
    gateway.Expect(VerifyChargesCommand(u"104233"_s, u""_s, u""_s, u""_s), Rows({u"Amount"_s}));
    ExpectQuestion(MsgAnswer::No);
    Click(Cancel());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, FailingCancellationIsNotFollowedByAList) {
    OpenList({service});
    ExpectYes(service);
    gateway.ExpectFailure(UpdateChargingCommand(sent), RunTimeError(1205, u"Transaction was deadlocked"_s));
    Click(Cancel());
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_EQ(Cells().TextMatrix(1, 2), u"HC001"_s);
}

TEST_F(CancelChargeTest, FailingStockCardIsNotFollowedByAList) {
    OpenList({medicine});
    ExpectYes(medicine);
    ExpectFreshFinder();
    stockItem->failure = RunTimeError(50000, u"The stock is closed."_s);
    Click(Cancel());
    EXPECT_EQ(TakeFailure(), 50000);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(CancelChargeTest, FailingListAfterwardsLeavesTheCancellationStanding) {
    OpenList({medicine});
    ExpectYes(medicine);
    ExpectFreshFinder();
    gateway.ExpectFailure(ListAllChargesCommand(u"100085"_s, u"104233"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    Click(Cancel());
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_EQ(stockItem->entries.size(), 1U);
}
