#include "catalogue/clsRevenueCode.h"
#include "charges/ChargeLines.h"
#include "charges/Twins.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/RevenueRows.h"
#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/FlexCells.h"

#include <set>

using namespace Qt::StringLiterals;

namespace {

/// Lines over the cells of a grid of 8 lines, as a charge screen has them after its load.
struct Ground {
    explicit Ground(const ChargeGridDifferences& differences)
        : lines(cells, differences) {
        cells.SetCols(Column::kCount);
        cells.SetRows(9);
        cells.SetTextMatrix(0, differences.quantityCol, u"Quantity"_s);
        lines.ResetColumns();
    }

    QString At(int row, int col) const { return cells.TextMatrix(row, col); }
    void Put(int row, int col, const QString& text) { cells.SetTextMatrix(row, col, text); }
    bool IsDuplicate(int row, QString department, QString code) {
        return lines.CheckDuplicateExam(row, department, code);
    }

    void PutItem(int row, const QString& department, const QString& code) {
        Put(row, Column::kDepartment, department);
        Put(row, Column::kCode, code);
    }
    /// Where the current cell stands.
    std::pair<int, int> Place() const { return {cells.Row(), cells.Col()}; }

    FlexCells cells;
    ChargeLines lines;
};

} // namespace

class ChargeLinesTest : public ScreenTest {
  protected:
    Ground post{kPostChargesDifferences};
    Ground assessment{kAssessmentDifferences};
};

/// What both screens do alike.
class BothScreensTest : public ScreenTest, public testing::WithParamInterface<Twin> {
  protected:
    const ChargeGridDifferences& differences = *GetParam().differences;
    Ground ground{differences};
};

INSTANTIATE_TEST_SUITE_P(Twins, BothScreensTest, testing::ValuesIn(kTwins), CaseName());

TEST_F(ChargeLinesTest, PriceAndQuantityAreSwappedBetweenTheScreens) {
    EXPECT_EQ(kPostChargesDifferences.quantityCol, 4);
    EXPECT_EQ(kPostChargesDifferences.priceCol, 5);
    EXPECT_EQ(kAssessmentDifferences.quantityCol, 5);
    EXPECT_EQ(kAssessmentDifferences.priceCol, 4);
}

TEST_F(ChargeLinesTest, LockedColumnsOfEachScreen) {
    const std::set<int> postLocked = {3, 7, 8, 9, 10, 11, 12};
    const std::set<int> assessmentLocked = {3, 7, 8, 9, 10};
    for (int col = 0; col < Column::kCount; ++col) {
        EXPECT_EQ(post.lines.IsLocked(col), postLocked.contains(col)) << col;
        EXPECT_EQ(assessment.lines.IsLocked(col), assessmentLocked.contains(col)) << col;
    }
}

TEST_P(BothScreensTest, CodeAloneIsChecked) {
    for (int col = 0; col < Column::kCount; ++col)
        EXPECT_EQ(ground.lines.IsChecked(col), col == Column::kCode) << col;
}

TEST_P(BothScreensTest, DepartmentAndCodeMakeKeysUpperCase) {
    for (const int col : {Column::kDepartment, Column::kCode}) {
        ground.cells.SetCol(col);
        EXPECT_EQ(ground.lines.FilterKey('h'), 'H');
        EXPECT_EQ(ground.lines.FilterKey(u'ñ'), u'Ñ');
        EXPECT_EQ(ground.lines.FilterKey(u'7'), u'7');
        EXPECT_EQ(ground.lines.FilterKey(13), 13);
    }
}

TEST_P(BothScreensTest, QuantityLetsDigitsPointsAndKeysBelowTheBlankThrough) {
    ground.cells.SetCol(differences.quantityCol);
    for (const int key : std::initializer_list<int>{'0', '5', '9', '.', 8, 13, 27, 22, 31})
        EXPECT_EQ(ground.lines.FilterKey(key), key) << key;
    for (const int key : std::initializer_list<int>{' ', 'a', 'Z', '-', '+', ',', '/', ':', u'½', u'ñ'})
        EXPECT_EQ(ground.lines.FilterKey(key), 0) << key;
}

TEST_P(BothScreensTest, OtherColumnsTakeAnyKeyAsItIs) {
    for (const int col : {differences.priceCol, Column::kAmount}) {
        ground.cells.SetCol(col);
        for (const int key : {'a', '-', ' ', '5'})
            EXPECT_EQ(ground.lines.FilterKey(key), key) << col;
    }
}

TEST_P(BothScreensTest, ResetBringsChangedLocksBack) {
    ground.lines.SetLocked(4, true);
    ground.lines.SetLocked(3, false);
    ground.lines.ResetColumns();
    EXPECT_FALSE(ground.lines.IsLocked(4));
    EXPECT_TRUE(ground.lines.IsLocked(3));
}

TEST_F(ChargeLinesTest, AmountOfAnHCLineIsClosedOnPostChargesAlone) {
    for (Ground* ground : {&post, &assessment}) {
        for (const QString& department : {u"HC"_s, u"hc"_s, u"HC "_s, u"MD"_s, u""_s}) {
            ground->Put(1, Column::kDepartment, department);
            ground->lines.SetAmountLock();
            EXPECT_EQ(ground->lines.IsLocked(Column::kAmount), ground == &post && department == u"HC"_s)
                << department.toStdString();
        }
    }
}

TEST_P(BothScreensTest, DoctorsFeeLineIsExactlyMD) {
    for (const QString& department : {u"MD"_s, u"md"_s, u"MD "_s, u"HC"_s}) {
        ground.Put(1, Column::kDepartment, department);
        EXPECT_EQ(ground.lines.OnDoctorsFeeLine(), department == u"MD"_s) << department.toStdString();
    }
}

TEST_P(BothScreensTest, FocusPassesOverAPriceFromTheCatalogue) {
    ground.cells.SetCell(2, differences.priceCol);
    EXPECT_FALSE(ground.lines.PassesOverOnFocus());
    ground.Put(2, Column::kZeroPrice, u"N"_s);
    EXPECT_TRUE(ground.lines.PassesOverOnFocus());
    ground.Put(2, Column::kZeroPrice, u"Y"_s);
    EXPECT_FALSE(ground.lines.PassesOverOnFocus());
}

TEST_P(BothScreensTest, FocusStaysInTheOtherColumns) {
    for (int col = Column::kWithItems; col < Column::kCount; ++col)
        ground.Put(1, col, col == Column::kWithItems ? u"Y"_s : u"N"_s);
    for (const int col : {Column::kDepartment, Column::kCode, Column::kParticular, differences.quantityCol}) {
        ground.cells.SetCol(col);
        EXPECT_FALSE(ground.lines.PassesOverOnFocus()) << col;
    }
}

TEST_F(ChargeLinesTest, FocusPassesOverTheAmountOfACentreWithItemsOnAssessmentAlone) {
    for (Ground* ground : {&post, &assessment}) {
        ground->cells.SetCol(Column::kAmount);
        ground->Put(1, Column::kWithItems, u"Y"_s);
        EXPECT_EQ(ground->lines.PassesOverOnFocus(), ground == &assessment);
        ground->Put(1, Column::kWithItems, u"N"_s);
        EXPECT_FALSE(ground->lines.PassesOverOnFocus());
    }
}

TEST_F(ChargeLinesTest, FocusPassesOverTheAmountTextYOnPostChargesAlone) {
    for (Ground* ground : {&post, &assessment}) {
        ground->cells.SetCol(Column::kAmount);
        ground->Put(1, Column::kAmount, u"Y"_s);
        EXPECT_EQ(ground->lines.PassesOverOnFocus(), ground == &post);
    }
}

TEST_P(BothScreensTest, NextCellGoesThroughTheOpenColumnsAndToTheNextLine) {
    std::vector<int> columns;
    for (int i = 0; i < 5; ++i) {
        columns.push_back(ground.cells.Col());
        ground.lines.NextCell();
    }
    EXPECT_EQ(columns, (std::vector<int>{1, 2, 4, 5, 6}));
    EXPECT_EQ(ground.Place(), (std::pair(2, 1)));
    EXPECT_FALSE(ground.lines.LastRowArmed);
}

TEST_P(BothScreensTest, NextCellFromTheAmountNeverLooksForward) {
    ground.lines.SetLocked(11, false);
    ground.cells.SetCol(Column::kAmount);
    ground.lines.NextCell();
    EXPECT_EQ(ground.Place(), (std::pair(2, 1)));
}

TEST_F(ChargeLinesTest, ClosedAmountOfAnHCLineIsPassedByNextCell) {
    post.Put(1, Column::kDepartment, u"HC"_s);
    post.lines.SetAmountLock();
    post.cells.SetCol(post.lines.Differences().priceCol);
    post.lines.NextCell();
    EXPECT_EQ(post.Place(), (std::pair(2, 1)));
}

TEST_P(BothScreensTest, FirstArrivalAtTheEndOfTheLastLineMovesNothing) {
    ground.cells.SetCell(8, Column::kAmount);
    ground.lines.NextCell();
    EXPECT_EQ(ground.Place(), (std::pair(8, 6)));
    EXPECT_EQ(ground.cells.Rows(), 9);
    EXPECT_TRUE(ground.lines.LastRowArmed);
}

TEST_P(BothScreensTest, EveryLaterArrivalAddsALine) {
    ground.cells.SetCell(8, Column::kAmount);
    ground.lines.NextCell();
    ground.lines.NextCell();
    EXPECT_EQ(ground.cells.Rows(), 10);
    EXPECT_EQ(ground.Place(), (std::pair(9, 1)));
    for (int rows = 11; rows <= 13; ++rows) {
        ground.cells.SetCol(Column::kAmount);
        ground.lines.NextCell();
        EXPECT_EQ(ground.cells.Rows(), rows);
        EXPECT_EQ(ground.Place(), (std::pair(rows - 1, 1)));
    }
}

TEST_P(BothScreensTest, AddedLineIsEmptyAndTheOthersKeepTheirTexts) {
    ground.Put(8, Column::kCode, u"X1"_s);
    ground.cells.SetCell(8, Column::kAmount);
    ground.lines.NextCell();
    ground.lines.NextCell();
    EXPECT_EQ(ground.At(8, Column::kCode), u"X1"_s);
    for (int col = 0; col < Column::kCount; ++col)
        EXPECT_EQ(ground.At(9, col), u""_s);
}

TEST_P(BothScreensTest, DisarmedEndMovesNothingOnceMore) {
    ground.cells.SetCell(8, Column::kAmount);
    ground.lines.NextCell();
    ground.lines.LastRowArmed = false;
    ground.lines.NextCell();
    EXPECT_EQ(ground.cells.Rows(), 9);
}

class WriteCentreTest : public BothScreensTest {
  protected:
    int Write(const RevenueCentre& revenue) {
        ExpectExact(gateway, revenue);
        clsRevenueCode centre;
        EXPECT_TRUE(centre.ValidateRevenue(revenue.code.ToText()));
        return ground.lines.WriteCentre(centre);
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, WriteCentreTest, testing::ValuesIn(kTwins), CaseName());

TEST_P(WriteCentreTest, CodeNameAndQuantityGoIntoTheCurrentLine) {
    ground.cells.SetRow(3);
    Write({u"EAR CARE"_s, u"HC"_s});
    EXPECT_EQ(ground.At(3, Column::kDepartment), u"HC"_s);
    EXPECT_EQ(ground.At(3, Column::kParticular), u"EAR CARE"_s);
    EXPECT_EQ(ground.At(3, differences.quantityCol), u"1"_s);
    EXPECT_EQ(ground.At(3, differences.priceCol), u""_s);
    EXPECT_EQ(ground.At(3, Column::kAmount), u""_s);
    EXPECT_EQ(ground.At(2, Column::kDepartment), u""_s);
}

TEST_P(WriteCentreTest, QuantityThatStandsIsKeptOnPostChargesAlone) {
    ground.Put(1, differences.quantityCol, u"7"_s);
    Write({u"EAR CARE"_s, u"HC"_s});
    EXPECT_EQ(ground.At(1, differences.quantityCol),
              &differences == &kPostChargesDifferences ? u"7"_s : u"1"_s);
}

TEST_P(WriteCentreTest, QuantityOfBlanksBecomesOne) {
    ground.Put(1, differences.quantityCol, u"  "_s);
    Write({u"EAR CARE"_s, u"HC"_s});
    EXPECT_EQ(ground.At(1, differences.quantityCol), u"1"_s);
}

TEST_P(WriteCentreTest, DoctorsFeeGetsAQuantityOfOneToo) {
    Write({u"MEDICAL FEE"_s, u"MD"_s, u"N"_s});
    EXPECT_EQ(ground.At(1, differences.quantityCol), u"1"_s);
}

TEST_P(WriteCentreTest, AttributesOfTheCentreAreWrittenOnAssessmentAlone) {
    Write({u"SUPPLIES"_s, u"HD"_s, u"N"_s, true, u"52"_s});
    const bool written = &differences == &kAssessmentDifferences;
    EXPECT_EQ(ground.At(1, Column::kWithItems), written ? u"N"_s : u""_s);
    EXPECT_EQ(ground.At(1, Column::kZeroPrice), written ? u"N"_s : u""_s);
    EXPECT_EQ(ground.At(1, Column::kSearchInventory), written ? u"Y"_s : u""_s);
    EXPECT_EQ(ground.At(1, Column::kLocationID), written ? u"52"_s : u""_s);
}

TEST_P(WriteCentreTest, CentreWithoutStockIsMarkedNOnAssessmentAlone) {
    Write({u"EAR CARE"_s, u"HC"_s, u"Y"_s, false});
    EXPECT_EQ(ground.At(1, Column::kSearchInventory),
              &differences == &kAssessmentDifferences ? u"N"_s : u""_s);
}

TEST_P(WriteCentreTest, NextColumnIsTheCodeForItemsForStockAndForDoctors) {
    EXPECT_EQ(Write({u"EAR CARE"_s, u"HC"_s, u"Y"_s, false}), Column::kCode);
    EXPECT_EQ(Write({u"SUPPLIES"_s, u"HD"_s, u"N"_s, true}), Column::kCode);
    EXPECT_EQ(Write({u"MEDICAL FEE"_s, u"MD"_s, u"N"_s, false}), Column::kCode);
    EXPECT_EQ(Write({u"OTHERS"_s, u"OT"_s, u"N"_s, false}), Column::kAmount);
    EXPECT_EQ(Write({u"OTHERS"_s, u"OT"_s, u"y"_s, false}), Column::kAmount);
}

TEST_P(BothScreensTest, ColumnBeyondTheArraysRaises9) {
    for (const int col : {-1, 13}) {
        EXPECT_EQ(ErrorOf([&] { ground.lines.IsLocked(col); }), RunTime::kSubscriptOutOfRange) << col;
        EXPECT_EQ(ErrorOf([&] { ground.lines.SetLocked(col, true); }), RunTime::kSubscriptOutOfRange) << col;
        EXPECT_EQ(ErrorOf([&] { ground.lines.IsChecked(col); }), RunTime::kSubscriptOutOfRange) << col;
    }
    ground.cells.SetCols(15);
    ground.cells.SetCol(13);
    EXPECT_EQ(ErrorOf([&] { ground.lines.FilterKey('a'); }), RunTime::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { ground.lines.NextCell(); }), RunTime::kSubscriptOutOfRange);
}

struct AmountCase {
    const char* name;
    QString price;
    QString quantity;
    QString amount;
};

class AmountTest : public testing::TestWithParam<AmountCase> {};

INSTANTIATE_TEST_SUITE_P(
    Lines, AmountTest,
    testing::Values(AmountCase{"RoundedInTheFormatAlone", u"10.005"_s, u"2.5"_s, u"25.01"_s},
                    AmountCase{"Whole", u"100.00"_s, u"3"_s, u"300.00"_s},
                    AmountCase{"HalfCentUp", u"0.005"_s, u"1"_s, u"0.01"_s},
                    AmountCase{"TwoPointsReadToTheSecond", u"10"_s, u"1.2.3"_s, u"12.00"_s},
                    AmountCase{"LettersCutTheNumber", u"12abc"_s, u"2"_s, u"24.00"_s},
                    AmountCase{"LettersAloneAreZero", u"abc"_s, u"2"_s, u"0.00"_s},
                    AmountCase{"EmptyPrice", u""_s, u"2"_s, u"0.00"_s},
                    AmountCase{"ZeroQuantity", u"10"_s, u"0"_s, u"0.00"_s},
                    AmountCase{"NegativePrice", u"-1.5"_s, u"2"_s, u"-3.00"_s}),
    CaseName());

TEST_P(AmountTest, IsPriceTimesQuantityOnBothScreens) {
    for (const ChargeGridDifferences* differences : {&kPostChargesDifferences, &kAssessmentDifferences}) {
        Ground ground(*differences);
        ground.cells.SetRow(4);
        ground.Put(4, differences->priceCol, GetParam().price);
        ground.Put(4, differences->quantityCol, GetParam().quantity);
        ground.lines.ComputeAmount();
        EXPECT_EQ(ground.At(4, Column::kAmount), GetParam().amount);
        EXPECT_EQ(ground.At(4, differences->priceCol), GetParam().price);
    }
}

TEST_P(BothScreensTest, TotalIsTheSumOfTheAmountTexts) {
    EXPECT_EQ(ground.lines.ComputeTotal(), u"0.00"_s);
    ground.Put(1, Column::kAmount, u"10.10"_s);
    ground.Put(3, Column::kAmount, u"20.25"_s);
    ground.Put(8, Column::kAmount, u"1.5x"_s);
    EXPECT_EQ(ground.lines.ComputeTotal(), u"31.85"_s);
}

TEST_P(BothScreensTest, TotalLeavesTheHeaderOut) {
    ground.Put(0, Column::kAmount, u"5"_s);
    EXPECT_EQ(ground.lines.ComputeTotal(), u"0.00"_s);
}

TEST_P(BothScreensTest, TotalCountsLinesWhoseDepartmentWasEmptied) {
    ground.PutItem(2, u""_s, u"X"_s);
    ground.Put(2, Column::kAmount, u"40.00"_s);
    EXPECT_EQ(ground.lines.ComputeTotal(), u"40.00"_s);
}

TEST_P(BothScreensTest, RewritingMakesTheCurrentCellAnAmount) {
    const std::vector<std::pair<QString, QString>> cases = {{u"5"_s, u"5.00"_s},
                                                            {u"2.345"_s, u"2.35"_s},
                                                            {u"abc"_s, u"0.00"_s},
                                                            {u""_s, u"0.00"_s},
                                                            {u"1,250"_s, u"1.00"_s}};
    ground.cells.SetCell(2, Column::kAmount);
    for (const auto& [before, after] : cases) {
        ground.cells.SetText(before);
        ground.lines.RewriteAsAmount();
        EXPECT_EQ(ground.cells.Text(), after);
    }
}

TEST_P(BothScreensTest, CheckCodeFindsTheCodeOnAnotherLineOfTheDepartment) {
    ground.PutItem(1, u"HD"_s, u"G1"_s);
    ground.PutItem(2, u"HD"_s, u"G1"_s);
    ground.cells.SetRow(2);
    EXPECT_TRUE(ground.lines.Check_Code(u"G1"_s));
    EXPECT_FALSE(ground.lines.Check_Code(u"G2"_s));
    EXPECT_FALSE(ground.lines.Check_Code(u"g1"_s));
}

TEST_P(BothScreensTest, CheckCodeSkipsTheCurrentLineAndOtherDepartments) {
    ground.PutItem(1, u"HB"_s, u"G1"_s);
    ground.PutItem(2, u"HD"_s, u"G1"_s);
    ground.cells.SetRow(2);
    EXPECT_FALSE(ground.lines.Check_Code(u"G1"_s));
}

TEST_P(BothScreensTest, CheckCodeTrimsDepartmentsAndCodes) {
    ground.PutItem(1, u" HD"_s, u"G1 "_s);
    ground.PutItem(2, u"HD "_s, u""_s);
    ground.cells.SetRow(2);
    EXPECT_TRUE(ground.lines.Check_Code(u" G1"_s));
}

TEST_P(BothScreensTest, CheckCodeDoesNotSeeTheLastLine) {
    ground.PutItem(1, u"HD"_s, u""_s);
    ground.PutItem(8, u"HD"_s, u"G1"_s);
    EXPECT_FALSE(ground.lines.Check_Code(u"G1"_s));
    // With one line more it is the last no longer.
    ground.cells.SetRows(10);
    EXPECT_TRUE(ground.lines.Check_Code(u"G1"_s));
}

static_assert(std::is_same_v<decltype(&ChargeLines::CheckDuplicateExam),
                             bool (ChargeLines::*)(int&, QString&, QString&) const>,
              "the callers hand their own over");

TEST_P(BothScreensTest, DuplicateExamIsFoundUnderWhateverDepartmentItStands) {
    ground.PutItem(1, u"HC"_s, u""_s);
    ground.PutItem(8, u"HD"_s, u"G1"_s);
    EXPECT_TRUE(ground.IsDuplicate(1, u"HC"_s, u"G1"_s));
}

TEST_P(BothScreensTest, DuplicateExamComparesTheDepartmentWithTheCurrentLines) {
    ground.PutItem(1, u"HC"_s, u""_s);
    ground.PutItem(2, u"HD"_s, u"G1"_s);
    EXPECT_FALSE(ground.IsDuplicate(1, u"HD"_s, u"G1"_s));
}

TEST_P(BothScreensTest, DuplicateExamPassesOverTheGivenRowAndComparesExactly) {
    ground.PutItem(2, u"HC"_s, u"G1"_s);
    ground.cells.SetRow(2);
    EXPECT_FALSE(ground.IsDuplicate(2, u"HC"_s, u"G1"_s));
    EXPECT_FALSE(ground.IsDuplicate(1, u"HC"_s, u"g1"_s));
    EXPECT_FALSE(ground.IsDuplicate(1, u"HC"_s, u"G1 "_s));
    EXPECT_TRUE(ground.IsDuplicate(1, u"HC"_s, u"G1"_s));
}

TEST_P(BothScreensTest, SupplyIsFreeUnlessAnotherLineHasThePair) {
    ground.PutItem(1, u"HD"_s, u"G1"_s);
    ground.PutItem(8, u"HB"_s, u"G2"_s);
    EXPECT_TRUE(ground.lines.IsSupplyFree(u"HD"_s, u"G1"_s, 1));
    EXPECT_FALSE(ground.lines.IsSupplyFree(u"HD"_s, u"G1"_s, 2));
    EXPECT_FALSE(ground.lines.IsSupplyFree(u"HB"_s, u"G2"_s, 1));
    EXPECT_TRUE(ground.lines.IsSupplyFree(u"HD"_s, u"G2"_s, 1));
    EXPECT_TRUE(ground.lines.IsSupplyFree(u"HD"_s, u"G1 "_s, 2));
}
