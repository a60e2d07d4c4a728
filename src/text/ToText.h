#pragma once

#include "text/DateTime.h"

#include <QString>
#include <QStringView>

/// The texts that the run-time makes of a value when it is joined to a text or put into a text box.
/// "True" or "False".
QString ToText(bool value);
/// Plain digits.
QString ToText(qint64 value);
/// Up to 15 significant digits, without trailing zeros; an exponent only where more than 15 places would be
/// needed.
QString ToText(double value);
/// "m/d/yyyy" at midnight, "h:mm:ss AM/PM" on day 0, otherwise both with a blank between them.
QString ToText(DateTime value);
/// An exact decimal without the zeros behind its last decimal: "100.0000" becomes "100".
QString DecimalToText(QStringView decimal);
