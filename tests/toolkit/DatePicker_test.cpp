#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/ScreenTest.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "toolkit/DatePicker.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>

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

TEST_F(DatePickerTest, DateKeyedIntoAnEmptyPickerCountsAtItsLastDigitAndOnlyOnce) {
    Type(*picker, u"0229198"_s);
    EXPECT_EQ(changes, QStringList()) << "no part of a date counts";
    Type(*picker, u"4"_s);
    EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
    Press(*picker, Qt::Key_Return);
    other->setFocus();
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DatePickerTest, PartKeyedOverCountsOnEnterAndWhenThePickerIsLeft) {
    picker->SetValue(Day(2026, 11, 21));
    picker->setCursorPosition(0);
    Type(*picker, u"12"_s);
    EXPECT_EQ(changes, QStringList());
    other->setFocus();
    EXPECT_EQ(changes, QStringList{u"12/21/2026"_s});
    EXPECT_EQ(Text(*picker), u"12/21/2026"_s);
    picker->setFocus();
    picker->setCursorPosition(0);
    Type(*picker, u"02"_s);
    EXPECT_EQ(changes.size(), 1);
    Press(*picker, Qt::Key_Return);
    EXPECT_EQ(changes.back(), u"02/21/2026"_s);
}

TEST_F(DatePickerTest, DateKeyedOverAnotherCountsOnlyAsAWhole) {
    picker->SetValue(Day(2026, 11, 21));
    picker->setCursorPosition(0);
    Type(*picker, u"0229198"_s);
    EXPECT_EQ(changes, QStringList());
    Type(*picker, u"4"_s);
    EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
    other->setFocus();
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DatePickerTest, MarkedDateStaysMarked) {
    picker->SetValue(Day(1984, 2, 29));
    Press(*picker, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(picker->selectedText(), u"02/29/1984"_s);
}

TEST_F(DatePickerTest, PickerLeftByTheMouseTellsOnlyWhenTheClickIsOver) {
    picker->SetValue(Day(1984, 2, 29));
    picker->setCursorPosition(0);
    Type(*picker, u"12"_s);
    QTest::mousePress(other, Qt::LeftButton);
    RunEvents();
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(changes, QStringList());
    QTest::mouseRelease(other, Qt::LeftButton);
    RunEvents();
    EXPECT_EQ(changes, QStringList{u"12/29/1984"_s});
    Click(*other);
    RunEvents();
    EXPECT_EQ(changes.size(), 1) << "later clicks are no concern of it";
}

TEST_F(DatePickerTest, PickerThatTheClickHidTellsNothing) {
    picker->SetValue(Day(1984, 2, 29));
    picker->setCursorPosition(0);
    Type(*picker, u"12"_s);
    QTest::mousePress(other, Qt::LeftButton);
    window.hide();
    QTest::mouseRelease(other, Qt::LeftButton);
    RunEvents();
    EXPECT_EQ(changes, QStringList());
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

TEST_F(DatePickerTest, ArrowKeysStopAtTheFirstYearOfTheServer) {
    picker->SetValue(Day(1753, 1, 1));
    for (const int cursor : {1, 4, 10}) {
        picker->setCursorPosition(cursor);
        Press(*picker, Qt::Key_Down);
        EXPECT_EQ(Text(*picker), u"01/01/1753"_s);
    }
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

namespace {

struct KeyedCase {
    const char* name;
    /// Keyed from the box's first place on; a blank leaves its place empty.
    QString keyed;
    QString date;
};

} // namespace

class DatePickerKeyedTest : public DatePickerTest, public testing::WithParamInterface<KeyedCase> {};

TEST_P(DatePickerKeyedTest, OnlyAWholeDateOfTheServerCounts) {
    picker->setText(GetParam().keyed);
    EXPECT_EQ(Text(*picker), GetParam().date);
    other->setFocus();
    EXPECT_EQ(Text(*picker), GetParam().date);
    EXPECT_EQ(changes, GetParam().date == u"null"_s ? QStringList() : QStringList{GetParam().date});
}

INSTANTIATE_TEST_SUITE_P(Keyed, DatePickerKeyedTest,
                         testing::Values(KeyedCase{"Whole", u"02/29/1984"_s, u"02/29/1984"_s},
                                         KeyedCase{"DayInThePlaceOfTheMonth", u"13/02/1984"_s, u"null"_s},
                                         KeyedCase{"NoMonth", u"00/02/1984"_s, u"null"_s},
                                         KeyedCase{"NoLeapYear", u"02/29/1985"_s, u"null"_s},
                                         KeyedCase{"TwoDigitsOfTheYear", u"02/29/84  "_s, u"null"_s},
                                         KeyedCase{"ThreeDigitsOfTheYear", u"02/28/198 "_s, u"null"_s},
                                         KeyedCase{"BlankInTheMonth", u"2 /28/1984"_s, u"null"_s},
                                         KeyedCase{"BlankInTheDay", u"02/ 8/1984"_s, u"null"_s},
                                         KeyedCase{"FirstYearOfTheServer", u"01/01/1753"_s, u"01/01/1753"_s},
                                         KeyedCase{"YearBeforeIt", u"12/31/1752"_s, u"null"_s},
                                         KeyedCase{"LastYear", u"12/31/9999"_s, u"12/31/9999"_s}),
                         CaseName());
