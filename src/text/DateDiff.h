#pragma once

#include "text/DateTime.h"

/// What DateDiff counts: midnights ("d") or turns of the year ("yyyy").
enum class DateInterval { Day, Year };

/// The number of boundaries crossed from one moment to the other, negative when the second lies earlier. From
/// 31 December to 1 January is one year, and from 23:59 to 00:01 is one day.
qint64 DateDiff(DateInterval interval, DateTime from, DateTime to);
