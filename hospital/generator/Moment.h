#pragma once

#include <QDate>
#include <QString>

/// A moment of a generated hospital: a day counted from the day that stands for today, and a minute of that
/// day.
struct Moment {
    int day = 0;
    int minute = 0;

    friend constexpr auto operator<=>(const Moment&, const Moment&) = default;

    Moment Plus(int minutes) const {
        const int total = minute + minutes;
        return {day + total / kMinutesPerDay, total % kMinutesPerDay};
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
