#pragma once

#include <QString>

class Report;

/// The parameters of a report in their order, a line each: name, type, the template's own value, and what
/// the clerk is asked.
QString DescribeParameters(Report& report);
