#include "toolkit/DatePicker.h"

#include "text/Clock.h"
#include "text/Format.h"

#include <QCoreApplication>
#include <QDate>
#include <QFocusEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

/// Where the parts of "mm/dd/yyyy" end.
constexpr int kMonthEnd = 2;
constexpr int kDayEnd = 5;
constexpr int kYearEnd = 10;
/// The first year of the hospital server's datetime.
constexpr int kFirstYear = 1753;

/// The day that all eight digits make; nothing for a box that lacks one or names no day that the server
/// takes.
std::optional<DateTime> DayOf(const QString& keyed) {
    const int year = keyed.mid(kDayEnd + 1).toInt();
    if (keyed.contains(u' ') || year < kFirstYear)
        return std::nullopt;
    return DateTime::FromFields(
        {.year = year, .month = keyed.left(kMonthEnd).toInt(), .day = keyed.mid(kMonthEnd + 1, 2).toInt()});
}

DateTime Stepped(DateTime from, int steps, int cursor) {
    const DateTime::Fields fields = from.ToFields();
    const QDate day(fields.year, fields.month, fields.day);
    const QDate next = cursor <= kMonthEnd ? day.addMonths(steps)
                       : cursor <= kDayEnd ? day.addDays(steps)
                                           : day.addYears(steps);
    return DayOf(next.toString(u"MM/dd/yyyy")).value_or(from);
}

} // namespace

DatePicker::DatePicker(QWidget* parent)
    : MaskedEdit(u"##/##/####"_s, parent)
    , mBase(Today()) {}

std::optional<DateTime> DatePicker::Value() const {
    const QString keyed = Text();
    if (keyed.trimmed() == u"/  /"_s)
        return std::nullopt;
    const std::optional<DateTime> day = DayOf(keyed);
    return day ? day : mValue;
}

void DatePicker::SetValue(std::optional<DateTime> value) {
    Show(value ? std::optional(value->DateOnly()) : std::nullopt);
}

void DatePicker::Show(std::optional<DateTime> value) {
    mBase = value.value_or(mValue.value_or(mBase));
    mValue = value;
    setText(value ? Format(*value, u"mm/dd/yyyy") : QString());
}

void DatePicker::Step(int steps) {
    const int cursor = cursorPosition();
    const std::optional<DateTime> now = Value();
    Show(now ? Stepped(*now, steps, cursor) : mBase);
    setCursorPosition(cursor);
    Q_EMIT Change();
}

void DatePicker::TakeKeyed() {
    const std::optional<DateTime> before = mValue;
    Show(Value());
    if (mValue != before)
        Q_EMIT Change();
}

/// The click may have closed the screen, which asks nothing of what was keyed.
void DatePicker::TakeLeft() {
    if (isVisible())
        TakeKeyed();
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return Step(1);
    case Qt::Key_Down:
        return Step(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        TakeKeyed();
        break;
    default:
        break;
    }
    MaskedEdit::keyPressEvent(event);
    // The year's last digit ends the date. The parts before it do not: over another date each of them would
    // make a date that nobody means.
    const std::optional<DateTime> keyed = DayOf(Text());
    if (cursorPosition() == kYearEnd && keyed && keyed != mValue)
        TakeKeyed();
}

void DatePicker::focusOutEvent(QFocusEvent* event) {
    MaskedEdit::focusOutEvent(event);
    switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        // A message box or another program comes and goes while the clerk still keys.
        return;
    case Qt::MouseFocusReason:
        // What the Change opens would come between the button's press and its release and take the click.
        qApp->installEventFilter(this);
        return;
    default:
        TakeKeyed();
    }
}

bool DatePicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        qApp->removeEventFilter(this);
        QMetaObject::invokeMethod(this, &DatePicker::TakeLeft, Qt::QueuedConnection);
    }
    return MaskedEdit::eventFilter(watched, event);
}
