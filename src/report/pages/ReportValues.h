#pragma once

#include "gateway/RowSet.h"
#include "gateway/Value.h"
#include "text/DateTime.h"

#include <QString>

#include <memory>
#include <vector>

/// What a report shows besides its rows.
struct ReportValues {
    /// Of the parameters, in the template's order.
    std::vector<Value> parameters;
    /// The moment at which the rows were ordered.
    DateTime now;
    /// Who had the report made: the user of its tables' logon.
    QString user = {};
};

/// The rows of each query, in the template's order; the first are the report's rows.
using QueryRows = std::vector<std::shared_ptr<const RowData>>;
