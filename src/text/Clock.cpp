#include "text/Clock.h"

#include <QDateTime>

#include <utility>

namespace {

DateTime MachineClock() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return DateTime::FromFields({date.year(), date.month(), date.day(), time.hour(), time.minute(),
                                 time.second(), time.msec()})
        .value_or(DateTime());
}

std::function<DateTime()> currentClock = MachineClock;

} // namespace

DateTime Now() {
    return currentClock();
}

DateTime Today() {
    return Now().DateOnly();
}

void SetClock(std::function<DateTime()> clock) {
    currentClock = clock ? std::move(clock) : MachineClock;
}
