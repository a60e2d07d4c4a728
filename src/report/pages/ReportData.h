#pragma once

#include "gateway/RowSet.h"
#include "gateway/Value.h"
#include "report/pages/ReportSums.h"
#include "report/template/ReportTemplate.h"
#include "text/DateTime.h"

#include <memory>
#include <vector>

/// What a report shows: the rows of its queries and the values of its parameters, in the template's order,
/// the moment at which they were taken, and by whom.
struct ReportData {
    /// One for each query; the first is the report's rows.
    std::vector<std::shared_ptr<const RowData>> queries;
    std::vector<Value> parameters;
    DateTime now;
    /// Who had the report made: the user of its tables' logon.
    QString user = {};
    /// Sums of the report's rows, as far as anything has asked for them.
    std::shared_ptr<ReportSums> sums = std::make_shared<ReportSums>();

    const RowData& Rows() const { return *queries.front(); }
};

/// Finds the column of each field, sum and group of the template among the rows. Raises the template's error
/// with file and line for a name that is not among them.
void ResolveFields(ReportTemplate& report, const ReportData& data);
