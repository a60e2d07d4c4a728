#include "toolkit/DatePicker.h"

#include "text/Clock.h"
#include "text/Format.h"
#include "text/IsDate.h"

#include <QDate>
#include <QFocusEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

/// Where the parts of "mm/dd/yyyy" end.
constexpr int kMonthEnd = 2;
constexpr int kDayEnd = 5;

DateTime Stepped(DateTime from, int steps, int cursor) {
    const DateTime::Fields fields = from.ToFields();
    const QDate day(fields.year, fields.month, fields.day);
    const QDate next = cursor <= kMonthEnd ? day.addMonths(steps)
                       : cursor <= kDayEnd ? day.addDays(steps)
                                           : day.addYears(steps);
    return DateTime::FromFields({.year = next.year(), .month = next.month(), .day = next.day()})
        .value_or(from);
}

} // namespace

DatePicker::DatePicker(QWidget* parent)
    : MaskedEdit(u"##/##/####"_s, parent)
    , mBase(Today()) {}

std::optional<DateTime> DatePicker::Value() const {
    const QString keyed = Text();
    if (keyed.trimmed() == u"/  /"_s)
        return std::nullopt;
    const std::optional<DateTime> day = ParseDate(keyed);
    return day ? std::optional(day->DateOnly()) : mValue;
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

/// Makes the text the picker's date.
void DatePicker::TakeKeyed() {
    const std::optional<DateTime> before = mValue;
    Show(Value());
    if (mValue != before)
        Q_EMIT Change();
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
}

void DatePicker::focusOutEvent(QFocusEvent* event) {
    MaskedEdit::focusOutEvent(event);
    // A message box or another program comes and goes while the clerk still keys.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        TakeKeyed();
}
