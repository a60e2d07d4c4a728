#include "charges/ItemLookupGround.h"
#include "charges/Twins.h"
#include "components/shared.h"
#include "support/CaseName.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

// Enter in the Code column, the doctors' fees, and the supplies of a line's own location.

namespace {

const Message kInvalidCode{.text = u"Invalid Code"_s};
const Message kSameSupply{
    .text = u"Supply already selected."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};
const Message kNoSuchColumn{.text = u"Invalid Col value"_s, .icon = MsgIcon::Critical};

/// A stock item component that leaves the grid with fewer columns, as a binding behind a picker would.
class NarrowingStockItem : public FakeStockItem {
  public:
    NarrowingStockItem(FlexCells& grid, int columns)
        : cells(grid)
        , left(columns) {}

    QString DrugName() const override {
        cells.SetCols(left);
        return FakeStockItem::DrugName();
    }

    FlexCells& cells;
    int left;
};

} // namespace

/// What both screens do alike.
class EnterCodeTest : public ItemLookupGround, public testing::WithParamInterface<Twin> {
  protected:
    EnterCodeTest()
        : ItemLookupGround(*GetParam().differences) {}

    void EnterCode(QString& code, bool isDoctorsFee) { lookup.EnterCode(code, isDoctorsFee); }
};

INSTANTIATE_TEST_SUITE_P(Twins, EnterCodeTest, testing::ValuesIn(kTwins), CaseName());

using Searches = std::vector<FakeListing::Search>;
using Showings = std::vector<FakeStockList::Showing>;

TEST_P(EnterCodeTest, DoctorFillsAFeeLineAndEmptiesPriceAndQuantity) {
    Key(1, u"MD"_s, u"D003"_s);
    cells.SetTextMatrix(1, 4, u"1"_s);
    cells.SetTextMatrix(1, 5, u"1"_s);
    Found(true);
    QString code = u"D003"_s;
    EXPECT_TRUE(lookup.LookupDoctorFee(code));
    EXPECT_EQ(At(1, Column::kCode), u"D003"_s);
    EXPECT_EQ(At(1, Column::kParticular), u"(PF) DR. CASTAÑEDA, LUIS"_s);
    EXPECT_EQ(At(1, 4), u""_s);
    EXPECT_EQ(At(1, 5), u""_s);
    EXPECT_EQ(listing->searches, (Searches{{u"D003"_s, ListingKind::kDoctor, u""_s}}));
    EXPECT_TRUE(listing->searchMode);
}

TEST_P(EnterCodeTest, DoctorsNameIsJoinedWithItsBlanks) {
    Key(1, u"MD"_s, u"D003"_s);
    listing->doctor = {u"D003"_s, u" CASTAÑEDA "_s, u" LUIS "_s, u" PEÑA "_s};
    Found(true);
    QString code = u"D003"_s;
    EXPECT_TRUE(lookup.LookupDoctorFee(code));
    EXPECT_EQ(At(1, Column::kParticular), u"(PF) DR.  CASTAÑEDA ,  LUIS "_s);
}

TEST_P(EnterCodeTest, EnterOnAFeeLineGoesFromTheCodeStraightToTheAmount) {
    Key(1, u"MD"_s, u"D003"_s);
    Found(true);
    QString code = u"D003"_s;
    EnterCode(code, true);
    EXPECT_EQ(editor.calls, u"Leave Enter(1,6) "_s);
}

TEST_P(EnterCodeTest, AmountOfAFeeLineIsOpenForTheMoveAlthoughItWasClosed) {
    Key(1, u"MD"_s, u"D003"_s);
    lines.SetLocked(Column::kAmount, true);
    Found(true);
    QString code = u"D003"_s;
    EnterCode(code, true);
    EXPECT_EQ(editor.calls, u"Leave Enter(1,6) "_s);
    EXPECT_TRUE(lines.IsLocked(Column::kAmount));
}

TEST_P(EnterCodeTest, FeeLineIsLookedUpAmongDoctorsAlone) {
    Key(1, u"MD"_s, u"S1"_s);
    messages.Expect(kInvalidCode);
    QString code = u"S1"_s;
    EnterCode(code, true);
    EXPECT_EQ(listing->searches, (Searches{{u"S1"_s, ListingKind::kDoctor, u""_s}}));
}

TEST_P(EnterCodeTest, UnknownDoctorIsToldAndTheCellStaysAsKeyed) {
    Key(1, u"MD"_s, u"QQ"_s);
    messages.Expect(kInvalidCode);
    QString code = u"QQ"_s;
    EnterCode(code, true);
    EXPECT_EQ(At(1, Column::kCode), u"QQ"_s);
    EXPECT_EQ(editor.calls, u""_s);
}

TEST_P(EnterCodeTest, LocksOfAFeeLineAreThereForTheMoveAndPutBack) {
    for (const bool found : {true, false}) {
        Key(1, u"MD"_s, u"D003"_s);
        lines.SetLocked(4, false);
        lines.SetLocked(5, true);
        lines.SetLocked(6, true);
        Found(found);
        if (!found)
            messages.Expect(kInvalidCode);
        std::vector<bool> whileMoving;
        editor.onEnterCell = [this, &whileMoving] {
            whileMoving = {lines.IsLocked(4), lines.IsLocked(5), lines.IsLocked(6)};
        };
        QString code = u"D003"_s;
        EnterCode(code, true);
        EXPECT_EQ(whileMoving, found ? (std::vector<bool>{true, true, false}) : std::vector<bool>());
        EXPECT_FALSE(lines.IsLocked(4));
        EXPECT_TRUE(lines.IsLocked(5));
        EXPECT_TRUE(lines.IsLocked(6));
    }
}

TEST_P(EnterCodeTest, FlagIsTheCallersOwnAndReadAgainBehindTheMove) {
    Key(1, u"MD"_s, u"D003"_s);
    lines.SetLocked(Column::kAmount, true);
    Found(true);
    bool isDoctorsFee = true;
    editor.onEnterCell = [&isDoctorsFee] { isDoctorsFee = false; };
    QString code = u"D003"_s;
    lookup.EnterCode(code, isDoctorsFee);
    EXPECT_FALSE(lines.IsLocked(Column::kAmount)) << "the locks of the move stay";
}

TEST_P(EnterCodeTest, EnterOnAnItemLineMovesOnWhenItWasFilled) {
    Key(1, u"HC"_s, u"S"_s);
    Found(true);
    QString code = u"S"_s;
    EnterCode(code, false);
    EXPECT_EQ(editor.calls, u"Leave Enter(1,4) "_s);
}

TEST_P(EnterCodeTest, EnterOnAnItemLineStaysSilentlyWhenItWasNot) {
    Key(1, u"HC"_s, u"S"_s);
    QString code = u"S"_s;
    EnterCode(code, false);
    EXPECT_EQ(editor.calls, u""_s);
    EXPECT_EQ(cells.Col(), Column::kCode);
}

TEST_P(EnterCodeTest, EnterOutsideTheCodeColumnLooksNothingUp) {
    Key(1, u"HC"_s, u"S"_s);
    cells.SetCol(4);
    QString code = u"S"_s;
    EnterCode(code, false);
    EnterCode(code, true);
    EXPECT_TRUE(listing->searches.empty());
    EXPECT_EQ(editor.calls, u""_s);
}

/// LookupSupply, which takes its stock section from the line's location.
class LookupSupplyTest : public EnterCodeTest {
  protected:
    bool LookUpSupply(const QString& code) {
        Key(1, u"CS"_s, code);
        cells.SetTextMatrix(1, Column::kLocationID, u"52"_s);
        keyed = code;
        return lookup.LookupSupply(keyed);
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, LookupSupplyTest, testing::ValuesIn(kTwins), CaseName());

TEST_P(LookupSupplyTest, TextThatIsNoNumberOpensThePickerOfSupplies) {
    stockList->pick = u"G1"_s;
    EXPECT_TRUE(LookUpSupply(u"GAU"_s));
    EXPECT_EQ(stockList->drugs, std::optional(false));
    EXPECT_EQ(stockList->showings, (Showings{{u"GAU"_s, false, u"52"_s}}));
    EXPECT_EQ(keyed, u"G1"_s);
    EXPECT_EQ(Line(), (std::vector<QString>{u"G1"_s, u"GAUZE"_s, u"12.50"_s, u"N"_s}));
    EXPECT_TRUE(stockListBasic->showings.empty());
    EXPECT_TRUE(listing->searches.empty());
}

TEST_P(LookupSupplyTest, NumberIsSearchedAtOnce) {
    stockItem->items.push_back({u"52"_s, u"77"_s, u"TUBE"_s, {.SellingPriceOut = 1, .SellingPriceIn = 0}});
    EXPECT_TRUE(LookUpSupply(u"77"_s));
    EXPECT_TRUE(stockList->showings.empty());
    EXPECT_FALSE(stockList->drugs.has_value());
    EXPECT_EQ(Line(), (std::vector<QString>{u"77"_s, u"TUBE"_s, u"0.00"_s, u"Y"_s}));
}

TEST_P(LookupSupplyTest, UnknownSupplyIsSilent) {
    EXPECT_FALSE(LookUpSupply(u"99"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"99"_s, u""_s, u""_s, u""_s}));
}

TEST_P(LookupSupplyTest, SupplyOnAnotherLineOfTheDepartmentIsRefused) {
    PutItem(5, u"CS"_s, u"G1"_s);
    messages.Expect(kSameSupply);
    EXPECT_FALSE(LookUpSupply(u"G1"_s));
    EXPECT_EQ(At(1, Column::kCode), u""_s);
    EXPECT_EQ(editor.calls, u"Leave Enter(1,2) "_s);
    EXPECT_EQ(editor.text, u""_s);
}

TEST_P(LookupSupplyTest, SupplyUnderAnotherDepartmentIsFree) {
    PutItem(5, u"HD"_s, u"G1"_s);
    EXPECT_TRUE(LookUpSupply(u"G1"_s));
}

TEST_P(LookupSupplyTest, NoCurrentRecordEmptiesTheCodeAndIsNotTold) {
    stockItem->failure = RunTime::Error(RunTime::kNoCurrentRecord);
    EXPECT_FALSE(LookUpSupply(u"G1"_s));
    EXPECT_EQ(keyed, u""_s);
}

TEST_P(LookupSupplyTest, OtherErrorIsTold) {
    stockItem->failure = RunTime::Error(RunTime::kOverflow);
    messages.Expect({.text = u"Overflow"_s, .icon = MsgIcon::Critical});
    EXPECT_FALSE(LookUpSupply(u"G1"_s));
}

TEST_P(LookupSupplyTest, NoCurrentRecordAtAReadingGoesOnWithTheNextOne) {
    stockItem->nameFailure = {RunTime::Error(RunTime::kNoCurrentRecord)};
    EXPECT_TRUE(LookUpSupply(u"G1"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"G1"_s, u""_s, u"12.50"_s, u"N"_s}));
    EXPECT_EQ(keyed, u""_s);
}

TEST_P(LookupSupplyTest, NoCurrentRecordInThePickerSearchesForTheEmptyText) {
    stockItem->items.push_back({u"52"_s, u""_s, u"NAMELESS"_s, {.SellingPriceIn = 1}});
    stockList->failure = RunTime::Error(RunTime::kNoCurrentRecord);
    EXPECT_TRUE(LookUpSupply(u"GAU"_s));
    EXPECT_EQ(Line()[1], u"NAMELESS"_s);
}

TEST_P(LookupSupplyTest, NoCurrentRecordBeforeThePickerShowsItForTheEmptyText) {
    class UnsettledStockList : public FakeStockList {
      public:
        void SetDrugsORCSR(bool) override { throw RunTime::Error(RunTime::kNoCurrentRecord); }
    };
    const auto picker = std::make_shared<UnsettledStockList>();
    picker->pick = u"G1"_s;
    gStockList = picker;
    EXPECT_TRUE(LookUpSupply(u"GAU"_s));
    EXPECT_EQ(picker->showings, (Showings{{u""_s, false, u"52"_s}}));
    EXPECT_EQ(Line()[1], u"GAUZE"_s);
}

TEST_P(LookupSupplyTest, LocationThatTheGridDoesNotHaveIsTold) {
    Key(1, u"CS"_s, u"G1"_s);
    cells.SetCols(Column::kLocationID);
    messages.Expect(kNoSuchColumn);
    keyed = u"G1"_s;
    EXPECT_FALSE(lookup.LookupSupply(keyed));
}

TEST_P(LookupSupplyTest, ErrorWhileTheLineIsWrittenIsTold) {
    const auto narrowing = std::make_shared<NarrowingStockItem>(cells, Column::kZeroPrice);
    narrowing->items = stockItem->items;
    gStockItem = narrowing;
    messages.Expect(kNoSuchColumn);
    EXPECT_FALSE(LookUpSupply(u"G1"_s));
}

TEST_P(LookupSupplyTest, ErrorInTheDuplicateTestIsToldAndCountsAsNotFree) {
    const auto narrowing = std::make_shared<NarrowingStockItem>(cells, Column::kCode);
    narrowing->items = stockItem->items;
    gStockItem = narrowing;
    // Of this line the test reads the code, whose column is gone.
    PutItem(5, u"CS"_s, u"X"_s);
    messages.Expect(kNoSuchColumn);
    messages.Expect(kSameSupply);
    EXPECT_FALSE(LookUpSupply(u"G1"_s));
    EXPECT_EQ(editor.calls, u"Leave Enter(1,1) "_s);
}
