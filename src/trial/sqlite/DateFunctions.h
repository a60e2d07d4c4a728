#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

// The server's functions on dates, for dates as the hospital's file holds them. A part is one of "year",
// "month", "day", "hour" and "minute".

/// DATEADD: the moment moved by so many parts; a month or year without the day ends on its last day. Raises
/// 517 where no such date exists. A date without time stays one.
QByteArray AddToDate(QByteArrayView part, qint64 count, QByteArrayView stored);

/// Two moments added, or subtracted with sign -1, as the days since 1900-01-01 that they are. Raises 8115
/// beyond the calendar.
QByteArray SumOfDates(QByteArrayView left, qint64 sign, QByteArrayView right);

/// DATEDIFF: the number of a part's boundaries between two moments. Raises 535 where an int cannot hold it.
qint64 DateDifference(QByteArrayView part, QByteArrayView from, QByteArrayView to);

/// YEAR, MONTH and DAY.
qint64 PartOfDate(QByteArrayView part, QByteArrayView stored);
