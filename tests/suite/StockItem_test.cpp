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

/// An entry as a package's item is issued.
StockCardEntry Issue() {
    return {.hospitalNumber = u"100050"_s,
            .idNumber = u"700124"_s,
            .itemID = u"Q001"_s,
            .moment = u"11/21/2026 10:20:05 AM"_s,
            .referenceNumber = u"5017"_s,
            .quantity = 2.5,
            .amount = 12.35,
            .userCode = u"NURSE"_s,
            .position10 = u"PRN"_s,
            .room = u"W201"_s,
            .position16 = u"PH"_s,
            .position17 = u"PH"_s,
            .patientType = u"O"_s};
}

TEST_F(StockItemTest, AnEntryIsAnIssueOnTheItemsCard) {
    StockCardEntry entry = Issue();
    item.Drug().AppendStockCard(entry);
    EXPECT_EQ(
        Rows(u"SELECT TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, "
             "IdNum, PatientType, RoomID, UserID, PackageID FROM INVENTORY..tbInvStockCard WHERE "
             "ItemID = 'Q001'"_s),
        (std::vector<QStringList>{{u"11/21/2026 10:20:05 AM"_s, u"Q001"_s, u"1"_s, u"I"_s, u"5017"_s, u"0"_s,
                                   u"2.5"_s, u"12.35"_s, u"100050"_s, u"700124"_s, u"O"_s, u"W201"_s,
                                   u"NURSE"_s, u"NULL"_s}}));
}

TEST_F(StockItemTest, AnEntryDoesNotMoveTheItemStoodOn) {
    ASSERT_TRUE(item.Drug().SearchDrug(u"Q002"_s, u"52"_s));
    StockCardEntry entry = Issue();
    item.Drug().AppendStockCard(entry);
    EXPECT_EQ(item.Drug().DrugCode(), u"Q002"_s);
}

TEST_F(StockItemTest, AnEntryOfRecordTypeCTakesTheIssueOfItsChargeLineBack) {
    Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026 10:15:07 "
        u"AM','HB','D','M0002','2', "
        u"'H9001C','2034.00','NURSE','W201','D005','SANTOS, EMMANUEL CRUZ', 'I','EPOETIN ALFA 4000 IU'"_s);
    StockCardEntry entry = Issue();
    entry.itemID = u"M0002"_s;
    entry.referenceNumber = u"H9001C"_s;
    entry.quantity = 2;
    entry.amount = -2034;
    entry.chargeLine = Cell(u"SELECT MAX(ChargeID) FROM BILLING..tbPatientCharges"_s);
    entry.recordType = u"C"_s;
    item.Drug().AppendStockCard(entry);
    EXPECT_EQ(
        Column(
            Rows(u"SELECT RecordType, Amount FROM INVENTORY..tbInvStockCard WHERE RefNum = 'H9001C' ORDER BY "
                 "StockCardID"_s),
            0),
        QStringList({u"I"_s, u"C"_s}));
    EXPECT_EQ(Cell(u"SELECT SUM(Amount) FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C'"_s), u"0"_s);
}

TEST_F(StockItemTest, AQuoteInAnEntryStaysAText) {
    StockCardEntry entry = Issue();
    entry.room = u"O'BRIEN"_s;
    item.Drug().AppendStockCard(entry);
    EXPECT_EQ(Cell(u"SELECT RoomID FROM INVENTORY..tbInvStockCard WHERE ItemID = 'Q001'"_s), u"O'BRIEN"_s);
}

TEST_F(StockItemTest, AnEntryThatTheServerRefusesFails) {
    StockCardEntry entry = Issue();
    entry.moment = u"rubbish"_s;
    EXPECT_THROW(item.Drug().AppendStockCard(entry), RunTimeError);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard WHERE ItemID = 'Q001'"_s), u"0"_s);
}

TEST_F(StockItemTest, TakesNoConnectionButTheSessions) {
    EXPECT_FALSE(item.InitConnect(u"another"_s));
    try {
        item.Drug().SearchDrug(u"Q001"_s, u"1"_s);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 91);
    }
    StockCardEntry entry = Issue();
    EXPECT_THROW(item.Drug().AppendStockCard(entry), RunTimeError);
    SetLiveConnection(nullptr);
    EXPECT_FALSE(item.InitConnect(mGateway->ConnectionString()));
}

} // namespace
