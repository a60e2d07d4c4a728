#include "catalogue/clsRevenueCode.h"
#include "catalogue/frmSearch.h"
#include "support/ErrorOf.h"
#include "support/RevenueRows.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "text/RunTimeError.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const RevenueCentre kCentreTwelve{u"EAR CARE"_s, u"HC"_s, u"Y"_s, false, u"12"_s};
const RevenueCentre kStockCentre{u"SUPPLIES"_s, u"HD"_s, u"N"_s, true, Value()};

const Message kNoSuchItem{.text = u"Item does not exists."_s, .icon = MsgIcon::Exclamation};

} // namespace

class clsRevenueCodeTest : public ScreenTest {
  protected:
    void ExpectPicker(const QString& text, const std::vector<RevenueCentre>& exact,
                      const std::vector<RevenueCentre>& partial) {
        gateway.Expect(ExactRevenueCommand(text), RevenueRows(exact));
        gateway.Expect(PartialRevenueCommand(text), RevenueRows(partial));
        gateway.Expect(ListedRevenueCommand(text), RevenueRows({kCentreTwelve, kStockCentre}));
    }

    /// Picks the row of the picker that opens next.
    static void PickRow(int row) {
        WhileModal([row](Form& picker) {
            Find<FlexGrid>(picker, "grdDispWindow").Cells().SetRow(row);
            Click(Find<QPushButton>(picker, "cmdSelect"));
        });
    }

    int NumberRaised(const QString& code) {
        return ErrorOf([&] { centre.ValidateRevenue(code); });
    }

    clsRevenueCode centre;
};

TEST_F(clsRevenueCodeTest, BeforeAnyValidationEverythingIsEmpty) {
    EXPECT_EQ(centre.RevenueID(), u""_s);
    EXPECT_EQ(centre.Revenue(), u""_s);
    EXPECT_EQ(centre.WithItems(), u""_s);
    EXPECT_FALSE(centre.SearchInventory());
    EXPECT_EQ(centre.LocationID(), u""_s);
}

TEST_F(clsRevenueCodeTest, ExactlyOneHitIsTheAnswer) {
    ExpectExact(gateway, kCentreTwelve);
    EXPECT_TRUE(centre.ValidateRevenue(u"HC"_s));
    EXPECT_EQ(centre.RevenueID(), u"HC"_s);
    EXPECT_EQ(centre.Revenue(), u"EAR CARE"_s);
    EXPECT_EQ(centre.WithItems(), u"Y"_s);
    EXPECT_FALSE(centre.SearchInventory());
    EXPECT_EQ(centre.LocationID(), u"12"_s);
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(clsRevenueCodeTest, CodeIsTheServersAndNotTheKeyedOne) {
    gateway.Expect(ExactRevenueCommand(u"hc "_s), RevenueRows({kCentreTwelve}));
    EXPECT_TRUE(centre.ValidateRevenue(u"hc "_s));
    EXPECT_EQ(centre.RevenueID(), u"HC"_s);
}

TEST_F(clsRevenueCodeTest, EveryCommandUsesADynamicOptimisticClientCursor) {
    ExpectPicker(u"E"_s, {}, {kCentreTwelve});
    ExpectExact(gateway, kCentreTwelve);
    PickRow(1);
    EXPECT_TRUE(centre.ValidateRevenue(u"E"_s));
    ASSERT_EQ(gateway.Openings().size(), 4U);
    for (const auto& opening : gateway.Openings()) {
        EXPECT_EQ(opening.cursor, CursorType::Dynamic) << opening.command.toStdString();
        EXPECT_EQ(opening.lock, LockType::Optimistic) << opening.command.toStdString();
        EXPECT_EQ(opening.location, CursorLocation::Client) << opening.command.toStdString();
    }
}

TEST_F(clsRevenueCodeTest, NullLocationIsTheEmptyText) {
    ExpectExact(gateway, kStockCentre);
    EXPECT_TRUE(centre.ValidateRevenue(u"HD"_s));
    EXPECT_EQ(centre.LocationID(), u""_s);
    EXPECT_TRUE(centre.SearchInventory());
}

TEST_F(clsRevenueCodeTest, NullCodeFaults) {
    gateway.Expect(ExactRevenueCommand(u"HC"_s), RevenueRows({{u"EAR CARE"_s, Value()}}));
    EXPECT_EQ(NumberRaised(u"HC"_s), RunTime::kInvalidUseOfNull);
}

TEST_F(clsRevenueCodeTest, StockCardRevenueIsEmptyAfterAnyValidation) {
    ExpectExact(gateway, kStockCentre);
    EXPECT_TRUE(centre.ValidateRevenue(u"HD"_s));
    EXPECT_EQ(centre.StockCardRevenueID(), u""_s);
}

TEST_F(clsRevenueCodeTest, NoHitAtAllIsToldAndRefused) {
    gateway.Expect(ExactRevenueCommand(u"QQ"_s), RevenueRows({}));
    gateway.Expect(PartialRevenueCommand(u"QQ"_s), RevenueRows({}));
    messages.Expect(kNoSuchItem);
    EXPECT_FALSE(centre.ValidateRevenue(u"QQ"_s));
    EXPECT_FALSE(Screens::IsLoaded<frmSearch>());
}

TEST_F(clsRevenueCodeTest, SeveralExactHitsFallThroughToThePicker) {
    ExpectPicker(u"H"_s, {kCentreTwelve, kStockCentre}, {kCentreTwelve, kStockCentre});
    ExpectExact(gateway, kStockCentre);
    PickRow(2);
    EXPECT_TRUE(centre.ValidateRevenue(u"H"_s));
    EXPECT_EQ(centre.RevenueID(), u"HD"_s);
    EXPECT_EQ(centre.Revenue(), u"SUPPLIES"_s);
}

TEST_F(clsRevenueCodeTest, SinglePartialHitStillOpensThePicker) {
    ExpectPicker(u"EAR"_s, {}, {kCentreTwelve});
    ExpectExact(gateway, kCentreTwelve);
    bool opened = false;
    WhileModal([&opened](Form& picker) {
        opened = true;
        EXPECT_EQ(picker.objectName(), u"frmSearch"_s);
        EXPECT_EQ(picker.windowTitle(), u"Revenue Codes"_s);
        EXPECT_EQ(Find<FlexGrid>(picker, "grdDispWindow").Cells().Rows(), 3);
        Click(Find<QPushButton>(picker, "cmdSelect"));
    });
    EXPECT_TRUE(centre.ValidateRevenue(u"EAR"_s));
    EXPECT_TRUE(opened);
}

TEST_F(clsRevenueCodeTest, PickerSearchesAgainWithTheListCommand) {
    ExpectPicker(u"EAR"_s, {}, {kCentreTwelve});
    gateway.Expect(ListedRevenueCommand(u"S"_s), RevenueRows({kStockCentre}));
    ExpectExact(gateway, kStockCentre);
    WhileModal([](Form& picker) {
        Type(Find<QLineEdit>(picker, "txtSearchStr"), u"s"_s);
        Click(Find<QPushButton>(picker, "cmdSelect"));
    });
    EXPECT_TRUE(centre.ValidateRevenue(u"EAR"_s));
    EXPECT_EQ(centre.RevenueID(), u"HD"_s);
}

TEST_F(clsRevenueCodeTest, CancelledPickerKeepsTheEarlierCentreAndTellsNothing) {
    ExpectExact(gateway, kCentreTwelve);
    EXPECT_TRUE(centre.ValidateRevenue(u"HC"_s));
    ExpectPicker(u"S"_s, {}, {kStockCentre});
    WhileModal([](Form& picker) { Click(Find<QPushButton>(picker, "cmdCancel")); });
    EXPECT_FALSE(centre.ValidateRevenue(u"S"_s));
    EXPECT_EQ(centre.RevenueID(), u"HC"_s);
    EXPECT_EQ(centre.Revenue(), u"EAR CARE"_s);
    EXPECT_EQ(centre.LocationID(), u"12"_s);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(clsRevenueCodeTest, ClosedPickerIsACancelledOneAlsoAfterAnEarlierPick) {
    ExpectPicker(u"E"_s, {}, {kCentreTwelve});
    ExpectExact(gateway, kCentreTwelve);
    PickRow(1);
    EXPECT_TRUE(centre.ValidateRevenue(u"E"_s));
    ExpectPicker(u"S"_s, {}, {kStockCentre});
    WhileModal([](Form& picker) { picker.close(); });
    EXPECT_FALSE(centre.ValidateRevenue(u"S"_s));
    EXPECT_EQ(centre.RevenueID(), u"HC"_s);
}

TEST_F(clsRevenueCodeTest, SeveralExactHitsOfThePickedCodeAreNotTestedAgain) {
    ExpectPicker(u"E"_s, {}, {kCentreTwelve});
    gateway.Expect(ExactRevenueCommand(u"HC"_s), RevenueRows({kCentreTwelve, kStockCentre}));
    PickRow(1);
    EXPECT_TRUE(centre.ValidateRevenue(u"E"_s));
    EXPECT_EQ(centre.RevenueID(), u"HC"_s);
}

TEST_F(clsRevenueCodeTest, PickedCodeThatIsGoneFaults) {
    ExpectPicker(u"E"_s, {}, {kCentreTwelve});
    gateway.Expect(ExactRevenueCommand(u"HC"_s), RevenueRows({}));
    PickRow(1);
    EXPECT_EQ(NumberRaised(u"E"_s), RunTime::kNoCurrentRecord);
}

TEST_F(clsRevenueCodeTest, FailingCommandIsNotTrapped) {
    gateway.ExpectFailure(ExactRevenueCommand(u"O'B"_s), RunTimeError(105, u"Unclosed quotation mark"_s));
    EXPECT_EQ(NumberRaised(u"O'B"_s), 105);
}
