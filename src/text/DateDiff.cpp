#include "text/DateDiff.h"

qint64 DateDiff(DateInterval interval, DateTime from, DateTime to) {
    if (interval == DateInterval::Day)
        return to.DayNumber() - from.DayNumber();
    return to.ToFields().year - from.ToFields().year;
}
