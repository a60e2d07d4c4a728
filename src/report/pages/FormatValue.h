#pragma once

#include "gateway/Value.h"

#include <QString>
#include <QStringView>

/// A value in a cell's format. A format with a 0 or # in it is one for numbers, any other one for dates; an
/// empty one gives the run-time's own text. Null gives the empty text, and a text that is neither number nor
/// date stays as it is.
QString FormatValue(const Value& value, QStringView format);

/// Whether a format is one for numbers.
bool IsNumberFormat(QStringView format);
