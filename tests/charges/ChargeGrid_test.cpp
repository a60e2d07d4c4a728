#include "charges/ChargeGrid.h"
#include "charges/ChargeGridGround.h"
#include "charges/Twins.h"
#include "components/shared.h"
#include "support/CaseName.h"
#include "support/WhileModal.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const RevenueCentre kEarCare{u"EAR CARE"_s, u"HC"_s};
const RevenueCentre kXRay{u"X-RAY"_s, u"XR"_s};
const RevenueCentre kMedicines{u"MEDICINES"_s, u"HB"_s};
const RevenueCentre kFees{u"MEDICAL FEE"_s, u"MD"_s, u"N"_s};
const RevenueCentre kOthers{u"OTHERS"_s, u"OT"_s, u"N"_s};

const Message kSameExam{
    .text = u"Exam already selected."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s};
const Message kInputQuantity{.text = u"Input quantity."_s, .icon = MsgIcon::Exclamation};

} // namespace

/// What both screens do alike.
class ChargeGridTest : public ChargeGridGround, public testing::WithParamInterface<Twin> {
  protected:
    ChargeGridTest()
        : ChargeGridGround(*GetParam().differences) {}

    void ExpectHeaders() const;

    /// Keys a code into the line and answers in which section of the stock it is looked up, which goes by the
    /// department last validated.
    QString SectionSearched(int row) {
        OpenByFocus(row, Column::kCode);
        Key(u"G1"_s);
        Enter();
        return stockListBasic->showings.empty() ? u"none"_s : stockListBasic->showings.back().section;
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, ChargeGridTest, testing::ValuesIn(kTwins), CaseName());

TEST_P(ChargeGridTest, FreshGridHasEightLinesOfThirteenColumns) {
    EXPECT_EQ(cells.Rows(), 9);
    EXPECT_EQ(cells.Cols(), 13);
    const std::vector<int> widths = {200, 1000, 1000, 4000, 1000, 1000, 1000, 0, 0, 0, 0, 0, 0};
    for (int col = 0; col < 13; ++col)
        EXPECT_EQ(grid.ColWidth(col), widths[size_t(col)]) << col;
}

TEST_P(ChargeGridTest, HeadersNameTheColumns) {
    ExpectHeaders();
}

TEST_P(ChargeGridTest, SettingUpAfterABindingBringsColumnsHeadersAndAlignmentsBack) {
    cells.Bind(Rows({u"a"_s, u"b"_s, u"c"_s}, {{u"1"_s, u"2"_s, u"3"_s}}));
    ASSERT_EQ(cells.Cols(), 4);
    charges->SetupGrid();
    EXPECT_EQ(cells.Rows(), 9);
    EXPECT_EQ(cells.Cols(), 13);
    ExpectHeaders();
    for (int col = 1; col < 13; ++col) {
        const auto alignment = cells.headerData(col - 1, Qt::Horizontal, Qt::TextAlignmentRole);
        EXPECT_EQ(alignment.value<Qt::Alignment>() & Qt::AlignHorizontal_Mask,
                  col >= 4 && col <= 6 ? Qt::AlignRight : Qt::AlignLeft)
            << col;
    }
}

void ChargeGridTest::ExpectHeaders() const {
    const bool post = differences.quantityCol == 4;
    const std::vector<QString> headers = {u""_s,
                                          u"Department"_s,
                                          u"Code"_s,
                                          u"Particular"_s,
                                          post ? u"Quantity"_s : u"Price"_s,
                                          post ? u"Price"_s : u"Quantity"_s,
                                          u"Amount"_s,
                                          u"With Items"_s};
    for (int col = 0; col < 13; ++col)
        EXPECT_EQ(At(0, col), col < 8 ? headers[size_t(col)] : u""_s) << col;
}

TEST_P(ChargeGridTest, SettingUpAgainKeepsEightLinesAndCutsTheRest) {
    cells.SetRows(12);
    Put(8, 2, u"KEPT"_s);
    Put(9, 2, u"LOST"_s);
    charges->SetupGrid();
    EXPECT_EQ(cells.Rows(), 9);
    EXPECT_EQ(At(8, 2), u"KEPT"_s);
    cells.SetRows(10);
    EXPECT_EQ(At(9, 2), u""_s);
}

TEST_P(ChargeGridTest, ClickOpensTheFilledCellUnderIt) {
    PutLine(3, u"XR"_s, u"Y"_s);
    for (const int col : {1, 2, 4, 5, 6}) {
        ClickCell(3, col);
        ExpectOpen(3, col);
    }
}

TEST_P(ChargeGridTest, ClickOnAnEmptyCellLandsOnTheDepartment) {
    for (const int col : {1, 2, 3, 4, 5, 6}) {
        ClickCell(2 + col % 2, col);
        ExpectOpen(2 + col % 2, 1);
    }
}

TEST_P(ChargeGridTest, ClickOnTheParticularLeavesTheEditorWhereItWas) {
    PutLine(1, u"XR"_s, u"N"_s);
    Put(1, Column::kParticular, u"CHEST"_s);
    ClickCell(1, 2);
    ClickCell(1, Column::kParticular);
    EXPECT_EQ(Place(), std::pair(1, Column::kParticular));
    EXPECT_EQ(editor.geometry(), CellPlace(1, 2));
    EXPECT_EQ(At(1, Column::kParticular), u"CHEST"_s);
}

TEST_P(ChargeGridTest, EnterInTheParticularMovesOnAndComputesNothing) {
    PutLine(1, u"XR"_s, u"Y"_s);
    Put(1, Column::kParticular, u"CHEST"_s);
    Put(1, Column::kAmount, u"250"_s);
    total->setText(u"9.00"_s);
    ClickCell(1, 2);
    ClickCell(1, Column::kParticular);
    Click(editor);
    ASSERT_TRUE(editor.hasFocus());
    ASSERT_EQ(Place(), std::pair(1, Column::kParticular));
    Enter();
    ExpectOpen(1, 4);
    EXPECT_TRUE(listing->searches.empty());
    EXPECT_EQ(At(1, Column::kParticular), u"CHEST"_s);
    EXPECT_EQ(At(1, Column::kAmount), u"250"_s);
    EXPECT_EQ(total->text(), u"9.00"_s);
}

TEST_P(ChargeGridTest, EachKeyedCharacterIsInTheCellAtOnce) {
    OpenByFocus(2, 2);
    Key(u"ab"_s);
    EXPECT_EQ(At(2, 2), u"AB"_s);
    Press(editor, Qt::Key_Backspace);
    EXPECT_EQ(At(2, 2), u"A"_s);
}

TEST_P(ChargeGridTest, DepartmentAndCodeAreKeyedInCapitals) {
    OpenByFocus(1, 1);
    Key(u"hcñ"_s);
    EXPECT_EQ(editor.text(), u"HCÑ"_s);
}

TEST_P(ChargeGridTest, QuantityTakesDigitsAndPointsAlone) {
    OpenByFocus(1, differences.quantityCol);
    Key(u"1a.2 -.3"_s);
    EXPECT_EQ(editor.text(), u"1.2.3"_s);
    Put(1, differences.priceCol, u"10"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"12.00"_s);
}

TEST_P(ChargeGridTest, PriceTakesAnyKey) {
    OpenByFocus(1, differences.priceCol);
    Key(u"12x-"_s);
    EXPECT_EQ(editor.text(), u"12x-"_s);
}

TEST_P(ChargeGridTest, UpAndDownMoveOneLineInTheSameColumn) {
    Put(2, 2, u"B"_s);
    OpenByFocus(1, 2);
    Press(editor, Qt::Key_Down);
    ExpectOpen(2, 2);
    Press(editor, Qt::Key_Up);
    ExpectOpen(1, 2);
}

TEST_P(ChargeGridTest, DownOntoAPriceOfTheCatalogueStaysThere) {
    PutLine(1, u"XR"_s, u"Y"_s);
    PutLine(2, u"XR"_s, u"N"_s);
    ClickCell(1, differences.priceCol);
    Press(editor, Qt::Key_Down);
    ExpectOpen(2, differences.priceCol);
}

TEST_P(ChargeGridTest, UpOnTheFirstLineAndDownOnTheLastDoNothing) {
    OpenByFocus(1, 2);
    Press(editor, Qt::Key_Up);
    ExpectOpen(1, 2);
    OpenByFocus(8, 2);
    for (int i = 0; i < 3; ++i)
        Press(editor, Qt::Key_Down);
    ExpectOpen(8, 2);
    EXPECT_EQ(cells.Rows(), 9);
}

TEST_P(ChargeGridTest, ArrowsDoNotValidateTheCellTheyLeave) {
    OpenByFocus(1, 1);
    Key(u"QQ"_s);
    Press(editor, Qt::Key_Down);
    EXPECT_EQ(At(1, 1), u"QQ"_s);
    ExpectOpen(2, 1);
    EXPECT_TRUE(gateway.Openings().empty());
}

TEST_P(ChargeGridTest, EscapeUndoesNothing) {
    OpenByFocus(1, 2);
    Key(u"AB"_s);
    Press(editor, Qt::Key_Escape);
    EXPECT_EQ(At(1, 2), u"AB"_s);
    EXPECT_EQ(editor.text(), u"AB"_s);
    EXPECT_EQ(Place(), std::pair(1, 2));
    EXPECT_TRUE(editor.hasFocus());
}

TEST_P(ChargeGridTest, UnknownDepartmentIsToldAndTheClerkStaysThere) {
    OpenByFocus(3, 1);
    Key(u"QQ"_s);
    gateway.Expect(ExactRevenueCommand(u"QQ"_s), RevenueRows({}));
    gateway.Expect(PartialRevenueCommand(u"QQ"_s), RevenueRows({}));
    messages.Expect({.text = u"Item does not exists."_s, .icon = MsgIcon::Exclamation});
    Enter();
    ExpectOpen(3, 1);
    EXPECT_EQ(At(3, 1), u"QQ"_s);
    EXPECT_EQ(gLineCount, 0);
}

TEST_P(ChargeGridTest, RefusedDepartmentLeavesTheOneLastValidated) {
    OpenByFocus(3, 1);
    KeyDepartment(kMedicines);
    ClickCell(3, 1);
    Key(u"QQ"_s);
    gateway.Expect(ExactRevenueCommand(u"QQ"_s), RevenueRows({}));
    gateway.Expect(PartialRevenueCommand(u"QQ"_s), RevenueRows({}));
    messages.Expect({.text = u"Item does not exists."_s, .icon = MsgIcon::Exclamation});
    Enter();
    EXPECT_EQ(At(3, 3), u"MEDICINES"_s);
    EXPECT_EQ(gLineCount, 1);
    EXPECT_EQ(SectionSearched(3), u"1"_s);
}

TEST_P(ChargeGridTest, CancelledDepartmentLeavesTheOneLastValidated) {
    OpenByFocus(3, 1);
    KeyDepartment(kMedicines);
    ClickCell(3, 1);
    Key(u"E"_s);
    gateway.Expect(ExactRevenueCommand(u"E"_s), RevenueRows({}));
    gateway.Expect(PartialRevenueCommand(u"E"_s), RevenueRows({kEarCare}));
    gateway.Expect(ListedRevenueCommand(u"E"_s), RevenueRows({kEarCare}));
    bool opened = false;
    WhileModal([&opened](Form& picker) {
        opened = true;
        Click(Find<QPushButton>(picker, "cmdCancel"));
    });
    Enter();
    EXPECT_TRUE(opened);
    EXPECT_EQ(At(3, 1), u"E"_s);
    EXPECT_EQ(At(3, 3), u"MEDICINES"_s);
    EXPECT_EQ(gLineCount, 1);
    EXPECT_EQ(Place(), std::pair(3, 1));
    EXPECT_EQ(SectionSearched(3), u"1"_s);
}

TEST_P(ChargeGridTest, AcceptedDepartmentFillsTheLineAndOpensTheCode) {
    OpenByFocus(3, 1);
    KeyDepartment(kMedicines);
    EXPECT_EQ(At(3, 1), u"HB"_s);
    EXPECT_EQ(At(3, 3), u"MEDICINES"_s);
    EXPECT_EQ(At(3, differences.quantityCol), u"1"_s);
    ExpectOpen(3, 2);
    EXPECT_EQ(SectionSearched(3), u"1"_s);
}

TEST_P(ChargeGridTest, EveryAcceptedDepartmentCountsALineUntilTheCountersAreReset) {
    OpenByFocus(1, 1);
    KeyDepartment(kXRay);
    OpenByFocus(1, 1);
    KeyDepartment(kEarCare);
    EXPECT_EQ(gLineCount, 2);
    gLineCount2 = 5;
    ChargeGrid::ResetLineCount();
    EXPECT_EQ(gLineCount, 0);
    EXPECT_EQ(gLineCount2, 0);
}

TEST_P(ChargeGridTest, CentreWithNeitherItemsNorStockGoesStraightToTheAmount) {
    OpenByFocus(1, 1);
    KeyDepartment(kOthers);
    ExpectOpen(1, Column::kAmount);
    Key(u"75"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"75.00"_s);
    EXPECT_EQ(total->text(), u"75.00"_s);
    ExpectOpen(2, 1);
}

TEST_P(ChargeGridTest, DoctorsFeeGoesFromTheCodeToTheAmountAlone) {
    OpenByFocus(1, 1);
    KeyDepartment(kFees);
    ExpectOpen(1, 2);
    Key(u"d3"_s);
    listing->answers.push_back(true);
    Enter();
    EXPECT_EQ(listing->searches.at(0).code, u"D3"_s);
    EXPECT_EQ(At(1, 2), u"D003"_s);
    EXPECT_EQ(At(1, 3), u"(PF) DR. CASTAÑEDA, LUIS"_s);
    EXPECT_EQ(At(1, 4), u""_s);
    EXPECT_EQ(At(1, 5), u""_s);
    ExpectOpen(1, Column::kAmount);
    Key(u"1500"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"1500.00"_s);
    EXPECT_EQ(total->text(), u"1500.00"_s);
    ExpectOpen(2, 1);
}

TEST_P(ChargeGridTest, CodeFoundNowhereStaysOpen) {
    OpenByFocus(1, 1);
    KeyDepartment(kXRay);
    Key(u"QQ"_s);
    Enter();
    EXPECT_EQ(Place(), std::pair(1, 2));
    EXPECT_EQ(editor.text(), u"QQ"_s);
    EXPECT_TRUE(editor.hasFocus());
}

TEST_P(ChargeGridTest, ExamThatStandsOnAnotherLineEmptiesTheCodeAndOpensItAgain) {
    PutLine(4, u"XR"_s, u"N"_s);
    Put(4, 2, u"S1"_s);
    OpenByFocus(1, 1);
    KeyDepartment(kXRay);
    messages.Expect(kSameExam);
    KeyService();
    ExpectOpen(1, 2);
    EXPECT_EQ(At(1, 2), u""_s);
    EXPECT_EQ(At(1, 3), u"X-RAY"_s);
    EXPECT_EQ(At(1, differences.priceCol), u""_s);
}

TEST_P(ChargeGridTest, AnyOtherTextIsAQuantity) {
    for (const QString& text : {u"1"_s, u"1.2.3"_s, u"quantity"_s, u" "_s}) {
        PutLine(1, u"XR"_s, u"Y"_s);
        ClickCell(1, differences.quantityCol);
        editor.setText(text);
        Enter();
        EXPECT_EQ(Place(), std::pair(1, differences.quantityCol + 1)) << text.toStdString();
    }
}

TEST_P(ChargeGridTest, EmptyQuantityIsToldAndOpenedAgain) {
    PutLine(1, u"XR"_s, u"Y"_s);
    ClickCell(1, differences.quantityCol);
    Press(editor, Qt::Key_Backspace);
    messages.Expect(kInputQuantity);
    Enter();
    ExpectOpen(1, differences.quantityCol);
    EXPECT_EQ(At(1, differences.quantityCol), u""_s);
    EXPECT_EQ(At(1, Column::kAmount), u"101.00"_s);
    EXPECT_EQ(total->text(), u""_s);
}

TEST_P(ChargeGridTest, HeadersWordIsNoQuantity) {
    PutLine(1, u"XR"_s, u"Y"_s);
    Put(1, differences.quantityCol, u"Quantity"_s);
    ClickCell(1, differences.quantityCol);
    editor.deselect();
    messages.Expect(kInputQuantity);
    Enter();
    ExpectOpen(1, differences.quantityCol);
}

TEST_P(ChargeGridTest, QuantityZeroIsAccepted) {
    PutLine(1, u"XR"_s, u"Y"_s);
    ClickCell(1, differences.quantityCol);
    Key(u"0"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"0.00"_s);
    EXPECT_EQ(total->text(), u"0.00"_s);
}

TEST_P(ChargeGridTest, QuantityOfTwoAndAHalfAtTenAndAHalfCentGives2501) {
    PutLine(1, u"XR"_s, u"Y"_s);
    Put(1, differences.priceCol, u"10.005"_s);
    ClickCell(1, differences.quantityCol);
    Key(u"2.5"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"25.01"_s);
    EXPECT_EQ(total->text(), u"25.01"_s);
}

TEST_P(ChargeGridTest, KeyedPriceIsRewrittenAndChangesNoAmount) {
    PutLine(1, u"XR"_s, u"Y"_s);
    ClickCell(1, differences.priceCol);
    Key(u"200x"_s);
    Enter();
    EXPECT_EQ(At(1, differences.priceCol), u"200.00"_s);
    EXPECT_EQ(At(1, Column::kAmount), u"101.00"_s);
    EXPECT_EQ(total->text(), u""_s);
}

TEST_P(ChargeGridTest, EmptiedDepartmentChangesNoTotalByItself) {
    PutLine(1, u"XR"_s, u"Y"_s);
    charges->ComputeTotal();
    ClickCell(1, 1);
    Press(editor, Qt::Key_Backspace);
    EXPECT_EQ(At(1, 1), u""_s);
    EXPECT_EQ(total->text(), u"101.00"_s);
    charges->ComputeTotal();
    EXPECT_EQ(total->text(), u"101.00"_s);
}

TEST_P(ChargeGridTest, SecondEnterAtTheEndOfTheLastLineAddsOne) {
    PutLine(8, u"XR"_s, u"Y"_s);
    ClickCell(8, Column::kAmount);
    Key(u"5"_s);
    Enter();
    // The cell is opened again, with what Enter made of it.
    ExpectOpen(8, Column::kAmount);
    EXPECT_EQ(editor.text(), u"5.00"_s);
    EXPECT_EQ(cells.Rows(), 9);
    Enter();
    EXPECT_EQ(cells.Rows(), 10);
    ExpectOpen(9, 1);
}

TEST_P(ChargeGridTest, AfterOneAbsorbedEnterEachArrivalAddsALineAtOnce) {
    PutLine(8, u"XR"_s, u"Y"_s);
    ClickCell(8, Column::kAmount);
    Enter();
    for (int row = 9; row <= 20; ++row) {
        Enter();
        ExpectOpen(row, 1);
        OpenByFocus(row, Column::kAmount);
    }
    charges->DisarmLastRow();
    Enter();
    ExpectOpen(20, Column::kAmount);
}

TEST_P(ChargeGridTest, RedrawGoesOffAndOn) {
    charges->SetRedraw(false);
    EXPECT_FALSE(grid.Redraw());
    charges->SetRedraw(true);
    EXPECT_TRUE(grid.Redraw());
}

TEST_P(ChargeGridTest, CodeIsCheckedAgainstTheOtherLines) {
    PutLine(1, u"XR"_s, u"N"_s);
    Put(2, 1, u"XR"_s);
    cells.SetCell(2, 2);
    EXPECT_TRUE(charges->Check_Code(u"S1"_s));
    EXPECT_FALSE(charges->Check_Code(u"S2"_s));
}
