#include "suite/LiveConnection.h"
#include "suite/StockList.h"
#include "suite/SuiteTest.h"
#include "toolkit/ListView.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class StockListTest : public SuiteTest {
  protected:
    StockListTest() {
        Run(u"INSERT INTO INVENTORY..tbInvMaster (ItemID, ItemName, GenericName, Unit, SectionID, "
            u"SellingPriceOut, "
            "SellingPriceIn) VALUES ('Q001', 'QUINIDOR', 'QUININE', 'TAB', '1', 5.25, 6.5)"_s);
        Run(u"INSERT INTO INVENTORY..tbInvMaster (ItemID, ItemName, Unit, SectionID, SellingPriceOut, "
            u"SellingPriceIn) "
            "VALUES ('Q002', 'QUILT', 'PC', '52', 0, 0)"_s);
        EXPECT_TRUE(list.InitConnection(mGateway->ConnectionString()));
    }

    StockList list;
};

TEST_F(StockListTest, ACodeIsAnsweredAtOnce) {
    const NoDialog none;
    EXPECT_EQ(list.ShowList(u"q001"_s, true, u"1"_s), u"Q001"_s);
}

TEST_F(StockListTest, AnItemIsPickedByNameOrGenericName) {
    for (const QString& typed : {u"QUINID"_s, u"QUININE"_s}) {
        const OnDialog pick([&typed](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Stock Items"_s);
            Type(Find<QLineEdit>(dialog, "txtPick"), typed);
            Press(Find<QLineEdit>(dialog, "txtPick"), Qt::Key_Return);
        });
        EXPECT_EQ(list.ShowList(QString(), true, u"1"_s), u"Q001"_s);
    }
}

TEST_F(StockListTest, AListLeftWithoutAPickAnswersTheTextAsItWasGiven) {
    const OnDialog leave([](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(list.ShowList(u"qui "_s, true, u"1"_s), u"qui "_s);
}

TEST_F(StockListTest, OffersTheItemsOfTheSectionAlone) {
    const OnDialog look([](QDialog& dialog) {
        auto& rows = Find<ListView>(dialog, "lstPick");
        ASSERT_EQ(rows.RowCount(), 1);
        EXPECT_EQ(rows.CurrentText(0), u"Q002"_s);
        EXPECT_EQ(rows.model()->index(0, 4).data().toString(), u"0.00"_s);
        dialog.reject();
    });
    list.ShowList(u"QUI"_s, true, u"52"_s);
}

TEST_F(StockListTest, ACodeOfAnotherSectionIsNotAnswered) {
    const OnDialog leave([](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(list.ShowList(u"Q002"_s, true, u"1"_s), u"Q002"_s);
}

TEST_F(StockListTest, ThePlainPickerWorksOnTheSessionsConnection) {
    StockList plain;
    const NoDialog none;
    EXPECT_EQ(plain.ShowList(u"Q001"_s, true, u"1"_s), u"Q001"_s);
}

TEST_F(StockListTest, WithoutASessionItRaises91) {
    SetLiveConnection(nullptr);
    StockList plain;
    EXPECT_FALSE(plain.InitConnection(mGateway->ConnectionString()));
    try {
        plain.ShowList(u"Q001"_s, true, u"1"_s);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 91);
    }
}

} // namespace
