#include "suite/LiveConnection.h"
#include "suite/StockItem.h"
#include "suite/SuiteTest.h"

using namespace Qt::StringLiterals;

namespace {

class StockItemTest : public SuiteTest {
  protected:
    StockItemTest() {
        Run(u"INSERT INTO INVENTORY..tbInvMaster (ItemID, ItemName, Unit, SectionID, SellingPriceOut, "
            u"SellingPriceIn) "
            "VALUES ('Q001', 'QUININE 300 MG', 'TAB', '1', 5.25, 6.5)"_s);
        Run(u"INSERT INTO INVENTORY..tbInvMaster (ItemID, ItemName, Unit, SectionID, SellingPriceOut, "
            u"SellingPriceIn) "
            "VALUES ('Q002', 'GAUZE', 'PC', '52', 0, 0)"_s);
        EXPECT_TRUE(item.InitConnect(mGateway->ConnectionString()));
    }

    StockItem item;
};

TEST_F(StockItemTest, StandsOnTheItemWithExactlyThatCode) {
    EXPECT_TRUE(item.Drug().SearchDrug(u"q001"_s, u"1"_s));
    EXPECT_EQ(item.Drug().DrugCode(), u"Q001"_s);
    EXPECT_EQ(item.Drug().DrugName(), u"QUININE 300 MG"_s);
    EXPECT_EQ(item.Drug().Invent().SellingPriceOut, 5.25);
    EXPECT_EQ(item.Drug().Invent().SellingPriceIn, 6.5);
}

TEST_F(StockItemTest, AMissKeepsTheItemStoodOnBefore) {
    ASSERT_TRUE(item.Drug().SearchDrug(u"Q001"_s, u"1"_s));
    for (const QString& text : {u"Q00"_s, u"QUININE 300 MG"_s, QString(), u"O'NEILL"_s})
        EXPECT_FALSE(item.Drug().SearchDrug(text, u"1"_s)) << text.toStdString();
    EXPECT_EQ(item.Drug().DrugCode(), u"Q001"_s);
}

TEST_F(StockItemTest, AnItemOfAnotherSectionIsAMiss) {
    EXPECT_FALSE(item.Drug().SearchDrug(u"Q002"_s, u"1"_s));
    EXPECT_TRUE(item.Drug().SearchDrug(u"Q002"_s, u"52"_s));
    EXPECT_EQ(item.Drug().Invent().SellingPriceIn, 0);
}

TEST_F(StockItemTest, TakesNoConnectionButTheSessions) {
    EXPECT_FALSE(item.InitConnect(u"another"_s));
    try {
        item.Drug().SearchDrug(u"Q001"_s, u"1"_s);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 91);
    }
    SetLiveConnection(nullptr);
    EXPECT_FALSE(item.InitConnect(mGateway->ConnectionString()));
}

} // namespace
