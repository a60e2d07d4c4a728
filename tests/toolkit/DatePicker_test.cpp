#include "support/CaseName.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/ScreenTest.h"
#include "text/Format.h"
#include "toolkit/Calendar.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

DateTime Day(int year, int month, int day) {
    return *DateTime::FromFields({.year = year, .month = month, .day = day});
}

QString ValueOf(const DatePicker& picker) {
    const std::optional<DateTime> value = picker.Value();
    return value ? Format(*value, u"mm/dd/yyyy") : u"null"_s;
}

bool IsMarkedWrong(const DatePicker& picker) {
    return picker.property("wrong").toBool();
}

/// A window that records the Escape keys which its controls leave to it.
class EscapeWindow : public QWidget {
  public:
    int escapes = 0;

  protected:
    void keyPressEvent(QKeyEvent* event) override { escapes += event->key() == Qt::Key_Escape ? 1 : 0; }
};

} // namespace

class DatePickerTest : public testing::Test {
  protected:
    DatePickerTest() {
        auto* layout = new QHBoxLayout(&window);
        before = new QLineEdit(&window);
        picker = NewDatePicker(u"dtpDay"_s, &window);
        other = new QLineEdit(&window);
        for (QWidget* box : QList<QWidget*>{before, picker, other})
            layout->addWidget(box);
        QObject::connect(picker, &DatePicker::Change, picker, [this] { changes << ValueOf(*picker); });
        Activate(window);
        picker->setFocus();
    }
    const Seam<DateTime()>::Replacement clock = FixedClock(Day(2026, 11, 21));

    ~DatePickerTest() override { QGuiApplication::clipboard()->clear(); }

    void Paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        picker->paste();
    }
    void ClickAt(int x) { QTest::mouseClick(picker, Qt::LeftButton, {}, QPoint(x, picker->height() / 2)); }
    /// Where that place of the shown text lies.
    int PlaceOf(int cursor) {
        for (int x = 0; x < picker->width(); ++x) {
            if (picker->cursorPositionAt(QPoint(x, picker->height() / 2)) == cursor)
                return x + 1;
        }
        return picker->width() / 2;
    }
    Calendar* OpenCalendar() {
        auto* calendar = picker->findChild<Calendar*>();
        return calendar && calendar->isVisible() ? calendar : nullptr;
    }
    QWidget& Days() { return *OpenCalendar()->findChild<QTableView*>(); }

    EscapeWindow window;
    QLineEdit* before;
    DatePicker* picker;
    QLineEdit* other;
    /// The picker's date at each Change.
    QStringList changes;
};

TEST_F(DatePickerTest, IsNullAndEmptyAtFirst) {
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(picker->text(), QString());
    EXPECT_EQ(picker->Text(), u"  /  /    "_s);
    EXPECT_FALSE(IsMarkedWrong(*picker));
}

TEST_F(DatePickerTest, DateSetByTheProgramShowsAndTellsNothing) {
    picker->SetValue(Day(1984, 2, 29));
    EXPECT_EQ(picker->text(), u"02/29/1984"_s);
    EXPECT_EQ(picker->Text(), u"02/29/1984"_s);
    EXPECT_EQ(picker->Value(), Day(1984, 2, 29));
    picker->SetValue(std::nullopt);
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(picker->text(), QString());
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, TimeOfDayIsDropped) {
    picker->SetValue(*DateTime::FromFields({.year = 1984, .month = 2, .day = 29, .hour = 13}));
    EXPECT_EQ(picker->Value(), Day(1984, 2, 29));
}

// What is typed, into an empty box and over a date that stands.

namespace {

struct TypedCase {
    const char* name;
    QString typed;
    /// What the box shows when it is left, its value, and what is sent of its text.
    QString shown;
    QString value;
    QString text;
    bool isWrong;
    /// A word of the reason, and whether it is told before the box is left.
    const char* reason = "";
    bool isHopeless = false;
};

} // namespace

class DatePickerTypedTest : public DatePickerTest, public testing::WithParamInterface<TypedCase> {
  protected:
    void TypeAndLeave() {
        Type(*picker, GetParam().typed);
        EXPECT_EQ(IsMarkedWrong(*picker), GetParam().isHopeless) << "while it is keyed";
        EXPECT_EQ(ValueOf(*picker), GetParam().value);
        EXPECT_EQ(picker->Text(), GetParam().text);
        other->setFocus();
        EXPECT_EQ(picker->text(), GetParam().shown);
        EXPECT_EQ(ValueOf(*picker), GetParam().value);
        EXPECT_EQ(picker->Text(), GetParam().text);
        EXPECT_EQ(IsMarkedWrong(*picker), GetParam().isWrong);
        EXPECT_EQ(picker->toolTip().isEmpty(), !GetParam().isWrong);
        EXPECT_TRUE(picker->toolTip().contains(QString::fromLatin1(GetParam().reason)))
            << picker->toolTip().toStdString();
        EXPECT_EQ(picker->accessibleDescription(), picker->toolTip());
    }
    QStringList OneChange() const {
        return GetParam().value == u"null"_s ? QStringList() : QStringList{GetParam().value};
    }
};

TEST_P(DatePickerTypedTest, IntoAnEmptyBox) {
    TypeAndLeave();
    EXPECT_EQ(changes, OneChange());
}

TEST_P(DatePickerTypedTest, OverADateThatStands) {
    picker->SetValue(Day(1984, 11, 21));
    TypeAndLeave();
    EXPECT_EQ(changes, OneChange()) << "a text that is no date never becomes another one";
}

TEST_P(DatePickerTypedTest, ReasonIsShownAsTheBoxIsLeft) {
    QToolTip::hideText();
    Type(*picker, GetParam().typed);
    other->setFocus();
    RunEvents();
    EXPECT_EQ(QToolTip::text(), picker->toolTip());
}

INSTANTIATE_TEST_SUITE_P(
    Dates, DatePickerTypedTest,
    testing::Values(
        TypedCase{"WithoutZeros", u"8/1/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, false},
        TypedCase{"DigitsAlone", u"08012026"_s, u"08/01/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, false},
        TypedCase{"WithZeros", u"08/01/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, false},
        TypedCase{"OneSlash", u"8/012026"_s, u"08/01/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, false},
        TypedCase{"Hyphens", u"8-1-2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, u"08/01/2026"_s, false},
        TypedCase{"FirstOfTheServer", u"1/1/1753"_s, u"01/01/1753"_s, u"01/01/1753"_s, u"01/01/1753"_s,
                  false},
        TypedCase{"LastOfTheServer", u"12/31/9999"_s, u"12/31/9999"_s, u"12/31/9999"_s, u"12/31/9999"_s,
                  false}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    NoDates, DatePickerTypedTest,
    testing::Values(
        TypedCase{"TwoDigitsOfTheYear", u"8/1/26"_s, u"8/1/26"_s, u"null"_s, u"8 /1 /26  "_s, true,
                  "four digits"},
        TypedCase{"TwoDigitsOfTheYearAlone", u"080126"_s, u"08/01/26"_s, u"null"_s, u"08/01/26  "_s, true,
                  "four digits"},
        TypedCase{"ThreeDigitsOfTheYear", u"02/28/198"_s, u"02/28/198"_s, u"null"_s, u"02/28/198 "_s, true,
                  "four digits"},
        TypedCase{"MonthAlone", u"08"_s, u"08"_s, u"null"_s, u"08/  /    "_s, true, "not complete"},
        TypedCase{"MonthAndDay", u"8/1"_s, u"8/1"_s, u"null"_s, u"8 /1 /    "_s, true, "not complete"},
        TypedCase{"SlashInTheYear", u"12/3/4/2026"_s, u"12/3/4/2026"_s, u"null"_s, u"12/3 /4   /2026"_s, true,
                  "no such day", true},
        TypedCase{"NoMonthAndNoDay", u"13/45/2026"_s, u"13/45/2026"_s, u"null"_s, u"13/45/2026"_s, true,
                  "no such day", true},
        TypedCase{"February30", u"02/30/2026"_s, u"02/30/2026"_s, u"null"_s, u"02/30/2026"_s, true,
                  "no such day", true},
        TypedCase{"NoLeapYear", u"02/29/1985"_s, u"02/29/1985"_s, u"null"_s, u"02/29/1985"_s, true,
                  "no such day", true},
        TypedCase{"DayFirst", u"21/11/2026"_s, u"21/11/2026"_s, u"null"_s, u"21/11/2026"_s, true,
                  "no such day", true},
        TypedCase{"BeforeTheServersFirst", u"12/31/1752"_s, u"12/31/1752"_s, u"null"_s, u"12/31/1752"_s, true,
                  "01/01/1753 to 12/31/9999", true}),
    CaseName());

TEST_F(DatePickerTest, LettersKeyNothingAndAreTold) {
    Type(*picker, u"a"_s);
    EXPECT_EQ(QToolTip::text(), u"Key digits, such as 8/1/2026."_s);
    Type(*picker, u"b8x/1"_s);
    EXPECT_EQ(picker->text(), u"8/1"_s);
}

TEST_F(DatePickerTest, FifthDigitOfTheYearIsTold) {
    Type(*picker, u"8/1/20265"_s);
    EXPECT_EQ(picker->text(), u"08/01/2026"_s);
    EXPECT_EQ(QToolTip::text(), u"The year has its four digits."_s);
}

TEST_F(DatePickerTest, MarkAndReasonGoWithTheKeyThatMendsTheText) {
    Type(*picker, u"13"_s);
    EXPECT_TRUE(IsMarkedWrong(*picker));
    EXPECT_EQ(QToolTip::text(), u"There is no such day. Key month, day and year, such as 8/1/2026."_s);
    Press(*picker, Qt::Key_Backspace);
    EXPECT_FALSE(IsMarkedWrong(*picker));
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
    other->setFocus();
    EXPECT_TRUE(IsMarkedWrong(*picker));
    picker->SetValue(Day(1984, 2, 29));
    EXPECT_FALSE(IsMarkedWrong(*picker));
    EXPECT_EQ(picker->toolTip(), QString());
}

TEST_F(DatePickerTest, MarkIsSeen) {
    const auto picture = [this] { return picker->grab().toImage(); };
    other->setFocus();
    const QImage plain = picture();
    picker->setFocus();
    Type(*picker, u"8"_s);
    other->setFocus();
    const QColor ground = picture().pixelColor(picker->width() / 2, picker->height() / 2);
    EXPECT_NE(ground, plain.pixelColor(picker->width() / 2, picker->height() / 2));
}

// When a date counts.

TEST_F(DatePickerTest, DateCountsAtTheLastDigitOfItsYearAndOnlyOnce) {
    for (const bool isOver : {false, true}) {
        picker->SetValue(isOver ? std::optional(Day(2026, 11, 21)) : std::nullopt);
        changes.clear();
        Type(*picker, u"0229198"_s);
        EXPECT_EQ(changes, QStringList()) << "no part of a date counts";
        Type(*picker, u"4"_s);
        EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
        Press(*picker, Qt::Key_Return);
        other->setFocus();
        EXPECT_EQ(changes.size(), 1);
        picker->setFocus();
    }
}

TEST_F(DatePickerTest, SameDateKeyedAgainChangesNothing) {
    picker->SetValue(Day(1984, 2, 29));
    Type(*picker, u"2/29/1984"_s);
    other->setFocus();
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, PartKeyedOverCountsOnEnterAndWhenThePickerIsLeft) {
    picker->SetValue(Day(2026, 11, 21));
    picker->setCursorPosition(0);
    Type(*picker, u"12"_s);
    EXPECT_EQ(changes, QStringList());
    other->setFocus();
    EXPECT_EQ(changes, QStringList{u"12/21/2026"_s});
    picker->setFocus();
    picker->setCursorPosition(0);
    Type(*picker, u"02"_s);
    EXPECT_EQ(changes.size(), 1);
    Press(*picker, Qt::Key_Return);
    EXPECT_EQ(changes.back(), u"02/21/2026"_s);
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

TEST_F(DatePickerTest, PickerThatIsHiddenTellsNothing) {
    for (const bool byClick : {false, true}) {
        picker->SetValue(Day(1984, 2, 29));
        Activate(window);
        picker->setFocus();
        picker->setCursorPosition(0);
        Type(*picker, u"12"_s);
        if (byClick)
            QTest::mousePress(other, Qt::LeftButton);
        window.hide();
        if (byClick)
            QTest::mouseRelease(other, Qt::LeftButton);
        RunEvents();
        EXPECT_EQ(changes, QStringList());
    }
}

TEST_F(DatePickerTest, DateThatIsTakenOutCountsAsNoneAndTheBoxIsEmpty) {
    picker->SetValue(Day(1984, 2, 29));
    Press(*picker, Qt::Key_Delete);
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(changes, QStringList());
    other->setFocus();
    EXPECT_EQ(changes, QStringList{u"null"_s});
    EXPECT_EQ(picker->text(), QString());
    EXPECT_EQ(picker->Text(), u"  /  /    "_s);
    EXPECT_FALSE(IsMarkedWrong(*picker));
}

TEST_F(DatePickerTest, EmptyPickerThatIsLeftStaysEmpty) {
    Press(*picker, Qt::Key_Return);
    other->setFocus();
    EXPECT_EQ(picker->Value(), std::nullopt);
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, RequiredBoxShowsItsDateAgainWhereItIsLeftEmpty) {
    picker->SetRequired();
    picker->SetValue(Day(1984, 2, 29));
    Press(*picker, Qt::Key_Backspace);
    EXPECT_EQ(picker->text(), QString());
    other->setFocus();
    EXPECT_EQ(picker->text(), u"02/29/1984"_s);
    EXPECT_EQ(changes, QStringList());
    picker->setFocus();
    Type(*picker, u"8/1"_s);
    other->setFocus();
    EXPECT_EQ(picker->text(), u"8/1"_s) << "what was keyed is no emptied box";
}

TEST_F(DatePickerTest, DayBehindTheLastOneIsNotTaken) {
    picker->SetLastDay(Day(9998, 12, 31));
    picker->SetValue(Day(9998, 12, 31));
    Press(*picker, Qt::Key_Up);
    EXPECT_EQ(ValueOf(*picker), u"12/31/9998"_s);
    Type(*picker, u"01/01/9999"_s);
    EXPECT_TRUE(IsMarkedWrong(*picker));
    EXPECT_EQ(picker->toolTip(), u"Days from 01/01/1753 to 12/31/9998 are taken."_s);
    EXPECT_EQ(picker->Value(), std::nullopt);
}

TEST_F(DatePickerTest, ButtonThatWorksWithTheDateTakesWhatWasKeyed) {
    picker->SetValue(Day(1984, 5, 5));
    picker->setCursorPosition(0);
    Type(*picker, u"06"_s);
    EXPECT_TRUE(picker->TakeKeyed());
    EXPECT_EQ(changes, QStringList{u"06/05/1984"_s});
}

TEST_F(DatePickerTest, TextThatIsNoDateIsNotTakenAndTheBoxTellsWhy) {
    picker->SetValue(Day(1984, 5, 5));
    Type(*picker, u"8/1/26"_s);
    other->setFocus();
    RunEvents();
    QToolTip::hideText();
    EXPECT_FALSE(picker->TakeKeyed());
    EXPECT_TRUE(picker->hasFocus());
    EXPECT_EQ(picker->text(), u"8/1/26"_s);
    EXPECT_TRUE(IsMarkedWrong(*picker));
    EXPECT_EQ(QToolTip::text(), u"The year needs its four digits, such as 8/1/2026."_s);
    EXPECT_EQ(changes, QStringList());
    picker->setCursorPosition(6);
    EXPECT_FALSE(picker->TakeKeyed());
    Type(*picker, u"8/1/1984"_s);
    EXPECT_EQ(picker->text(), u"08/01/1984"_s) << "what is keyed now begins another date";
}

// How the focus comes.

namespace {

struct RoadCase {
    const char* name;
    void (*come)(DatePicker& picker, QLineEdit& before, QLineEdit& other);
};

} // namespace

class DatePickerRoadTest : public DatePickerTest, public testing::WithParamInterface<RoadCase> {};

TEST_P(DatePickerRoadTest, LeadsToTheFirstPlaceOfAnEmptyBox) {
    other->setFocus();
    GetParam().come(*picker, *before, *other);
    ASSERT_TRUE(picker->hasFocus());
    EXPECT_EQ(picker->cursorPosition(), 0);
    Type(*picker, u"8/1/2026"_s);
    EXPECT_EQ(picker->text(), u"08/01/2026"_s);
}

TEST_P(DatePickerRoadTest, LeadsToTheFirstPlaceOfADateAndAKeyBeginsAnotherOne) {
    picker->SetValue(Day(1984, 11, 21));
    picker->setCursorPosition(7);
    other->setFocus();
    GetParam().come(*picker, *before, *other);
    ASSERT_TRUE(picker->hasFocus());
    EXPECT_EQ(picker->cursorPosition(), 0);
    EXPECT_EQ(picker->selectedText(), u"11/21/1984"_s);
    Type(*picker, u"8"_s);
    EXPECT_EQ(picker->text(), u"8"_s);
}

TEST_P(DatePickerRoadTest, LeadsToTheFirstPlaceOfATextThatIsNoDate) {
    Type(*picker, u"8/1"_s);
    other->setFocus();
    GetParam().come(*picker, *before, *other);
    EXPECT_EQ(picker->cursorPosition(), 0);
    Type(*picker, u"08012026"_s);
    EXPECT_EQ(picker->text(), u"08/01/2026"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Roads, DatePickerRoadTest,
    testing::Values(
        RoadCase{"Tab",
                 [](DatePicker&, QLineEdit& before, QLineEdit&) {
                     before.setFocus();
                     Press(before, Qt::Key_Tab);
                 }},
        RoadCase{"ShiftTab", [](DatePicker&, QLineEdit&,
                                QLineEdit& other) { Press(other, Qt::Key_Tab, Qt::ShiftModifier); }},
        RoadCase{"Handler", [](DatePicker& picker, QLineEdit&, QLineEdit&) { picker.setFocus(); }},
        RoadCase{"KeyOfItsLabel", [](DatePicker& picker, QLineEdit&,
                                     QLineEdit&) { picker.setFocus(Qt::ShortcutFocusReason); }},
        RoadCase{"ClickAtItsBeginning",
                 [](DatePicker& picker, QLineEdit&, QLineEdit&) {
                     QTest::mouseClick(&picker, Qt::LeftButton, {}, QPoint(3, picker.height() / 2));
                 }},
        RoadCase{"ClickIntoItsMiddle",
                 [](DatePicker& picker, QLineEdit&, QLineEdit&) {
                     QTest::mouseClick(&picker, Qt::LeftButton, {}, picker.rect().center());
                 }},
        RoadCase{"ClickThatTrembles",
                 [](DatePicker& picker, QLineEdit&, QLineEdit&) {
                     const QPoint place = picker.rect().center();
                     QTest::mousePress(&picker, Qt::LeftButton, {}, place);
                     QTest::mouseMove(&picker, place - QPoint(9, 0));
                     QTest::mouseRelease(&picker, Qt::LeftButton, {}, place - QPoint(9, 0));
                 }}),
    CaseName());

TEST_F(DatePickerTest, FirstFocusOfANewWindowIsAtTheFirstPlace) {
    QWidget screen;
    DatePicker* first = NewDatePicker(u"dtpFirst"_s, &screen);
    first->setFocus();
    first->SetValue(Day(1984, 11, 21));
    Activate(screen);
    ASSERT_TRUE(first->hasFocus());
    EXPECT_EQ(first->cursorPosition(), 0);
    Type(*first, u"8/1/2026"_s);
    EXPECT_EQ(first->text(), u"08/01/2026"_s);
    screen.hide();
    Activate(window);
}

TEST_F(DatePickerTest, SecondClickGoesToItsPlace) {
    picker->SetValue(Day(1984, 11, 21));
    other->setFocus();
    ClickAt(PlaceOf(4));
    ClickAt(PlaceOf(4));
    EXPECT_EQ(picker->cursorPosition(), 4);
    EXPECT_FALSE(picker->hasSelectedText());
    Press(*picker, Qt::Key_Up);
    EXPECT_EQ(picker->text(), u"11/22/1984"_s);
}

TEST_F(DatePickerTest, AnotherWindowLeavesTheCursorAndTheKeyingAlone) {
    Type(*picker, u"0229"_s);
    picker->setCursorPosition(1);
    QWidget box;
    new QLineEdit(&box);
    Activate(box);
    ASSERT_FALSE(picker->hasFocus());
    EXPECT_EQ(picker->text(), u"02/29"_s);
    EXPECT_FALSE(IsMarkedWrong(*picker));
    box.hide();
    Activate(window);
    ASSERT_TRUE(picker->hasFocus());
    EXPECT_EQ(picker->cursorPosition(), 1);
    EXPECT_FALSE(picker->hasSelectedText());
}

TEST_F(DatePickerTest, IsOneTabStop) {
    before->setFocus();
    Press(*before, Qt::Key_Tab);
    EXPECT_TRUE(picker->hasFocus());
    Press(*picker, Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
    Press(*other, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(picker->hasFocus());
    Press(*picker, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus());
}

// Editing.

TEST_F(DatePickerTest, MarkedDateStaysMarked) {
    picker->SetValue(Day(1984, 2, 29));
    Press(*picker, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(picker->selectedText(), u"02/29/1984"_s);
}

TEST_F(DatePickerTest, BackspaceAndDeleteTakeOutDigits) {
    Type(*picker, u"8/1/202"_s);
    Press(*picker, Qt::Key_Backspace);
    Press(*picker, Qt::Key_Backspace);
    EXPECT_EQ(picker->text(), u"8/1/2"_s);
    Press(*picker, Qt::Key_Home);
    Press(*picker, Qt::Key_Delete);
    EXPECT_EQ(picker->text(), u"/1/2"_s);
    Type(*picker, u"9"_s);
    EXPECT_EQ(picker->text(), u"9/1/2"_s);
    picker->setSelection(2, 1);
    Type(*picker, u"15"_s);
    EXPECT_EQ(picker->text(), u"9/15/2"_s);
    picker->setSelection(0, 4);
    Press(*picker, Qt::Key_Backspace);
    EXPECT_EQ(picker->text(), u"//2"_s);
}

TEST_F(DatePickerTest, SlashOverAMarkedDateLeavesIt) {
    picker->SetValue(Day(1984, 2, 29));
    Type(*picker, u"/"_s);
    EXPECT_EQ(picker->text(), u"02/29/1984"_s);
}

TEST_F(DatePickerTest, UndoBringsBackTheDateThatWasKeyedOver) {
    picker->SetValue(Day(1984, 2, 29));
    Type(*picker, u"8"_s);
    for (int i = 0; i < 3 && picker->text() != u"02/29/1984"_s; ++i)
        Press(*picker, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(picker->text(), u"02/29/1984"_s);
}

TEST_F(DatePickerTest, PasteTakesThePlaceOfTheWholeDate) {
    for (const QString& text : {u"08/01/2026"_s, u" 8/1/2026\r\n"_s, u"08012026"_s, u"\t8-1-2026"_s}) {
        picker->SetValue(Day(1984, 2, 29));
        picker->setCursorPosition(8);
        Paste(text);
        EXPECT_EQ(ValueOf(*picker), u"08/01/2026"_s) << text.toStdString();
    }
    EXPECT_EQ(changes.size(), 4);
}

TEST_F(DatePickerTest, PasteThatIsNoDateIsToldAndLeavesTheDate) {
    for (const QString& text : {u"Aug 1, 2026"_s, u"8/1/20265"_s, u"8/1/2026 10:30"_s}) {
        picker->SetValue(Day(1984, 2, 29));
        QToolTip::hideText();
        Paste(text);
        EXPECT_EQ(picker->text(), u"02/29/1984"_s) << text.toStdString();
        EXPECT_EQ(QToolTip::text(), u"What was copied is no date such as 8/1/2026."_s);
    }
    Paste(u"2026-08-01"_s);
    EXPECT_EQ(picker->Value(), std::nullopt) << "the year first is no date of this hospital";
    EXPECT_TRUE(IsMarkedWrong(*picker));
}

// Stepping.

TEST_F(DatePickerTest, EmptyPickerStartsFromItsLastDate) {
    picker->SetValue(Day(1984, 2, 29));
    picker->SetValue(std::nullopt);
    Press(*picker, Qt::Key_Up);
    EXPECT_EQ(changes, QStringList{u"02/29/1984"_s});
    EXPECT_EQ(ValueOf(*picker), u"02/29/1984"_s);
}

TEST_F(DatePickerTest, ArrowKeysStepThePart) {
    picker->SetValue(Day(1984, 2, 29));
    Press(*picker, Qt::Key_Up);
    EXPECT_EQ(picker->cursorPosition(), 0);
    picker->setCursorPosition(4);
    Press(*picker, Qt::Key_Down);
    EXPECT_EQ(picker->cursorPosition(), 4);
    picker->setCursorPosition(10);
    Press(*picker, Qt::Key_Down);
    EXPECT_EQ(changes, QStringList({u"03/29/1984"_s, u"03/28/1984"_s, u"03/28/1983"_s}));
}

TEST_F(DatePickerTest, ArrowKeyStepsThePartOfADateWithoutZeros) {
    Type(*picker, u"8/1/2026"_s);
    Press(*picker, Qt::Key_Home);
    Press(*picker, Qt::Key_Delete);
    ASSERT_EQ(picker->text(), u"8/01/2026"_s);
    picker->setCursorPosition(3);
    Press(*picker, Qt::Key_Up);
    EXPECT_EQ(picker->text(), u"08/02/2026"_s);
    EXPECT_EQ(picker->cursorPosition(), 3);
}

TEST_F(DatePickerTest, ArrowKeysStepNoTextThatIsNoDate) {
    picker->SetValue(Day(1984, 2, 29));
    Type(*picker, u"8/1"_s);
    Press(*picker, Qt::Key_Up);
    Press(*picker, Qt::Key_Down);
    EXPECT_EQ(picker->text(), u"8/1"_s);
    EXPECT_TRUE(IsMarkedWrong(*picker));
    EXPECT_EQ(changes, QStringList());
}

TEST_F(DatePickerTest, ArrowKeysStopAtTheFirstYearOfTheServer) {
    picker->SetValue(Day(1753, 1, 1));
    for (const int cursor : {1, 4, 10}) {
        picker->setCursorPosition(cursor);
        Press(*picker, Qt::Key_Down);
        EXPECT_EQ(ValueOf(*picker), u"01/01/1753"_s);
    }
    EXPECT_EQ(changes, QStringList());
}

// The calendar.

TEST_F(DatePickerTest, CalendarDropsDownByKeyAndByItsButton) {
    picker->SetValue(Day(1984, 2, 29));
    auto* button = picker->findChild<QToolButton*>();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
    const std::vector<std::function<void()>> roads = {[&] { Press(*picker, Qt::Key_F4); },
                                                      [&] { Press(*picker, Qt::Key_Down, Qt::AltModifier); },
                                                      [&] { Click(*button); },
                                                      [&] {
                                                          other->setFocus();
                                                          Click(*button);
                                                      }};
    for (const auto& road : roads) {
        road();
        ASSERT_TRUE(OpenCalendar());
        EXPECT_EQ(picker->text(), u"02/29/1984"_s);
        EXPECT_EQ(OpenCalendar()->findChild<QCalendarWidget*>()->selectedDate(), QDate(1984, 2, 29));
        Press(Days(), Qt::Key_Escape);
        ASSERT_FALSE(OpenCalendar());
        EXPECT_TRUE(picker->hasFocus());
    }
    EXPECT_EQ(changes, QStringList());
    EXPECT_EQ(window.escapes, 0) << "the screen stays";
}

TEST_F(DatePickerTest, CalendarThatTakesNoneLeavesTheKeyingAsItWas) {
    Type(*picker, u"8/1/20"_s);
    picker->setCursorPosition(3);
    Press(*picker, Qt::Key_F4);
    Press(Days(), Qt::Key_Escape);
    EXPECT_EQ(picker->text(), u"8/1/20"_s);
    EXPECT_EQ(picker->cursorPosition(), 3);
    EXPECT_FALSE(picker->hasSelectedText());
    EXPECT_FALSE(IsMarkedWrong(*picker)) << "it is not left yet";
}

TEST_F(DatePickerTest, EscapeInAClosedBoxGoesOnToTheScreen) {
    Press(*picker, Qt::Key_Escape);
    EXPECT_EQ(window.escapes, 1);
}

TEST_F(DatePickerTest, EnterTakesTheMarkedDay) {
    picker->SetValue(Day(2026, 8, 31));
    Press(*picker, Qt::Key_F4);
    Press(Days(), Qt::Key_Right);
    EXPECT_EQ(changes, QStringList()) << "arrows move in the calendar";
    Press(Days(), Qt::Key_Return);
    EXPECT_FALSE(OpenCalendar());
    EXPECT_EQ(picker->text(), u"09/01/2026"_s);
    EXPECT_EQ(changes, QStringList{u"09/01/2026"_s});
    EXPECT_EQ(picker->cursorPosition(), 0);
    other->setFocus();
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DatePickerTest, ClickTakesADay) {
    picker->SetValue(Day(2026, 8, 15));
    Press(*picker, Qt::Key_F4);
    auto& days = static_cast<QTableView&>(Days());
    // The first day of August 2026 is the Saturday of the first week below the names of the days.
    const QRect first = days.visualRect(days.model()->index(1, days.model()->columnCount() - 1));
    QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_FALSE(OpenCalendar());
    EXPECT_EQ(changes, QStringList{u"08/01/2026"_s});
}

TEST_F(DatePickerTest, CalendarOfAnEmptyBoxAndOfAWrongTextBeginsAtTheLastDate) {
    picker->SetValue(Day(1984, 2, 29));
    Type(*picker, u"8/1"_s);
    Press(*picker, Qt::Key_F4);
    ASSERT_TRUE(OpenCalendar());
    EXPECT_EQ(OpenCalendar()->findChild<QCalendarWidget*>()->selectedDate(), QDate(1984, 2, 29));
    Press(Days(), Qt::Key_F4);
    EXPECT_FALSE(OpenCalendar());
    EXPECT_EQ(picker->text(), u"8/1"_s) << "no day was taken";
    Press(*picker, Qt::Key_F4);
    Press(Days(), Qt::Key_Return);
    EXPECT_EQ(picker->text(), u"02/29/1984"_s);
    EXPECT_EQ(changes, QStringList()) << "the date that it was";
}

TEST_F(DatePickerTest, CalendarOffersTheDaysThatAreTaken) {
    picker->SetLastDay(Day(9998, 12, 31));
    Press(*picker, Qt::Key_F4);
    const auto* month = OpenCalendar()->findChild<QCalendarWidget*>();
    EXPECT_EQ(month->minimumDate(), QDate(1753, 1, 1));
    EXPECT_EQ(month->maximumDate(), QDate(9998, 12, 31));
    EXPECT_EQ(month->selectedDate(), QDate(2026, 11, 21)) << "today";
    Press(Days(), Qt::Key_Escape);
}

TEST_F(DatePickerTest, ClickBehindTheCalendarsButtonGoesToItsPlace) {
    picker->SetValue(Day(1984, 11, 21));
    other->setFocus();
    Click(*picker->findChild<QToolButton*>());
    Press(Days(), Qt::Key_Escape);
    ClickAt(PlaceOf(4));
    EXPECT_EQ(picker->cursorPosition(), 4);
}
