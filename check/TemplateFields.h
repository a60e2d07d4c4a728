#pragma once

#include "check/Needs.h"
#include "report/template/ReportTemplate.h"

#include <QStringList>

/// The fields, sums, groups and charts of a template whose columns its queries do not answer, a line each with
/// the line of the template. A query that cannot be read is told too, and so are the words of a barcode that no
/// bars can be drawn for.
QStringList ProblemsOfFields(const ReportTemplate& read, const Needs& needs);
