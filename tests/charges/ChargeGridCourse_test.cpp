#include "charges/ChargeGridGround.h"
#include "charges/Twins.h"
#include "components/shared.h"
#include "support/CaseName.h"
#include "toolkit/ShowModal.h"

#include <QDialog>
#include <QTimer>

using namespace Qt::StringLiterals;

// The course of a line through the cells of each charge screen, and the cells that the focus passes over.

namespace {

const RevenueCentre kCourseCentre{u"EAR CARE"_s, u"HC"_s};
const RevenueCentre kCourseXRay{u"X-RAY"_s, u"XR"_s};
const RevenueCentre kCourseSupplies{u"SUPPLIES"_s, u"HD"_s, u"N"_s, true};

/// A stock picker that shows a window with a control of its own before it answers.
class ShowingStockList : public FakeStockList {
  public:
    QString ShowList(const QString& text, bool flag, const QString& section) override {
        QDialog picker;
        new QLineEdit(&picker);
        QTimer::singleShot(0, &picker, &QDialog::accept);
        ShowModal(picker);
        return FakeStockList::ShowList(text, flag, section);
    }
};

} // namespace

class PostGridTest : public ChargeGridGround {
  protected:
    PostGridTest()
        : ChargeGridGround(kPostChargesDifferences) {}
};

class AssessmentGridTest : public ChargeGridGround {
  protected:
    AssessmentGridTest()
        : ChargeGridGround(kAssessmentDifferences) {}
};

/// The rule of the focus, which both screens share.
class GridFocusTest : public ChargeGridGround, public testing::WithParamInterface<Twin> {
  protected:
    GridFocusTest()
        : ChargeGridGround(*GetParam().differences) {}
};

INSTANTIATE_TEST_SUITE_P(Twins, GridFocusTest, testing::ValuesIn(kTwins), CaseName());

TEST_P(GridFocusTest, EditorTakingTheFocusPassesOverAPriceOfTheCatalogue) {
    PutLine(1, u"XR"_s, u"N"_s);
    OpenByFocus(1, differences.priceCol);
    ExpectOpen(1, differences.priceCol + 1);
}

TEST_P(GridFocusTest, EditorTakingTheFocusStaysOnAPriceOfZero) {
    PutLine(1, u"XR"_s, u"Y"_s);
    OpenByFocus(1, differences.priceCol);
    ExpectOpen(1, differences.priceCol);
}

TEST_P(GridFocusTest, ClickOnAPriceOfTheCataloguePassesOn) {
    PutLine(1, u"XR"_s, u"N"_s);
    ClickCell(1, differences.priceCol);
    ExpectOpen(1, differences.priceCol + 1);
}

TEST_P(GridFocusTest, ClickTellsOfTheNewCellBeforeItsEmptinessIsAsked) {
    // The price passes on to the cell behind it first; that one is empty, and so the Department opens.
    PutLine(1, u"XR"_s, u"N"_s);
    Put(1, differences.priceCol + 1, u""_s);
    ClickCell(1, differences.priceCol);
    ExpectOpen(1, 1);
}

TEST_P(GridFocusTest, ArrowFromTheParticularIntoAnEmptyCellOpensTheDepartment) {
    PutLine(1, u"XR"_s, u"Y"_s);
    Put(1, Column::kParticular, u"CHEST"_s);
    Put(1, 4, u""_s);
    ClickCell(1, 2);
    ClickCell(1, Column::kParticular);
    ASSERT_TRUE(grid.hasFocus());
    Press(grid, Qt::Key_Right);
    ExpectOpen(1, 1);
    Key(u"hc"_s);
    EXPECT_EQ(At(1, 1), u"HC"_s);
    EXPECT_EQ(At(1, 4), u""_s);
}

TEST_P(GridFocusTest, PriceReachedByEnterStaysOpen) {
    for (const QString& zeroPrice : {u"N"_s, u"Y"_s}) {
        PutLine(1, u"XR"_s, zeroPrice);
        const int before = differences.priceCol == 5 ? 4 : 2;
        ClickCell(1, before);
        if (before == 2)
            listing->answers.push_back(true);
        listing->service.Rates = {zeroPrice == u"N"_s ? 101.0 : 0.0};
        Enter();
        ExpectOpen(1, differences.priceCol);
    }
}

TEST_P(GridFocusTest, PickerOfTheLookupReturnsTheFocusToTheCodeAndThePriceStaysOpen) {
    auto picker = std::make_shared<ShowingStockList>();
    picker->pick = u"G1"_s;
    gStockListBasic = picker;
    OpenByFocus(1, 1);
    KeyDepartment(kCourseSupplies);
    Key(u"GAU"_s);
    Enter();
    EXPECT_EQ(At(1, 2), u"G1"_s);
    EXPECT_EQ(At(1, Column::kZeroPrice), u"N"_s);
    RunEvents();
    ExpectOpen(1, 4);
}

TEST_P(GridFocusTest, ReturnFromAnotherScreenPassesOverAPriceOfTheCatalogue) {
    PutLine(1, u"XR"_s, u"N"_s);
    const int before = differences.priceCol == 5 ? 4 : 2;
    ClickCell(1, before);
    if (before == 2)
        listing->answers.push_back(true);
    Enter();
    ASSERT_EQ(Place(), std::pair(1, differences.priceCol));
    QDialog other;
    new QLineEdit(&other);
    QTimer::singleShot(0, &other, &QDialog::accept);
    ShowModal(other);
    RunEvents();
    ExpectOpen(1, differences.priceCol + 1);
}

TEST_F(PostGridTest, CourseOfALineIsDepartmentCodeQuantityPriceAmount) {
    ClickCell(1, 1);
    KeyDepartment(kCourseXRay);
    KeyService();
    ExpectOpen(1, 4);
    Key(u"3"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"303.00"_s);
    EXPECT_EQ(total->text(), u"303.00"_s);
    ExpectOpen(1, 5);
    Enter();
    ExpectOpen(1, Column::kAmount);
    Key(u"250"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"250.00"_s);
    EXPECT_EQ(total->text(), u"250.00"_s);
    ExpectOpen(2, 1);
}

TEST_F(PostGridTest, CourseOfAnHCLineLeavesTheAmountOut) {
    ClickCell(1, 1);
    KeyDepartment(kCourseCentre);
    KeyService();
    Enter();
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"101.00"_s);
    ExpectOpen(2, 1);
}

TEST_F(PostGridTest, AmountOfAnHCLineIsNotOpenedByAClick) {
    PutLine(1, u"HC"_s, u"N"_s);
    PutLine(2, u"XR"_s, u"N"_s);
    ClickCell(1, 2);
    ClickCell(1, Column::kAmount);
    EXPECT_EQ(editor.geometry(), CellPlace(1, 2));
    EXPECT_EQ(At(1, Column::kAmount), u"101.00"_s);
    ClickCell(2, Column::kAmount);
    ExpectOpen(2, Column::kAmount);
}

TEST_F(PostGridTest, DownOntoTheClosedAmountOfAnHCLineLeavesTheEditor) {
    PutLine(1, u"XR"_s, u"Y"_s);
    PutLine(2, u"HC"_s, u"Y"_s);
    ClickCell(1, Column::kAmount);
    Press(editor, Qt::Key_Down);
    EXPECT_EQ(Place(), std::pair(2, Column::kAmount));
    EXPECT_EQ(editor.geometry(), CellPlace(1, Column::kAmount));
    EXPECT_EQ(At(2, Column::kAmount), u"101.00"_s);
}

TEST_F(PostGridTest, WhatIsTypedOverTheClosedAmountGoesIntoIt) {
    PutLine(1, u"XR"_s, u"Y"_s);
    PutLine(2, u"HC"_s, u"Y"_s);
    ClickCell(1, Column::kAmount);
    Press(editor, Qt::Key_Down);
    Key(u"5"_s);
    EXPECT_EQ(At(2, Column::kAmount), editor.text());
    EXPECT_TRUE(editor.text().contains(u'5'));
    EXPECT_EQ(At(1, Column::kAmount), u"101.00"_s);
}

TEST_F(PostGridTest, HCLineAtTheEndOfTheGridEndsWithItsPrice) {
    PutLine(8, u"HC"_s, u"Y"_s);
    ClickCell(8, 5);
    ExpectOpen(8, 5);
    Enter();
    ExpectOpen(8, 5);
    EXPECT_EQ(cells.Rows(), 9);
    Enter();
    EXPECT_EQ(cells.Rows(), 10);
    ExpectOpen(9, 1);
}

TEST_F(PostGridTest, HCCentreWithoutItemsMeetsTheClosedAmount) {
    OpenByFocus(1, 1);
    KeyDepartment({u"EAR CARE"_s, u"HC"_s, u"N"_s});
    EXPECT_EQ(Place(), std::pair(1, Column::kAmount));
    EXPECT_EQ(editor.geometry(), CellPlace(1, 1));
}

TEST_F(PostGridTest, QuantityKeyedBeforeTheDepartmentIsKept) {
    Put(1, 4, u"6"_s);
    OpenByFocus(1, 1);
    KeyDepartment(kCourseXRay);
    EXPECT_EQ(At(1, 4), u"6"_s);
}

TEST_F(PostGridTest, FocusOnThePriceOfAnHCLineGoesToTheNextLine) {
    PutLine(1, u"HC"_s, u"N"_s);
    OpenByFocus(1, 5);
    ExpectOpen(2, 1);
}

TEST_F(PostGridTest, FocusStaysOnTheAmountOfACentreWithItems) {
    PutLine(1, u"XR"_s, u"N"_s);
    Put(1, Column::kWithItems, u"Y"_s);
    OpenByFocus(1, Column::kAmount);
    ExpectOpen(1, Column::kAmount);
}

TEST_F(AssessmentGridTest, CourseOfALineIsDepartmentCodePriceQuantityAmount) {
    ClickCell(1, 1);
    KeyDepartment(kCourseCentre);
    EXPECT_EQ(At(1, Column::kWithItems), u"Y"_s);
    EXPECT_EQ(At(1, Column::kZeroPrice), u"N"_s);
    KeyService();
    ExpectOpen(1, 4);
    Key(u"200"_s);
    Enter();
    ExpectOpen(1, 5);
    Key(u"2"_s);
    Enter();
    EXPECT_EQ(At(1, Column::kAmount), u"400.00"_s);
    EXPECT_EQ(total->text(), u"400.00"_s);
    ExpectOpen(1, Column::kAmount);
    Enter();
    ExpectOpen(2, 1);
}

TEST_F(AssessmentGridTest, AmountOfAnHCLineIsOpen) {
    PutLine(1, u"HC"_s, u"N"_s);
    ClickCell(1, Column::kAmount);
    ExpectOpen(1, Column::kAmount);
}

TEST_F(AssessmentGridTest, FocusPassesOverTheAmountOfACentreWithItems) {
    PutLine(1, u"HC"_s, u"N"_s);
    Put(1, Column::kWithItems, u"Y"_s);
    ClickCell(1, Column::kAmount);
    ExpectOpen(2, 1);
    Put(1, Column::kWithItems, u"N"_s);
    ClickCell(1, Column::kAmount);
    ExpectOpen(1, Column::kAmount);
}

TEST_F(AssessmentGridTest, QuantityIsSetToOneWhateverStoodThere) {
    Put(1, 5, u"6"_s);
    OpenByFocus(1, 1);
    KeyDepartment(kCourseXRay);
    EXPECT_EQ(At(1, 5), u"1"_s);
}
