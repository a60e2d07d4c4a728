#include "support/PrintQt.h"
#include "support/ScreenTest.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Twips.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Controls, ALabelledInputIsSpokenByItsLabel) {
    QWidget window;
    auto* grid = new QGridLayout(&window);
    QLineEdit* box = NewTextBox(u"txtUser"_s, &window);
    const QLabel* label = AddLabelled(*grid, 2, 1, u"&User"_s, box);
    EXPECT_EQ(label->text(), u"&User"_s);
    EXPECT_EQ(label->buddy(), box);
    EXPECT_EQ(box->accessibleName(), u"User"_s);
    EXPECT_EQ(box->objectName(), u"txtUser"_s);
    EXPECT_EQ(grid->itemAtPosition(2, 1)->widget(), label);
    EXPECT_EQ(grid->itemAtPosition(2, 2)->widget(), box);
}

TEST(Controls, AShownBoxIsNotTypedInto) {
    QWidget window;
    const QLineEdit* box = NewShownBox(u"txtAge"_s, &window);
    EXPECT_TRUE(box->isReadOnly());
    EXPECT_EQ(box->focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(box->isEnabled());
}

TEST(Controls, AHeadingBearsItsTextAndTheMarkOfItsStyle) {
    QWidget window;
    const QLabel* heading = NewHeading(u"Revenue Codes"_s, &window);
    EXPECT_EQ(heading->text(), u"Revenue Codes"_s);
    EXPECT_TRUE(heading->property("heading").toBool());
}

TEST(Controls, ADropDownListStandsOnItsFirstEntry) {
    QWidget window;
    const QComboBox* combo = NewCombo(u"cmbSex"_s, {u"MALE"_s, u"FEMALE"_s}, &window);
    EXPECT_EQ(combo->objectName(), u"cmbSex"_s);
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->currentText(), u"MALE"_s);
}

TEST(Controls, AButtonAndAFrameBearNameAndCaption) {
    QWidget window;
    const QGroupBox* frame = NewFrame(u"Frame1"_s, u"Hospital Info"_s, &window);
    EXPECT_EQ(frame->objectName(), u"Frame1"_s);
    EXPECT_EQ(frame->title(), u"Hospital Info"_s);
    const QPushButton* button = NewButton(u"cmdView"_s, u"&View"_s, &window);
    EXPECT_EQ(button->objectName(), u"cmdView"_s);
    EXPECT_EQ(button->text(), u"&View"_s);
}

TEST(Controls, APickerIsNarrowAndSpokenByItsPurpose) {
    QWidget window;
    const QPushButton* picker =
        NewPicker(u"cmdZipCode"_s, u"Pick the town"_s, u"Pick the town from the list"_s, &window);
    EXPECT_EQ(picker->objectName(), u"cmdZipCode"_s);
    EXPECT_EQ(picker->text(), u"..."_s);
    EXPECT_EQ(picker->accessibleName(), u"Pick the town"_s);
    EXPECT_EQ(picker->toolTip(), u"Pick the town from the list"_s);
    EXPECT_EQ(picker->maximumWidth(), TwipsToPixels(500));
}

TEST(Controls, AListMarksRowsAndBeginsWithItsSize) {
    QWidget window;
    const FlexGrid* list = NewList(u"grdTable"_s, u"Patient List"_s, {9000, 3600}, &window);
    EXPECT_EQ(list->objectName(), u"grdTable"_s);
    EXPECT_EQ(list->accessibleName(), u"Patient List"_s);
    EXPECT_EQ(list->selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_EQ(list->sizeHint(), QSize(TwipsToPixels(9000), TwipsToPixels(3600)));
    EXPECT_LT(list->minimumSizeHint().width(), list->sizeHint().width()) << "it shrinks with its screen";
    EXPECT_LT(list->minimumSizeHint().height(), list->sizeHint().height());
}

TEST(Controls, ControlsOfARightAlignedRowStandAtItsEndInTheirOrder) {
    QWidget window;
    QPushButton* first = NewButton(u"cmdView"_s, u"&View"_s, &window);
    QPushButton* last = NewButton(u"cmdClose"_s, u"&Close"_s, &window);
    window.setLayout(RightAligned({first, last}));
    window.resize(3 * window.sizeHint().width(), window.sizeHint().height());
    Activate(window);
    EXPECT_EQ(last->geometry().right(),
              window.contentsRect().right() - window.layout()->contentsMargins().right());
    EXPECT_LT(first->geometry().right(), last->geometry().left());
    EXPECT_EQ(first->width(), first->sizeHint().width());
}

TEST(Controls, TabWalksTheOrderOfWork) {
    QWidget window;
    QLineEdit* third = NewTextBox(u"txtThird"_s, &window);
    QPushButton* second = NewButton(u"cmdSecond"_s, u"Second"_s, &window);
    QLineEdit* first = NewTextBox(u"txtFirst"_s, &window);
    SetTabOrder({first, second, third});
    Activate(window);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    QTest::keyClick(second, Qt::Key_Tab);
    EXPECT_TRUE(third->hasFocus());
}

} // namespace
