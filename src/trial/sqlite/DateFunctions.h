#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

// The server's functions on dates, for dates as the hospital's file holds them. A part is one of "year",
// "month", "day", "hour" and "minute".

/// DATEADD: the moment moved by so many parts; a month or year without the day ends on its last day. Raises
/// 8115 where no such date exists. A date without time stays one.
QByteArray AddToDate(QByteArrayView part, qint64 count, QByteArrayView stored);

/// DATEDIFF: the number of a part's boundaries between two moments.
qint64 DateDifference(QByteArrayView part, QByteArrayView from, QByteArrayView to);

/// YEAR, MONTH and DAY.
qint64 PartOfDate(QByteArrayView part, QByteArrayView stored);
