#include "text/Clock.h"

#include <QDateTime>

namespace {

DateTime MachineClock() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return DateTime::FromFields({date.year(), date.month(), date.day(), time.hour(), time.minute(),
                                 time.second(), time.msec()})
        .value_or(DateTime());
}

} // namespace

DateTime Now() {
    return ClockSeam()();
}

DateTime Today() {
    return Now().DateOnly();
}

Seam<DateTime()>& ClockSeam() {
    static Seam<DateTime()> seam(MachineClock);
    return seam;
}
