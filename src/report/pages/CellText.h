#pragma once

#include "report/pages/ReportData.h"
#include "report/template/ReportTemplate.h"

#include <QString>
#include <QStringView>

/// Where in the report a text stands.
struct TextPlace {
    const ReportData& data;
    /// The row whose fields are shown; any number where there are no rows.
    size_t row = 0;
    /// The rows that sums and counts take in, the last one excluded.
    size_t firstRow = 0;
    size_t endRow = 0;
    int page = 1;
    int pages = 1;
};

/// The text that a cell shows at that place.
QString TextOf(const ReportCell& cell, const TextPlace& place);

/// A value in a cell's format. A format with a 0 or # in it is one for numbers, any other one for dates; an
/// empty one gives the run-time's own text. Null gives the empty text, and a text that is neither number nor
/// date stays as it is.
QString FormatValue(const Value& value, QStringView format);

/// Whether a format is one for numbers.
bool IsNumberFormat(QStringView format);
