#pragma once

#include "reporting/ParameterField.h"
#include "reporting/ReportDocument.h"
#include "reporting/ReportTable.h"
#include "reporting/ReportTemplate.h"

#include <memory>
#include <vector>

/// A report that is open in the engine: its template, and what the callers set on its tables and parameters.
class Report {
  public:
    explicit Report(ReportTemplate report);
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    /// The template's file.
    const QString& File() const { return mTemplate.file; }
    /// In the template's order.
    std::vector<ReportTable>& Tables() { return mTables; }
    /// In the template's order.
    std::vector<ParameterField>& ParameterFields() { return mFields; }

    /// The pages. The rows are fetched when they are first asked for, over a connection of their own that is
    /// closed again at once; the tables' logons are forgotten then. Raises an error for a parameter without a
    /// value, a table without a logon, and what the database raises.
    std::shared_ptr<const ReportDocument> Document();
    bool HasDocument() const { return mDocument != nullptr; }

  private:
    QString ComposeQuery(const ReportQuery& query) const;
    const ReportLogOn& LogOn() const;
    ReportData Fetch() const;

    ReportTemplate mTemplate;
    std::vector<ReportTable> mTables;
    std::vector<ParameterField> mFields;
    std::shared_ptr<const ReportDocument> mDocument;
};
