#pragma once

#include "report/template/ReportTemplate.h"

#include <QString>

/// Reading the texts of a template that mix words and {placeholders}. Each failure is the template's error
/// with its file and the given line.

/// The pieces of a cell's text: {Column}, {Query.Column}, {?Parameter}, {page}, {pages}, {now}, {user},
/// {sum Column} and {count} between the words. Whether a column exists is known only when the rows are there.
std::vector<TextPiece> ReadCellText(const ReportTemplate& report, int line, const QString& text);

/// The pieces of a query: {Table} for a table's location and {?Parameter} for a parameter's literal.
std::vector<QueryPiece> ReadQueryText(const ReportTemplate& report, int line, const QString& text);
