#include "charges/ItemLookup.h"
#include "charges/ItemLookupGround.h"
#include "charges/Twins.h"
#include "components/shared.h"
#include "support/CaseName.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

const Message kSameStock{.text = u"Can't charge the same Medicine/Supply !"_s};
const Message kAlreadySelected{
    .text = u"Exam already selected."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};

/// A stock item component whose items bear longer codes than those they are found by.
class RenamingStockItem : public FakeStockItem {
  public:
    QString DrugCode() const override { return u"52-"_s + FakeStockItem::DrugCode(); }
};

/// A service component that writes down each section set, and whose setters raise the failure that the test
/// has set, once.
class SetterListing : public FakeListing {
  public:
    void SetSearchMode(bool search) override {
        searchModeFailure.Call();
        FakeListing::SetSearchMode(search);
    }
    void SetOtherSectionID(const QString& id) override {
        sections << id;
        sectionFailure.Call();
        FakeListing::SetOtherSectionID(id);
    }

    ComingFailure searchModeFailure;
    ComingFailure sectionFailure;
    QStringList sections;
};

} // namespace

class PostLookupTest : public ItemLookupGround {
  protected:
    PostLookupTest()
        : ItemLookupGround(kPostChargesDifferences) {}
};

class AssessmentLookupTest : public ItemLookupGround {
  protected:
    AssessmentLookupTest()
        : ItemLookupGround(kAssessmentDifferences) {}
};

/// What both screens do alike.
class ItemLookupTest : public ItemLookupGround, public testing::WithParamInterface<Twin> {
  protected:
    ItemLookupTest()
        : ItemLookupGround(*GetParam().differences) {}
};

INSTANTIATE_TEST_SUITE_P(Twins, ItemLookupTest, testing::ValuesIn(kTwins), CaseName());

using Searches = std::vector<FakeListing::Search>;
using Showings = std::vector<FakeStockList::Showing>;

TEST_P(ItemLookupTest, ServiceFillsTheLine) {
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"CLEAN"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"S1"_s, u"CLEANING"_s, u"102.00"_s, u"N"_s}));
    EXPECT_TRUE(listing->searchMode);
}

TEST_P(ItemLookupTest, QuantityAndAmountAreLeftAlone) {
    cells.SetTextMatrix(1, differences.quantityCol, u"3"_s);
    cells.SetTextMatrix(1, Column::kAmount, u"9.00"_s);
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"CLEAN"_s));
    EXPECT_EQ(At(1, differences.quantityCol), u"3"_s);
    EXPECT_EQ(At(1, Column::kAmount), u"9.00"_s);
}

TEST_P(ItemLookupTest, SectionOfTheServicesIsHCOnPostChargesAndTheLinesDepartmentOnAssessment) {
    LookUp(u"XR"_s, u"CHEST"_s);
    const QString section = &differences == &kPostChargesDifferences ? u"HC"_s : u"XR"_s;
    EXPECT_EQ(listing->searches, (Searches{{u"CHEST"_s, ListingKind::kOtherRevenue, section}}));
}

TEST_P(ItemLookupTest, SectionIsFirstTheLinesDepartmentAndOnPostChargesThenHC) {
    const auto services = std::make_shared<SetterListing>();
    gListing = services;
    LookUp(u"XR"_s, u"CHEST"_s);
    EXPECT_EQ(services->sections, &differences == &kPostChargesDifferences ? QStringList({u"XR"_s, u"HC"_s})
                                                                           : QStringList(u"XR"_s));
}

TEST_P(ItemLookupTest, CodeFoundNowhereIsSilentAndChangesNothing) {
    EXPECT_FALSE(LookUp(u"HC"_s, u"QQ"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"QQ"_s, u""_s, u""_s, u""_s}));
    EXPECT_EQ(editor.calls, u""_s);
}

TEST_P(ItemLookupTest, OtherDepartmentsShowNoStockPicker) {
    // Not even a centre whose items come from stock.
    cells.SetTextMatrix(1, Column::kSearchInventory, u"Y"_s);
    for (const QString& department : {u"HC"_s, u"CS"_s, u"hd"_s, u"HD "_s, u""_s})
        LookUp(department, u"G1"_s);
    EXPECT_TRUE(stockListBasic->showings.empty());
    EXPECT_EQ(gStockSection, u""_s);
}

TEST_P(ItemLookupTest, SuppliesAreSearchedInSection52) {
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(stockListBasic->showings, (Showings{{u"G1"_s, false, u"52"_s}}));
    EXPECT_EQ(gStockSection, u"52"_s);
    EXPECT_EQ(Line(), (std::vector<QString>{u"G1"_s, u"GAUZE"_s, u"12.50"_s, u"N"_s}));
}

TEST_P(ItemLookupTest, MedicinesAreSearchedInSection1) {
    EXPECT_TRUE(LookUp(u"HB"_s, u"M1"_s));
    EXPECT_EQ(stockListBasic->showings, (Showings{{u"M1"_s, false, u"1"_s}}));
    EXPECT_EQ(gStockSection, u"1"_s);
    EXPECT_EQ(Line(), (std::vector<QString>{u"M1"_s, u"HEPARIN"_s, u"250.00"_s, u"N"_s}));
}

TEST_P(ItemLookupTest, StockSectionKeepsItsLastValueBetweenLines) {
    LookUp(u"HD"_s, u"G1"_s);
    LookUp(u"HC"_s, u"S"_s);
    EXPECT_EQ(gStockSection, u"52"_s);
}

TEST_P(ItemLookupTest, DepartmentLastValidatedCountsForTheStockSearch) {
    Key(1, u"HC"_s, u"G1"_s);
    lookup.CurrentRevenueID = u"HD"_s;
    keyed = u"G1"_s;
    EXPECT_TRUE(lookup.LookupItem(keyed));
    EXPECT_EQ(stockListBasic->showings.size(), 1U);
}

TEST_P(ItemLookupTest, PickOfTheStockListGoesIntoTheEditor) {
    stockListBasic->pick = u"G1"_s;
    EXPECT_TRUE(LookUp(u"HD"_s, u"GAU"_s));
    EXPECT_EQ(editor.text, u"G1"_s);
    // The services are still asked for the code as it was keyed.
    EXPECT_EQ(listing->searches.at(0).code, u"GAU"_s);
}

TEST_P(ItemLookupTest, CodeOfTheStockItemGoesIntoTheEditorAndIsComparedWithTheOtherLines) {
    const auto renaming = std::make_shared<RenamingStockItem>();
    renaming->items = stockItem->items;
    gStockItem = renaming;
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(editor.text, u"52-G1"_s);
    EXPECT_EQ(Line()[0], u"52-G1"_s);
    PutItem(3, u"HD"_s, u"52-G1"_s);
    messages.Expect(kSameStock);
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
}

TEST_P(ItemLookupTest, StockItemCostsItsInPatientPriceForEverybody) {
    gPatientType = u"O"_s;
    EXPECT_FALSE(lookup.UseOutPrice);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line()[2], u"12.50"_s);
}

TEST_P(ItemLookupTest, OutPriceWouldBeTakenIfItWereSelected) {
    lookup.UseOutPrice = true;
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line()[2], u"20.00"_s);
}

TEST_P(ItemLookupTest, ZeroPriceOfAStockItemIsMarked) {
    EXPECT_TRUE(LookUp(u"HD"_s, u"F1"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"F1"_s, u"FREE TUBE"_s, u"0.00"_s, u"Y"_s}));
}

TEST_P(ItemLookupTest, ZeroRateOfAServiceIsMarked) {
    listing->service.Rates[1] = 0;
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(Line()[2], u"0.00"_s);
    EXPECT_EQ(Line()[3], u"Y"_s);
}

TEST_P(ItemLookupTest, TinyPriceIsNotZero) {
    listing->service.Rates[1] = 0.001;
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(Line()[2], u"0.00"_s);
    EXPECT_EQ(Line()[3], u"N"_s);
}

TEST_P(ItemLookupTest, CodeThatIsStockAndServiceTakesTheService) {
    Found(true);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"S1"_s, u"CLEANING"_s, u"102.00"_s, u"N"_s}));
}

TEST_P(ItemLookupTest, ZeroFlagOfTheStockItemIsSetAnewByTheService) {
    Found(true);
    EXPECT_TRUE(LookUp(u"HD"_s, u"F1"_s));
    EXPECT_EQ(Line()[3], u"N"_s);
}

TEST_P(ItemLookupTest, StockItemAlreadyOnALineIsRefusedAndTheServicesAreStillSearched) {
    PutItem(3, u"HD"_s, u"G1"_s);
    cells.SetTextMatrix(1, Column::kParticular, u"SUPPLIES"_s);
    messages.Expect(kSameStock);
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(At(1, Column::kParticular), u""_s);
    EXPECT_EQ(listing->searches.size(), 1U);
    EXPECT_EQ(editor.calls, u""_s);
}

TEST_P(ItemLookupTest, AfterARefusedStockItemAServiceOfTheKeyedCodeStillFillsTheLine) {
    PutItem(3, u"HD"_s, u"G1"_s);
    stockListBasic->pick = u"G1"_s;
    messages.Expect(kSameStock);
    Found(true);
    EXPECT_TRUE(LookUp(u"HD"_s, u"GA"_s));
    EXPECT_EQ(listing->searches.at(0).code, u"GA"_s);
    EXPECT_EQ(Line(), (std::vector<QString>{u"S1"_s, u"CLEANING"_s, u"102.00"_s, u"N"_s}));
}

TEST_P(ItemLookupTest, StockItemOnTheLastLineEscapesTheFirstTestAndIsRefusedByTheSecond) {
    PutItem(8, u"HD"_s, u"G1"_s);
    messages.Expect(kAlreadySelected);
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(messages.Shown().size(), 1U);
}

TEST_P(ItemLookupTest, ExamOnAnotherLineIsRefusedUnderWhateverDepartment) {
    PutItem(4, u"XR"_s, u"S1"_s);
    cells.SetTextMatrix(1, Column::kParticular, u"EAR CARE"_s);
    Found(true);
    messages.Expect(kAlreadySelected);
    EXPECT_FALSE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u""_s, u"EAR CARE"_s, u""_s, u""_s}));
    EXPECT_EQ(editor.calls, u"Leave Enter(1,2) "_s);
    EXPECT_EQ(editor.text, u""_s);
}

TEST_P(ItemLookupTest, DuplicateTestTurnsTheRedrawOffAndOn) {
    Found(true);
    LookUp(u"HC"_s, u"S"_s);
    EXPECT_EQ(editor.redraws, (std::vector<bool>{false, true}));
}

TEST_P(ItemLookupTest, NoCurrentRecordInTheServicesEmptiesTheCodeAndIsNotTold) {
    listing->failure = RunTime::Error(RunTime::kNoCurrentRecord);
    EXPECT_FALSE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(keyed, u""_s);
}

TEST_P(ItemLookupTest, NoCurrentRecordAtTheSearchModeEmptiesTheCodeAndTheSearchGoesOn) {
    const auto services = std::make_shared<SetterListing>();
    services->searchModeFailure = {RunTime::Error(RunTime::kNoCurrentRecord)};
    gListing = services;
    LookUp(u"XR"_s, u"CHEST"_s);
    EXPECT_EQ(keyed, u""_s);
    const QString section = &differences == &kPostChargesDifferences ? u"HC"_s : u"XR"_s;
    EXPECT_EQ(services->searches, (Searches{{u""_s, ListingKind::kOtherRevenue, section}}));
}

TEST_P(ItemLookupTest, NoCurrentRecordAtTheSectionEmptiesTheCodeAndTheSearchGoesOn) {
    const auto services = std::make_shared<SetterListing>();
    services->section = u"CS"_s;
    services->sectionFailure = {RunTime::Error(RunTime::kNoCurrentRecord)};
    gListing = services;
    LookUp(u"XR"_s, u"CHEST"_s);
    EXPECT_EQ(keyed, u""_s);
    // Posting sets the section a second time; otherwise the one of the line before stays.
    const QString section = &differences == &kPostChargesDifferences ? u"HC"_s : u"CS"_s;
    EXPECT_EQ(services->searches, (Searches{{u""_s, ListingKind::kOtherRevenue, section}}));
}

TEST_F(PostLookupTest, NoCurrentRecordAtTheSectionHCEmptiesTheCodeAndTheSearchGoesOn) {
    const auto services = std::make_shared<SetterListing>();
    services->sectionFailure = {RunTime::Error(RunTime::kNoCurrentRecord), 1};
    gListing = services;
    LookUp(u"XR"_s, u"CHEST"_s);
    EXPECT_EQ(keyed, u""_s);
    EXPECT_EQ(services->searches, (Searches{{u""_s, ListingKind::kOtherRevenue, u"XR"_s}}));
}

TEST_P(ItemLookupTest, NoCurrentRecordInTheStockGoesOnAndTheServicesAreAskedForTheEmptyText) {
    stockItem->failure = RunTime::Error(RunTime::kNoCurrentRecord);
    Found(true);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(listing->searches.at(0).code, u""_s);
    EXPECT_EQ(Line()[0], u"S1"_s);
}

TEST_P(ItemLookupTest, NoCurrentRecordInThePickerGoesOnWithWhatStandsInTheEditor) {
    stockListBasic->failure = RunTime::Error(RunTime::kNoCurrentRecord);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(editor.text, u"G1"_s);
    EXPECT_EQ(listing->searches.at(0).code, u""_s);
    EXPECT_EQ(Line(), (std::vector<QString>{u"G1"_s, u"GAUZE"_s, u"12.50"_s, u"N"_s}));
}

TEST_P(ItemLookupTest, NoCurrentRecordAtTheCodeOfTheItemFoundLeavesTheEditorAndGoesOn) {
    stockListBasic->pick = u"G1"_s;
    stockItem->codeFailure = {RunTime::Error(RunTime::kNoCurrentRecord)};
    EXPECT_TRUE(LookUp(u"HD"_s, u"GAU"_s));
    EXPECT_EQ(listing->searches.at(0).code, u""_s);
    EXPECT_EQ(Line(), (std::vector<QString>{u"G1"_s, u"GAUZE"_s, u"12.50"_s, u"N"_s}));
}

/// One reading of the record found that fails with no current record, and the line that comes of it.
struct ReadingCase {
    const char* name;
    void (*fail)(FakeStockItem& stock, FakeListing& listing);
    /// The service is found too.
    bool isService;
    std::vector<QString> line;
};

ComingFailure NoRecordAfter(int readings) {
    return {RunTime::Error(RunTime::kNoCurrentRecord), readings};
}

class FailingReadingTest : public ItemLookupGround,
                           public testing::WithParamInterface<std::tuple<Twin, ReadingCase>> {
  protected:
    FailingReadingTest()
        : ItemLookupGround(*std::get<Twin>(GetParam()).differences) {}
};

const ReadingCase kReadings[] = {
    {"NameOfAStockItem",
     [](FakeStockItem& stock, FakeListing&) { stock.nameFailure = NoRecordAfter(0); },
     false,
     {u"G1"_s, u""_s, u"12.50"_s, u"N"_s}},
    {"PriceOfAStockItem",
     [](FakeStockItem& stock, FakeListing&) { stock.priceFailure = NoRecordAfter(0); },
     false,
     {u"G1"_s, u"GAUZE"_s, u"0.00"_s, u"Y"_s}},
    {"CodeOfAService",
     [](FakeStockItem&, FakeListing& services) { services.recordFailure = NoRecordAfter(0); },
     true,
     {u"G1"_s, u"CLEANING"_s, u"102.00"_s, u"N"_s}},
    {"NameOfAService",
     [](FakeStockItem&, FakeListing& services) { services.recordFailure = NoRecordAfter(1); },
     true,
     {u"S1"_s, u"GAUZE"_s, u"102.00"_s, u"N"_s}},
    {"RateOfAService",
     [](FakeStockItem&, FakeListing& services) { services.recordFailure = NoRecordAfter(2); },
     true,
     {u"S1"_s, u"CLEANING"_s, u"12.50"_s, u"N"_s}}};

INSTANTIATE_TEST_SUITE_P(Readings, FailingReadingTest,
                         testing::Combine(testing::ValuesIn(kTwins), testing::ValuesIn(kReadings)),
                         [](const auto& test) {
                             return std::string(std::get<Twin>(test.param).name) +
                                    std::get<ReadingCase>(test.param).name;
                         });

TEST_P(FailingReadingTest, GoesOnWithTheNextOneAndEmptiesTheCode) {
    const auto& reading = std::get<ReadingCase>(GetParam());
    reading.fail(*stockItem, *listing);
    Found(reading.isService);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line(), reading.line);
    EXPECT_EQ(keyed, u""_s);
}

TEST_P(ItemLookupTest, StockItemWhoseCodeCannotBeReadIsRefusedLikeTheEmptyCodesOfTheOtherLines) {
    stockItem->codeFailure = NoRecordAfter(1);
    messages.Expect(kAlreadySelected);
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(keyed, u""_s);
}

TEST_P(ItemLookupTest, PriceOfAServiceThatCannotBeReadIsZeroAndMarked) {
    listing->recordFailure = NoRecordAfter(2);
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"S1"_s, u"CLEANING"_s, u"0.00"_s, u"Y"_s}));
}

TEST_P(ItemLookupTest, PickerThatIsLeftEmptiesTheCellAndTheServicesAreAskedForTheKeyedCode) {
    class SearchedStockItem : public FakeStockItem {
      public:
        bool SearchDrug(const QString& text, const QString& section) override {
            searches << text;
            return FakeStockItem::SearchDrug(text, section);
        }
        QStringList searches;
    };
    const auto stock = std::make_shared<SearchedStockItem>();
    gStockItem = stock;
    stockListBasic->pick = u""_s;
    EXPECT_FALSE(LookUp(u"HD"_s, u"GAU"_s));
    EXPECT_EQ(At(1, Column::kCode), u""_s);
    EXPECT_EQ(editor.text, u""_s);
    EXPECT_EQ(stock->searches, QStringList{u""_s});
    EXPECT_EQ(listing->searches.at(0).code, u"GAU"_s);
}

TEST_P(ItemLookupTest, OtherErrorShowsTheSystemsTextAndLeavesTheLine) {
    stockItem->failure = RunTimeError(RunTime::kTypeMismatch, u"told otherwise"_s);
    messages.Expect({.text = u"Type mismatch"_s, .icon = MsgIcon::Critical});
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"G1"_s, u""_s, u""_s, u""_s}));
    EXPECT_TRUE(listing->searches.empty());
}

TEST_P(ItemLookupTest, ErrorOfTheDatabaseShowsItsOwnText) {
    listing->failure = RunTimeError(208, u"Invalid object name 'tbItem'."_s);
    messages.Expect({.text = u"Invalid object name 'tbItem'."_s, .icon = MsgIcon::Critical});
    EXPECT_FALSE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(keyed, u"S"_s);
}

TEST_P(ItemLookupTest, MissingComponentIsAnErrorLikeAnother) {
    gStockListBasic = nullptr;
    messages.Expect({.text = u"Object variable or With block variable not set"_s, .icon = MsgIcon::Critical});
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
}

TEST_P(ItemLookupTest, ErrorWhileTheLineIsWrittenIsTrappedToo) {
    // A grid that was bound to a narrow result lacks the column of the zero flag.
    cells.SetCols(Column::kZeroPrice);
    Found(true);
    messages.Expect({.text = u"Invalid Col value"_s, .icon = MsgIcon::Critical});
    EXPECT_FALSE(LookUp(u"HC"_s, u"S"_s));
}

TEST_P(ItemLookupTest, ErrorWhileARefusedStockItemIsTakenBackIsTrappedToo) {
    // The picker narrows the grid, as a binding behind it would: there is no Particular to empty.
    class NarrowingStockList : public FakeStockList {
      public:
        explicit NarrowingStockList(FlexCells& grid)
            : cells(grid) {}
        QString ShowList(const QString& text, bool, const QString&) override {
            cells.SetCols(Column::kParticular);
            return text;
        }
        FlexCells& cells;
    };
    gStockListBasic = std::make_shared<NarrowingStockList>(cells);
    PutItem(3, u"HD"_s, u"G1"_s);
    messages.Expect(kSameStock);
    messages.Expect({.text = u"Invalid Col value"_s, .icon = MsgIcon::Critical});
    EXPECT_FALSE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_TRUE(listing->searches.empty());
}

struct RateCase {
    const char* name;
    QString letter;
    /// Price on frmPostCharges and on frmAssessment.
    QString post;
    QString assessment;
};

class PostRateTest : public PostLookupTest, public testing::WithParamInterface<RateCase> {};
class AssessmentRateTest : public AssessmentLookupTest, public testing::WithParamInterface<RateCase> {};

const RateCase kRateCases[] = {
    {"A", u"A"_s, u"101.00"_s, u"101.00"_s},          {"B", u"B"_s, u"102.00"_s, u"102.00"_s},
    {"C", u"C"_s, u"103.00"_s, u"103.00"_s},          {"D", u"D"_s, u"104.00"_s, u"104.00"_s},
    {"E", u"E"_s, u"105.00"_s, u"105.00"_s},          {"F", u"F"_s, u"106.00"_s, u"106.00"_s},
    {"G", u"G"_s, u"107.00"_s, u"107.00"_s},          {"H", u"H"_s, u"108.00"_s, u"108.00"_s},
    {"Trimmed", u"  D "_s, u"104.00"_s, u"104.00"_s}, {"LowerCase", u"a"_s, u"101.00"_s, u"0.00"_s},
    {"Empty", u""_s, u"101.00"_s, u"0.00"_s},         {"OtherLetter", u"I"_s, u"101.00"_s, u"0.00"_s},
    {"TwoLetters", u"AB"_s, u"101.00"_s, u"0.00"_s}};

INSTANTIATE_TEST_SUITE_P(Letters, PostRateTest, testing::ValuesIn(kRateCases), CaseName());
INSTANTIATE_TEST_SUITE_P(Letters, AssessmentRateTest, testing::ValuesIn(kRateCases), CaseName());

TEST_P(PostRateTest, RoomClassSelectsTheRate) {
    gRoomClass = GetParam().letter;
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(Line()[2], GetParam().post);
    EXPECT_EQ(Line()[3], u"N"_s);
}

TEST_P(AssessmentRateTest, RoomClassSelectsTheRate) {
    gRoomClass = GetParam().letter;
    Found(true);
    EXPECT_TRUE(LookUp(u"HC"_s, u"S"_s));
    EXPECT_EQ(Line()[2], GetParam().assessment);
    EXPECT_EQ(Line()[3], GetParam().assessment == u"0.00"_s ? u"Y"_s : u"N"_s);
}

TEST_F(AssessmentLookupTest, OtherLetterKeepsTheStockPriceUnderTheServicesName) {
    gRoomClass = u"a"_s;
    Found(true);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line(), (std::vector<QString>{u"S1"_s, u"CLEANING"_s, u"12.50"_s, u"N"_s}));
}

TEST_F(PostLookupTest, OtherLetterTakesRateAOverTheStockPrice) {
    gRoomClass = u"a"_s;
    Found(true);
    EXPECT_TRUE(LookUp(u"HD"_s, u"G1"_s));
    EXPECT_EQ(Line()[2], u"101.00"_s);
}
