#pragma once

#include <QDate>
#include <QString>

namespace Generator {

/// A moment of a generated hospital: a day counted from the day that stands for today, and a minute of that
/// day.
struct Moment {
    int day = 0;
    int minute = 0;

    friend constexpr auto operator<=>(const Moment&, const Moment&) = default;

    /// The moment that many minutes later; earlier when they are negative.
    constexpr Moment Plus(int minutes) const {
        const int total = minute + minutes;
        const int rest = (total % kMinutesPerDay + kMinutesPerDay) % kMinutesPerDay;
        return {day + (total - rest) / kMinutesPerDay, rest};
    }

    static constexpr int kMinutesPerDay = 24 * 60;
};

/// The calendar day that stands for today in the generated texts. The last script moves every date from here
/// to the day on which the hospital is made.
inline QDate BaseDay() {
    return {2026, 1, 1};
}

/// A calendar day as the server's language writes it in any language setting, without quotes: yyyymmdd.
QString DayText(QDate day);

} // namespace Generator
