#include "report/pages/FormatValue.h"

#include "text/Format.h"
#include "text/IsDate.h"
#include "text/IsNumeric.h"

using namespace Qt::StringLiterals;

namespace {

/// Decimals that the pattern marks with "#" are written only where the number has them, and so is the point.
QString FormatDecimals(double number, QStringView pattern) {
    const qsizetype point = pattern.indexOf(u'.');
    if (point < 0 || !pattern.endsWith(u'#'))
        return Format(number, pattern);
    const QStringView decimals = pattern.sliced(point + 1);
    QString text =
        Format(number, pattern.first(point + 1).toString() + decimals.toString().replace(u'#', u'0'));
    for (qsizetype spare = decimals.count(u'#'); spare > 0 && text.endsWith(u'0'); --spare)
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

QString FormatNumber(const Value& value, QStringView format) {
    const auto* text = std::get_if<QString>(&value.Get());
    const bool number = text ? IsNumeric(*text) : !std::holds_alternative<DateTime>(value.Get());
    return number ? FormatDecimals(value.ToDouble(), format) : value.ToText();
}

QString FormatDate(const Value& value, QStringView format) {
    if (const auto* date = std::get_if<DateTime>(&value.Get()))
        return Format(*date, format);
    if (const auto* text = std::get_if<QString>(&value.Get())) {
        if (const auto date = ParseDate(*text))
            return Format(*date, format);
    }
    return value.ToText();
}

} // namespace

bool IsNumberFormat(QStringView format) {
    return format.contains(u'0') || format.contains(u'#');
}

QString FormatValue(const Value& value, QStringView format) {
    if (value.IsNull())
        return {};
    if (format.isEmpty())
        return value.ToText();
    return IsNumberFormat(format) ? FormatNumber(value, format) : FormatDate(value, format);
}
