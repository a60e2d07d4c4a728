#include "trial/sqlite/DateFunctions.h"

#include "tsql/DateText.h"
#include "tsql/ServerError.h"
#include "tsql/SqlType.h"

#include <optional>

namespace {

constexpr qint64 kMinute = 60LL * 1000;
constexpr qint64 kHour = 60 * kMinute;
constexpr int kMonthsOfAYear = 12;
// Wide enough for every date there is, narrow enough that nothing overflows.
constexpr qint64 kMostParts = 5'300'000'000;
constexpr int kStoredDateSize = 10;
constexpr DateTime::Fields kServerDayZero = {1900, 1, 1, 0, 0, 0, 0};

bool IsDateAlone(QByteArrayView stored) {
    return stored.size() <= kStoredDateSize;
}

[[noreturn]] void RaiseBeyondCalendar(QByteArrayView stored) {
    const SqlType type = IsDateAlone(stored) ? SqlType::Date() : SqlType::DateTime();
    throw ServerError(Fault::DateAddOverflow, {type.Name()});
}

DateTime Earliest(bool dateAlone) {
    const int year = dateAlone ? ServerDate::kFirstYearOfDate : ServerDate::kFirstYear;
    return *DateTime::FromFields({year, 1, 1, 0, 0, 0, 0});
}
DateTime Latest() {
    return *DateTime::FromFields({ServerDate::kLastYear, 12, 31, 23, 59, 59, 999});
}

qint64 Length(QByteArrayView part) {
    return part == "day" ? DateTime::kDay : part == "hour" ? kHour : kMinute;
}

qint64 FloorDivide(qint64 value, qint64 by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

/// Nothing beyond the calendar.
std::optional<DateTime> AddMonths(DateTime moment, qint64 count) {
    DateTime::Fields fields = moment.ToFields();
    const qint64 months = qint64(fields.year) * kMonthsOfAYear + fields.month - 1 + count;
    const qint64 year = FloorDivide(months, kMonthsOfAYear);
    if (year < ServerDate::kFirstYearOfDate || year > ServerDate::kLastYear)
        return std::nullopt;
    fields.year = static_cast<int>(year);
    fields.month = static_cast<int>(months - year * kMonthsOfAYear) + 1;
    auto moved = DateTime::FromFields(fields);
    while (!moved) {
        --fields.day;
        moved = DateTime::FromFields(fields);
    }
    return *moved;
}

} // namespace

QByteArray AddToDate(QByteArrayView part, qint64 count, QByteArrayView stored) {
    const DateTime moment = FromStored(stored);
    if (count > kMostParts || count < -kMostParts)
        RaiseBeyondCalendar(stored);
    std::optional<DateTime> moved;
    if (part == "year" || part == "month")
        moved = AddMonths(moment, part == "year" ? count * kMonthsOfAYear : count);
    else
        moved = DateTime::FromMilliseconds(moment.Milliseconds() + count * Length(part));
    const bool dateAlone = IsDateAlone(stored);
    if (!moved || *moved < Earliest(dateAlone) || *moved > Latest())
        RaiseBeyondCalendar(stored);
    return dateAlone ? StoredDate(*moved) : StoredDateTime(*moved);
}

QByteArray SumOfDates(QByteArrayView left, qint64 sign, QByteArrayView right) {
    const qint64 zero = DateTime::FromFields(kServerDayZero)->Milliseconds();
    const DateTime sum = InServerSteps(DateTime::FromMilliseconds(
        FromStored(left).Milliseconds() + sign * (FromStored(right).Milliseconds() - zero)));
    if (sum < Earliest(false) || sum > Latest())
        throw ServerError(Fault::Overflow, {SqlType::DateTime().Name()});
    return StoredDateTime(sum);
}

qint64 DateDifference(QByteArrayView part, QByteArrayView from, QByteArrayView to) {
    const DateTime first = FromStored(from);
    const DateTime second = FromStored(to);
    if (part == "year" || part == "month") {
        const DateTime::Fields a = first.ToFields();
        const DateTime::Fields b = second.ToFields();
        const qint64 years = b.year - a.year;
        return part == "year" ? years : years * kMonthsOfAYear + b.month - a.month;
    }
    const qint64 parts =
        FloorDivide(second.Milliseconds(), Length(part)) - FloorDivide(first.Milliseconds(), Length(part));
    if (parts != static_cast<qint32>(parts))
        throw ServerError(Fault::DateDiffOverflow);
    return parts;
}

qint64 PartOfDate(QByteArrayView part, QByteArrayView stored) {
    const DateTime::Fields fields = FromStored(stored).ToFields();
    return part == "year" ? fields.year : part == "month" ? fields.month : fields.day;
}
