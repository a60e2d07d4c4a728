#include "text/DateTime.h"

#include <chrono>

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = sys_days(year(1899) / 12 / 30);

} // namespace

std::optional<DateTime> DateTime::FromFields(const Fields& f) {
    // The calendar's own types hold a month and a day in one byte; larger numbers would come back as small
    // ones.
    if (f.year < 1 || f.year > 9999 || f.month < 1 || f.month > 12 || f.day < 1 || f.day > 31)
        return std::nullopt;
    const year_month_day date{year(f.year), month(static_cast<unsigned>(f.month)),
                              day(static_cast<unsigned>(f.day))};
    const bool timeExists = f.hour >= 0 && f.hour < 24 && f.minute >= 0 && f.minute < 60 && f.second >= 0 &&
                            f.second < 60 && f.millisecond >= 0 && f.millisecond < 1000;
    if (!date.ok() || !timeExists)
        return std::nullopt;
    const qint64 dayNumber = (sys_days(date) - kDayZero).count();
    const qint64 time = ((f.hour * 60LL + f.minute) * 60 + f.second) * 1000 + f.millisecond;
    return DateTime(dayNumber * kDay + time);
}

DateTime::Fields DateTime::ToFields() const {
    const year_month_day date(kDayZero + days(DayNumber()));
    const qint64 time = mMilliseconds - DayNumber() * kDay;
    Fields f;
    f.year = int(date.year());
    f.month = static_cast<int>(unsigned(date.month()));
    f.day = static_cast<int>(unsigned(date.day()));
    f.hour = static_cast<int>(time / 3600000);
    f.minute = static_cast<int>(time / 60000 % 60);
    f.second = static_cast<int>(time / 1000 % 60);
    f.millisecond = static_cast<int>(time % 1000);
    return f;
}

DateTime DateTime::DateOnly() const {
    return DateTime(DayNumber() * kDay);
}

qint64 DateTime::DayNumber() const {
    return std::chrono::floor<days>(std::chrono::milliseconds(mMilliseconds)).count();
}

bool DateTime::IsMidnight() const {
    return mMilliseconds == DayNumber() * kDay;
}
