#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/ScreenTest.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "toolkit/DatePicker.h"

#include <QHBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

DateTime Day(int year, int month, int day) {
    return *DateTime::FromFields({.year = year, .month = month, .day = day});
}

QString Text(const DatePicker& picker) {
    const std::optional<DateTime> value = picker.Value();
    return value ? Format(*value, u"mm/dd/yyyy") : u"null"_s;
}

} // namespace

class DatePickerTest : public testing::Test {
  protected:
    DatePickerTest() {
        SetClock([] { return Day(2026, 11, 21); });
        auto* layout = new QHBoxLayout(&window);
        picker = new DatePicker(&window);
        other = new QLineEdit(&window);
        layout->addWidget(picker);
        layout->addWidget(other);
        QObject::connect(picker, &DatePicker::Change, picker, [this] { changes << Text(*picker); });
        Activate(window);
        picker->setFocus();
        picker->setCursorPosition(0);
    }
    ~DatePickerTest() override { SetClock({}); }

    QWidget window;
    DatePicker* picker;
    QLineEdit* other;
    /// The picker's date at each Change.
    QStringList changes;
};

TEST_F(DatePickerTest, IsNullAndEmptyAtFirst) {
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(picker->Text(), u"  /  /    "_s);
}

TEST_F(DatePickerTest, DateSetByTheProgramShowsAndTellsNothing) {
    picker->SetValue(Day(1984, 2, 29));
    EXPECT_EQ(picker->Text(), u"02/29/1984"_s);
    EXPECT_EQ(picker->Value(), Day(1984, 2, 29));
    picker->SetValue(std::nullopt);
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(picker->Text(), u"  /  /    "_s);
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, TimeOfDayIsDropped) {
    picker->SetValue(*DateTime::FromFields({.year = 1984, .month = 2, .day = 29, .hour = 13}));
    EXPECT_EQ(picker->Value(), Day(1984, 2, 29));
}

TEST_F(DatePickerTest, DateKeyedIntoAnEmptyPickerCountsOnEnterAndOnlyOnce) {
    Type(*picker, u"02291984"_s);
    EXPECT_EQ(changes, QStringList()) << "no part of a date counts";
    Press(*picker, Qt::Key_Return);
    EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
    Press(*picker, Qt::Key_Return);
    other->setFocus();
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DatePickerTest, DateKeyedCountsWhenThePickerIsLeft) {
    Type(*picker, u"12251950"_s);
    other->setFocus();
    EXPECT_EQ(changes, QStringList{u"12/25/1950"_s});
    EXPECT_EQ(Text(*picker), u"12/25/1950"_s);
}

TEST_F(DatePickerTest, DateKeyedOverAnother) {
    picker->SetValue(Day(2026, 11, 21));
    picker->setCursorPosition(0);
    Type(*picker, u"02291984"_s);
    other->setFocus();
    EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
}

TEST_F(DatePickerTest, DateThatIsTakenOutCountsAsNone) {
    picker->SetValue(Day(1984, 2, 29));
    picker->selectAll();
    Press(*picker, Qt::Key_Delete);
    EXPECT_EQ(picker->Value(), std::nullopt);
    other->setFocus();
    EXPECT_EQ(changes, QStringList{u"null"_s});
    EXPECT_EQ(picker->Text(), u"  /  /    "_s);
}

TEST_F(DatePickerTest, EmptyPickerStartsFromItsLastDate) {
    picker->SetValue(Day(1984, 2, 29));
    picker->SetValue(std::nullopt);
    Press(*picker, Qt::Key_Up);
    EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
    EXPECT_EQ(Text(*picker), u"02/29/1984"_s);
}

TEST_F(DatePickerTest, ArrowKeysStepThePart) {
    picker->SetValue(Day(1984, 2, 29));
    picker->setCursorPosition(0);
    Press(*picker, Qt::Key_Up);
    picker->setCursorPosition(4);
    Press(*picker, Qt::Key_Down);
    picker->setCursorPosition(10);
    Press(*picker, Qt::Key_Down);
    EXPECT_EQ(changes, QStringList({u"03/29/1984"_s, u"03/28/1984"_s, u"03/28/1983"_s}));
}

TEST_F(DatePickerTest, EmptyPickerThatIsLeftStaysEmpty) {
    Press(*picker, Qt::Key_Return);
    other->setFocus();
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, WhatIsNoDateGivesWayToTheDateBefore) {
    picker->SetValue(Day(1984, 2, 29));
    picker->setCursorPosition(0);
    Type(*picker, u"13"_s);
    EXPECT_EQ(Text(*picker), u"02/29/1984"_s);
    other->setFocus();
    EXPECT_EQ(picker->Text(), u"02/29/1984"_s);
    picker->SetValue(std::nullopt);
    picker->setFocus();
    picker->setCursorPosition(0);
    Type(*picker, u"0230"_s);
    Press(*picker, Qt::Key_Return);
    EXPECT_EQ(picker->Text(), u"  /  /    "_s);
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, DateOfAHalfKeyedBoxIsTheOneBeforeUntilItIsWhole) {
    picker->setCursorPosition(0);
    Type(*picker, u"1225195"_s);
    Type(*picker, u"0"_s);
    EXPECT_EQ(Text(*picker), u"12/25/1950"_s) << "a button pressed by its key leaves the box alone";
}

TEST_F(DatePickerTest, AnotherWindowDoesNotEndTheKeying) {
    picker->setCursorPosition(0);
    Type(*picker, u"0229"_s);
    QWidget box;
    Activate(box);
    EXPECT_EQ(picker->Text(), u"02/29/    "_s);
    Activate(window);
}

TEST_F(DatePickerTest, LettersKeyNothing) {
    Type(*picker, u"abc"_s);
    other->setFocus();
    EXPECT_EQ(picker->Value(), std::nullopt);
}
