#include "text/ToText.h"

#include "text/Format.h"

using namespace Qt::StringLiterals;

QString ToText(bool value) {
    return value ? u"True"_s : u"False"_s;
}

QString ToText(qint64 value) {
    return QString::number(value);
}

QString ToText(double value) {
    constexpr int kPlaces = 15;
    QString text = QString::number(value, 'G', kPlaces);
    const qsizetype e = text.indexOf(u'E');
    if (e < 0)
        return text;
    // The run-time prefers plain decimals for small numbers as long as they fit into its 15 places.
    const qsizetype decimals = (text.at(0) == u'-' ? e - 1 : e) - (text.contains(u'.') ? 1 : 0);
    const qint64 places = decimals - 1 - QStringView(text).mid(e + 1).toInt();
    if (text.at(e + 1) == u'-' && places <= kPlaces)
        return QString::number(value, 'f', static_cast<int>(places));
    return text;
}

QString ToText(DateTime value) {
    constexpr auto kTime = u"h:mm:ss AM/PM";
    if (value.DayNumber() == 0)
        return Format(value, kTime);
    const QString date = Format(value, u"m/d/yyyy");
    return value.IsMidnight() ? date : date + u' ' + Format(value, kTime);
}

QString DecimalToText(QStringView decimal) {
    if (!decimal.contains(u'.'))
        return decimal.toString();
    while (decimal.endsWith(u'0'))
        decimal.chop(1);
    if (decimal.endsWith(u'.'))
        decimal.chop(1);
    return decimal.toString();
}
