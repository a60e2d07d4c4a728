#include "toolkit/DatePicker.h"

#include "text/Clock.h"
#include "text/Format.h"
#include "toolkit/Calendar.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QCoreApplication>
#include <QDate>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QToolTip>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kPattern = u"mm/dd/yyyy";
/// Where the parts of the pattern begin.
constexpr std::array kPartBegins = {0, 3, 6};
/// How far from its place a tip stands.
constexpr QPoint kTipOffset(-4, 16);
/// The mark of a text that is no date, by which it is drawn.
constexpr auto kWrong = "wrong";

QDate ToQDate(DateTime day) {
    const DateTime::Fields fields = day.ToFields();
    return {fields.year, fields.month, fields.day};
}

DateTime FromQDate(QDate day) {
    return *DateTime::FromFields({.year = day.year(), .month = day.month(), .day = day.day()});
}

/// The day so many months, days or years on; the same one where the days that are taken end.
DateTime Stepped(DateTime from, int steps, KeyedDate::Part part, DateTime last) {
    const QDate day = ToQDate(from);
    const QDate next = part == KeyedDate::Month ? day.addMonths(steps)
                       : part == KeyedDate::Day ? day.addDays(steps)
                                                : day.addYears(steps);
    const bool isTaken = next >= ToQDate(FirstDayOfTheServer()) && next <= ToQDate(last);
    return isTaken ? FromQDate(next) : from;
}

QString ReasonOf(const DateReading& reading, DateTime last) {
    using Kind = DateReading::Kind;
    switch (reading.kind) {
    case Kind::Unfinished:
        return u"The date is not complete. Key month, day and year, such as 8/1/2026."_s;
    case Kind::ShortYear:
        return u"The year needs its four digits, such as 8/1/2026."_s;
    case Kind::NoSuchDay:
        return u"There is no such day. Key month, day and year, such as 8/1/2026."_s;
    case Kind::OutOfRange:
        return u"Days from %1 to %2 are taken."_s.arg(Format(FirstDayOfTheServer(), kPattern),
                                                      Format(last, kPattern));
    default:
        return {};
    }
}

bool IsDateKey(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// The focus goes to another window, or to the calendar or a menu, and will come back.
bool IsForAWhile(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

DatePicker::DatePicker(QWidget* parent)
    : TextBox(parent)
    , mBase(Today()) {
    setPlaceholderText(u"mm/dd/yyyy"_s);
    // A date has no composed letters; its digits come as keys.
    setAttribute(Qt::WA_InputMethodEnabled, false);
    QAction* button = addAction(ProgramIcon(u"calendar"_s), QLineEdit::TrailingPosition);
    button->setText(u"Calendar"_s);
    button->setToolTip(u"Calendar (F4)"_s);
    connect(button, &QAction::triggered, this, &DatePicker::DropDownCalendar);
    connect(this, &QLineEdit::textChanged, this, &DatePicker::SignWhileKeyed);
}

void DatePicker::SetRequired() {
    mIsRequired = true;
}

void DatePicker::SetLastDay(DateTime day) {
    mLast = day;
}

DateReading DatePicker::Read() const {
    return ReadKeyedDate(text(), mLast);
}

std::optional<DateTime> DatePicker::Value() const {
    return Read().day;
}

QString DatePicker::Text() const {
    return InDateMask(text());
}

void DatePicker::SetValue(std::optional<DateTime> value) {
    Show(value ? std::optional(value->DateOnly()) : std::nullopt);
    GoToFirstPlace();
}

/// The cursor stays in its part, and behind the year where it was keyed to its end.
void DatePicker::Show(std::optional<DateTime> value) {
    mBase = value.value_or(mValue.value_or(mBase));
    mValue = value;
    const QString before = text();
    const QString shown = value ? Format(*value, kPattern) : QString();
    const bool isFresh = before.isEmpty() || selectionLength() == before.size();
    const int cursor = cursorPosition();
    const int place = before.size() == shown.size() ? cursor : kPartBegins[Keyed().PartAtPlace()];
    if (before != shown)
        setText(shown);
    if (isFresh)
        GoToFirstPlace();
    else if (cursor < before.size())
        setCursorPosition(place);
    mKeyedTo = -1;
    Sign({});
}

void DatePicker::Take(std::optional<DateTime> value) {
    const std::optional<DateTime> before = mValue;
    Show(value);
    if (mValue != before)
        Q_EMIT Change();
}

/// Makes what was keyed the date. False for a text that is none, which stays and is marked.
bool DatePicker::Settle() {
    const DateReading reading = Read();
    Sign(reading);
    if (reading.IsWrong())
        return false;
    Take(!reading.day && mIsRequired ? mValue : reading.day);
    return true;
}

bool DatePicker::TakeKeyed() {
    if (Settle())
        return true;
    setFocus();
    GoToFirstPlace();
    Tell(toolTip());
    return false;
}

/// The box has been left. A screen that closed with it asks nothing of what was keyed.
void DatePicker::TakeLeft() {
    if (!isVisible() || hasFocus() || Settle())
        return;
    // A focus that still moves would take the reason along.
    QTimer::singleShot(0, this, [this] {
        if (isVisible())
            Tell(toolTip());
    });
}

/// With the focus the whole date is marked, so that the next digit begins another one.
void DatePicker::GoToFirstPlace() {
    mKeyedTo = -1;
    setCursorPosition(0);
    if (hasFocus())
        setSelection(int(text().size()), -int(text().size()));
}

/// From a text that is no date there is nothing to step on.
void DatePicker::Step(int steps) {
    const DateReading now = Read();
    Sign(now);
    if (!now.IsWrong())
        Take(now.day ? Stepped(*now.day, steps, Keyed().PartAtPlace(), mLast) : mBase);
}

void DatePicker::DropDownCalendar() {
    mIsArriving = false;
    if (!mCalendar) {
        mCalendar = new Calendar(this);
        connect(mCalendar, &Calendar::Picked, this, &DatePicker::TakePicked);
    }
    mCalendar->DropDown(ToQDate(Value().value_or(mBase)), ToQDate(FirstDayOfTheServer()), ToQDate(mLast));
}

void DatePicker::TakePicked(QDate day) {
    selectAll();
    Take(FromQDate(day));
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
    const bool withAlt = (event->modifiers() & Qt::AltModifier) != 0;
    switch (event->key()) {
    case Qt::Key_F4:
        if (event->modifiers() == Qt::NoModifier)
            return DropDownCalendar();
        break;
    case Qt::Key_Up:
        return Step(1);
    case Qt::Key_Down:
        return withAlt ? DropDownCalendar() : Step(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Settle();
        break;
    default:
        if (Edit(*event))
            return;
    }
    TextBox::keyPressEvent(event);
}

/// Marking, copying, undoing and moving are those of every text box.
bool DatePicker::Edit(const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && event.key() == Qt::Key_Backspace)
        TakeOut(&KeyedDate::RemoveBefore);
    else if (isPlain && event.key() == Qt::Key_Delete)
        TakeOut(&KeyedDate::RemoveBehind);
    else if (IsDateKey(event))
        KeyTyped(event.text().front());
    else
        return false;
    return true;
}

void DatePicker::TakeOut(void (KeyedDate::*remove)()) {
    KeyedDate keyed = Keyed();
    if (hasSelectedText())
        keyed.Remove(selectionStart(), selectionEnd());
    else
        (keyed.*remove)();
    Put(keyed);
}

void DatePicker::KeyTyped(QChar typed) {
    KeyedDate keyed = Keyed();
    if (hasSelectedText() && typed.isDigit())
        keyed.Remove(selectionStart(), selectionEnd());
    if (!keyed.Key(typed))
        return Tell(typed.isDigit() ? u"The year has its four digits."_s
                                    : u"Key digits, such as 8/1/2026."_s);
    Put(keyed);
    // The year's last digit ends the date. The parts before it do not: over another date each of them would
    // make a date that nobody means.
    if (cursorPosition() == text().size() && Read().day)
        Settle();
}

void DatePicker::TakeText(const QString& text) {
    const std::optional<QString> laid = KeyedDate::Laid(text.trimmed());
    if (!laid)
        return Tell(u"What was copied is no date such as 8/1/2026."_s);
    Put(KeyedDate(*laid, int(laid->size()), -1));
    if (Read().day)
        Settle();
}

KeyedDate DatePicker::Keyed() const {
    return {text(), cursorPosition(), mKeyedTo};
}

/// Undo brings back what was there.
void DatePicker::Put(const KeyedDate& keyed) {
    if (text() != keyed.Text()) {
        selectAll();
        insert(keyed.Text());
    }
    setCursorPosition(keyed.Place());
    mKeyedTo = keyed.KeyedTo();
}

/// While a date is keyed only what no further key mends is marked.
void DatePicker::SignWhileKeyed() {
    const DateReading reading = Read();
    Sign(reading.IsHopeless() ? reading : DateReading());
    if (hasFocus())
        Tell(toolTip());
}

void DatePicker::Sign(const DateReading& reading) {
    if (property(kWrong).toBool() == reading.IsWrong() && toolTip() == ReasonOf(reading, mLast))
        return;
    setProperty(kWrong, reading.IsWrong());
    setToolTip(ReasonOf(reading, mLast));
    setAccessibleDescription(toolTip());
    update();
}

/// Beside the box, so that nothing below it is covered. An empty text takes the one before away.
void DatePicker::Tell(const QString& text) {
    QToolTip::showText(mapToGlobal(rect().topRight()) - kTipOffset, text, this);
}

void DatePicker::focusInEvent(QFocusEvent* event) {
    TextBox::focusInEvent(event);
    const bool comesBack = std::exchange(mComesBack, false) && IsForAWhile(event->reason());
    mIsArriving = event->reason() == Qt::MouseFocusReason;
    if (!comesBack)
        GoToFirstPlace();
}

void DatePicker::focusOutEvent(QFocusEvent* event) {
    TextBox::focusOutEvent(event);
    mIsArriving = false;
    mComesBack = IsForAWhile(event->reason());
    if (mComesBack)
        return;
    if (event->reason() == Qt::MouseFocusReason)
        // What the Change opens would come between the button's press and its release and take the click.
        qApp->installEventFilter(this);
    else
        TakeLeft();
}

bool DatePicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        qApp->removeEventFilter(this);
        QMetaObject::invokeMethod(this, &DatePicker::TakeLeft, Qt::QueuedConnection);
    }
    return TextBox::eventFilter(watched, event);
}

/// The click that brings the focus goes to the first place, wherever it falls; the next one to its own.
void DatePicker::mousePressEvent(QMouseEvent* event) {
    if (!mIsArriving)
        TextBox::mousePressEvent(event);
}

void DatePicker::mouseMoveEvent(QMouseEvent* event) {
    if (!mIsArriving)
        TextBox::mouseMoveEvent(event);
}

void DatePicker::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasArriving = std::exchange(mIsArriving, false);
    if (!wasArriving || event->button() == Qt::MiddleButton)
        TextBox::mouseReleaseEvent(event);
}
