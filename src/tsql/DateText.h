#pragma once

#include "text/DateTime.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// Date and time as the hospital's file holds them: "yyyy-mm-dd hh:mm:ss.fff", and "yyyy-mm-dd" for a date
/// alone. Texts of this form sort as the moments do.
QByteArray StoredDateTime(DateTime moment);
QByteArray StoredDate(DateTime moment);
/// The moment that a stored text stands for; the run-time's date 0 for a text that is none.
DateTime FromStored(QByteArrayView stored);

/// The steps of a day as a `datetime` of the server counts them: 300 in a second.
constexpr qint64 kServerStepsOfDay = 24LL * 60 * 60 * 300;
/// The steps since midnight, to the nearest one.
qint64 ServerSteps(DateTime moment);
/// The moment as a `datetime` holds it: the milliseconds end in 0, 3 and 7.
DateTime InServerSteps(DateTime moment);

/// What the server makes of a text that shall be a date.
struct ServerDate {
    /// The first year of a `datetime`, that of a `date`, and the last of both.
    static constexpr int kFirstYear = 1753;
    static constexpr int kFirstYearOfDate = 1;
    static constexpr int kLastYear = 9999;

    enum class Outcome {
        Read,
        /// The text has no form of a date.
        NoDate,
        /// The form is one, but there is no such day or time.
        OutOfRange,
    };
    Outcome outcome = Outcome::NoDate;
    DateTime moment;
};

/// Reads a text as the server does in its usual settings (language us_english): "mm/dd/yyyy" with "/", "-" or
/// ".", "yyyy-mm-dd", "yyyymmdd", a year alone, month names before or behind the day, or with a year alone,
/// each with or without a time "hh:mm[:ss[.fff]] [AM|PM]", and a time alone, which lies on 1900-01-01. A
/// blank text is 1900-01-01. Two-digit years up to 49 lie in the 2000s.
ServerDate ReadServerDate(QByteArrayView text);

/// A moment as CONVERT writes it in one of the server's styles: 0 and 100 "Nov 21 2026  2:02PM", 101
/// "11/21/2026", 120 "2026-11-21 14:02:00", 121 the same with milliseconds. Nothing for a style that is not
/// known here.
std::optional<QByteArray> ServerDateText(DateTime moment, int style);
