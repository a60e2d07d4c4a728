#pragma once

#include "text/DateTime.h"

#include <QString>
#include <QStringView>

/// A number as text in a pattern such as "0", "0.00" or "#,##0.00".
///
/// The zeros before the point give the least number of integer digits, those behind it the decimals; "#,##"
/// in front groups thousands. The number is rounded half away from zero on its 15-digit decimal text, so
/// 2.675 becomes 2.68 although the nearest double lies below it. A negative number that rounds to zero loses
/// its sign. A number beyond the range of doubles raises RunTime::kOverflow.
QString Format(double number, QStringView pattern);

/// A moment as text in a pattern of yyyy, yy, mmmm, mmm, mm, m, dddd, ddd, dd, d, hh, h, nn, n, ss, s and
/// AM/PM; every other character stands for itself.
///
/// The fields are read without regard to case. "mm" or "m" right after hours means minutes, and AM/PM makes
/// the hours those of a 12-hour clock. Day and month names are English.
QString Format(DateTime moment, QStringView pattern);
